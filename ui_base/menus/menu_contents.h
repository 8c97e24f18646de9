// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/menus/app_menu_item_specifier.h>

#include <functional>

class QMenu;
class QObject;
class QPoint;
class QSize;
class QWidget;

namespace Vela::UiBase {

/// Connects by string what `sender` signals with `signal` to a slot of the receiver. A slot that is null or
/// empty is ignored; one that the receiver does not have, or takes other arguments, is reported with one
/// warning that names `item`. @return whether there is a connection now.
bool connectToSlot(QObject& sender, const char* signal, QObject* receiver, const char* slot,
                   const QString& item);

/// Fills menus from specifiers and actions.
struct MenuContents {
  QObject* receiver = nullptr;
  /// Told of every sub-menu that is made, with its name.
  std::function<void(const QString& name, QMenu& menu)> subMenuMade;

  void append(QMenu& menu, const QList<AppMenuItemSpecifier>& items) const;
  void append(QMenu& menu, const AppMenuItemSpecifier& item) const;
  /// Null stands for a separator.
  static void append(QMenu& menu, const QList<QAction*>& actions);
  /// The sub-menu that `item` describes, without its entries; owned by `menu`.
  QMenu& appendSubMenu(QMenu& menu, const AppMenuItemSpecifier& item) const;

private:
  void appendEntry(QMenu& menu, const AppMenuItemSpecifier& item) const;
};

/// Makes the first entry that can be chosen the active one of an open menu, as the Down key does: a sub-menu
/// stays closed.
void activateFirstEntry(QMenu& menu);

/// Where the menu of an opener goes, in global coordinates: to `wanted` where all of it is on the screen of
/// the opener there, else below or above the opener, else beside it.
/// @param offset between the two, in pixels: to the right of the opener's left edge and down from it.
QPoint menuInSight(const QWidget& opener, const QPoint& wanted, const QSize& menu, const QPoint& offset);

/// Whether the widget is visible and holds a point given in global coordinates.
bool holdsPoint(const QWidget& widget, const QPoint& global);
/// The same for a menu with those of its sub-menus that are open.
bool menuHoldsPoint(const QMenu& menu, const QPoint& global);

} // namespace Vela::UiBase
