// SPDX-License-Identifier: MIT
#include "tool_button_with_button_menu.h"

#include "tool_button_arrow.h"
#include "tool_button_with_button_menu_p.h"

#include <vlk_common_res/styles.h>

#include <QEnterEvent>
#include <QHideEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

using Resource::Styles;

namespace {

/// The buttons of a toolbar, without one that is being destroyed.
QList<ToolButton*> buttonsOf(const ToolBar* bar) {
  QList<ToolButton*> buttons;
  const auto all = bar ? bar->Buttons() : QList<ToolButton*>();
  for (QObject* const each : all) {
    if (auto* const button = qobject_cast<ToolButton*>(each))
      buttons.append(button);
  }
  return buttons;
}

} // namespace

// --- state

QWidget* ToolButtonWithButtonMenuPrivate::anchor() const {
  return extendController ? static_cast<QWidget*>(extendController) : button;
}

bool ToolButtonWithButtonMenuPrivate::isOpen() const {
  return inExtendMode || ToolButtonWithMenuPrivate::isOpen();
}

ToolBar* ToolButtonWithButtonMenuPrivate::subToolBar() const {
  return qobject_cast<ToolBar*>(static_cast<QObject*>(menu.data()));
}

QList<ToolButton*> ToolButtonWithButtonMenuPrivate::subButtons() const { return buttonsOf(subToolBar()); }

bool ToolButtonWithButtonMenuPrivate::isReachedFrom(const ToolBar& bar) const {
  const ToolBar* outer = liveToolBar();
  while (outer && outer != &bar) {
    const ToolButtonWithMenu* const opener = outer->OwnerButton();
    outer = opener ? opener->OwningToolBar() : nullptr;
  }
  return outer;
}

void ToolButtonWithButtonMenuPrivate::wireSubButtons() {
  auto* const self = static_cast<ToolButtonWithButtonMenu*>(button);
  for (ToolButton* const each : subButtons()) {
    auto* const sub = qobject_cast<ToolButtonWithWidgetMenu*>(each);
    if (!sub)
      continue;
    if (extendModeEnabled && sub->ExtendController() != self)
      wire(*sub, *self);
    else if (!extendModeEnabled && sub->ExtendController())
      unwire(*sub);
  }
}

void ToolButtonWithButtonMenuPrivate::wire(ToolButtonWithWidgetMenu& sub,
                                           ToolButtonWithButtonMenu& controller) {
  sub.SetExtendController(&controller);
  QObject::connect(&sub, &ToolButtonWithWidgetMenu::RequestShowMenu, &sub,
                   &ToolButtonWithWidgetMenu::OnRequestShowMenu, Qt::UniqueConnection);
  const QWidget* const menu = sub.GetMenu();
  if (menu && menu->metaObject()->indexOfSignal("RequestShowMenu()") >= 0)
    QObject::connect(menu, SIGNAL(RequestShowMenu()), &sub, SLOT(OnRequestShowMenu()), Qt::UniqueConnection);
}

void ToolButtonWithButtonMenuPrivate::unwire(ToolButtonWithWidgetMenu& sub) {
  QObject::disconnect(&sub, &ToolButtonWithWidgetMenu::RequestShowMenu, &sub,
                      &ToolButtonWithWidgetMenu::OnRequestShowMenu);
  const QWidget* const menu = sub.GetMenu();
  if (menu && menu->metaObject()->indexOfSignal("RequestShowMenu()") >= 0)
    QObject::disconnect(menu, SIGNAL(RequestShowMenu()), &sub, SLOT(OnRequestShowMenu()));
  sub.SetExtendController(nullptr);
}

void ToolButtonWithButtonMenuPrivate::rebuildArrow() {
  arrow = toolButtonArrow(button->rect(), posCalculator->Direction(), menu && menu->isVisible(),
                          button->layoutDirection());
  button->update();
}

void ToolButtonWithButtonMenuPrivate::wearIcon(const QIcon& other) {
  wornIcon = other;
  if (!other.isNull())
    button->setIcon(other);
}

// --- construction

ToolButtonWithButtonMenu::ToolButtonWithButtonMenu(const QIcon& icon, ToolBar* toolBar, ToolBar* menu,
                                                   const QString& name, QWidget* parent)
    : ToolButtonWithButtonMenu(*new ToolButtonWithButtonMenuPrivate, icon, toolBar, menu, name, parent) {}

ToolButtonWithButtonMenu::ToolButtonWithButtonMenu(ToolButtonWithButtonMenuPrivate& state, const QIcon& icon,
                                                   ToolBar* toolBar, ToolBar* menu, const QString& name,
                                                   QWidget* parent)
    : ToolButtonWithMenu(state, icon, toolBar, name, parent) {
  Initialize(menu);
}

