// SPDX-License-Identifier: MIT
#include "tool_button_with_button_menu.h"

#include "tool_button_arrow.h"
#include "tool_button_with_button_menu_p.h"

#include <ui_base/core/dying.h>
#include <ui_base/popups/popup_sight.h>
#include <ui_base/popups/popup_window.h>
#include <vlk_common_res/styles.h>

#include <QEnterEvent>
#include <QHideEvent>
#include <QPainter>

#include <algorithm>

namespace Vela::UiBase {

using Resource::Styles;

// --- state

// What stands in the menu cannot say where that stands.
QWidget* ToolButtonWithButtonMenuPrivate::controller() const {
  ToolButtonWithWidgetMenu* const opener = extendController;
  return opener && !(menu && menu->isAncestorOf(opener)) ? opener : nullptr;
}

bool ToolButtonWithButtonMenuPrivate::isOpen() const {
  return extend != NotExtended || ToolButtonWithMenuPrivate::isOpen();
}

ToolBar* ToolButtonWithButtonMenuPrivate::subToolBar() const {
  return qobject_cast<ToolBar*>(static_cast<QObject*>(menu.data()));
}

QList<ToolButton*> ToolButtonWithButtonMenuPrivate::subButtons() const {
  const ToolBar* const bar = subToolBar();
  return bar ? bar->Buttons() : QList<ToolButton*>();
}

bool ToolButtonWithButtonMenuPrivate::isReachedFrom(const ToolBar& bar) const {
  const ToolBar* outer = liveToolBar();
  while (outer && outer != &bar) {
    const ToolButtonWithMenu* const opener = outer->OwnerButton();
    outer = opener ? opener->OwningToolBar() : nullptr;
  }
  return outer;
}

void ToolButtonWithButtonMenuPrivate::letGoOf(ToolBar& bar) {
  QObject::disconnect(layoutChange);
  bar.HideAllButtonMenusExcept(false, nullptr); // also those that opened when it was hidden
  if (bar.OwnerButton() == button)
    bar.SetOwnerButton(nullptr);
}

void ToolButtonWithButtonMenuPrivate::followBar() const {
  const LivePointer<ToolBar> bar = subToolBar();
  const ToolBar* const outer = liveToolBar();
  const QPointer<QWidget> place = outer ? outer->GetBaseToolBar()->parentWidget() : nullptr;
  if (!place || isDying(*place) || !bar || !bar->isHidden() || bar->isAncestorOf(place))
    return;
  bringHome(*bar);
  const QWidget* const before = bar ? bar->parentWidget() : nullptr;
  if (!before || !place || before->window() == place->window())
    return; // a window, or where it may have been put
  leaveFocus(*bar);
  if (bar && place)
    bar->setParent(place);
}

void ToolButtonWithButtonMenuPrivate::rebuildArrow() {
  arrow = toolButtonArrow(button->rect(), posCalculator->Direction(), menu && menu->isVisible(),
                          button->layoutDirection());
  button->update();
}

void ToolButtonWithButtonMenuPrivate::clearSelection() {
  const QList<ToolButton*> all = subButtons();
  const QList<QPointer<ToolButton>> subs(all.cbegin(), all.cend());
  for (const QPointer<ToolButton>& sub : subs) {
    if (sub)
      sub->setChecked(false);
  }
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
  if (IsInExtendMode())
    OnExitExtendMode();
  HideMenu();
  own()->letSubButtonsGo();
  if (ToolBar* const bar = own()->subToolBar())
    own()->letGoOf(*bar);
  d->toolBar.clear();
}

void ToolButtonWithButtonMenu::Initialize(ToolBar* menu) {
  connect(this, &ToolButtonWithMenu::ButtonMenuVisibilityChange, this, [this](ToolButton*, bool visible) {
    own()->rebuildArrow();
    // The extend mode needs the selection, and clears it in the end.
    if (visible || !own()->clearSelectionOnHide || IsInExtendMode())
      return;
    const QPointer<ToolButtonWithButtonMenu> self(this);
    own()->clearSelection();
    if (self)
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
  const QPointer<ToolButtonWithButtonMenu> self(this);
  const QPointer<ToolBar> next(menu);
  if (IsInExtendMode())
    OnExitExtendMode();
  if (!self)
    return;
  own()->letSubButtonsGo();
  if (ToolBar* const bar = GetMenu())
    own()->letGoOf(*bar);
  auto* const other = next ? qobject_cast<ToolButtonWithButtonMenu*>(next->OwnerButton()) : nullptr;
  if (other && other != this)
    other->SetMenu(nullptr);
  if (self)
    AttachMenu(next);
  if (!self)
    return;
  if (next && GetMenu() == next) {
    next->SetEnableAutoPosition(false);
    next->SetOwnerButton(this);
    own()->layoutChange = connect(next, &ToolBar::LayoutChanged, this, [this] {
      own()->controlSubButtons();
      RecalcMenuPosAndMove();
    });
  }
  own()->controlSubButtons();
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
  const bool closes = own()->state.takeClick() == MenuState::ClickCloses;
  if (IsInExtendMode())
    OnExitExtendMode();
  else if (IsMenuShowing() || closes)
    HideMenu();
  else
    ShowMenu();
}

void ToolButtonWithButtonMenu::ShowMenu() {
  ToolBar* const menu = GetMenu();
  if (!menu)
    return;
  const QPointer<ToolButtonWithButtonMenu> self(this);
  menu->SetEnableAutoPosition(false);
  own()->followBar();
  if (!self)
    return;
  own()->controlSubButtons();
  ToolButtonWithMenu::ShowMenu();
  if (self)
    own()->rebuildArrow();
}

void ToolButtonWithButtonMenu::HideMenuEx() {
  if (!IsInExtendMode())
    ToolButtonWithMenu::HideMenuEx();
}

QPoint ToolButtonWithButtonMenu::GetMenuPosition() { return GetMenu() ? own()->place() : QPoint(); }

// --- events

void ToolButtonWithButtonMenu::actionEvent(QActionEvent* event) {
  ToolButtonWithMenu::actionEvent(event);
  if (IsInExtendMode())
    own()->showSubIcon(own()->subIcon);
}

void ToolButtonWithButtonMenu::changeEvent(QEvent* event) {
  ToolButtonWithMenu::changeEvent(event);
  if (event->type() == QEvent::LayoutDirectionChange)
    own()->rebuildArrow();
}

void ToolButtonWithButtonMenu::enterEvent(QEnterEvent* event) { ToolButtonWithMenu::enterEvent(event); }

void ToolButtonWithButtonMenu::hideEvent(QHideEvent* event) {
  const QPointer<ToolButtonWithButtonMenu> self(this);
  ToolButtonWithMenu::hideEvent(event);
  if (self && !event->spontaneous() && IsInExtendMode())
    OnExitExtendMode();
}

void ToolButtonWithButtonMenu::leaveEvent(QEvent* event) { ToolButtonWithMenu::leaveEvent(event); }

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
void ToolButtonWithButtonMenu::timerEvent(QTimerEvent* event) {
  QAbstractButton::timerEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

void ToolButtonWithButtonMenu::resizeEvent(QResizeEvent*) { own()->rebuildArrow(); }

} // namespace Vela::UiBase
