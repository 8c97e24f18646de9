// SPDX-License-Identifier: MIT
#include "tool_button_with_menu.h"

#include "tool_button_accessible.h"
#include "tool_button_with_menu_p.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

namespace {

bool takesFocus(const QWidget& widget, const QWidget& root) {
  if (!root.isAncestorOf(&widget) || !widget.isVisibleTo(&root) || !widget.isEnabled())
    return false;
  // Tool buttons take it by program only.
  return (widget.focusPolicy() & Qt::TabFocus) || qobject_cast<const ToolButton*>(&widget);
}

bool isEscape(const QEvent& event) {
  return (event.type() == QEvent::KeyPress || event.type() == QEvent::ShortcutOverride) &&
         static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}

} // namespace

// --- state

ToolButtonWithMenuPrivate::ToolButtonWithMenuPrivate()
    : posCalculator(std::make_unique<WidgetPosCalculator>()) {}

ToolButtonWithMenuPrivate::~ToolButtonWithMenuPrivate() = default;

QWidget* ToolButtonWithMenuPrivate::popup() const { return menu; }

QWidget* ToolButtonWithMenuPrivate::anchor() const { return button; }

bool ToolButtonWithMenuPrivate::isOpen() const { return closeOnHide; }

void ToolButtonWithMenuPrivate::watch(QWidget* popup) {
  if (watched == popup)
    return;
  if (watched) {
    watched->removeEventFilter(button);
    QObject::disconnect(watched, &QObject::destroyed, button, nullptr);
  }
  watched = popup;
  posCalculator->SetWidget(popup);
  if (!popup)
    return;
  popup->installEventFilter(button);
  // A child that is deleted while it is shown is not hidden before.
  auto* const menuButton = static_cast<ToolButtonWithMenu*>(button);
  QObject::connect(popup, &QObject::destroyed, menuButton, [menuButton] { menuButton->MenuHidden(); });
}

QPoint ToolButtonWithMenuPrivate::place() const {
  QPoint position = popup()->pos();
  posCalculator->SetRefWidget(anchor());
  posCalculator->GetPosition(position, popup()->rect(), false, QPoint());
  return position;
}

bool ToolButtonWithMenuPrivate::popupHasFocus() const {
  const QWidget* const focus = QApplication::focusWidget();
  return focus && watched && (focus == watched || watched->isAncestorOf(focus));
}

// Who closes menus on a press elsewhere may take the button for elsewhere; its click is not to open it again.
void ToolButtonWithMenuPrivate::noteClosing() {
  closedByPress = button->underMouse() && (QGuiApplication::mouseButtons() & Qt::LeftButton);
}

void ToolButtonWithMenuPrivate::enterByKeyboard() {
  if (!button->hasFocus() || !watched)
    return;
  for (QWidget* next = watched->nextInFocusChain(); next && next != watched;
       next = next->nextInFocusChain()) {
    if (!takesFocus(*next, *watched))
      continue;
    next->setFocus(Qt::TabFocusReason);
    return;
  }
}

// --- construction

ToolButtonWithMenu::ToolButtonWithMenu(QAction* action, ToolBar* toolBar, QWidget* parent)
    : ToolButtonWithMenu(*new ToolButtonWithMenuPrivate, action, toolBar, parent) {}

ToolButtonWithMenu::ToolButtonWithMenu(const QIcon& icon, ToolBar* toolBar, const QString& name,
                                       QWidget* parent)
    : ToolButtonWithMenu(*new ToolButtonWithMenuPrivate, icon, toolBar, name, parent) {}

ToolButtonWithMenu::ToolButtonWithMenu(ToolButtonWithMenuPrivate& state, QAction* action, ToolBar* toolBar,
                                       QWidget* parent)
    : ToolButton(state, parent) {
  ToolButton::Initialize(action, toolBar);
  Initialize();
}

