// SPDX-License-Identifier: MIT
#include "tool_bar_menu_watch.h"

#include <ui_base/commands/command_base.h>
#include <ui_base/popups/arrowed_window.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/tool_button_with_widget_menu.h>
#include <ui_base/tooltips/a_tooltip_ex.h>
#include <ui_base/views/base_view.h>

#include <QApplication>
#include <QMouseEvent>
#include <QVariant>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

namespace {

using Lineage = QList<const QWidget*>;

const QWidget* transientParent(const QWidget& window) {
  const QWindow* const handle = window.windowHandle();
  const QWindow* const parent = handle ? handle->transientParent() : nullptr;
  const QWidgetList windows = parent ? QApplication::topLevelWidgets() : QWidgetList();
  const auto owner = std::find_if(windows.cbegin(), windows.cend(),
                                  [parent](const QWidget* each) { return each->windowHandle() == parent; });
  return owner == windows.cend() ? nullptr : *owner;
}

/// A widget and what it belongs to, across windows.
Lineage lineageOf(const QWidget& widget) {
  Lineage lineage;
  for (const QWidget* each = &widget; each && !lineage.contains(each);) {
    lineage.append(each);
    const QWidget* const parent = each->parentWidget();
    each = parent || !each->isWindow() ? parent : transientParent(*each);
  }
  return lineage;
}

bool isOfPopupOrDialog(const Lineage& lineage) {
  const QWidget* const popup = QApplication::activePopupWidget();
  const QWidget* const modal = QApplication::activeModalWidget();
  return (popup && lineage.contains(popup)) || (modal && lineage.contains(modal));
}

bool isOfTooltip(const Lineage& lineage) {
  return std::any_of(lineage.cbegin(), lineage.cend(), [](const QWidget* each) {
    const bool around = qobject_cast<const ArrowedWindow*>(each) &&
                        each->findChild<ATooltipEx*>(QString(), Qt::FindDirectChildrenOnly);
    return around || qobject_cast<const ATooltipEx*>(each);
  });
}

bool isOfStayingToolBar(const Lineage& lineage) {
  return std::any_of(lineage.cbegin(), lineage.cend(), [](const QWidget* each) {
    const auto* const bar = qobject_cast<const ToolBar*>(each);
    return bar && bar->KeepStateOnClickOutside();
  });
}

bool isOfMenu(const Lineage& lineage, const ToolButtonWithMenu& button) {
  const QWidget* const menu = button.GetMenu();
  if (!menu || !button.IsMenuShowing())
    return false;
  const auto* const hosting = qobject_cast<const ToolButtonWithWidgetMenu*>(&button);
  const QWidget* const window = hosting ? hosting->GetArrowedWindow() : nullptr;
  const QWidget* const controller = hosting ? hosting->ExtendController() : nullptr;
  // A list of the application's may hold widgets that have died: they are compared, never used.
  const auto beside = menu->property("sub_widgets").value<QList<QWidget*>>();
  return std::any_of(lineage.cbegin(), lineage.cend(), [&](const QWidget* each) {
    return each == menu || each == window || each == controller ||
           beside.contains(const_cast<QWidget*>(each));
  });
}

bool isOfNest(const Lineage& lineage, const ToolBar& toolBar) {
  const ToolBar& base = *toolBar.GetBaseToolBar();
  if (lineage.contains(&toolBar) || lineage.contains(&base))
    return true;
  const QList<ToolButtonWithMenu*> buttons = base.MenuButtons(true);
  return std::any_of(buttons.cbegin(), buttons.cend(),
                     [&](const ToolButtonWithMenu* each) { return isOfMenu(lineage, *each); });
}

const BaseView* viewOf(const ToolButtonWithMenu& button) {
  if (const auto* const command = dynamic_cast<const CommandBase*>(button.Action()))
    return command->getView();
  const QWidget* each = &button;
  while (each && !qobject_cast<const BaseView*>(each))
    each = each->parentWidget();
  return static_cast<const BaseView*>(each);
}

/// What goes to the view's controller, its command or its tool.
bool staysInView(const Lineage& lineage, const ToolButtonWithMenu& button) {
  const auto* const flyout = qobject_cast<const FlyoutBase*>(button.GetMenu());
  if (!flyout || !flyout->KeepOpenInView())
    return false;
  const auto taker = std::find_if(lineage.cbegin(), lineage.cend(), [](const QWidget* each) {
    return qobject_cast<const BaseView*>(each) || qobject_cast<const ToolBar*>(each) ||
           qobject_cast<const ArrowedWindow*>(each);
  });
  return taker != lineage.cend() && *taker == viewOf(button);
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

// A toolbar that closes would take the menus of its buttons along.
bool ToolBarMenuWatch::spares(const ToolButtonWithMenu& button) const {
  return std::any_of(m_spared.cbegin(), m_spared.cend(), [&button](const auto& spared) {
    return spared && (spared == &button || button.IsSubMenuButton(spared));
  });
}

// Presses that buttons hand on have been told of. A press that nobody takes comes by once for each ancestor:
// what counts is where it was.
bool ToolBarMenuWatch::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::MouseButtonPress || !event->spontaneous() || !watched->isWidgetType())
    return false;
  const QWidget* const window = static_cast<QWidget*>(watched)->window();
  const QPoint place = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
  const QWidget* const pressed = window->childAt(window->mapFromGlobal(place));
  judge(pressed ? *pressed : *window);
  return false;
}

void ToolBarMenuWatch::judge(const QWidget& pressed) {
  const Lineage lineage = lineageOf(pressed);
  if (isOfPopupOrDialog(lineage) || isOfTooltip(lineage) || isOfStayingToolBar(lineage) ||
      isOfNest(lineage, m_toolBar))
    return;
  bool closes = false;
  const QList<ToolButtonWithMenu*> buttons = m_toolBar.MenuButtons(true);
  for (ToolButtonWithMenu* const button : buttons) {
    if (!button->IsMenuShowing())
      continue;
    if (staysInView(lineage, *button))
      m_spared.append(button);
    else
      closes = true;
  }
  const QPointer<ToolBarMenuWatch> self(this);
  if (closes)
    m_toolBar.OnMouseClickedOutside();
  if (self)
    m_spared.clear();
}

} // namespace Vela::UiBase
