// SPDX-License-Identifier: MIT
#include "covered_shortcuts.h"

#include "base_view.h"
#include "presentation.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QShortcut>
#include <QShortcutEvent>

#include <algorithm>

namespace Vela::UiBase {

namespace {

// Only the actions of the view itself come into question: its children are disabled.
bool isCovered(const QObject* widget) {
  const auto* const view = qobject_cast<const BaseView*>(widget);
  return view && Presentation::of(*view)->isCovered(*view);
}

// A menu stands where its own action does: in a menu bar, or in another menu.
bool isReachable(const QObject* place) {
  if (const auto* const menu = qobject_cast<const QMenu*>(place)) {
    const auto places = menu->menuAction()->associatedObjects();
    return std::any_of(places.cbegin(), places.cend(), isReachable);
  }
  const auto* const widget = qobject_cast<const QWidget*>(place);
  return widget && !isCovered(widget) && widget->isVisible() && widget->isEnabled();
}

bool isCoveredOnly(const QObject& owner) {
  const auto* const action = qobject_cast<const QAction*>(&owner);
  if (!action)
    return isCovered(owner.parent());
  const auto places = action->associatedObjects();
  return std::any_of(places.cbegin(), places.cend(), isCovered) &&
         std::none_of(places.cbegin(), places.cend(), isReachable);
}

/// The actions and shortcuts of a window that a key could mean.
struct Rivals {
  QList<QObject*> reachable;
  bool anyCovered = false;
};

Rivals rivalsFor(const QKeySequence& key) {
  Rivals rivals;
  const QWidget* const window = QApplication::activeWindow();
  if (!window)
    return rivals;
  auto widgets = window->findChildren<QWidget*>();
  widgets.append(const_cast<QWidget*>(window));
  for (const QWidget* const widget : std::as_const(widgets)) {
    const auto actions = widget->actions();
    for (QAction* const action : actions) {
      if (!action->isEnabled() || !action->shortcuts().contains(key))
        continue;
      if (isCoveredOnly(*action))
        rivals.anyCovered = true;
      else if (isReachable(widget) && !rivals.reachable.contains(action))
        rivals.reachable.append(action);
    }
  }
  const auto shortcuts = window->findChildren<QShortcut*>();
  for (QShortcut* const shortcut : shortcuts) {
    if (!shortcut->isEnabled() || !shortcut->keys().contains(key))
      continue;
    if (isCoveredOnly(*shortcut))
      rivals.anyCovered = true;
    else if (isReachable(shortcut->parent()))
      rivals.reachable.append(shortcut);
  }
  return rivals;
}

void activate(QObject& owner, const QShortcutEvent& event) {
  if (auto* const action = qobject_cast<QAction*>(&owner))
    return action->trigger();
  QShortcutEvent certain(event.key(), event.shortcutId(), false);
  QCoreApplication::sendEvent(&owner, &certain);
}

} // namespace

bool isCoveredShortcut(const QKeyEvent& event) {
  const auto isCoveredKey = [&event](Qt::KeyboardModifiers ignored) {
    const Rivals rivals =
        rivalsFor(QKeySequence(QKeyCombination(event.modifiers() & ~ignored, Qt::Key(event.key()))));
    return rivals.anyCovered && rivals.reachable.isEmpty();
  };
  return isCoveredKey(Qt::KeypadModifier) || isCoveredKey(Qt::KeypadModifier | Qt::ShiftModifier); // "?"
}

bool handleCoveredShortcut(QObject& owner, const QShortcutEvent& event) {
  const bool covered = isCoveredOnly(owner);
  if (!event.isAmbiguous())
    return covered;
  const Rivals rivals = rivalsFor(event.key());
  if (!rivals.anyCovered)
    return false;
  if (rivals.reachable.size() == 1) {
    activate(*rivals.reachable.constFirst(), event);
    return true;
  }
  return covered;
}

} // namespace Vela::UiBase
