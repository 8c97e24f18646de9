// SPDX-License-Identifier: MIT
#include "tool_bar_menu_watch.h"

#include <ui_base/popups/arrowed_window.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/tool_button_with_widget_menu.h>

#include <QCoreApplication>
#include <QMouseEvent>
#include <QVariant>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

namespace {

bool holds(const QWidget* holder, const QWidget& widget) {
  return holder && (holder == &widget || holder->isAncestorOf(&widget));
}

/// The widgets that stand beside a menu.
bool standsBeside(const QWidget& menu, const QWidget& widget) {
  const auto beside = menu.property("sub_widgets").value<QList<QWidget*>>();
  return std::any_of(beside.cbegin(), beside.cend(),
                     [&widget](const QWidget* sub) { return holds(sub, widget); });
}

} // namespace

ToolBarMenuWatch::ToolBarMenuWatch(ToolBar& toolBar) : QObject(&toolBar), m_toolBar(toolBar) {}

void ToolBarMenuWatch::setWatching(bool watch) {
  if (std::exchange(m_watching, watch) == watch)
    return;
  if (watch)
    QCoreApplication::instance()->installEventFilter(this);
  else
    QCoreApplication::instance()->removeEventFilter(this);
}

// What belongs to another window, such as a drop-down list, is none of the toolbar's business, nor are
// presses that buttons hand on. A press that nobody takes comes by once for each ancestor: what counts is
// where it was.
bool ToolBarMenuWatch::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::MouseButtonPress || !event->spontaneous() || !watched->isWidgetType())
    return false;
  const QWidget* const window = static_cast<QWidget*>(watched)->window();
  if (window != m_toolBar.window())
    return false;
  const QPoint place = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
  const QWidget* const pressed = window->childAt(window->mapFromGlobal(place));
  if (!isInside(pressed ? *pressed : *window))
    m_toolBar.OnMouseClickedOutside();
  return false;
}

// The whole nest: what a press on another toolbar of it closes is for its buttons to say.
bool ToolBarMenuWatch::isInside(const QWidget& widget) const {
  const ToolBar& base = *m_toolBar.GetBaseToolBar();
  if (holds(&m_toolBar, widget) || holds(&base, widget))
    return true;
  const QList<ToolButtonWithMenu*> buttons = base.MenuButtons(true);
  return std::any_of(buttons.cbegin(), buttons.cend(), [&widget](const ToolButtonWithMenu* button) {
    const QWidget* const menu = button->GetMenu();
    const auto* const hosting = qobject_cast<const ToolButtonWithWidgetMenu*>(button);
    return menu && (holds(menu, widget) || standsBeside(*menu, widget) ||
                    holds(hosting ? hosting->GetArrowedWindow() : nullptr, widget));
  });
}

} // namespace Vela::UiBase
