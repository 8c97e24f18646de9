// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QList>
#include <QPointer>
#include <QWidget>

#include <functional>

class QMenu;

namespace Vela::UiBase {

/// Keeps the shortcuts of a menu bar alive while the bar, or what it stands in, is hidden and its menus are
/// closed: a widget without a size that stands in the window and has the actions with shortcuts. Owned by its
/// parent.
class MenuShortcuts : public QWidget {
public:
  /// @param home where it shall stand now.
  /// @param wanted the actions whose shortcuts shall live now.
  MenuShortcuts(std::function<QWidget*()> home, std::function<QList<QAction*>()> wanted);

  /// Asks again when the event loop turns next.
  void refreshLater();

private:
  void refresh();

  const std::function<QWidget*()> m_home;
  const std::function<QList<QAction*>()> m_wanted;
  QList<QPointer<QAction>> m_held;
  bool m_asked = false;
};

/// The actions with shortcuts in a menu and its sub-menus, those of disabled ones left out.
/// @param visit is told of every sub-menu.
QList<QAction*> shortcutActions(const QMenu& menu, const std::function<void(QMenu&)>& visit);

} // namespace Vela::UiBase
