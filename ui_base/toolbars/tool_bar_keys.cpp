// SPDX-License-Identifier: MIT
#include "tool_bar_keys.h"

#include "tool_bar_overflow.h"
#include "tool_bar_p.h"

#include <ui_base/menus/menu_bar_keys.h>
#include <ui_base/menus/menu_bar_widget.h>
#include <ui_base/toolbars/tool_button_with_button_menu.h>

#include <QApplication>
#include <QKeyEvent>
#include <QShortcut>

#include <algorithm>
#include <limits>

namespace Vela::UiBase {

namespace {

/// How far `to` lies behind `from` in a direction, or -1 when it lies elsewhere or not in line with it.
int distance(const QRect& from, const QRect& to, int key) {
  const bool sideways = key == Qt::Key_Left || key == Qt::Key_Right;
  const bool inLine = sideways ? from.top() <= to.bottom() && to.top() <= from.bottom()
                               : from.left() <= to.right() && to.left() <= from.right();
  if (!inLine)
    return -1;
  switch (key) {
  case Qt::Key_Left:
    return from.left() - to.right();
  case Qt::Key_Right:
    return to.left() - from.right();
  case Qt::Key_Up:
    return from.top() - to.bottom();
  default:
    return to.top() - from.bottom();
  }
}

constexpr const char* barProperty = "vela_bar";

bool isBar(const QWidget& widget) {
  const auto* const toolBar = qobject_cast<const ToolBar*>(&widget);
  return toolBar ? !toolBar->OwnerButton() : widget.property(barProperty).isValid();
}

/// Also while something dies that is asked for nothing any more: of its children some are null.
void collectBars(const QObject& parent, QWidgetList& bars, QWidgetList& menuBars) {
  for (QObject* const child : parent.children()) {
    auto* const widget = qobject_cast<QWidget*>(child);
    if (!widget)
      continue;
    if (qobject_cast<MenuBarWidget*>(widget))
      menuBars.append(widget);
    else if (isBar(*widget))
      bars.append(widget);
    collectBars(*widget, bars, menuBars);
  }
}

/// Whether the focus is in the bar, or in a menu of its buttons.
bool holdsFocus(const QWidget& bar) {
  const auto* const toolBar = qobject_cast<const ToolBar*>(&bar);
  const auto buttons = toolBar ? toolBar->MenuButtons(true) : QList<ToolButtonWithMenu*>();
  return FocusKeeper::isIn(bar) ||
         std::any_of(buttons.cbegin(), buttons.cend(), [](const ToolButtonWithMenu* button) {
           return button->GetMenu() && FocusKeeper::isIn(*button->GetMenu());
         });
}

MenuBarKeys* keysOf(const QWidget& menuBar) {
  return menuBar.findChild<MenuBarKeys*>(QString(), Qt::FindDirectChildrenOnly);
}

/// @return whether there is something in it that takes the focus.
bool enterBar(QWidget& bar) {
  if (const auto* const toolBar = qobject_cast<ToolBar*>(&bar))
    return ToolBarPrivate::of(*toolBar).keys->enter();
  if (MenuBarKeys* const keys = keysOf(bar)) {
    keys->enter();
    return keys->isActive();
  }
  const auto take = [](QWidget& widget) {
    const bool takes = (widget.focusPolicy() & Qt::TabFocus) && widget.isVisible() && widget.isEnabled();
    if (takes)
      widget.setFocus(Qt::TabFocusReason);
    return takes;
  };
  for (QWidget* next = bar.nextInFocusChain(); next && next != &bar; next = next->nextInFocusChain()) {
    if (bar.isAncestorOf(next) && take(*next))
      return true;
  }
  return take(bar); // a list, for instance
}

/// Makes what leads the focus, in each window in which a bar comes to show.
class BarWatch : public QObject {
public:
  using QObject::QObject;
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Show)
      ToolBarFocusCycle::of(*static_cast<QWidget*>(watched)->window());
    return false;
  }
};

/// The arrow key that points from the bar to where the menus of its buttons open.
int menuKey(const ToolBar& toolBar) {
  switch (toolBar.Area()) {
  case Qt::LeftToolBarArea:
    return Qt::Key_Right;
  case Qt::RightToolBarArea:
    return Qt::Key_Left;
  case Qt::BottomToolBarArea:
    return Qt::Key_Up;
  default:
    return Qt::Key_Down;
  }
}

} // namespace

int nextInDirection(const QList<QRect>& rects, const QRect& from, int key) {
  int next = -1;
  int nearest = std::numeric_limits<int>::max();
  for (int i = 0; i < rects.size(); ++i) {
    const int away = distance(from, rects[i], key);
    if (away >= 0 && away < nearest) {
      nearest = away;
      next = i;
    }
  }
  return next;
}

ToolBarFocusCycle::ToolBarFocusCycle(QWidget& window) : QObject(&window), m_window(window) {
  auto* const forth = new QShortcut(Qt::Key_F6, &window);
  auto* const back = new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F6), &window);
  connect(forth, &QShortcut::activated, this, [this] { step(1); });
  connect(back, &QShortcut::activated, this, [this] { step(-1); });
}