ToolButtonWithButtonMenu::~ToolButtonWithButtonMenu() {
  d->beginDestruction();
  OnExitExtendMode();
  HideMenu();
  d->toolBar.clear();
  for (ToolButton* const each : own()->subButtons()) {
    if (auto* const sub = qobject_cast<ToolButtonWithWidgetMenu*>(each);
        sub && sub->ExtendController() == this)
      ToolButtonWithButtonMenuPrivate::unwire(*sub);
  }
  if (ToolBar* const bar = own()->subToolBar(); bar && bar->OwnerButton() == this)
    bar->SetOwnerButton(nullptr);
}

void ToolButtonWithButtonMenu::Initialize(ToolBar* menu) {
  connect(this, &ToolButtonWithMenu::ButtonMenuVisibilityChange, this, [this](ToolButton*, bool visible) {
    own()->rebuildArrow();
    if (visible || !own()->clearSelectionOnHide)
      return;
    for (ToolButton* const sub : own()->subButtons())
      sub->setChecked(false);
    Q_EMIT ButtonMenuCleared();
  });
  SetMenu(menu);
}

ToolButtonWithButtonMenuPrivate* ToolButtonWithButtonMenu::own() const {
  return static_cast<ToolButtonWithButtonMenuPrivate*>(d.get());
}

// --- the menu

ToolBar* ToolButtonWithButtonMenu::GetMenu() const { return own()->subToolBar(); }

void ToolButtonWithButtonMenu::SetMenu(ToolBar* menu) {
  ToolBar* const before = GetMenu();
  if (menu == before || (menu && own()->isReachedFrom(*menu)))
    return;
  OnExitExtendMode();
  if (before) {
    before->disconnect(this);
    const bool extend = std::exchange(own()->extendModeEnabled, false);
    own()->wireSubButtons();
    own()->extendModeEnabled = extend;
    if (before->OwnerButton() == this)
      before->SetOwnerButton(nullptr);
  }
  if (menu) {
    auto* const other = qobject_cast<ToolButtonWithButtonMenu*>(menu->OwnerButton());
    if (other && other != this)
      other->SetMenu(nullptr);
    menu->SetEnableAutoPosition(false);
  }
  AttachMenu(menu);
  if (menu) {
    menu->SetOwnerButton(this);
    connect(menu, &ToolBar::LayoutChanged, this, [this] {
      if (own()->extendModeEnabled)
        own()->wireSubButtons();
      RecalcMenuPosAndMove();
    });
  }
  if (own()->extendModeEnabled)
    own()->wireSubButtons();
  own()->rebuildArrow();
}

void ToolButtonWithButtonMenu::SetMenuParameters(EDirection direction, int distance, EWidgetsAlign alignment,
                                                 const QPoint& offset) {
  SetMenuPosParameters(direction, distance, alignment, offset);
  own()->rebuildArrow();
}

void ToolButtonWithButtonMenu::SetClearSelectionOnHide(bool clear) { own()->clearSelectionOnHide = clear; }

void ToolButtonWithButtonMenu::ApplyBaseToolBarParamsToButtonMenu() {
  ToolBar* const bar = OwningToolBar();
  ToolBar* const menu = GetMenu();
  if (!bar || !menu)
    return;
  menu->CopyAllParametersFrom(bar);
  menu->SetEnableAutoPosition(false);
}

bool ToolButtonWithButtonMenu::IsActionAssociated(QAction* action) const {
  const auto buttons = own()->subButtons();
  return action && std::any_of(buttons.cbegin(), buttons.cend(),
                               [action](const ToolButton* sub) { return sub->Action() == action; });
}

QAction* ToolButtonWithButtonMenu::GetFirstSubMenuAction(bool checkedOnly) const {
  for (const ToolButton* const sub : own()->subButtons()) {
    QAction* const action = sub->Action();
    if (action && (!checkedOnly || action->isChecked()))
      return action;
  }
  return nullptr;
}

void ToolButtonWithButtonMenu::ClickedHandler() {
  const bool wasOpen = std::exchange(own()->openAtClick, false);
  if (own()->inExtendMode)
    OnExitExtendMode();
  else if (IsMenuShowing() || wasOpen)
    HideMenu();
  else
    ShowMenu();
}

void ToolButtonWithButtonMenu::ShowMenu() {
  ToolBar* const menu = GetMenu();
  if (!menu)
    return;
  menu->SetEnableAutoPosition(false);
  if (own()->extendModeEnabled)
    own()->wireSubButtons();
  const QPointer<ToolButtonWithButtonMenu> self(this);
  ToolButtonWithMenu::ShowMenu();
  if (self)
    own()->rebuildArrow();
}

void ToolButtonWithButtonMenu::HideMenuEx() {
  if (!own()->inExtendMode)
    ToolButtonWithMenu::HideMenuEx();
}

QPoint ToolButtonWithButtonMenu::GetMenuPosition() {
  ToolBar* const menu = GetMenu();
  if (!menu)
    return {};
  menu->AdjustToolBarSize(false);
  return own()->place();
}

// --- extend mode

void ToolButtonWithButtonMenu::SetExtendMode(bool extend) {
  own()->extendModeEnabled = extend;
  if (!extend)
    OnExitExtendMode();
  own()->wireSubButtons();
}

