// SPDX-License-Identifier: MIT
#include "tool_button_with_menu_p.h"

#include "tool_bar_p.h"

#include <ui_base/core/dying.h>
#include <ui_base/popups/popup_sight.h>

#include <QApplication>
#include <QTimer>

namespace Vela::UiBase {

namespace {

bool takesFocus(const QWidget& widget, const QWidget& root) {
  if (!root.isAncestorOf(&widget) || !widget.isVisibleTo(&root) || !widget.isEnabled())
    return false;
  // Tool buttons take it by program only.
  return (widget.focusPolicy() & Qt::TabFocus) || qobject_cast<const ToolButton*>(&widget);
}

} // namespace

ToolButtonWithMenuPrivate::ToolButtonWithMenuPrivate()
    : posCalculator(std::make_unique<WidgetPosCalculator>()) {}

ToolButtonWithMenuPrivate::~ToolButtonWithMenuPrivate() = default;

QWidget* ToolButtonWithMenuPrivate::popup() const { return menu; }

QWidget* ToolButtonWithMenuPrivate::controller() const { return nullptr; }

QWidget* ToolButtonWithMenuPrivate::anchor() const {
  if (QWidget* const other = controller(); other && !isDying(*other))
    return other;
  QWidget* const seen = seenPlace();
  return seen ? seen : button;
}

bool ToolButtonWithMenuPrivate::isOpen() const { return state.isShown(); }

bool ToolButtonWithMenuPrivate::ownsPopup() const { return true; }

bool ToolButtonWithMenuPrivate::beginShowing(bool) { return true; }

void ToolButtonWithMenuPrivate::endShowing() {}

void ToolButtonWithMenuPrivate::showLater() {
  opensLater = true;
  auto* const self = static_cast<ToolButtonWithMenu*>(button);
  QTimer::singleShot(0, self, [this, self] {
    opensLater = false;
    self->ShowMenu();
  });
}

void ToolButtonWithMenuPrivate::forgetClick() { state.released(); }

QWidget* ToolButtonWithMenuPrivate::seenPlace() const {
  ToolButton* place = button;
  while (place && !place->isVisible()) {
    const ToolBar* const bar = place->OwningToolBar();
    place = bar ? bar->OwnerButton() : nullptr;
  }
  return place;
}

void ToolButtonWithMenuPrivate::watch(QWidget* popup) {
  if (watched == popup)
    return;
  if (watched) {
    bringHome(*watched);
    watched->removeEventFilter(button);
    QObject::disconnect(watchedDeath);
  }
  watched = popup;
  posCalculator->SetWidget(popup);
  if (!popup)
    return;
  popup->installEventFilter(button);
  // A child that is deleted while it is shown is not hidden before.
  auto* const menuButton = static_cast<ToolButtonWithMenu*>(button);
  watchedDeath =
      QObject::connect(popup, &QObject::destroyed, menuButton, [menuButton] { menuButton->MenuHidden(); });
}

QPoint ToolButtonWithMenuPrivate::place() const {
  QPoint position = popup()->pos();
  posCalculator->SetRefWidget(anchor());
  posCalculator->GetPosition(position, popup()->rect(), false, QPoint());
  return position;
}

// A bar may have no room for the button at the moment.
void ToolButtonWithMenuPrivate::comeIntoSight() const {
  const auto* const place = qobject_cast<const ToolButton*>(anchor());
  if (const ToolBar* const bar = place ? place->OwningToolBar() : nullptr)
    ToolBarPrivate::of(*bar).ensureVisible(*place);
}

void ToolButtonWithMenuPrivate::movePopup() {
  auto* const self = static_cast<ToolButtonWithMenu*>(button);
  const auto measure = [this](const QSize&) { // a parent that is left limited it
    if (auto* const bar = qobject_cast<ToolBar*>(popup()))
      bar->AdjustToolBarSize(false);
  };
  placeInSight(
      *posCalculator, [self] { return self->GetMenuPosition(); }, Qt::Tool, measure);
}

// Who closes menus on a press elsewhere may take the button for elsewhere; its click is not to open it again.
void ToolButtonWithMenuPrivate::noteClosing() {
  if (button->underMouse() && (QGuiApplication::mouseButtons() & Qt::LeftButton))
    state.closedByPress();
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

} // namespace Vela::UiBase
