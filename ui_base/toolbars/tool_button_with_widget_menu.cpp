// SPDX-License-Identifier: MIT
#include "tool_button_with_widget_menu.h"

#include "tool_button_with_button_menu.h"
#include "tool_button_with_widget_menu_p.h"

#include <ui_base/commands/flyout_command.h>

#include <QKeyEvent>
#include <QScopedValueRollback>

#include <utility>

namespace Vela::UiBase {

// --- construction

ToolButtonWithWidgetMenu::ToolButtonWithWidgetMenu(QAction* action, ToolBar* toolBar, QWidget* menu,
                                                   QWidget* parent)
    : ToolButtonWithWidgetMenu(*new ToolButtonWithWidgetMenuPrivate, action, toolBar, menu, parent) {}

ToolButtonWithWidgetMenu::ToolButtonWithWidgetMenu(ToolButtonWithWidgetMenuPrivate& state, QAction* action,
                                                   ToolBar* toolBar, QWidget* menu, QWidget* parent)
    : ToolButtonWithMenu(state, action, toolBar, parent) {
  Initialize(menu);
}

ToolButtonWithWidgetMenu::~ToolButtonWithWidgetMenu() {
  d->beginDestruction();
  HideMenu();
  d->toolBar.clear();
  SetMenu(nullptr);
  ArrowedWindow* const window = own()->liveWindow();
  if (!window)
    return;
  window->disconnect(this);
  if (own()->popupHides)
    window->deleteLater();
  else
    delete window;
}

void ToolButtonWithWidgetMenu::Initialize(QWidget* menu) {
  // The command of a flyout is unchecked when it ends without the button's doing.
  SetHideMenuWhenUnchecked(true);
  connect(this, &ToolButtonWithMenu::ButtonMenuVisibilityChange, this, [this](ToolButton*, bool visible) {
    if (visible)
      return;
    const QPointer<ToolButtonWithWidgetMenu> self(this);
    if (FlyoutCommand* const command = own()->activeSimpleCommand())
      command->onFinalize();
    else if (FlyoutBase* const flyout = own()->flyout())
      flyout->CloseMe();
    if (!self)
      return;
    if (ToolBar* const bar = OwningToolBar(); bar && bar->GetActiveButton() == this)
      bar->SetActiveButton(nullptr);
    if (ToolButtonWithButtonMenu* const controller = own()->controllerMenu();
        controller && controller->ExtendedButton() == this)
      controller->OnExitExtendMode();
  });
  SetMenu(menu);
}

ToolButtonWithWidgetMenuPrivate* ToolButtonWithWidgetMenu::own() const {
  return static_cast<ToolButtonWithWidgetMenuPrivate*>(d.get());
}

// --- the menu

void ToolButtonWithWidgetMenu::SetMenu(QWidget* menu, bool arrowed) {
  if (menu && (menu == own()->menu || menu == this || menu->isAncestorOf(this)))
    return;
  HideMenu();
  own()->watch(nullptr);
  if (FlyoutBase* const before = own()->flyout())
    own()->unwire(*before);
  else if (own()->menu)
    for (QAction* const action : own()->menu->actions())
      action->disconnect(this);
  own()->giveBack();
  own()->partialBackground = QRect();
  own()->menu = menu;
  own()->arrowed = arrowed;
  if (!menu)
    return;
  if (auto* const flyout = qobject_cast<FlyoutBase*>(menu))
    own()->wire(*flyout);
  else
    for (QAction* const action : menu->actions())
      connect(action, &QAction::triggered, this, &ToolButtonWithMenu::OnActionTriggered);
  own()->host();
  AttachMenu(menu);
}

void ToolButtonWithWidgetMenu::SetMenuParameters(bool autoDecide, const SArrowParam& arrow,
                                                 EDirection direction, int distance, EWidgetsAlign alignment,
                                                 const QPoint& offset) {
  own()->autoDecideArrow = autoDecide;
  own()->arrow = arrow;
  SetMenuPosParameters(direction, distance, alignment, offset);
  if (!own()->window)
    return;
  own()->window->SetAutoDecideArrowPosition(autoDecide);
  own()->window->SetArrow(arrow);
}

ArrowedWindow* ToolButtonWithWidgetMenu::GetArrowedWindow() const { return own()->liveWindow(); }

void ToolButtonWithWidgetMenu::SetExtendController(QWidget* controller) {
  own()->extendController = controller;
}

QWidget* ToolButtonWithWidgetMenu::ExtendController() const { return own()->extendController; }

void ToolButtonWithWidgetMenu::ClickedHandler() {
  if (std::exchange(own()->openAtClick, false)) {
    const QPointer<ToolButtonWithWidgetMenu> self(this);
    HideMenu();
    if (self)
      d->endUnopenedFlyout(); // which the click has begun again
    return;
  }
  // It may have ended before its button was told to open the panel.
  if (const auto* const command = qobject_cast<FlyoutCommand*>(Action()); command && !command->isActive())
    return;
  const ToolButtonWithButtonMenu* const controller = own()->controllerMenu();
  if (controller && controller->IsExtendModeEnabled())
    Q_EMIT RequestShowMenu();
  else
    ShowMenu();
}

void ToolButtonWithWidgetMenu::OnRequestShowMenu() {
  if (!own()->menu)
    return; // the controller would stand in for nothing
  const QPointer<ToolButtonWithWidgetMenu> self(this);
  if (ToolButtonWithButtonMenu* const controller = own()->controllerMenu())
    controller->OnEnterExtendMode(this);
  if (self)
    ShowMenu();
}

void ToolButtonWithWidgetMenu::ShowMenu() {
  if (!own()->menu)
    return;
  const QPointer<ToolButtonWithWidgetMenu> self(this);
  if (ToolButtonWithButtonMenu* const controller = own()->controllerMenu();
      controller && controller->IsInExtendMode()) {
    controller->RecordExtendedButton(this);
    controller->EnableTooltip(false);
  }
  if (ToolBar* const bar = OwningToolBar()) {
    if (ToolButtonWithWidgetMenu* const active = bar->GetActiveButton(); active && active != this)
      active->HideMenu();
    if (!self || !own()->menu)
      return;
    bar->SetActiveButton(this);
  }
  if (own()->arrowed) {
    const QScopedValueRollback guard(own()->showingMenu, true);
    own()->ensureWindow();
    if (own()->menu->parentWidget() != own()->window)
      own()->host();
    own()->watch(own()->window);
    own()->followLayer();
    own()->menu->show(); // a hidden content has no size
  }
  ToolButtonWithMenu::ShowMenu();
  if (self)
    own()->updatePartialBackground();
}

void ToolButtonWithWidgetMenu::HideMenu() {
  const QPointer<ToolButtonWithWidgetMenu> self(this);
  if (FlyoutBase* const flyout = own()->closeOnHide ? own()->flyout() : nullptr)
    flyout->CloseMe(); // which does nothing when it is closing already
  if (self)
    ToolButtonWithMenu::HideMenu();
}

void ToolButtonWithWidgetMenu::CloseMenu() {
  const QPointer<ToolButtonWithWidgetMenu> self(this);
  if (QWidget* const popup = own()->popup())
    popup->hide();
  if (self)
    MenuHidden();
  if (!self)
    return;
  if (ToolBar* const bar = OwningToolBar(); bar && bar->GetActiveButton() == this)
    bar->SetActiveButton(nullptr);
}

QPoint ToolButtonWithWidgetMenu::GetMenuPosition() {
  ArrowedWindow* const window = own()->liveWindow();
  if (!own()->arrowed || !window)
    return own()->menu ? own()->place() : QPoint();
  return own()->placeWindowInside();
}

// --- the flyout

void ToolButtonWithWidgetMenu::OnFlyoutClosed() {
  const QPointer<ToolButtonWithWidgetMenu> self(this);
  if (ToolButtonWithButtonMenu* const controller = own()->controllerMenu();
      controller && controller->ExtendedButton() == this)
    controller->OnExitExtendMode();
  else if (isCheckable() && !d->dying)
    setChecked(false);
  if (self)
    CloseMenu();
}

void ToolButtonWithWidgetMenu::OnFlyoutMoved() { RecalcMenuPosAndMove(); }

void ToolButtonWithWidgetMenu::OnFlyoutResized() {
  if (!IsMenuShowing() || own()->placing || std::exchange(own()->placePending, true))
    return;
  // Not while the window is laying itself out.
  const auto placeLater = [this] {
    own()->placePending = false;
    RecalcMenuPosAndMove();
    own()->updatePartialBackground();
  };
  QMetaObject::invokeMethod(this, placeLater, Qt::QueuedConnection);
}

void ToolButtonWithWidgetMenu::OnFlyoutSubWidgetVisibilityChanged(bool) { RecalcMenuPosAndMove(); }

void ToolButtonWithWidgetMenu::OnFlyoutSetPartialBackgroundColor(bool showColor, QRect rc, QColor color) {
  if (!own()->menu)
    return;
  own()->partialBackground = showColor ? rc.translated(-own()->menu->pos()) : QRect();
  own()->partialColor = color;
  own()->updatePartialBackground();
}

// --- events

bool ToolButtonWithWidgetMenu::eventFilter(QObject* watched, QEvent* event) {
  // A panel that is shown by itself, as by its command, is shown in its window.
  if (watched == own()->menu && event->type() == QEvent::ShowToParent && !own()->showingMenu &&
      !own()->closeOnHide && own()->arrowed)
    ShowMenu();
  return ToolButtonWithMenu::eventFilter(watched, event);
}

void ToolButtonWithWidgetMenu::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape || !own()->closeOnHide || !own()->flyout())
    ToolButtonWithMenu::keyPressEvent(event);
}

void ToolButtonWithWidgetMenu::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && !event->isAutoRepeat() && own()->closeOnHide && own()->flyout())
    Q_EMIT ESCKeyReleased();
  else
    ToolButtonWithMenu::keyReleaseEvent(event);
}

} // namespace Vela::UiBase
