// SPDX-License-Identifier: MIT
#include "tool_bar.h"

#include "tool_bar_commands.h"
#include "tool_bar_content.h"
#include "tool_bar_keys.h"
#include "tool_bar_p.h"
#include "tool_bar_placer.h"
#include "tool_button_accessible.h"

#include <ui_base/commands/command_id.h>
#include <vlk_common_res/styles.h>
#include <vlk_license/license_service.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

using License::LicenseService;
using Resource::Styles;

ToolBar::ToolBar(int autoPositionInterval, bool hideOnClick, QWidget* parent, Qt::ToolBarArea area)
    : ToolBar(*new ToolBarPrivate, parent, area, autoPositionInterval, hideOnClick) {}

ToolBar::ToolBar(QWidget* parent, Qt::ToolBarArea area) : ToolBar(*new ToolBarPrivate, parent, area) {}

ToolBar::ToolBar(ToolBarPrivate& state, QWidget* parent, Qt::ToolBarArea area, int autoPositionInterval,
                 bool hideOnClick)
    : QWidget(parent), d(&state) {
  d->toolBar = this;
  Initialize(area, autoPositionInterval, hideOnClick);
}

// While this is still a toolbar, as the buttons tell it what becomes of their menus.
ToolBar::~ToolBar() {
  d->placer->stop();
  setGraphicsEffect(nullptr);
  // Before what this is made of, for the same reason.
  const auto subToolBars = std::exchange(d->ownSubToolBars, {});
  for (const QPointer<ToolBar>& subToolBar : subToolBars)
    delete subToolBar.data();
  delete d->commands;
  delete d->content;
}

void ToolBar::Initialize(Qt::ToolBarArea area, int autoPositionInterval, bool hideOnClick) {
  makeToolBarsAccessible();
  setFocusPolicy(Qt::NoFocus);
  d->content = new ToolBarContent(this);
  d->content->setLayoutListener([this] { d->contentChanged(); });
  d->commands = new ToolBarCommands(*this);
  d->keys->attach(*this);
  d->placer = std::make_unique<ToolBarPlacer>(*this);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  installEventFilter(this);
  setMouseTracking(true);
  d->params.hideOnClick = hideOnClick;
  d->area = area;
  d->applyPopupDefaults();
  d->applyLayout();
  d->applyShadow();
  d->followParent();
  d->autoPositionTimer = new QTimer(this);
  d->autoPositionTimer->setSingleShot(true);
  d->autoPositionTimer->setInterval(autoPositionInterval);
  connect(d->autoPositionTimer, &QTimer::timeout, this, &ToolBar::OnAutoPosition);
  d->InitializeStateMachine();
  d->InitializeResizeTimer();
  connect(this, &ToolBar::ButtonMenuVisibilityChange, this,
          [this](ToolButton*, bool visible) { d->onMenuVisibilityChange(visible); });
  connect(this, &ToolBar::CloseFlyout, this, [this] {
    if (ToolButtonWithWidgetMenu* const active = GetActiveButton())
      active->HideMenu();
  });
  connect(&Styles::Instance(), &Styles::changed, this, [this] { update(); });
  connect(&LicenseService::Instance(), &LicenseService::stateChanged, this,
          [this] { d->forEachButton([](ToolButton& button) { button.UpdateLicenseLock(); }); });
}

// --- looking up

QList<ToolButton*> ToolBar::Buttons() const { return d->content->buttons(); }

QList<ToolButtonWithMenu*> ToolBar::MenuButtons(bool nested) const {
  QList<ToolButtonWithMenu*> found;
  const QList<ToolButton*> all = Buttons();
  for (ToolButton* const button : all) {
    auto* const withMenu = qobject_cast<ToolButtonWithMenu*>(button);
    if (!withMenu)
      continue;
    found.append(withMenu);
    if (const auto* const menu = nested ? qobject_cast<ToolBar*>(withMenu->GetMenu()) : nullptr)
      found += menu->MenuButtons(true);
  }
  return found;
}

