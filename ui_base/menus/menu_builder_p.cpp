// SPDX-License-Identifier: MIT
#include "menu_builder_p.h"

#include "menu_bar_accessible.h"
#include "menu_bar_keys.h"
#include "menu_bar_menus.h"
#include "menu_bar_widget.h"
#include "menu_contents.h"
#include "menu_shortcuts.h"

#include <ui_base/core/language.h>
#include <ui_base/views/qt_ui_toolkit.h>
#include <vlk_common_res/styles.h>

#include <QMenuBar>

#include <algorithm>

namespace Vela::UiBase {

using Resource::Styles;

namespace {

/// The object name; where there is none, the text as it is shown.
QString nameOr(const QObject& object, const QString& text) {
  return object.objectName().isEmpty() ? withoutMnemonic(text) : object.objectName();
}

/// A tooltip that tells the shortcut.
QString withShortcut(const QString& tooltip, const QString& text, const QKeySequence& keys) {
  if (keys.isEmpty())
    return tooltip;
  return QStringLiteral("%1 (%2)").arg(tooltip.isEmpty() ? withoutMnemonic(text) : tooltip,
                                       keys.toString(QKeySequence::NativeText));
}

} // namespace

MenuBuilderPrivate::MenuBuilderPrivate() = default;

MenuBuilderPrivate::~MenuBuilderPrivate() = default;

void MenuBuilderPrivate::createMenuBar(const QString& name, const QString& title) {
  installMenuBarAccessibility();
  QWidget* const owner = parent ? parent.data() : mainWindow.data();
  bar = new MenuBarWidget(name, owner);
  keepTranslated(bar, [bar = bar.data(), title] {
    bar->setAccessibleName(title.isEmpty() ? MenuBuilder::tr("Menu bar") : title);
  });
  bar->hide();
  bar->setStyleSheet(Styles::Instance().MenuMain()); // parsed once for all menus
  menus = new MenuBarMenus(bar);
  keys = new MenuBarKeys(bar, menus, mainWindow);
  shortcuts = new MenuShortcuts([this] { return shortcutHome(); }, [this] { return wantedShortcuts(); });
  bar->overflowButton()->installEventFilter(q);
  menus->overflowMenu()->installEventFilter(q);
  QObject::connect(bar, &MenuBarWidget::goes, q, [this] {
    bar.clear();
    delete shortcuts;
    toggles.clear();
    items.clear();
    menus->end(); // last: who hears of it may end the builder
  });
  QObject::connect(&Styles::Instance(), &Styles::changed, q, [this] { applyStyles(); });
}

MenuBarItemPointer MenuBuilderPrivate::addOrInsert(bool insert, int index, const QString& name,
                                                   const QIcon& icon, const QString& text,
                                                   const QString& tooltip, const QString& accessibleName) {
  if (!bar)
    return {};
  if (name.isEmpty()) {
    qWarning("An item of the menu bar needs a name");
    return {};
  }
  const int place = takePlaceOf(name);
  // It may be replaced while it handles a click.
  const auto item = MenuBarItemPointer::create(
      MenuBarItem{QSharedPointer<QToolButton>(new QToolButton(bar), &QObject::deleteLater)});
  QToolButton* const button = item->button.data();
  button->setObjectName(name);
  button->setFocusPolicy(Qt::NoFocus); // the bar's keys give it the focus
  button->setIcon(icon);
  button->setText(text);
  button->setToolTip(tooltip);
  button->setAccessibleName(accessibleName);
  button->setToolButtonStyle(style);
  items[name] = item;
  q->SetMenuBarItemButtonStyle(item->button, style);
  applyStyle(item); // not after it is shown, which would be twice the work
  if (!bar)
    return {};
  bar->insertItem(insert ? index : place, item->button);
  button->installEventFilter(q);
  for (const auto& filter : std::as_const(filters)) {
    if (filter)
      button->installEventFilter(filter);
  }
  return bar && items.value(name) == item ? item : MenuBarItemPointer();
}

int MenuBuilderPrivate::takePlaceOf(const QString& name) {
  const MenuBarItemPointer old = items.take(name);
  if (!old)
    return -1;
  QToolButton* const button = old->button.data();
  const int place = bar->indexOf(button);
  const LivePointer<QMenu> menu = menus->menuOf(button);
  toggles.remove(button);
  menus->link(button, nullptr); // who hears of a menu that closes may end the bar
  if (menu && bar && menu->parent() == bar)
    menu->deleteLater();
  if (bar)
    bar->removeItem(button);
  refreshShortcuts();
  return place;
}

void MenuBuilderPrivate::connectClick(const MenuBarItemPointer& item, const char* slot) {
  if (!item)
    return;
  item->hasClick =
      connectToSlot(*item->button, SIGNAL(clicked()), receiver, slot, item->button->objectName());
  applyStyle(item);
}

void MenuBuilderPrivate::addOfSpecifier(bool insert, int index, const AppMenuItemSpecifier& specifier,
                                        const QString& accessibleName, const QString& styleSheet) {
  if (specifier.kind == AppMenuSeparator) {
    if (insert && bar)
      bar->insertSeparator(index, true, 0);
    else
      q->AddSeparator();
    return;
  }
  QAction* const action = specifier.action;
  const QString name = specifier.name.isEmpty() && action ? nameOr(*action, action->text()) : specifier.name;
  const MenuBarItemPointer item =
      addOrInsert(insert, index, name, specifier.icon, specifier.text, specifier.tooltip, accessibleName);
  if (!item)
    return;
  item->styleSheet = styleSheet;
  if (action) {
    follow(item, *action);
    return;
  }
  item->button->setEnabled(specifier.enabled);
  item->button->setCheckable(specifier.checkable);
  item->button->setChecked(specifier.checked);
  setShortcut(item, specifier.shortcut);
  connectClick(item, specifier.slot);
  if (specifier.kind == AppMenuSubMenu)
    q->AddDropDownMenu(name, specifier.items);
}

// The button's own shortcut would die whenever the bar is hidden.
void MenuBuilderPrivate::setShortcut(const MenuBarItemPointer& item, const QKeySequence& sequence) {
  if (sequence.isEmpty())
    return;
  QToolButton* const button = item->button.data();
  auto* const action = new QAction(button);
  action->setShortcut(sequence);
  QObject::connect(action, &QAction::triggered, button, [this, button] {
    if (bar && bar->isVisible() && menus->menuOf(button))
      menus->open(button, true);
    else
      button->click();
  });
  button->setToolTip(withShortcut(button->toolTip(), button->text(), sequence));
  item->keys = action;
  refreshShortcuts();
}

void MenuBuilderPrivate::follow(const MenuBarItemPointer& item, QAction& action) {
  QToolButton* const button = item->button.data();
  const auto show = [button = QPointer(button), source = QPointer(&action)] {
    if (!button || !source)
      return;
    const QString own = withoutMnemonic(source->text()) == source->toolTip() ? QString() : source->toolTip();
    button->setText(source->text());
    button->setIcon(source->icon());
    button->setToolTip(withShortcut(own, source->text(), source->shortcut()));
    button->setCheckable(source->isCheckable());
    button->setChecked(source->isChecked()); // who hears of it may end the action or the button
    if (button && source)
      button->setEnabled(source->isEnabled());
    if (button && source)
      button->setVisible(source->isVisible());
  };
  QObject::connect(&action, &QAction::changed, button, show);
  QObject::connect(&action, &QAction::changed, q, [this] { refreshShortcuts(); });
  QObject::connect(&action, &QObject::destroyed, button, [button] { button->hide(); });
  const QPointer<QAction> guard = &action;
  show();
  if (!guard || !bar)
    return;
  if (auto* const menu = action.menu<QMenu*>()) {
    link(item, menu);
    return;
  }
  item->hasClick = true;
  item->keys = &action;
  QObject::connect(button, &QToolButton::clicked, &action, &QAction::trigger);
  QObject::connect(button, &QToolButton::clicked, &action, show); // a checked action of a group stays checked
  refreshShortcuts();
}

QString MenuBuilderPrivate::freeName(const QString& wanted) const {
  QString name = wanted;
  for (int i = 2; items.contains(name); ++i)
    name = QStringLiteral("%1 %2").arg(wanted).arg(i);
  return name;
}

bool MenuBuilderPrivate::shows(QAction& action) const {
  auto* const menu = action.menu<QMenu*>();
  return std::any_of(items.cbegin(), items.cend(), [&](const MenuBarItemPointer& item) {
    return menu ? menus->menuOf(item->button.data()) == menu : item->keys == &action;
  });
}

void MenuBuilderPrivate::takeOver(QMenuBar& source, QAction& action) {
  const LivePointer<QMenu> menu = action.menu<QMenu*>();
  const QPointer<QAction> guard = &action;
  const QPointer<QObject> from = &source;
  const QString name = freeName(menu ? nameOr(*menu, action.text()) : nameOr(action, action.text()));
  const MenuBarItemPointer item = addOrInsert(false, -1, name, {}, {}, {}, {});
  if (!item || !guard)
    return;
  follow(item, *guard);
  if (!bar || !guard)
    return;
  // The window deletes the bar that it had.
  if (guard->parent() == from)
    guard->setParent(bar);
  if (menu && menu->parent() == from) {
    menu->setParent(bar, menu->windowFlags());
    q->SetDropDownMenuStyle(menu);
  }
}

void MenuBuilderPrivate::showToggleState(const QString& name) {
  const auto specifier = q->GetMenuBarToggleItemSpecifier(name);
  const auto button = q->GetMenuBarItem(name);
  if (!specifier || !button)
    return;
  const AppMenuToggleState& state = specifier->Current();
  button->setIcon(state.iconName.isEmpty() ? QIcon() : QtUiToolkit::Instance().CreateIcon(state.iconName));
  button->setText(state.text);
  button->setToolTip(state.tooltip);
}

QMenu* MenuBuilderPrivate::menuOf(const QString& name) const {
  const MenuBarItemPointer item = items.value(name);
  QMenu* const own = item ? menus->menuOf(item->button.data()) : nullptr;
  return own ? own : subMenus.value(name).data();
}

QMenu* MenuBuilderPrivate::makeDropDown(const QString& name) {
  const MenuBarItemPointer item = items.value(name);
  if (!item || !bar)
    return nullptr;
  if (const LivePointer<QMenu> old = menus->menuOf(item->button.data()); old && old->parent() == bar) {
    old->close();
    if (!bar)
      return nullptr; // who heard of it ended it
    if (old)
      old->deleteLater();
  }
  const LivePointer<QMenu> menu = new QMenu(bar);
  menu->setObjectName(name);
  q->SetDropDownMenuStyle(menu);
  link(item, menu);
  return bar ? menu.data() : nullptr;
}

void MenuBuilderPrivate::link(const MenuBarItemPointer& item, QMenu* menu) {
  if (menu)
    menu->installEventFilter(q);
  menus->link(item->button.data(), menu);
  if (!bar)
    return;
  applyStyle(item);
  refreshShortcuts();
}

void MenuBuilderPrivate::applyStyle(const MenuBarItemPointer& item) {
  const bool split = item->hasClick && menus->menuOf(item->button.data());
  q->SetMenuBarItemStyle(item->button, split);
  if (!item->styleSheet.isEmpty())
    item->button->setStyleSheet(item->styleSheet);
}

void MenuBuilderPrivate::applyStyles() {
  const QList<MenuBarItemPointer> all = items.values();
  for (const MenuBarItemPointer& item : all) {
    if (bar)
      applyStyle(item);
  }
  if (!bar)
    return;
  bar->setStyleSheet(Styles::Instance().MenuMain());
  const QList<QMenu*> made = bar->findChildren<QMenu*>();
  const QList<LivePointer<QMenu>> guarded(made.cbegin(), made.cend());
  for (const LivePointer<QMenu>& menu : guarded) {
    if (menu)
      q->SetDropDownMenuStyle(menu);
  }
}

MenuContents MenuBuilderPrivate::contents() {
  return {receiver, [this](const QString& name, QMenu& menu) {
            q->SetDropDownMenuStyle(&menu);
            menu.installEventFilter(q);
            if (!name.isEmpty())
              subMenus[name] = &menu;
          }};
}

void MenuBuilderPrivate::refreshShortcuts() {
  if (shortcuts)
    static_cast<MenuShortcuts*>(shortcuts.data())->refreshLater();
}

// What the bar stands in may be hidden, as in full screen.
QWidget* MenuBuilderPrivate::shortcutHome() const {
  QWidget* const window = mainWindow;
  QWidget* const owner = parent ? parent.data() : window;
  if (window && owner->window() == window)
    return window;
  return owner ? owner : bar.data();
}

QList<QAction*> MenuBuilderPrivate::wantedShortcuts() {
  QList<QAction*> wanted;
  for (const MenuBarItemPointer& item : std::as_const(items)) {
    const QToolButton& button = *item->button;
    if (!button.isEnabled() || button.isHidden())
      continue;
    if (item->keys && !item->keys->shortcuts().isEmpty())
      wanted += item->keys;
    if (const QMenu* const menu = menus->menuOf(&button))
      wanted += shortcutActions(*menu, [this](QMenu& subMenu) { subMenu.installEventFilter(q); });
  }
  return wanted;
}

} // namespace Vela::UiBase