ToolButtonWithMenu::ToolButtonWithMenu(ToolButtonWithMenuPrivate& state, const QIcon& icon, ToolBar* toolBar,
                                       const QString& name, QWidget* parent)
    : ToolButton(state, parent) {
  ToolButton::Initialize(nullptr, nullptr);
  setIcon(icon);
  setText(name);
  setObjectName(name);
  setToolTip(name);
  d->toolBar = toolBar;
  d->tooltipText = name;
  InitializeTooltipObject();
  Initialize();
}

ToolButtonWithMenu::~ToolButtonWithMenu() {
  own()->closeOnHide = false;
  QWidget* const popup = own()->watched;
  own()->watch(nullptr);
  if (popup)
    popup->hide();
}

void ToolButtonWithMenu::Initialize() {
  makeMenuButtonsAccessible();
  InitializePosCalculator();
  if (d->toolBar)
    connect(this, SIGNAL(ButtonMenuVisibilityChange(ToolButton*, bool)), d->toolBar,
            SIGNAL(ButtonMenuVisibilityChange(ToolButton*, bool)));
}

void ToolButtonWithMenu::InitializePosCalculator() {
  own()->posCalculator->SetRefWidget(this);
  own()->posCalculator->SetDirection(Bottom);
}

ToolButtonWithMenuPrivate* ToolButtonWithMenu::own() const {
  return static_cast<ToolButtonWithMenuPrivate*>(d.get());
}

void ToolButtonWithMenu::AttachMenu(QWidget* menu) {
  const QPointer<ToolButtonWithMenu> self(this);
  HideMenu();
  if (!self)
    return;
  own()->menu = menu;
  own()->watch(own()->popup());
  if (QWidget* const popup = own()->watched)
    popup->hide();
}

// --- what it answers

QWidget* ToolButtonWithMenu::GetMenu() const { return own()->menu; }

WidgetPosCalculator* ToolButtonWithMenu::GetPosCalculator() const { return own()->posCalculator.get(); }

bool ToolButtonWithMenu::IsMenuShowing() const { return own()->menu && own()->menu->isVisible(); }

bool ToolButtonWithMenu::IsSubMenuButton(ToolButton* button) const {
  const QWidget* const menu = own()->menu;
  if (!menu || !button)
    return false;
  if (menu->isAncestorOf(button))
    return true;
  const auto inner = menu->findChildren<ToolButtonWithMenu*>();
  return std::any_of(inner.cbegin(), inner.cend(),
                     [button](const ToolButtonWithMenu* each) { return each->IsSubMenuButton(button); });
}

void ToolButtonWithMenu::SetNoHideMenuOnClick(bool noHide) { own()->noHideMenuOnClick = noHide; }

bool ToolButtonWithMenu::NoHideMenuOnClick() const { return own()->noHideMenuOnClick; }

void ToolButtonWithMenu::SetSaveMenuState(bool save) { own()->saveMenuState = save; }

bool ToolButtonWithMenu::SaveMenuState() const { return own()->saveMenuState; }

void ToolButtonWithMenu::SetSavedMenuOwner(ToolButtonWithMenu* owner) { own()->savedMenuOwner = owner; }

ToolButtonWithMenu* ToolButtonWithMenu::SavedMenuOwner() const { return own()->savedMenuOwner; }

// --- showing and hiding

void ToolButtonWithMenu::ShowMenu() {
  const QPointer<ToolButtonWithMenu> self(this);
  if (isCheckable() && !isChecked() && own()->popup()) {
    // What that starts is not to click the button in turn.
    const bool requested = std::exchange(d->clickedHandlerRequested, true);
    setChecked(true);
    if (!self)
      return;
    d->clickedHandlerRequested = requested;
  }
  QWidget* const popup = own()->popup();
  if (!popup)
    return;
  const bool wasShown = std::exchange(own()->closeOnHide, true);
  if (!wasShown)
    own()->focusBefore = QApplication::focusWidget();
  popup->move(GetMenuPosition());
  popup->show();
  if (!self || !own()->closeOnHide)
    return;
  if (!popup->isWindow())
    popup->raise();
  EnableTooltip(false);
  own()->saveMenuState = false;
  own()->savedMenuOwner.clear();
  own()->enterByKeyboard();
  if (wasShown)
    return;
  announceMenuState(*this);
  Q_EMIT ButtonMenuVisibilityChange(this, true);
}

