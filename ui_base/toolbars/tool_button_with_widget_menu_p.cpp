// SPDX-License-Identifier: MIT
#include "tool_button_with_widget_menu_p.h"

#include "tool_button_with_button_menu.h"

#include <ui_base/commands/flyout_command.h>
#include <vlk_common_res/styles.h>

#include <QScopedValueRollback>
#include <QScreen>

#include <utility>

namespace Vela::UiBase {

using Resource::Styles;

namespace {

constexpr int cornerRadius = 6; // px, of the window around a menu
constexpr int edgeGap = 3;      // px, from a flyout to the edges of what it lies in

} // namespace

QWidget* ToolButtonWithWidgetMenuPrivate::popup() const {
  return menu && arrowed ? static_cast<QWidget*>(liveWindow()) : menu.data();
}

ArrowedWindow* ToolButtonWithWidgetMenuPrivate::liveWindow() const { return window; }

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
  limitFlyout({QWIDGETSIZE_MAX, QWIDGETSIZE_MAX});
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

void ToolButtonWithWidgetMenuPrivate::limitFlyout(const QSize& limit) const {
  if (FlyoutBase* const panel = flyout())
    panel->SetSizeLimit(limit);
}

QPoint ToolButtonWithWidgetMenuPrivate::placeWindow(const QSize& limit) {
  limitFlyout(limit - (window->size() - menu->size()));
  window->GenerateLayout();
  QPoint position = window->pos();
  posCalculator->SetRefWidget(anchor());
  posCalculator->GetPosition(position, window->rect(), true, window->GetArrowPoint());
  return window->MovedInside(position);
}

// On the side of the button where the window comes to stand there may be less room than elsewhere.
QPoint ToolButtonWithWidgetMenuPrivate::placeWindowInside() {
  const QScopedValueRollback guard(placing, true);
  const QWidget* const layer = window->parentWidget();
  const QRect room = layer ? layer->rect() : window->screen()->availableGeometry();
  const QRect area = room.adjusted(edgeGap, edgeGap, -edgeGap, -edgeGap);
  const QPoint position = placeWindow(area.size());
  const QSize beyond = window->size() - area.intersected(QRect(position, window->size())).size();
  return flyout() && !beyond.isNull() ? placeWindow(area.size() - beyond) : position;
}

} // namespace Vela::UiBase