ToolBarFocusCycle& ToolBarFocusCycle::of(QWidget& window) {
  for (QObject* const child : window.children()) { // of which some are null while the window goes
    if (auto* const present = qobject_cast<ToolBarFocusCycle*>(child))
      return *present;
  }
  return *new ToolBarFocusCycle(window);
}

void ToolBarFocusCycle::add(QWidget& bar) {
  if (qobject_cast<ToolBar*>(&bar) || bar.property(barProperty).isValid())
    return;
  bar.setProperty(barProperty, true);
  bar.installEventFilter(new BarWatch(&bar));
  if (bar.isVisible())
    of(*bar.window());
}

QWidgetList ToolBarFocusCycle::stops() const {
  QWidgetList bars;
  QWidgetList menuBars;
  collectBars(m_window, bars, menuBars);
  bars += menuBars;
  bars.removeIf([this](const QWidget* bar) {
    return bar->window() != &m_window || !bar->isVisible() || !bar->isEnabled();
  });
  return bars;
}

void ToolBarFocusCycle::step(int direction) {
  const QWidgetList bars = stops();
  const auto at =
      std::find_if(bars.cbegin(), bars.cend(), [](const QWidget* bar) { return holdsFocus(*bar); });
  const bool inside = at != bars.cend();
  if (!inside)
    m_focus.keep();
  qsizetype next = inside ? at - bars.cbegin() + direction : (direction > 0 ? 0 : bars.size() - 1);
  while (next >= 0 && next < bars.size()) {
    if (enterBar(*bars[next]))
      return;
    next += direction;
  }
  if (inside)
    giveFocusBack();
}

void ToolBarFocusCycle::giveFocusBack() {
  QWidget* const focus = QApplication::focusWidget();
  if (m_focus.giveBackFrom(m_window) || !focus)
    return;
  // One that was not come to by F6 knows itself where the focus was.
  const QWidget* const bar = focus->parentWidget();
  if (MenuBarKeys* const keys = bar ? keysOf(*bar) : nullptr)
    keys->leave();
  else
    focus->clearFocus();
}

// Also those that have to be scrolled to; what shows them comes last.
QList<QAbstractButton*> ToolBarKeys::stops() const {
  QList<QAbstractButton*> stops;
  const QList<ToolButton*> buttons = m_toolBar->Buttons();
  for (ToolButton* const button : buttons) {
    if (!button->isHidden() && button->isEnabled() && !button->IsLocked())
      stops.append(button);
  }
  if (QAbstractButton* const more = ToolBarPrivate::of(*m_toolBar).overflow; more && !more->isHidden())
    stops.append(more);
  return stops;
}

bool ToolBarKeys::enter() {
  const QList<QAbstractButton*> buttons = stops();
  if (buttons.isEmpty())
    return false;
  focus(m_last && buttons.contains(m_last) ? *m_last : *buttons.constFirst());
  return true;
}

void ToolBarKeys::focus(QAbstractButton& button) {
  m_last = &button;
  ToolBarPrivate::of(*m_toolBar).ensureVisible(button);
  button.setFocus(Qt::ShortcutFocusReason);
}

bool ToolBarKeys::press(QAbstractButton& button, const QKeyEvent& event) {
  if (event.modifiers() & ~Qt::KeypadModifier)
    return false;
  switch (event.key()) {
  case Qt::Key_Left:
  case Qt::Key_Right:
  case Qt::Key_Up:
  case Qt::Key_Down:
    move(button, event.key());
    return true;
  case Qt::Key_Home:
  case Qt::Key_End: {
    const QList<QAbstractButton*> buttons = stops();
    if (!buttons.isEmpty())
      focus(event.key() == Qt::Key_Home ? *buttons.constFirst() : *buttons.constLast());
    return true;
  }
  case Qt::Key_Return:
  case Qt::Key_Enter:
    button.click();
    return true;
  case Qt::Key_Escape:
    escape();
    return true;
  default:
    return false;
  }
}

// The arrow keys never leave a toolbar otherwise than into a menu.
void ToolBarKeys::move(QAbstractButton& button, int key) {
  const QList<QAbstractButton*> buttons = stops();
  QList<QRect> rects;
  for (const QAbstractButton* const stop : buttons)
    rects.append(ToolBarPrivate::of(*m_toolBar).unscrolledRect(*stop));
  const int next = nextInDirection(rects, ToolBarPrivate::of(*m_toolBar).unscrolledRect(button), key);
  if (next >= 0)
    focus(*buttons[next]);
  else
    openMenu(button, key);
}

void ToolBarKeys::openMenu(QAbstractButton& button, int key) const {
  auto* const opener = qobject_cast<ToolButtonWithMenu*>(&button);
  if (!opener || key != menuKey(*m_toolBar))
    return;
  if (!opener->IsMenuShowing())
    opener->click();
  else if (auto* const menu = qobject_cast<ToolBar*>(opener->GetMenu()))
    ToolBarPrivate::of(*menu).keys->enter();
}

void ToolBarKeys::escape() {
  if (!m_toolBar->DismissLeafMenu())
    ToolBarFocusCycle::of(*m_toolBar->window()).giveFocusBack();
}

} // namespace Vela::UiBase
