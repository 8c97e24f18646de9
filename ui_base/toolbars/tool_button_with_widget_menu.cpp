// SPDX-License-Identifier: MIT
#include "tool_button_with_widget_menu.h"

#include "tool_button_with_button_menu.h"
#include "tool_button_with_widget_menu_p.h"

#include <ui_base/commands/flyout_command.h>

#include <QKeyEvent>

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
  if (own()->hosting && own()->hosting->next() == this)
    d->endUnopenedFlyout(); // which it was asked to open
  const bool changing = own()->state.isChanging();
  SetMenu(nullptr);
  ArrowedWindow* const window = own()->liveWindow();
  if (!window)
    return;
  disconnect(own()->windowDeath);
  if (changing)
    window->deleteLater();
  else
    delete window;
}

void ToolButtonWithWidgetMenu::Initialize(QWidget* menu) {
  // The command of a flyout is unchecked when it ends without the button's doing.
  SetHideMenuWhenUnchecked(true);
  // Not while the window is laying itself out.
  connect(&own()->placing, &QTimer::timeout, this, [this] {
    RecalcMenuPosAndMove();
    own()->updatePartialBackground();
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
  const QPointer<ToolButtonWithWidgetMenu> self(this);
  const QPointer<QWidget> next(menu);
  HideMenu();
  if (!self)
    return;
  own()->releaseMenu();
  if (!self || own()->menu)
    return; // somebody has given it one meanwhile
  own()->arrowed = arrowed;
  if (next)
    own()->takeMenu(*next);
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
  if (own()->extendController == controller)
    return;
  const QPointer<ToolButtonWithWidgetMenu> self(this);
  const QPointer<QWidget> next(controller);
  ToolButtonWithButtonMenu* const before = own()->controllerMenu();
  if (before && before->ExtendedButton() == this)
    before->OnExitExtendMode();
  if (!self)
    return;
  own()->extendController = next;
  own()->followRequests();
  RecalcMenuPosAndMove();
}

QWidget* ToolButtonWithWidgetMenu::ExtendController() const { return own()->extendController; }

QWidget* ToolButtonWithWidgetMenu::CurrentHost() {
  ToolButtonWithWidgetMenu* const next = own()->hosting ? own()->hosting->next() : nullptr;
  return next ? next : this;
}

void ToolButtonWithWidgetMenu::nextCheckState() {
  const QPointer<ToolButtonWithWidgetMenu> self(this);
  if (const auto hosting = d->locked ? nullptr : own()->hosting)
    hosting->take(*this);
  if (self)
    ToolButtonWithMenu::nextCheckState();
}

void ToolButtonWithWidgetMenu::ClickedHandler() {
  if (own()->state.takeClick() == MenuState::ClickCloses) {
    const QPointer<ToolButtonWithWidgetMenu> self(this);
    HideMenu();
    if (self)
      d->endUnopenedFlyout(); // which the click has begun again
    return;
  }
  // It may have ended before its button was told to open the panel.
  const auto* const command = qobject_cast<FlyoutCommand*>(Action());
  const FlyoutCommand* const other = own()->hosting ? own()->hosting->command() : nullptr;
  if (command && !command->isActive() && !(other && other->isActive()))
    return;
  own()->requestMenu();
}

void ToolButtonWithWidgetMenu::OnRequestShowMenu() {
  const QPointer<ToolButtonWithWidgetMenu> self(this);
  const QPointer<ToolButtonWithButtonMenu> controller(own()->controllerMenu());
  // The controller would stand in for nothing.
  const auto hosting = own()->menu ? own()->hosting : nullptr;
  if (hosting && hosting->take(*this) && self && controller)
    controller->OnEnterExtendMode(this);
  if (self)
    ShowMenu();
  if (self && controller && controller->ExtendedButton() == this && MenuPhase() == MenuState::Closed)
    controller->OnExitExtendMode();
}

void ToolButtonWithWidgetMenu::ShowMenu() {
  if (!own()->menu)
    return;
  const QPointer<ToolButtonWithWidgetMenu> self(this);
  const auto hosting = own()->hosting;
  const bool mine = hosting && hosting->take(*this);
  if (!self || !own()->menu)
    return;
  if (!mine) {
    own()->isShownByAnother() ? own()->showLater() : d->endUnopenedFlyout();
    return;
  }
  if (own()->arrowed)
    own()->ensureWindow();
  ToolButtonWithMenu::ShowMenu();
  if (self && MenuPhase() == MenuState::Closed)
    d->endUnopenedFlyout(); // which checking the button has begun
  if (self)
    own()->updatePartialBackground();
}

void ToolButtonWithWidgetMenu::HideMenu() {
  if (own()->isShownByAnother())
    return;
  const QPointer<ToolButtonWithWidgetMenu> self(this);
  if (FlyoutBase* const flyout = own()->state.isShown() ? own()->flyout() : nullptr)
    flyout->CloseMe(); // which does nothing when it is closing already
  if (self)
    ToolButtonWithMenu::HideMenu();
}

// The action that buttons share is as the one says whose turn it is.
void ToolButtonWithWidgetMenu::HideMenuEx() {
  if (!own()->isShownByAnother() || own()->hosting->turn()->Action() != Action())
    ToolButtonWithMenu::HideMenuEx();
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
  if (own()->arrowed && own()->liveWindow())
    return own()->placeWindow();
  return own()->popup() ? own()->place() : QPoint();
}

// --- the flyout

void ToolButtonWithWidgetMenu::OnFlyoutClosed() {
  if (own()->isShownByAnother())
    return;
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
  if (IsMenuShowing())
    own()->placing.start(0);
}

void ToolButtonWithWidgetMenu::OnFlyoutSubWidgetVisibilityChanged(bool) { RecalcMenuPosAndMove(); }

void ToolButtonWithWidgetMenu::OnFlyoutSetPartialBackgroundColor(bool showColor, QRect rc, QColor color) {
  if (!own()->menu)
    return;
  own()->partialBackground = showColor ? rc.translated(-own()->menu->pos()) : QRect();
  own()->partialColor = color;
  own()->updatePartialBackground();
}

// --- keys

void ToolButtonWithWidgetMenu::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape || !own()->state.isShown() || !own()->flyout())
    ToolButtonWithMenu::keyPressEvent(event);
}

void ToolButtonWithWidgetMenu::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && !event->isAutoRepeat() && own()->state.isShown() && own()->flyout())
    Q_EMIT ESCKeyReleased();
  else
    ToolButtonWithMenu::keyReleaseEvent(event);
}

} // namespace Vela::UiBase
