// SPDX-License-Identifier: MIT
#include "menu_builder_p.h"

#include "menu_bar_accessible.h"

#include <ui_base/views/qt_ui_toolkit.h>
#include <vlk_common_res/styles.h>

namespace Vela::UiBase {

using Resource::Styles;

namespace {

QString plainText(QString text) { return text.remove(QLatin1Char('&')); }

} // namespace

QString nameOr(const QObject& object, const QString& text) {
  return object.objectName().isEmpty() ? plainText(text) : object.objectName();
}

void MenuBuilderPrivate::createMenuBar(const QString& name, const QString& title) {
  installMenuBarAccessibility();
  bar = new MenuBarWidget(name, parent ? parent : mainWindow);
  bar->setAccessibleName(title.isEmpty() ? MenuBuilder::tr("Menu bar") : title);
  bar->hide();
  menus = new MenuBarMenus(bar);
  keys = new MenuBarKeys(bar, menus, mainWindow);
  QObject::connect(bar, &MenuBarWidget::goes, q, [this] {
    bar.clear();
    toggles.clear();
    items.clear();
    menus->end(); // last: who hears of it may end the builder
  });
  QObject::connect(&Styles::Instance(), &Styles::changed, q, [this] { dressAll(); });
}

MenuBarItem* MenuBuilderPrivate::addOrInsert(bool insert, int index, const QString& name, const QIcon& icon,
                                             const QString& text, const QString& tooltip,
                                             const QString& accessibleName) {
  if (!bar)
    return nullptr;
  if (name.isEmpty()) {
    qWarning("An item of the menu bar needs a name");
    return nullptr;
  }
  const int place = takePlaceOf(name);
  // It may be replaced while it handles a click.
  MenuBarItem item{QSharedPointer<QToolButton>(new QToolButton(bar), &QObject::deleteLater), {}};
  item.button->setObjectName(name);
  item.button->setFocusPolicy(Qt::NoFocus); // the bar's keys give it the focus
  item.button->setIcon(icon);
  item.button->setText(text);
  item.button->setToolTip(tooltip);
  item.button->setAccessibleName(accessibleName);
  item.button->setToolButtonStyle(style);
  bar->insertItem(insert ? index : place, item.button);
  item.button->installEventFilter(q);
  for (const auto& filter : std::as_const(filters)) {
    if (filter)
      item.button->installEventFilter(filter);
  }
  q->SetMenuBarItemButtonStyle(item.button, style);
  MenuBarItem& kept = items[name] = item;
  dress(kept);
  return &kept;
}

int MenuBuilderPrivate::takePlaceOf(const QString& name) {
  const MenuBarItem old = items.take(name);
  if (!old.button)
    return -1;
  const int place = bar->indexOf(old.button.data());
  toggles.remove(old.button.data());
  if (old.action)
    bar->removeAction(old.action);
  menus->link(old.button.data(), nullptr);
  if (QMenu* const menu = menusByName.take(name); menu && menu->parent() == bar)
    menu->deleteLater();
  bar->removeItem(old.button.data());
  return place;
}

void MenuBuilderPrivate::connectClick(MenuBarItem* item, const QString& name, const char* slot) {
  if (!item)
    return;
  item->hasClick = connectToSlot(*item->button, SIGNAL(clicked()), receiver, slot, name);
  dress(*item);
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
  MenuBarItem* const item =
      addOrInsert(insert, index, name, specifier.icon, specifier.text, specifier.tooltip, accessibleName);
  if (!item)
    return;
  item->styleSheet = styleSheet;
  if (action) {
    follow(*item, *action);
    return;
  }
  item->button->setEnabled(specifier.enabled);
  item->button->setCheckable(specifier.checkable);
  item->button->setChecked(specifier.checked);
  if (!specifier.shortcut.isEmpty())
    item->button->setShortcut(specifier.shortcut);
  connectClick(item, name, specifier.slot);
  if (specifier.kind == AppMenuSubMenu)
    q->AddDropDownMenu(name, specifier.items);
}

void MenuBuilderPrivate::follow(MenuBarItem& item, QAction& action) {
  QToolButton* const button = item.button.data();
  const auto show = [button, source = &action] {
    button->setText(source->text());
    button->setIcon(source->icon());
    button->setToolTip(plainText(source->text()) == source->toolTip() ? QString() : source->toolTip());
    button->setCheckable(source->isCheckable());
    button->setChecked(source->isChecked());
    button->setEnabled(source->isEnabled());
    button->setVisible(source->isVisible());
  };
  QObject::connect(&action, &QAction::changed, button, show);
  QObject::connect(&action, &QObject::destroyed, button, [button] { button->hide(); });
  show();
  if (auto* const menu = action.menu<QMenu*>()) {
    adopt(button->objectName(), *menu);
    link(item, menu);
  } else {
    item.hasClick = true;
    bar->addAction(&action); // for its shortcut
    item.action = &action;
    QObject::connect(button, &QToolButton::clicked, &action,
                     [show, source = QPointer<QAction>(&action), target = QPointer<QToolButton>(button)] {
                       source->trigger();
                       if (source && target)
                         show(); // a checked action of a group stays checked
                     });
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

QMenu* MenuBuilderPrivate::makeDropDown(const QString& name) {
  const auto item = items.find(name);
  if (item == items.end() || !bar)
    return nullptr;
  if (QMenu* const old = menusByName.take(name); old && old->parent() == bar) {
    old->close();
    old->deleteLater();
  }
  auto* const menu = new QMenu(bar);
  menu->setObjectName(name);
  adopt(name, *menu);
  q->SetDropDownMenuStyle(menu);
  link(*item, menu);
  return menu;
}

void MenuBuilderPrivate::adopt(const QString& name, QMenu& menu) {
  menusByName[name] = &menu;
  menu.installEventFilter(q);
}

void MenuBuilderPrivate::link(MenuBarItem& item, QMenu* menu) {
  menus->link(item.button.data(), menu);
  dress(item);
}

void MenuBuilderPrivate::dress(MenuBarItem& item) {
  q->SetMenuBarItemStyle(item.button, item.hasClick && menus->menuOf(item.button.data()));
  if (!item.styleSheet.isEmpty())
    item.button->setStyleSheet(item.styleSheet);
}

void MenuBuilderPrivate::dressAll() {
  if (!bar)
    return;
  for (MenuBarItem& item : items)
    dress(item);
  const QList<QMenu*> made = bar->findChildren<QMenu*>();
  for (QMenu* const menu : made)
    q->SetDropDownMenuStyle(menu);
}

MenuContents MenuBuilderPrivate::contents() {
  return {receiver, [this](const QString& name, QMenu& menu) {
            q->SetDropDownMenuStyle(&menu);
            if (!name.isEmpty())
              adopt(name, menu);
          }};
}

} // namespace Vela::UiBase
