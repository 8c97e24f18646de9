// SPDX-License-Identifier: MIT
#include "tool_button_with_widget_menu_p.h"

#include "tool_bar_p.h"
#include "tool_button_with_button_menu.h"

#include <ui_base/commands/flyout_command.h>
#include <ui_base/core/dying.h>
#include <ui_base/popups/popup_sight.h>
#include <vlk_common_res/styles.h>

#include <utility>

namespace Vela::UiBase {

using Resource::Styles;

namespace {

constexpr int cornerRadius = 6; // px, of the window around a menu

} // namespace

ToolButtonWithWidgetMenuPrivate::ToolButtonWithWidgetMenuPrivate() { placing.setSingleShot(true); }

ToolButtonWithWidgetMenuPrivate::~ToolButtonWithWidgetMenuPrivate() = default;

QWidget* ToolButtonWithWidgetMenuPrivate::popup() const {
  return menu && arrowed ? static_cast<QWidget*>(liveWindow()) : menu.data();
}

ArrowedWindow* ToolButtonWithWidgetMenuPrivate::liveWindow() const { return window; }

QWidget* ToolButtonWithWidgetMenuPrivate::controller() const { return extendController; }

FlyoutBase* ToolButtonWithWidgetMenuPrivate::flyout() const {
  return qobject_cast<FlyoutBase*>(static_cast<QObject*>(menu.data()));
}

ToolButtonWithButtonMenu* ToolButtonWithWidgetMenuPrivate::controllerMenu() const {
  return qobject_cast<ToolButtonWithButtonMenu*>(static_cast<QObject*>(extendController.data()));
}

bool ToolButtonWithWidgetMenuPrivate::isShownByAnother() const {
  const ToolButtonWithWidgetMenu* const turn = hosting ? hosting->turn() : nullptr;
  return turn && turn != button && turn->MenuPhase() != MenuState::Closed;
}

bool ToolButtonWithWidgetMenuPrivate::ownsPopup() const { return !isShownByAnother(); }

// --- showing

bool ToolButtonWithWidgetMenuPrivate::beginShowing(bool opens) {
  auto* const self = static_cast<ToolButtonWithWidgetMenu*>(button);
  const QPointer<ToolButtonWithWidgetMenu> guard(self);
  const auto host = hosting;
  // Whoever is told on the way may have had another button show the panel, or this one another panel.
  const auto isMine = [&] {
    return guard && menu && hosting == host && host->turn() == self && state.isShown();
  };
  if (!host || !isMine())
    return false;
  if (opens)
    session.begin(*self, host);
  if (!isMine())
    return false;
  if (!arrowed) {
    host->goHome();
    return isMine();
  }
  ensureWindow();
  followLayer(); // now, too: the one before may be dying
  host->standIn(*window);
  if (!isMine() || !window)
    return false;
  watch(window);
  followLayer();
  menu->show(); // a hidden content has no size
  return isMine() && window;
}

void ToolButtonWithWidgetMenuPrivate::endShowing() {
  const QPointer<QWidget> closed(menu);
  const QPointer<ToolButton> self(button);
  placing.stop();
  session.end();
  if (self && closed && menu == closed && !isShownByAnother())
    closed->hide(); // with its window alone it could not be shown by itself again
}

// The panel may belong to the command of another button.
void ToolButtonWithWidgetMenuPrivate::endUnopenedFlyout() {
  const auto host = hosting;
  ToolButtonWithMenuPrivate::endUnopenedFlyout();
  if (host)
    endUnopened(host->command());
}

void ToolButtonWithWidgetMenuPrivate::requestMenu() {
  auto* const self = static_cast<ToolButtonWithWidgetMenu*>(button);
  const ToolButtonWithButtonMenu* const controller = controllerMenu();
  if (controller && controller->IsExtendModeEnabled())
    Q_EMIT self->RequestShowMenu();
  else
    self->ShowMenu();
}

void ToolButtonWithWidgetMenuPrivate::onPanelShown() {
  const QPointer<QWidget> panel(menu);
  const QPointer<QWidget> self(button);
  leaveExtendModes();
  if (!self)
    return;
  if (!locked && panel && !panel->isHidden()) {
    requestMenu();
    return;
  }
  if (panel)
    panel->hide();
  if (self)
    endUnopenedFlyout();
}

// --- the window

void ToolButtonWithWidgetMenuPrivate::ensureWindow() {
  if (window)
    return;
  window = new ArrowedWindow;
  window->hide();
  window->SetArrow(arrow);
  window->SetAutoDecideArrowPosition(autoDecideArrow);
  window->SetRoundCornerRadius(cornerRadius);
  window->EnableShadow(true);
  applyWindowLooks();
  QObject::connect(&Styles::Instance(), &Styles::changed, window.data(), [this] { applyWindowLooks(); });
  // The layer may go before the button does; the menu is not to go with it.
  windowDeath = QObject::connect(window, &QObject::destroyed, button, [this](const QObject* closed) {
    if (const auto host = hosting)
      host->windowDies(closed);
  });
  followLayer();
}

void ToolButtonWithWidgetMenuPrivate::applyWindowLooks() {
  window->SetBorder(Styles::Instance().ColorActionPanelBorder(), 0, Qt::SolidLine, Qt::MiterJoin);
}

void ToolButtonWithWidgetMenuPrivate::followLayer() {
  QWidget* const layer = anchor()->window();
  if (window->parentWidget() != layer && !isDying(*layer))
    window->setParent(layer, Qt::Widget);
}

// --- the menu

void ToolButtonWithWidgetMenuPrivate::takeMenu(QWidget& widget) {
  auto* const self = static_cast<ToolButtonWithWidgetMenu*>(button);
  const QPointer<ToolButtonWithWidgetMenu> guard(self);
  menu = &widget;
  const auto host = hosting = Hosting::of(widget);
  const auto isMine = [&] { return guard && menu && hosting == host; };
  host->join(*self);
  connectMenu(widget);
  if (const ToolBar* const bar = liveToolBar())
    ToolBarPrivate::of(*bar->GetBaseToolBar()).panelCame(*self);
  if (!isMine())
    return;
  if (arrowed)
    ensureWindow();
  if (!isShownByAnother()) {
    if (FlyoutBase* const panel = flyout())
      panel->CloseMe(); // it was open at home
    if (isMine() && !isShownByAnother() && state.phase() == MenuState::Closed) {
      if (arrowed && window)
        host->standIn(*window);
      else
        menu->hide();
    }
    if (isMine())
      endUnopenedFlyout();
  }
  if (!isMine() || state.phase() != MenuState::Closed)
    return;
  watch(popup());
  if (QWidget* const shown = arrowed ? popup() : nullptr)
    shown->hide();
}

void ToolButtonWithWidgetMenuPrivate::releaseMenu() {
  auto* const self = static_cast<ToolButtonWithWidgetMenu*>(button);
  const QPointer<ToolButtonWithWidgetMenu> guard(self);
  const QPointer<QWidget> released(menu);
  if ((pendingClicks > 0 || clickedHandlerRequested) && !isShownByAnother())
    endUnopenedFlyout(); // which a click was to open
  if (!guard || menu != released)
    return;
  watch(nullptr);
  disconnectMenu();
  partialBackground = QRect();
  FlyoutBase* const panel = flyout();
  menu.clear();
  const auto host = std::exchange(hosting, nullptr);
  if (!host)
    return;
  const LivePointer<FlyoutBase> before(panel);
  host->leave(*self);
  if (before && before->ToolButton() == self)
    before->SetToolButton(host->next());
}

void ToolButtonWithWidgetMenuPrivate::connectMenu(QWidget& widget) {
  auto* const self = static_cast<ToolButtonWithWidgetMenu*>(button);
  if (auto* const panel = qobject_cast<FlyoutBase*>(&widget)) {
    connectFlyout(*panel);
  } else {
    for (QAction* const each : widget.actions())
      menuConnections +=
          QObject::connect(each, &QAction::triggered, self, &ToolButtonWithMenu::OnActionTriggered);
  }
  followRequests();
}

void ToolButtonWithWidgetMenuPrivate::connectFlyout(FlyoutBase& panel) {
  auto* const self = static_cast<ToolButtonWithWidgetMenu*>(button);
  using Button = ToolButtonWithWidgetMenu;
  menuConnections += {
      QObject::connect(self, &Button::CloseFlyout, &panel, &FlyoutBase::CloseFlyout),
      QObject::connect(&panel, &FlyoutBase::CloseFlyout, self, &Button::OnFlyoutClosed),
      QObject::connect(&panel, &FlyoutBase::CancelChanges, self, &Button::OnFlyoutClosed),
      QObject::connect(&panel, &FlyoutBase::FlyoutResized, self, &Button::OnFlyoutResized),
      QObject::connect(&panel, &FlyoutBase::SubWidgetVisibilityChanged, self,
                       &Button::OnFlyoutSubWidgetVisibilityChanged),
      QObject::connect(&panel, &FlyoutBase::SetPartialBackgroundColor, self,
                       &Button::OnFlyoutSetPartialBackgroundColor),
      QObject::connect(self, &Button::ESCKeyReleased, &panel, &FlyoutBase::ESCKeyReleased),
  };
  panel.SetToolButton(self);
}

void ToolButtonWithWidgetMenuPrivate::disconnectMenu() {
  for (const auto* connections : {&menuConnections, &requestConnections}) {
    for (const QMetaObject::Connection& connection : *connections)
      QObject::disconnect(connection);
  }
  menuConnections.clear();
  requestConnections.clear();
}

void ToolButtonWithWidgetMenuPrivate::followRequests() {
  for (const QMetaObject::Connection& connection : std::exchange(requestConnections, {}))
    QObject::disconnect(connection);
  if (!controllerMenu())
    return;
  auto* const self = static_cast<ToolButtonWithWidgetMenu*>(button);
  requestConnections += QObject::connect(self, &ToolButtonWithWidgetMenu::RequestShowMenu, self,
                                         &ToolButtonWithWidgetMenu::OnRequestShowMenu);
  if (menu && menu->metaObject()->indexOfSignal("RequestShowMenu()") >= 0)
    requestConnections += QObject::connect(menu, SIGNAL(RequestShowMenu()), self, SLOT(OnRequestShowMenu()));
}

void ToolButtonWithWidgetMenuPrivate::updatePartialBackground() {
  if (liveWindow() && menu)
    window->SetPartialBackgroundColor(!partialBackground.isEmpty(), partialBackground.translated(menu->pos()),
                                      partialColor);
}

// --- the place

void ToolButtonWithWidgetMenuPrivate::fitFlyout(const QSize& windowSize) {
  FlyoutBase* const panel = flyout();
  if (!panel || !liveWindow())
    return;
  panel->SetSizeLimit(windowSize - (window->size() - panel->size()));
  if (liveWindow())
    window->GenerateLayout();
}

QPoint ToolButtonWithWidgetMenuPrivate::placeWindow() {
  QPoint position = window->pos();
  posCalculator->SetRefWidget(anchor());
  posCalculator->GetPosition(position, window->rect(), true, window->GetArrowPoint());
  return position;
}

void ToolButtonWithWidgetMenuPrivate::movePopup() {
  if (!arrowed)
    return ToolButtonWithMenuPrivate::movePopup();
  if (!liveWindow())
    return;
  const QPointer<ToolButtonWithWidgetMenu> self(static_cast<ToolButtonWithWidgetMenu*>(button));
  window->GenerateLayout();
  if (!self)
    return;
  // A flyout that is larger than its window scrolls rather than leave it.
  const auto fit = [this](const QSize& size) { fitFlyout(size); };
  placeInSight(
      *posCalculator, [&self] { return self->GetMenuPosition(); }, Qt::Tool, fit);
  if (self)
    placing.stop(); // what has just been laid out is no news
}

} // namespace Vela::UiBase
