// SPDX-License-Identifier: MIT
#include "shortcut_use.h"

#include <ui_base/commands/command_base.h>
#include <ui_base/commands/command_name.h>
#include <ui_base/core/language.h>
#include <ui_base/views/base_view.h>

#include <QAbstractButton>
#include <QCoreApplication>
#include <QMenu>
#include <QSet>
#include <QShortcut>

#include <algorithm>

namespace Vela::UiBase {

namespace {

struct UseTexts {
  Q_DECLARE_TR_FUNCTIONS(Vela::UiBase::ShortcutUse)
};

void addPlaces(const QAction& action, QSet<const QAction*>& visited, QList<QPointer<QWidget>>& places) {
  if (visited.contains(&action))
    return;
  visited.insert(&action);
  const auto objects = action.associatedObjects();
  for (QObject* const object : objects) {
    if (const auto* const menu = qobject_cast<QMenu*>(object))
      addPlaces(*menu->menuAction(), visited, places);
    else if (auto* const widget = qobject_cast<QWidget*>(object))
      places.append(widget);
  }
}

ShortcutUse useOf(const QAction& action) {
  ShortcutUse use;
  use.name = nameInSentence(action);
  use.context = action.shortcutContext();
  QSet<const QAction*> visited;
  addPlaces(action, visited, use.places);
  const auto* const command = dynamic_cast<const CommandBase*>(&action);
  if (!command)
    return use;
  use.commandId = command->commandId();
  if (use.name.isEmpty())
    use.name = use.commandId;
  if (BaseView* const view = use.places.isEmpty() ? command->getView() : nullptr)
    use.places.append(view);
  return use;
}

QList<ShortcutUse> withKeys(ShortcutUse use, const QList<QKeySequence>& shortcuts) {
  QList<ShortcutUse> uses;
  for (const QKeySequence& keys : shortcuts) {
    use.keys = keys;
    if (!keys.isEmpty())
      uses.append(use);
  }
  return uses;
}

ShortcutUse useOf(const QShortcut& shortcut, const QString& name) {
  auto* const place = qobject_cast<QWidget*>(shortcut.parent());
  return {{}, {}, name, shortcut.context(), {place}};
}

bool isLibraryKey(const QKeySequence& keys) {
  const auto known = libraryKeys();
  return std::any_of(known.cbegin(), known.cend(), [&](const auto& use) { return use.keys == keys; });
}

void addShortcutObjects(const QWidget& window, QList<ShortcutUse>& uses) {
  const auto shortcuts = window.findChildren<QShortcut*>();
  for (const QShortcut* const shortcut : shortcuts) {
    const QString name =
        shortcut->whatsThis().isEmpty() ? UseTexts::tr("a shortcut of the window") : shortcut->whatsThis();
    for (const ShortcutUse& use : withKeys(useOf(*shortcut, name), shortcut->keys())) {
      if (!isLibraryKey(use.keys))
        uses.append(use);
    }
  }
}

void addMnemonics(const QWidget& window, QList<ShortcutUse>& uses) {
  const auto buttons = window.findChildren<QAbstractButton*>();
  for (QAbstractButton* const button : buttons) {
    if (button->shortcut().isEmpty() || button->window() != &window)
      continue;
    uses.append({button->shortcut(), {}, withoutMnemonic(button->text()), Qt::WindowShortcut, {button}});
  }
}

} // namespace

QList<ShortcutUse> usesOf(const QAction& action) {
  const QList<QKeySequence> shortcuts = action.shortcuts();
  return shortcuts.isEmpty() ? QList<ShortcutUse>() : withKeys(useOf(action), shortcuts); // as most have none
}

QList<ShortcutUse> usesOf(const CommandBase& command, const QList<QKeySequence>& shortcuts) {
  return withKeys(useOf(command), shortcuts);
}

QList<ShortcutUse> usesBesideCommands(const QWidget& window) {
  QList<ShortcutUse> uses;
  QSet<const QAction*> seen;
  auto widgets = window.findChildren<const QWidget*>();
  widgets.append(&window);
  for (const QWidget* const widget : std::as_const(widgets)) {
    const auto actions = widget->actions();
    for (const QAction* const action : actions) {
      if (seen.contains(action) || dynamic_cast<const CommandBase*>(action))
        continue;
      seen.insert(action);
      uses += usesOf(*action);
    }
  }
  addShortcutObjects(window, uses);
  addMnemonics(window, uses);
  return uses;
}

QList<ShortcutUse> libraryKeys() {
  return {{Qt::Key_Escape, {}, UseTexts::tr("Close what is open"), Qt::WindowShortcut, {}},
          {Qt::Key_F6, {}, UseTexts::tr("Go to the next toolbar"), Qt::WindowShortcut, {}},
          {Qt::SHIFT | Qt::Key_F6, {}, UseTexts::tr("Go to the toolbar before"), Qt::WindowShortcut, {}},
          {Qt::Key_F10, {}, UseTexts::tr("Go to the menu bar"), Qt::WindowShortcut, {}},
          {Qt::Key_Alt, {}, UseTexts::tr("Go to the menu bar"), Qt::WindowShortcut, {}},
          {Qt::Key_F1, {}, UseTexts::tr("Unfold the tooltip"), Qt::WindowShortcut, {}},
          {Qt::Key_Menu, {}, UseTexts::tr("Open the context menu"), Qt::WindowShortcut, {}},
          {Qt::SHIFT | Qt::Key_F10, {}, UseTexts::tr("Open the context menu"), Qt::WindowShortcut, {}}};
}

} // namespace Vela::UiBase