bool ToolButtonWithButtonMenu::IsExtendModeEnabled() const { return own()->extendModeEnabled; }

bool ToolButtonWithButtonMenu::IsInExtendMode() const { return own()->inExtendMode; }

ToolButton* ToolButtonWithButtonMenu::ExtendedButton() const { return own()->extendedButton; }

void ToolButtonWithButtonMenu::OnEnterExtendMode(ToolButton* button) {
  if (!button || (own()->inExtendMode && own()->extendedButton == button))
    return;
  const QPointer<ToolButtonWithButtonMenu> self(this);
  const QPointer<ToolButton> sub(button);
  if (own()->inExtendMode)
    OnExitExtendMode();
  if (!self || !sub)
    return;
  own()->inExtendMode = true; // the button stays checked while its menu goes
  own()->menuCleared = false;
  HideMenu();
  if (!self || !sub)
    return;
  d->adoptIcon();
  own()->ownIcon = d->source;
  sub->d->adoptIcon();
  RecordExtendedButton(sub);
  own()->wearIcon(sub->d->source);
  if (isCheckable())
    setChecked(true);
  for (ToolButton* const other : buttonsOf(OwningToolBar())) {
    if (other != this)
      other->d->standBack(true);
  }
  EnableTooltip(false);
  for (ToolButton* const each : own()->subButtons())
    each->EnableTooltip(false);
  connect(sub, &QObject::destroyed, this, &ToolButtonWithButtonMenu::OnExitExtendMode, Qt::UniqueConnection);
  own()->rebuildArrow();
}

void ToolButtonWithButtonMenu::RecordExtendedButton(ToolButton* button) {
  own()->extendedButton = button;
  own()->extendController = qobject_cast<ToolButtonWithWidgetMenu*>(button);
}

void ToolButtonWithButtonMenu::OnExitExtendMode() {
  if (!own()->inExtendMode)
    return;
  const QPointer<ToolButtonWithButtonMenu> self(this);
  own()->noteClosing();
  if (!std::exchange(own()->menuCleared, true)) {
    for (ToolButton* const each : buttonsOf(OwningToolBar())) {
      each->d->standBack(false);
      each->UpdateLicenseLock();
    }
    own()->wornIcon = QIcon();
    setIcon(own()->ownIcon);
    IconState(Hovered());
    EnableTooltip(true);
    for (ToolButton* const each : own()->subButtons())
      each->EnableTooltip(true);
    if (ToolButton* const sub = std::exchange(own()->extendedButton, nullptr))
      disconnect(sub, &QObject::destroyed, this, &ToolButtonWithButtonMenu::OnExitExtendMode);
    if (ToolButtonWithWidgetMenu* const controller = std::exchange(own()->extendController, nullptr))
      controller->HideMenu();
    if (!self)
      return;
    Q_EMIT ButtonMenuCleared();
    if (!self)
      return;
  }
  own()->inExtendMode = false;
  if (isCheckable() && !d->dying)
    setChecked(false);
  if (self)
    own()->rebuildArrow();
}

// --- events

void ToolButtonWithButtonMenu::actionEvent(QActionEvent* event) {
  ToolButtonWithMenu::actionEvent(event);
  if (own()->inExtendMode)
    own()->wearIcon(own()->wornIcon);
}

void ToolButtonWithButtonMenu::changeEvent(QEvent* event) {
  ToolButtonWithMenu::changeEvent(event);
  if (event->type() == QEvent::LayoutDirectionChange)
    own()->rebuildArrow();
}

void ToolButtonWithButtonMenu::enterEvent(QEnterEvent* event) {
  ToolButtonWithMenu::enterEvent(event);
  update();
}

void ToolButtonWithButtonMenu::hideEvent(QHideEvent* event) {
  const QPointer<ToolButtonWithButtonMenu> self(this);
  ToolButtonWithMenu::hideEvent(event);
  if (self && !event->spontaneous())
    OnExitExtendMode();
}

void ToolButtonWithButtonMenu::leaveEvent(QEvent* event) {
  ToolButtonWithMenu::leaveEvent(event);
  update();
}

void ToolButtonWithButtonMenu::mouseMoveEvent(QMouseEvent* event) {
  ToolButtonWithMenu::mouseMoveEvent(event);
}

void ToolButtonWithButtonMenu::paintEvent(QPaintEvent* event) {
  ToolButtonWithMenu::paintEvent(event);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Styles& styles = Styles::Instance();
  painter.fillPath(own()->arrow, isEnabled() ? styles.ColorToolButtonArrow() : styles.ColorIconDisabled());
}

// The action that the button carries is no native menu, however long the button is pressed.
void ToolButtonWithButtonMenu::timerEvent(QTimerEvent* event) { QAbstractButton::timerEvent(event); }

void ToolButtonWithButtonMenu::resizeEvent(QResizeEvent* event) {
  ToolButtonWithMenu::resizeEvent(event);
  own()->rebuildArrow();
}

} // namespace Vela::UiBase