ToolButton* ToolBar::FindOneButton(const QString& id, bool nested) const {
  if (id.isEmpty())
    return nullptr;
  const QList<ToolButton*> all = Buttons();
  const auto found = std::find_if(all.cbegin(), all.cend(), [&id](const ToolButton* button) {
    return button->property(CMDID_PROP).toString() == id || button->objectName() == id;
  });
  if (found != all.cend() || !nested)
    return found == all.cend() ? nullptr : *found;
  const QList<ToolButtonWithMenu*> menus = MenuButtons(false);
  for (const ToolButtonWithMenu* const button : menus) {
    const auto* const menu = qobject_cast<ToolBar*>(button->GetMenu());
    if (ToolButton* const inside = menu ? menu->FindOneButton(id, true) : nullptr)
      return inside;
  }
  return nullptr;
}

ToolBar* ToolBar::GetBaseToolBar() const {
  const ToolBar* base = this;
  while (base->d->ownerButton) {
    const ToolBar* const outer = base->d->ownerButton->OwningToolBar();
    if (!outer || outer == base)
      break;
    base = outer;
  }
  return const_cast<ToolBar*>(base);
}

ToolButtonWithWidgetMenu* ToolBar::GetActiveButton() const { return GetBaseToolBar()->d->activeButton; }

void ToolBar::SetActiveButton(ToolButtonWithWidgetMenu* button) {
  GetBaseToolBar()->d->activeButton = button;
}

void ToolBar::AddToFocusCycle(QWidget* bar) {
  if (bar)
    ToolBarFocusCycle::add(*bar);
}

ToolButtonWithMenu* ToolBar::OwnerButton() const { return d->ownerButton; }

void ToolBar::SetOwnerButton(ToolButtonWithMenu* button) {
  const QPointer<ToolBar> self(this);
  d->changeNest(button);
  if (self && button && !testAttribute(Qt::WA_WState_ExplicitShowHide))
    hide();
}

void ToolBar::AddExclusiveGroupButton(const QString& group, QToolButton* button) {
  auto& members = d->exclusiveGroups[group];
  if (button && !members.contains(button))
    members.append(button);
}

// --- events

bool ToolBar::event(QEvent* event) {
  switch (event->type()) {
  case QEvent::ParentChange:
    d->followParent();
    break;
  case QEvent::FocusIn:
    d->keys->enter();
    break;
  default:
    break;
  }
  return QWidget::event(event);
}

void ToolBar::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::LayoutDirectionChange)
    d->contentChanged();
}

// Every event of every button comes by.
bool ToolBar::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
  case QEvent::Resize:
    if (watched == d->followedParent)
      d->followParentSize();
    return false;
  case QEvent::KeyPress:
  case QEvent::ActionChanged:
  case QEvent::ActionRemoved:
  case QEvent::ShowToParent:
  case QEvent::HideToParent:
    break;
  default:
    return false;
  }
  if (auto* const button = qobject_cast<ToolButton*>(watched))
    return d->filterButton(*button, *event);
  auto* const other = qobject_cast<QAbstractButton*>(watched);
  return other && event->type() == QEvent::KeyPress &&
         d->keys->press(*other, static_cast<QKeyEvent&>(*event));
}

void ToolBar::enterEvent(QEnterEvent*) {}

void ToolBar::hideEvent(QHideEvent*) { d->giveFocusBack(); }

// What goes to the bar does not go to the view below.
void ToolBar::mouseMoveEvent(QMouseEvent* event) { event->accept(); }

void ToolBar::mousePressEvent(QMouseEvent* event) { event->accept(); }

void ToolBar::mouseReleaseEvent(QMouseEvent* event) { event->accept(); }

void ToolBar::moveEvent(QMoveEvent*) {
  d->placer->noteMove();
  if (!isWindow())
    d->resizeTimer->start();
}

void ToolBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  d->paint(painter);
}

void ToolBar::resizeEvent(QResizeEvent*) {
  d->fitContent();
  d->placer->update();
  d->resizeTimer->start();
}

void ToolBar::showEvent(QShowEvent*) {
  ToolBarFocusCycle::of(*window());
  if (d->sizeOutOfDate)
    AdjustToolBarSize(true);
  d->resizeTimer->start();
  raise();
}

bool ToolBar::Hovered() const { return rect().contains(mapFromGlobal(QCursor::pos())); }

} // namespace Vela::UiBase
