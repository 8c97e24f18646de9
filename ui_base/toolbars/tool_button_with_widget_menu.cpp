// SPDX-License-Identifier: MIT
#include "tool_button_with_widget_menu.h"

#include "tool_button_with_button_menu.h"
#include "tool_button_with_widget_menu_p.h"

#include <ui_base/commands/flyout_command.h>
#include <vlk_common_res/styles.h>

#include <QKeyEvent>
#include <QScopedValueRollback>

#include <utility>

namespace Vela::UiBase {

using Resource::Styles;

namespace {

constexpr int cornerRadius = 6; // px, of the window around a menu

} // namespace

// --- state

QWidget* ToolButtonWithWidgetMenuPrivate::popup() const {
  return menu && arrowed ? static_cast<QWidget*>(liveWindow()) : menu.data();
}

ArrowedWindow* ToolButtonWithWidgetMenuPrivate::liveWindow() const {
  return qobject_cast<ArrowedWindow*>(static_cast<QObject*>(window.data()));
}

QWidget* ToolButtonWithWidgetMenuPrivate::anchor() const {
  return extendController ? extendController.data() : button;
}

FlyoutBase* ToolButtonWithWidgetMenuPrivate::flyout() const {
  return qobject_cast<FlyoutBase*>(static_cast<QObject*>(menu.data()));
}

FlyoutCommand* ToolButtonWithWidgetMenuPrivate::activeSimpleCommand() const {
  auto* const command = qobject_cast<FlyoutCommand*>(action.data());
  return command && command->isSimpleFlyout() && command->isActive() ? command : nullptr;
}

ToolButtonWithButtonMenu* ToolButtonWithWidgetMenuPrivate::controllerMenu() const {
  return qobject_cast<ToolButtonWithButtonMenu*>(static_cast<QObject*>(extendController.data()));
}

void ToolButtonWithWidgetMenuPrivate::host() {
  if (!arrowed)
    return;
  const QScopedValueRollback guard(showingMenu, true);
  home = menu->parentWidget();
  // The window keeps the menu from dying with its parent.
  if (home)
    homeDeath = QObject::connect(home, &QObject::destroyed, button, [this] { delete menu; });
  ensureWindow();
  window->AttachWidget(menu);
  window->hide();
  menu->hide();
  menu->installEventFilter(button);
}

void ToolButtonWithWidgetMenuPrivate::giveBack() {
  QObject::disconnect(homeDeath);
  const QPointer<QWidget> parent = std::exchange(home, nullptr);
  if (!menu || !arrowed)
    return;
  menu->removeEventFilter(button);
  menu->hide();
  if (ArrowedWindow* const host = liveWindow(); host && menu->parentWidget() == host)
    host->DetachWidget();
  if (menu && menu->parentWidget() != parent)
    menu->setParent(parent);
}

void ToolButtonWithWidgetMenuPrivate::ensureWindow() {
  if (window)
    return;
  window = new ArrowedWindow;
  window->hide();
  window->SetArrow(arrow);
  window->SetAutoDecideArrowPosition(autoDecideArrow);
  window->SetRoundCornerRadius(cornerRadius);
  window->EnableShadow(true);
  dressWindow();
  QObject::connect(&Styles::Instance(), &Styles::changed, window.data(), [this] { dressWindow(); });
  // The layer may go before the button does; the menu is not to go with it.
  auto* const owner = static_cast<ToolButtonWithWidgetMenu*>(button);
  QObject::connect(window, &QObject::destroyed, owner, [this] { giveBack(); });
  followLayer();
}

void ToolButtonWithWidgetMenuPrivate::dressWindow() {
  window->SetBorder(Styles::Instance().ColorActionPanelBorder(), 0, Qt::SolidLine, Qt::MiterJoin);
}

void ToolButtonWithWidgetMenuPrivate::followLayer() {
  QWidget* const top = anchor()->window();
  const bool tooSmall = top == button || top == toolBar || top == anchor();
  QWidget* const layer = tooSmall ? nullptr : top;
  if (window->parentWidget() != layer)
    window->setParent(layer, layer ? Qt::Widget : Qt::Tool | Qt::FramelessWindowHint);
}

void ToolButtonWithWidgetMenuPrivate::wire(FlyoutBase& flyout) {
  auto* const self = static_cast<ToolButtonWithWidgetMenu*>(button);
  using Button = ToolButtonWithWidgetMenu;
  QObject::connect(self, &Button::CloseFlyout, &flyout, &FlyoutBase::CloseFlyout);
  QObject::connect(&flyout, &FlyoutBase::CloseFlyout, self, &Button::OnFlyoutClosed);
  QObject::connect(&flyout, &FlyoutBase::CancelChanges, self, &Button::OnFlyoutClosed);
  QObject::connect(&flyout, &FlyoutBase::FlyoutResized, self, &Button::OnFlyoutResized);
  QObject::connect(&flyout, &FlyoutBase::SubWidgetVisibilityChanged, self,
                   &Button::OnFlyoutSubWidgetVisibilityChanged);
  QObject::connect(&flyout, &FlyoutBase::SetPartialBackgroundColor, self,
                   &Button::OnFlyoutSetPartialBackgroundColor);
  QObject::connect(self, &Button::ESCKeyReleased, &flyout, &FlyoutBase::ESCKeyReleased);
  flyout.SetToolButton(self);
}

void ToolButtonWithWidgetMenuPrivate::unwire(FlyoutBase& flyout) {
  button->disconnect(&flyout);
  flyout.disconnect(button);
  if (flyout.ToolButton() == button)
    flyout.SetToolButton(nullptr);
}

void ToolButtonWithWidgetMenuPrivate::updatePartialBackground() {
  if (liveWindow() && menu)
    window->SetPartialBackgroundColor(!partialBackground.isEmpty(), partialBackground.translated(menu->pos()),
                                      partialColor);
}

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
  if (own()->window)
    own()->window->disconnect(this);
  delete own()->window;
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
  QPoint position = window->pos();
  own()->posCalculator->SetRefWidget(own()->anchor());
  own()->posCalculator->GetPosition(position, window->rect(), true, window->GetArrowPoint());
  return position;
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
  if (!IsMenuShowing() || std::exchange(own()->placePending, true))
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
