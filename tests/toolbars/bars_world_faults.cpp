// SPDX-License-Identifier: MIT
#include "bars_world.h"

#include <ui_base/popups/widget_pos_calculator.h>

#include <algorithm>

using namespace Vela::UiBase;

namespace {

/// Without the shadow and the arrow of an arrowed window, which may lie over anything.
QRect onScreen(const QWidget& widget) {
  const auto* const arrowed = qobject_cast<const ArrowedWindow*>(&widget);
  const QRect body = arrowed ? arrowed->GetBounds() : widget.rect();
  return {widget.mapToGlobal(body.topLeft()), body.size()};
}

QRect roomOf(const QWidget& popup) {
  return popup.isWindow() ? popup.screen()->geometry() : onScreen(*popup.parentWidget());
}

QString told(const QWidget& widget) {
  QString text;
  QDebug(&text) << widget.metaObject()->className() << onScreen(widget) << "in" << roomOf(widget);
  return text;
}

qint64 area(const QRect& rect) { return rect.isEmpty() ? 0 : qint64(rect.width()) * rect.height(); }

bool isCutOff(const QWidget& popup) {
  const QRect room = roomOf(popup);
  const QRect rect = onScreen(popup);
  const bool fits = rect.width() <= room.width() && rect.height() <= room.height();
  return fits && 10 * area(rect & room) < 9 * area(rect);
}

bool covers(const QWidget& popup, const QWidget& anchor) {
  constexpr int margin = 24; // px for arrow, distance and edge
  const QRect room = roomOf(popup);
  const QRect target = onScreen(anchor);
  const QSize needed = popup.size() + QSize(margin, margin);
  const bool fits = room.contains(target) && needed.width() <= room.width() &&
                    needed.height() <= room.height() &&
                    (needed.width() <= std::max(target.left() - room.left(), room.right() - target.right()) ||
                     needed.height() <= std::max(target.top() - room.top(), room.bottom() - target.bottom()));
  return fits && onScreen(popup).intersects(target);
}

} // namespace

QString BarsWorld::fault() {
  m_armed = false;
  Vela::Test::settle();
  listen();
  for (int i = 0; i < 4; ++i) { // what timers would do, and do again for what has moved then
    for (ToolBar* const bar : all<ToolBar>())
      i % 2 == 0 ? bar->OnAutoPosition() : bar->OnResizeTimerTimeOut();
    Vela::Test::settle();
  }
  if (!m_tooltipFault.isEmpty())
    return m_tooltipFault;
  for (const auto found : {&BarsWorld::menuFault, &BarsWorld::nestFault, &BarsWorld::lockFault,
                           &BarsWorld::commandFault, &BarsWorld::placeFault, &BarsWorld::sightFault}) {
    if (QString fault = (this->*found)(); !fault.isEmpty())
      return fault;
  }
  return {};
}

QString BarsWorld::menuFault() const {
  for (const ToolButtonWithMenu* const button : all<ToolButtonWithMenu>()) {
    const MenuState::EPhase phase = button->MenuPhase();
    if (phase != MenuState::Closed && phase != MenuState::Open)
      return "a menu is neither open nor closed";
    if (m_shown.value(button) != (phase == MenuState::Open ? 1 : 0))
      return "a menu was not announced once";
    if (button->ClickedHandlerRequested())
      return "a click is still being handled";
    if (phase == MenuState::Open && (!button->GetMenu() || button->GetMenu()->isHidden()))
      return "an open menu is hidden: " + told(*button);
  }
  return {};
}

QString BarsWorld::nestFault() const {
  QHash<const QWidget*, int> shows;
  QHash<const ToolBar*, int> nests;
  for (const Button* const button : all<Button>()) {
    const ToolBar* const bar = button->OwningToolBar();
    const bool active = bar && bar->GetActiveButton() == button;
    if (button->MenuPhase() != MenuState::Open) {
      if (active)
        return "a button is active without its menu";
      continue;
    }
    if (++shows[button->GetMenu()] > 1)
      return "two buttons show one widget";
    if (bar && ++nests[bar->GetBaseToolBar()] > 1)
      return "two flyouts are open in a nest";
    if (bar && !active)
      return "an open flyout's button is not the active one";
  }
  return {};
}

QString BarsWorld::lockFault() const {
  const QList<Opener*> openers = all<Opener>();
  QSet<const ToolBar*> extended;
  for (const Opener* const opener : openers) {
    if (!opener->IsInExtendMode())
      continue;
    extended.insert(opener->OwningToolBar());
    const auto* const standsFor = qobject_cast<Button*>(opener->ExtendedButton());
    if (!standsFor || standsFor->MenuPhase() != MenuState::Open)
      return "a button stands in for one that shows nothing";
  }
  for (const ToolButton* const button : all<ToolButton>()) {
    if (button->IsLocked() && !extended.contains(button->OwningToolBar()))
      return "a button is locked for nothing";
  }
  return {};
}

QString BarsWorld::commandFault() const {
  const QList<Button*> buttons = all<Button>();
  const auto isOpen = [&buttons](const QWidget* panel) {
    return std::any_of(buttons.cbegin(), buttons.cend(), [panel](const Button* button) {
      return button->GetMenu() == panel && button->MenuPhase() == MenuState::Open;
    });
  };
  int active = 0;
  for (const PanelCommand* const command : m_commands) {
    active += command->isActive() ? 1 : 0;
    const QWidget* const panel = command->simpleFlyout();
    const bool hosted = panel && std::any_of(buttons.cbegin(), buttons.cend(), [&](const Button* button) {
                          return button->Action() == command && button->GetMenu() == panel;
                        });
    if (command->isActive() && hosted && !isOpen(panel))
      return "a command waits for a panel that is hidden: " + told(*panel);
  }
  return m_observer->began - m_observer->ended == active ? QString() : "commands began and did not end";
}

QString BarsWorld::placeFault() const {
  for (ToolBar* const bar : all<ToolBar>()) {
    if (bar->isHidden() || bar->OwnerButton())
      continue;
    if (bar->Place().out != 0)
      return "a bar that is shown is out";
    if (m_rests.contains(bar) && bar->pos() != m_rests.value(bar))
      return "a bar is not where it was placed: " + told(*bar);
  }
  return {};
}

QString BarsWorld::sightFault() const {
  for (const ToolButtonWithMenu* const button : all<ToolButtonWithMenu>()) {
    const QWidget* popup = button->IsMenuShowing() ? button->GetMenu() : nullptr;
    if (!popup)
      continue;
    if (const auto* const around = qobject_cast<const ArrowedWindow*>(popup->parentWidget()))
      popup = around;
    const QWidget* const anchor = button->GetPosCalculator()->RefWidget(); // or what stands in for the button
    if (isCutOff(*popup))
      return "an open menu is out of sight: " + told(*popup);
    if (anchor && anchor->isVisible() && covers(*popup, *anchor))
      return "an open menu covers its button: " + told(*popup) + told(*anchor);
  }
  return {};
}

void BarsWorld::showTooltip(ToolButton& button) {
  const QPointer<ToolButton> shown(&button);
  TooltipObject* const tooltip = button.isVisible() ? button.GetTooltipObject() : nullptr;
  if (!tooltip)
    return;
  tooltip->ShowTooltip();
  const ArrowedWindow* const window = shown ? tooltip->GetArrowedWindow() : nullptr;
  if (!window || !window->isVisible())
    return;
  if (isCutOff(*window))
    m_tooltipFault = "a tooltip is out of sight: " + told(*window);
  else if (covers(*window, button))
    m_tooltipFault = "a tooltip covers its button: " + told(*window) + told(button);
}
