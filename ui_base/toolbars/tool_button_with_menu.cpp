// SPDX-License-Identifier: MIT
#include "tool_button_with_menu.h"

#include "tool_button_accessible.h"
#include "tool_button_with_menu_p.h"

#include <ui_base/core/dying.h>
#include <ui_base/popups/popup_window.h>

#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

namespace {

bool isEscape(const QEvent& event) {
  return (event.type() == QEvent::KeyPress || event.type() == QEvent::ShortcutOverride) &&
         static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}

} // namespace

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
  d->wrapIcon();
  setText(QString(name).replace(QLatin1Char('&'), QLatin1String("&&"))); // a name has no mnemonic
  setObjectName(name);
  setToolTip(name);
  d->toolBar = toolBar;
  d->tooltipText = name;
  InitializeTooltipObject();
  Initialize();
}

ToolButtonWithMenu::~ToolButtonWithMenu() {
  d->dying = true;
  QWidget* const popup = own()->watched;
  own()->watch(nullptr);
  if (popup)
    popup->hide();
  if (own()->opensLater)
    d->endUnopenedFlyout(); // which waits for it
}

void ToolButtonWithMenu::Initialize() {
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

bool ToolButtonWithMenu::IsMenuShowing() const {
  return own()->menu && own()->menu->isVisible() && own()->ownsPopup();
}

MenuState::EPhase ToolButtonWithMenu::MenuPhase() const { return own()->state.phase(); }

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
  if (isDying(*window()) || own()->state.beginReopening())
    return;
  if (isCheckable() && !isChecked() && own()->popup()) {
    // What that starts is not to click the button in turn.
    const bool requested = std::exchange(d->clickedHandlerRequested, true);
    setChecked(true);
    if (!self)
      return;
    d->clickedHandlerRequested = requested;
  }
  if (!own()->popup())
    return;
  const bool opens = own()->state.beginOpening();
  if (!own()->state.isShown())
    return;
  if (opens)
    own()->focus.keep();
  const bool canShow = own()->beginShowing(opens);
  if (!self || !own()->state.isShown())
    return;
  if (canShow && own()->popup())
    PlaceAndShow(opens);
  else
    MenuHidden();
}

void ToolButtonWithMenu::PlaceAndShow(bool opens) {
  const QPointer<ToolButtonWithMenu> self(this);
  const QPointer<QWidget> popup(own()->popup());
  own()->comeIntoSight();
  own()->movePopup();
  if (!self || !popup || !own()->state.isShown())
    return;
  showPopup(*popup);
  if (!self || !own()->state.isShown())
    return;
  if (popup && !popup->isWindow())
    popup->raise();
  EnableTooltip(false);
  if (opens)
    own()->enterByKeyboard();
  if (self && own()->state.finishOpening()) {
    announceMenuState(*this);
    Q_EMIT ButtonMenuVisibilityChange(this, true);
  }
  if (!self)
    return;
  own()->saveMenuState = false;
  own()->savedMenuOwner.clear();
}

void ToolButtonWithMenu::HideMenu() {
  // The window of a menu that is open may be half gone.
  if (!own()->popup() && !own()->state.isShown())
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
  const bool reopening = own()->state.phase() == MenuState::Reopening;
  if (!own()->state.beginClosing()) {
    if (reopening)
      d->endUnopenedFlyout(); // for which it was to open once more
    return;
  }
  own()->noteClosing();
  const QPointer<ToolButtonWithMenu> self(this);
  if (own()->watched)
    own()->focus.giveBackFrom(*own()->watched);
  if (self)
    HideMenuEx();
  if (self)
    own()->endShowing();
  if (!self)
    return;
  EnableTooltip(true);
  announceMenuState(*this);
  if (own()->state.isAnnounced())
    Q_EMIT ButtonMenuVisibilityChange(this, false);
  if (self && own()->state.finishClosing())
    own()->showLater();
}

void ToolButtonWithMenu::nextCheckState() {
  if (!d->locked)
    own()->state.clicked(own()->isOpen());
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

void ToolButtonWithMenu::ActionTriggeredHandler(QAction*) { HideMenu(); }

// --- place

void ToolButtonWithMenu::SetMenuPosParameters(EDirection direction, int distance, EWidgetsAlign alignment,
                                              const QPoint& offset) {
  SetPosParameters(*own()->posCalculator, direction, distance, alignment, offset);
}

void ToolButtonWithMenu::RecalcMenuPosAndMove() {
  if (IsMenuShowing())
    own()->movePopup();
}

// --- events

bool ToolButtonWithMenu::eventFilter(QObject* watched, QEvent* event) {
  if (watched != own()->watched || !own()->state.isShown())
    return false;
  if (event->type() == QEvent::Hide && own()->watched->isHidden())
    MenuHidden(); // not when something around the menu is hidden, with which it comes back
  if (!isEscape(*event))
    return false;
  event->accept();
  if (event->type() == QEvent::KeyPress)
    HideMenu();
  return true;
}

void ToolButtonWithMenu::keyPressEvent(QKeyEvent* event) {
  if (isEscape(*event) && own()->state.isShown())
    HideMenu();
  else
    ToolButton::keyPressEvent(event);
}

void ToolButtonWithMenu::hideEvent(QHideEvent* event) {
  d->leaveDyingToolBar();
  if (!event->spontaneous() && own()->state.isShown() && !own()->controller())
    HideMenu();
}

void ToolButtonWithMenu::mouseReleaseEvent(QMouseEvent* event) {
  const QPointer<ToolButtonWithMenu> self(this);
  ToolButton::mouseReleaseEvent(event);
  if (self)
    own()->state.released();
}

void ToolButtonWithMenu::moveEvent(QMoveEvent*) { RecalcMenuPosAndMove(); }

} // namespace Vela::UiBase
