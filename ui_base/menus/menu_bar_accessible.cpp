// SPDX-License-Identifier: MIT
#include "menu_bar_accessible.h"

#include "menu_bar_menus.h"
#include "menu_bar_widget.h"

#include <ui_base/core/language.h>

#include <QAccessibleWidget>
#include <QMenu>
#include <QToolButton>

namespace Vela::UiBase {

namespace {

class AccessibleItem : public QAccessibleWidget {
public:
  explicit AccessibleItem(QToolButton* item) : QAccessibleWidget(item, QAccessible::MenuItem) {}

  int childCount() const override { return button().menu() ? 1 : 0; }
  QAccessibleInterface* child(int index) const override {
    return index == 0 && button().menu() ? QAccessible::queryAccessibleInterface(button().menu()) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return child && child->object() == button().menu() ? 0 : -1;
  }
  QAccessible::State state() const override {
    QAccessible::State result = QAccessibleWidget::state();
    const QMenu* const menu = button().menu();
    result.focusable = button().isEnabled(); // by the bar's keys
    result.checkable = button().isCheckable();
    result.checked = button().isChecked();
    result.hasPopup = menu != nullptr;
    result.expandable = result.hasPopup;
    result.expanded = menu && menu->isVisible();
    result.collapsed = menu && !menu->isVisible();
    return result;
  }
  QString text(QAccessible::Text kind) const override {
    const QString given = QAccessibleWidget::text(kind);
    return kind == QAccessible::Name && given.isEmpty() ? plainName() : given;
  }
  QStringList actionNames() const override {
    QStringList names;
    if (!button().isEnabled())
      return names;
    if (button().menu())
      names += showMenuAction();
    if (!button().menu() || button().popupMode() == QToolButton::MenuButtonPopup)
      names += pressAction();
    return names;
  }
  void doAction(const QString& name) override {
    if (!button().isEnabled())
      return;
    if (name == pressAction())
      button().click();
    else if (name == showMenuAction())
      showMenu();
  }
  QStringList keyBindingsForAction(const QString&) const override {
    const QKeySequence mnemonic = QKeySequence::mnemonic(button().text());
    return mnemonic.isEmpty() ? QStringList() : QStringList(mnemonic.toString(QKeySequence::NativeText));
  }

private:
  void showMenu() {
    // An item that somebody holds lives on without its bar.
    const QWidget* const bar = button().parentWidget();
    if (auto* const menus = bar ? bar->findChild<MenuBarMenus*>() : nullptr)
      menus->open(&button(), true);
  }
  QToolButton& button() const { return *static_cast<QToolButton*>(widget()); }
  QString plainName() const {
    const QString name = withoutMnemonic(button().text());
    return name.isEmpty() ? button().toolTip() : name;
  }
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
  if (auto* const bar = qobject_cast<MenuBarWidget*>(object))
    return new QAccessibleWidget(bar, QAccessible::MenuBar);
  auto* const button = qobject_cast<QToolButton*>(object);
  if (button && qobject_cast<MenuBarWidget*>(button->parentWidget()))
    return new AccessibleItem(button);
  return nullptr;
}

} // namespace

void installMenuBarAccessibility() {
  [[maybe_unused]] static const bool installed = (QAccessible::installFactory(makeInterface), true);
}

} // namespace Vela::UiBase
