// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/menus/app_menu_item_specifier.h>
#include <ui_base/menus/app_menu_toggle_item_specifier.h>
#include <ui_base/ui_base_export.h>

#include <QObject>
#include <QSharedPointer>
#include <QVector>

#include <memory>

class QMainWindow;
class QMenu;
class QMenuBar;
class QPoint;
class QToolButton;
class QWidget;

namespace Vela::UiBase {

class MenuBuilderPrivate;

/// Builds the menu bar of an application: a row of tool buttons, its items, which call a slot of the receiver
/// or open a drop-down menu. Items and menus are known by their names, which are not shown.
///
/// The bar works like any menu bar: Alt and F10 enter it, arrows move along it and between open menus,
/// letters after an ampersand are mnemonics, the pointer moves along an open bar, Escape goes back. Items
/// that a narrow bar has no room for stand in a menu at its end. Shortcuts of items and entries work also
/// while the bar is hidden and the menus are closed, unless the item or the menu is disabled or the item
/// hidden.
///
/// Ownership: `parent` owns the builder, the main window (or `parent`) owns the bar, and the bar owns the
/// menus that are made here. Items are shared: one that a caller holds outlives the bar, without a parent.
/// Receiver, actions and main window are not owned and may be destroyed at any time. A name that does not
/// exist changes nothing. Main thread only.
///
/// @code
/// auto* menus = new Vela::UiBase::MenuBuilder(QStringLiteral("main_menu"), window);
/// menus->AddMenuBarItem(QStringLiteral("file"), QIcon(), tr("&File"));
/// AppMenuItemSpecifier open{.name = QStringLiteral("open"), .text = tr("&Open…")};
/// open.slot = SLOT(openFile()); // of the window
/// menus->AddDropDownMenu(QStringLiteral("file"), {open});
/// menus->AddMenuBarItem(QStringLiteral("edit"), QIcon(), tr("&Edit"));
/// menus->AddDropDownMenu(QStringLiteral("edit"), {undoCommand, redoCommand}, nullptr);
/// menus->Start();
/// @endcode
class UI_BASE_EXPORT MenuBuilder : public QObject {
  Q_OBJECT

public:
  /// @param name the object name of the bar.
  /// @param mainWindow the window served, and the receiver at first; may be null.
  /// @param parent owns the builder. The bar becomes a child of it, to be laid out by the caller; of the main
  /// window itself, or for null, it becomes the window's menu bar when the builder is started.
  /// @param visible whether Start() shows the bar the first time.
  /// @param title what screen readers call the bar; a general name when it is empty.
  explicit MenuBuilder(const QString& name, QMainWindow* mainWindow = nullptr, QWidget* parent = nullptr,
                       Qt::ToolButtonStyle style = Qt::ToolButtonTextOnly, bool visible = true,
                       const QString& title = QString());
  /// Deletes the bar.
  ~MenuBuilder() override;

  /// Puts the bar in its place; from the second time on shows it again.
  void Start();
  /// Hides the bar, unless it is in use.
  void HideMe();
  /// Whether the bar is not in use: no menu is open and the keyboard is not in it.
  bool CanHide() const;
  /// Whether a menu of the bar is open.
  bool IsMenuVisible() const;

  /// The bar; null when it has been destroyed with its window.
  QWidget* MenuBar() const;
  /// What items and entries call from now on; null and one that has died make slots that are asked for later
  /// a warning.
  QObject* Receiver() const;
  /// See Receiver().
  void SetReceiver(QObject* receiver);

  /// Puts an event filter of the caller's on the bar and its items, also on those added later.
  void InstallEventFilter(QObject* filter);
  /// Where a menu opens, in pixels from its button's lower left corner (lower right in right-to-left layouts,
  /// to the left). (0, 0) unless set.
  void SetMenuPosition(const QPoint& offset);
  /// After how many milliseconds outside of menu and bar a menu closes that the pointer was in; negative for
  /// never. 1000 unless set.
  void SetMenuCloseDelay(int milliseconds);

  /// \name Items of the bar
  /// An item takes the place of one with the same name. Null icons are no icons. The accessible name is what
  /// screen readers say; without it the text or the tooltip is said.
  /// @{

  /// An item for a drop-down menu.
  void AddMenuBarItem(const QString& name, const QIcon& icon, const QString& text = QString(),
                      const QString& tooltip = QString(), const QString& accessibleName = QString());
  /// An item that calls a slot without arguments, given as SLOT(). With a drop-down menu as well it opens
  /// from the arrow beside it.
  void AddMenuBarItem(const QString& name, const char* slot, const QIcon& icon,
                      const QString& text = QString(), const QString& tooltip = QString(),
                      const QString& accessibleName = QString());
  /// An item of a specifier: an entry, or a sub-menu, which becomes the item's drop-down menu. The style
  /// sheet is the item's own, in place of the shared one.
  void AddMenuBarItem(const QSharedPointer<AppMenuItemSpecifier>& specifier,
                      const QString& accessibleName = QString(), const QString& styleSheet = QString());