void ToolButtonWithMenu::HideMenu() {
  if (!own()->popup())
    return;
  const QPointer<ToolButtonWithMenu> self(this);
  const bool keepOwner = own()->saveMenuState;
  HideMenuEx();
  if (self && own()->popup())
    own()->popup()->hide();
  if (self)
    MenuHidden(); // a menu in a hidden window is not told
  if (self && !keepOwner)
    own()->savedMenuOwner.clear();
}

void ToolButtonWithMenu::HideMenuEx() {
  if (isChecked() && !d->dying)
    setChecked(false);
}

void ToolButtonWithMenu::MenuHidden() {
  if (!std::exchange(own()->closeOnHide, false))
    return;
  own()->noteClosing();
  const QPointer<ToolButtonWithMenu> self(this);
  if (QWidget* const before = std::exchange(own()->focusBefore, nullptr); before && own()->popupHasFocus())
    before->setFocus(Qt::OtherFocusReason);
  HideMenuEx();
  if (!self)
    return;
  EnableTooltip(true);
  announceMenuState(*this);
  Q_EMIT ButtonMenuVisibilityChange(this, false);
}

void ToolButtonWithMenu::nextCheckState() {
  own()->openAtClick = own()->isOpen() || std::exchange(own()->closedByPress, false);
  ToolButton::nextCheckState();
}

void ToolButtonWithMenu::OnCloseMenu(QWidget* widget, bool isChecked) {
  if (widget && widget->isVisible())
    OnClicked(isChecked);
}

void ToolButtonWithMenu::OnActionTriggered(bool) {
  if (auto* const action = qobject_cast<QAction*>(sender()))
    ActionTriggeredHandler(action);
}

void ToolButtonWithMenu::ActionTriggeredHandler(QAction*) {
  if (!own()->noHideMenuOnClick)
    HideMenu();
}

// --- place

void ToolButtonWithMenu::SetMenuPosParameters(EDirection direction, int distance, EWidgetsAlign alignment,
                                              const QPoint& offset) {
  SetPosParameters(*own()->posCalculator, direction, distance, alignment, offset);
}

void ToolButtonWithMenu::RecalcMenuPosAndMove() {
  if (IsMenuShowing())
    own()->popup()->move(GetMenuPosition());
}

// --- events

bool ToolButtonWithMenu::eventFilter(QObject* watched, QEvent* event) {
  if (watched != own()->watched || !own()->closeOnHide)
    return ToolButton::eventFilter(watched, event);
  if (event->type() == QEvent::Hide && own()->watched->isHidden()) {
    // Not when something around the menu is hidden, with which it comes back.
    const QPointer<ToolButtonWithMenu> self(this);
    own()->popupHides = true;
    MenuHidden();
    if (self)
      own()->popupHides = false;
    return false;
  }
  if (isEscape(*event)) {
    event->accept();
    if (event->type() == QEvent::KeyPress)
      HideMenu();
    return true;
  }
  return ToolButton::eventFilter(watched, event);
}

void ToolButtonWithMenu::keyPressEvent(QKeyEvent* event) {
  if (isEscape(*event) && own()->closeOnHide)
    HideMenu();
  else
    ToolButton::keyPressEvent(event);
}

void ToolButtonWithMenu::hideEvent(QHideEvent* event) {
  ToolButton::hideEvent(event);
  d->leaveDyingToolBar();
  if (!event->spontaneous() && own()->closeOnHide && own()->anchor() == this)
    HideMenu();
}

void ToolButtonWithMenu::mouseReleaseEvent(QMouseEvent* event) {
  const QPointer<ToolButtonWithMenu> self(this);
  ToolButton::mouseReleaseEvent(event);
  if (self)
    own()->closedByPress = false;
}

void ToolButtonWithMenu::moveEvent(QMoveEvent* event) {
  ToolButton::moveEvent(event);
  RecalcMenuPosAndMove();
}

} // namespace Vela::UiBase
