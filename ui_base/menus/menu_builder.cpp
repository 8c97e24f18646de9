// SPDX-License-Identifier: MIT
#include "menu_builder.h"

#include "menu_bar_keys.h"
#include "menu_bar_menus.h"
#include "menu_bar_widget.h"
#include "menu_builder_p.h"
#include "menu_contents.h"
#include "window_class_style_win.h"

#include <ui_base/views/qt_ui_toolkit.h>
#include <vlk_common_res/styles.h>

#include <QEvent>
#include <QMenuBar>

#include <algorithm>
#include <limits>
#include <utility>

namespace Vela::UiBase {

using Resource::Styles;

namespace {

constexpr int ICON_FRAME = 4;      // px that an item without text is larger than its icon
constexpr int MIN_TEXT_WIDTH = 50; // px of an item with a text
constexpr int MAX_TEXT_WIDTH = std::numeric_limits<int>::max();

/// Also for a menu of a menu: each is a window, at which QWidget::isAncestorOf() ends.
bool belongsTo(const QObject& menu, const QObject& bar) {
  const QObject* parent = menu.parent();
  while (parent && parent != &bar)
    parent = parent->parent();
  return parent;
}

} // namespace

MenuBuilder::MenuBuilder(const QString& name, QMainWindow* mainWindow, QWidget* parent,
                         Qt::ToolButtonStyle style, bool visible, const QString& title)
    : MenuBuilder(*new MenuBuilderPrivate, name, mainWindow, parent, style, visible, title) {}

MenuBuilder::MenuBuilder(MenuBuilderPrivate& state, const QString& name, QMainWindow* mainWindow,
                         QWidget* parent, Qt::ToolButtonStyle style, bool visible, const QString& title)
    : QObject(parent), d(&state) {
  d->q = this;
  d->mainWindow = mainWindow;
  d->parent = parent;
  d->receiver = mainWindow;
  d->style = style;
  d->visibleAtFirst = visible;
  d->createMenuBar(name, title);
}

MenuBuilder::~MenuBuilder() { delete d->bar; }

void MenuBuilder::Start() {
  if (!d->bar)
    return;
  if (d->started)
    d->bar->show();
  else
    Initialize(d->visibleAtFirst);
  d->started = true;
}

void MenuBuilder::Initialize(bool visible) {
  if (!d->bar)
    return;
  if (d->mainWindow && (!d->parent || d->parent == d->mainWindow))
    d->mainWindow->setMenuWidget(d->bar);
  d->bar->setVisible(visible);
}

void MenuBuilder::HideMe() {
  if (d->bar && CanHide())
    d->bar->hide();
}

bool MenuBuilder::CanHide() const { return !d->bar || !(d->menus->openItem() || d->keys->isActive()); }

bool MenuBuilder::IsMenuVisible() const { return d->bar && d->bar->isVisible(); }

QWidget* MenuBuilder::MenuBar() const { return d->bar; }

QObject* MenuBuilder::Receiver() const { return d->receiver; }

void MenuBuilder::SetReceiver(QObject* receiver) { d->receiver = receiver; }

QMainWindow* MenuBuilder::GetMainWindow() { return d->mainWindow; }

void MenuBuilder::InstallEventFilter(QObject* filter) {
  if (!filter || !d->bar)
    return;
  d->filters += filter;
  d->bar->installEventFilter(filter);
  for (const MenuBarItemPointer& item : std::as_const(d->items))
    item->button->installEventFilter(filter);
}

void MenuBuilder::SetMenuPosition(const QPoint& offset) {
  if (d->bar)
    d->menus->setPosition(offset);
}

void MenuBuilder::SetMenuCloseDelay(int milliseconds) {
  if (d->bar)
    d->menus->setCloseDelay(milliseconds);
}

void MenuBuilder::AddMenuBarItem(const QString& name, const QIcon& icon, const QString& text,
                                 const QString& tooltip, const QString& accessibleName) {
  d->addOrInsert(false, -1, name, icon, text, tooltip, accessibleName);
}

void MenuBuilder::AddMenuBarItem(const QString& name, const char* slot, const QIcon& icon,
                                 const QString& text, const QString& tooltip, const QString& accessibleName) {
  d->connectClick(d->addOrInsert(false, -1, name, icon, text, tooltip, accessibleName), slot);
}

void MenuBuilder::AddMenuBarItem(const QSharedPointer<AppMenuItemSpecifier>& specifier,
                                 const QString& accessibleName, const QString& styleSheet) {
  if (specifier)
    d->addOfSpecifier(false, -1, *specifier, accessibleName, styleSheet);
}

void MenuBuilder::InsertMenuBarItem(int index, const QString& name, const QIcon& icon, const QString& text,
                                    const QString& tooltip, const QString& accessibleName) {
  d->addOrInsert(true, index, name, icon, text, tooltip, accessibleName);
}

void MenuBuilder::InsertMenuBarItem(int index, const QString& name, const char* slot, const QIcon& icon,
                                    const QString& text, const QString& tooltip,
                                    const QString& accessibleName) {
  d->connectClick(d->addOrInsert(true, index, name, icon, text, tooltip, accessibleName), slot);
}

void MenuBuilder::InsertMenuBarItem(int index, const QSharedPointer<AppMenuItemSpecifier>& specifier,
                                    const QString& accessibleName, const QString& styleSheet) {
  if (specifier)
    d->addOfSpecifier(true, index, *specifier, accessibleName, styleSheet);
}

void MenuBuilder::AddMenuBarToggleItem(const QString& name,
                                       const QSharedPointer<AppMenuToggleItemSpecifier>& specifier,
                                       const QString& accessibleName) {
  if (!specifier)
    return;
  const auto item = d->addOrInsert(false, -1, name, QIcon(), QString(), QString(), accessibleName);
  if (!item)
    return;
  d->toggles[item->button.data()] = specifier;
  d->showToggleState(name);
  d->connectClick(item, specifier->slot);
}

void MenuBuilder::AddMenuBarToggleTextItem(const QString& name, const QString& offText, const QString& onText,
                                           const char* slot, int index) {
  const auto item = d->addOrInsert(index >= 0, index, name, QIcon(), offText, QString(), QString());
  if (!item)
    return;
  const AppMenuToggleItemSpecifier states{{.text = offText}, {.text = onText}, false, slot};
  d->toggles[item->button.data()] = QSharedPointer<AppMenuToggleItemSpecifier>::create(states);
  d->connectClick(item, slot);
}

void MenuBuilder::SetMenuBarToggleItemState(const QString& name, bool isOn) {
  if (const auto specifier = GetMenuBarToggleItemSpecifier(name)) {
    specifier->isOn = isOn;
    d->showToggleState(name);
  }
}

bool MenuBuilder::AddSeparator(bool line, int width) {
  if (!d->bar || !d->bar->endsWithItem())
    return false;
  d->bar->insertSeparator(-1, line, width);
  return true;
}

bool MenuBuilder::AddDropDownMenu(const QString& name, const QList<AppMenuItemSpecifier>& items) {
  QMenu* const menu = d->makeDropDown(name);
  if (menu)
    d->contents().append(*menu, items);
  return menu;
}

bool MenuBuilder::AddDropDownMenu(const QString& name, const QVector<QAction*>& actions,
                                  QAction* defaultAction) {
  QMenu* const menu = d->makeDropDown(name);
  if (!menu)
    return false;
  MenuContents::append(*menu, actions);
  menu->setDefaultAction(defaultAction);
  return true;
}

bool MenuBuilder::AddSubMenu(const QString& menuName, const AppMenuItemSpecifier& entry,
                             const QList<AppMenuItemSpecifier>& items) {
  QMenu* const menu = GetMenu(menuName);
  if (menu)
    d->contents().append(d->contents().appendSubMenu(*menu, entry), items);
  return menu;
}

bool MenuBuilder::AddSubMenu(const QString& menuName, const AppMenuItemSpecifier& entry,
                             const QVector<QAction*>& actions) {
  QMenu* const menu = GetMenu(menuName);
  if (menu)
    MenuContents::append(d->contents().appendSubMenu(*menu, entry), actions);
  return menu;
}

bool MenuBuilder::AppendMenuItem(const QString& menuName, const AppMenuItemSpecifier& item) {
  QMenu* const menu = GetMenu(menuName);
  if (menu)
    d->contents().append(*menu, item);
  return menu;
}

void MenuBuilder::AppendMenuBarItems(QMenuBar* bar) {
  if (!bar || !d->bar)
    return;
  const QPointer<MenuBuilder> self = this;
  const LivePointer<QMenuBar> source = bar;
  const QList<QAction*> actions = bar->actions();
  const QList<QPointer<QAction>> guarded(actions.cbegin(), actions.cend());
  bool separated = false; // from what was there before
  for (const auto& action : guarded) {
    if (!self || !source)
      return;
    if (!action || d->shows(*action))
      continue;
    if (!action->isSeparator()) {
      if (std::exchange(separated, false))
        AddSeparator();
      d->takeOver(*source, *action);
    } else {
      separated = true;
    }
  }
}

void MenuBuilder::AddButtonMenuLinkage(QToolButton* button, QMenu* menu) {
  const QList<MenuBarItemPointer> items = d->items.values();
  for (const MenuBarItemPointer& item : items) {
    if (button && item->button == button)
      d->link(item, menu);
  }
}

QMenu* MenuBuilder::GetMenu(const QString& name) const { return d->bar ? d->menuOf(name) : nullptr; }

QSharedPointer<QToolButton> MenuBuilder::GetMenuBarItem(const QString& name) const {
  const MenuBarItemPointer item = d->items.value(name);
  return item ? item->button : QSharedPointer<QToolButton>();
}

QSharedPointer<AppMenuToggleItemSpecifier>
MenuBuilder::GetMenuBarToggleItemSpecifier(const QString& name) const {
  return d->toggles.value(GetMenuBarItem(name).data());
}

void MenuBuilder::SetButtonEnabled(const QString& name, bool enabled) {
  if (const auto button = GetMenuBarItem(name))
    button->setEnabled(enabled);
}

QAction* MenuBuilder::FindAction(const QString& menuName, const QString& text) {
  return QtUiToolkit::FindAction(GetMenu(menuName), text);
}

void MenuBuilder::SetDropDownMenuStyle(QMenu* menu) {
  if (!menu)
    return;
  if (!d->bar || !belongsTo(*menu, *d->bar)) // else it has that of the bar
    menu->setStyleSheet(Styles::Instance().MenuMain());
  if (!menu->windowFlags().testFlag(Qt::NoDropShadowWindowHint))
    menu->setWindowFlag(Qt::NoDropShadowWindowHint);
  if constexpr (HAS_CLASS_DROP_SHADOW)
    clearClassDropShadow(reinterpret_cast<void*>(menu->winId()));
}

void MenuBuilder::SetMenuBarItemButtonStyle(QSharedPointer<QToolButton>& item, Qt::ToolButtonStyle style) {
  if (!item)
    return;
  if (style == Qt::ToolButtonIconOnly) {
    item->setFixedSize(item->iconSize() + QSize(ICON_FRAME, ICON_FRAME));
    return;
  }
  item->setMinimumSize(MIN_TEXT_WIDTH, 0);
  // A width beyond Qt's own limit is brought down to it, with a warning.
  item->setMaximumSize(std::min(MAX_TEXT_WIDTH, QWIDGETSIZE_MAX), QWIDGETSIZE_MAX);
}

void MenuBuilder::SetMenuBarItemStyle(QSharedPointer<QToolButton>& item, bool split) {
  if (!item)
    return;
  const auto mode = split ? QToolButton::MenuButtonPopup : QToolButton::InstantPopup;
  const QString sheet = Styles::Instance().Separator();
  item->setAutoRaise(true);
  item->setFont(Styles::Instance().FontLabel()); // that of the menus
  if (item->popupMode() == mode && item->styleSheet() == sheet)
    return;
  item->setPopupMode(mode);
  item->setStyleSheet(sheet); // the same one too: its rules ask for the mode
}

bool MenuBuilder::eventFilter(QObject* watched, QEvent* event) {
  if (!d->bar)
    return false;
  switch (event->type()) {
  case QEvent::ActionAdded:
  case QEvent::ActionChanged:
  case QEvent::ActionRemoved:
  case QEvent::EnabledChange:
  case QEvent::ShowToParent:
  case QEvent::HideToParent:
    d->refreshShortcuts();
    break;
  default:
    break;
  }
  if (auto* const menu = qobject_cast<QMenu*>(watched)) {
    if (event->type() == QEvent::Show) {
      const QList<QAction*> actions = menu->actions();
      for (const QAction* const action : actions) {
        if (auto* const subMenu = action->menu<QMenu*>())
          subMenu->installEventFilter(this);
      }
    }
    return d->menus->filterMenu(menu, event);
  }
  const LivePointer<QToolButton> item = qobject_cast<QToolButton*>(watched);
  const QPointer<MenuBuilder> self = this;
  if (item && d->menus->filterItem(item, event))
    return true;
  return self && d->bar && item && d->keys->filterItem(item, event);
}

} // namespace Vela::UiBase