  /// The same at a place counted among items and separators; one that is out of range stands for the end.
  void InsertMenuBarItem(int index, const QString& name, const QIcon& icon, const QString& text = QString(),
                         const QString& tooltip = QString(), const QString& accessibleName = QString());
  /// An item that calls a slot of the receiver, at a place of the bar.
  void InsertMenuBarItem(int index, const QString& name, const char* slot, const QIcon& icon,
                         const QString& text = QString(), const QString& tooltip = QString(),
                         const QString& accessibleName = QString());
  /// An item as specified, at a place of the bar.
  void InsertMenuBarItem(int index, const QSharedPointer<AppMenuItemSpecifier>& specifier,
                         const QString& accessibleName = QString(), const QString& styleSheet = QString());

  /// An item that shows the current state of the specifier, which it shares. A click calls the slot and does
  /// not change the state: the receiver does that, with SetMenuBarToggleItemState(), when it succeeded.
  void AddMenuBarToggleItem(const QString& name, const QSharedPointer<AppMenuToggleItemSpecifier>& specifier,
                            const QString& accessibleName = QString());
  /// The same for two texts. @param index as above; -1 for the end.
  void AddMenuBarToggleTextItem(const QString& name, const QString& offText, const QString& onText,
                                const char* slot, int index = -1);
  /// Switches the item over without calling its slot.
  void SetMenuBarToggleItemState(const QString& name, bool isOn);

  /// A separator at the end: a line, or a space of `width` pixels. A space of a negative width takes all the
  /// room there is, so that what comes after it stands at the far end of the bar. @return false, and none is
  /// added, when no item is before it.
  bool AddSeparator(bool line = true, int width = 8);
  /// @}

  /// \name Menus
  /// @{

  /// Gives the item of this name a drop-down menu in place of another. @return false when there is no such
  /// item. Sub-menus are known by their names afterwards.
  bool AddDropDownMenu(const QString& name, const QList<AppMenuItemSpecifier>& items);
  /// The same of actions, such as commands; null stands for a separator. @param defaultAction is shown
  /// emphasized; may be null.
  bool AddDropDownMenu(const QString& name, const QVector<QAction*>& actions, QAction* defaultAction);
  /// Appends a sub-menu called `entry.name` to a menu. @return false when there is no such menu.
  bool AddSubMenu(const QString& menuName, const AppMenuItemSpecifier& entry,
                  const QList<AppMenuItemSpecifier>& items);
  /// An entry that opens a menu of its own. @return false when there is no such menu.
  bool AddSubMenu(const QString& menuName, const AppMenuItemSpecifier& entry,
                  const QVector<QAction*>& actions);
  /// Appends an entry, a separator or a sub-menu to a menu or sub-menu. @return false when there is none.
  bool AppendMenuItem(const QString& menuName, const AppMenuItemSpecifier& item);
  /// Appends what a menu bar shows: an item for each of its menus and actions, which follows text, icon and
  /// state of it. Names are the object names of menus and actions, or else their texts without ampersands,
  /// with a number where an item has that name. What is in the bar already is left as it is. Menus and
  /// actions that `bar` owns become the builder's: the window may replace and delete it. It is left as it is
  /// otherwise.
  void AppendMenuBarItems(QMenuBar* bar);
  /// Makes a menu of the caller's the drop-down menu of a button of the bar; not owned.
  void AddButtonMenuLinkage(QToolButton* button, QMenu* menu);
  /// The drop-down menu of an item, or a sub-menu; null when there is none.
  QMenu* GetMenu(const QString& name) const;
  /// @}

  /// \name Look-up
  /// @{

  /// Null when there is none.
  QSharedPointer<QToolButton> GetMenuBarItem(const QString& name) const;
  /// The specifier of a toggle item; null when there is none of that name.
  QSharedPointer<AppMenuToggleItemSpecifier> GetMenuBarToggleItemSpecifier(const QString& name) const;
  /// Enables or disables an item of the bar.
  void SetButtonEnabled(const QString& name, bool enabled);
  /// @}

  bool eventFilter(QObject* watched, QEvent* event) override;

protected:
  /// Takes the private object over.
  MenuBuilder(MenuBuilderPrivate& state, const QString& name, QMainWindow* mainWindow, QWidget* parent,
              Qt::ToolButtonStyle style, bool visible, const QString& title);

  /// Puts the bar in its place; called once, by the first Start().
  virtual void Initialize(bool visible);
  /// The entry of a menu with this text; null when there is none.
  virtual QAction* FindAction(const QString& menuName, const QString& text);
  /// The window whose bar it builds.
  virtual QMainWindow* GetMainWindow();
  /// How menus, sub-menus too, look: called for each that is made here and after a change of the palette.
  virtual void SetDropDownMenuStyle(QMenu* menu);
  /// The sizes that go with the way an item shows icon and text.
  virtual void SetMenuBarItemButtonStyle(QSharedPointer<QToolButton>& item, Qt::ToolButtonStyle style);
  /// How an item looks; also called after a change of the palette.
  /// @param split whether the item has a menu beside a click of its own.
  virtual void SetMenuBarItemStyle(QSharedPointer<QToolButton>& item, bool split);

private:
  friend class MenuBuilderPrivate; // calls the protected hooks

  const std::unique_ptr<MenuBuilderPrivate> d;
};

} // namespace Vela::UiBase
