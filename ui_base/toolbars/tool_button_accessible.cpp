// SPDX-License-Identifier: MIT
#include "tool_button_accessible.h"

#include <ui_base/toolbars/tool_button_with_menu.h>

#include <QAccessible>
#include <QAccessibleWidget>

namespace Vela::UiBase {

namespace {

class MenuButtonAccessible : public QAccessibleWidget {
public:
  explicit MenuButtonAccessible(ToolButtonWithMenu* button)
      : QAccessibleWidget(button, QAccessible::ButtonMenu) {}

  QString text(QAccessible::Text text) const override {
    const QString own = QAccessibleWidget::text(text);
    if (text != QAccessible::Name || !own.isEmpty())
      return own;
    QString name = button().text();
    return name.isEmpty() ? button().toolTip() : name.remove(QLatin1Char('&'));
  }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    const bool open = button().IsMenuShowing();
    state.hasPopup = true;
    state.expandable = true;
    state.expanded = open;
    state.collapsed = !open;
    state.checkable = button().isCheckable();
    state.checked = button().isChecked();
    state.pressed = button().isDown();
    state.disabled = state.disabled || button().IsLocked();
    return state;
  }

  QStringList actionNames() const override {
    return button().isEnabled() && !button().IsLocked() ? QStringList(pressAction()) : QStringList();
  }

  void doAction(const QString& name) override {
    if (name == pressAction())
      button().click();
  }

private:
  ToolButtonWithMenu& button() const { return *static_cast<ToolButtonWithMenu*>(widget()); }
};

QAccessibleInterface* makeAccessible(const QString& className, QObject* object) {
  auto* const button = className == QLatin1String("Vela::UiBase::ToolButtonWithMenu")
                           ? qobject_cast<ToolButtonWithMenu*>(object)
                           : nullptr;
  return button ? new MenuButtonAccessible(button) : nullptr;
}

} // namespace

void makeMenuButtonsAccessible() {
  [[maybe_unused]] static const bool installed = (QAccessible::installFactory(makeAccessible), true);
}

void announceMenuState(ToolButtonWithMenu& button) {
  if (!QAccessible::isActive())
    return;
  QAccessible::State changed;
  changed.expanded = true;
  changed.collapsed = true;
  QAccessibleStateChangeEvent event(&button, changed);
  QAccessible::updateAccessibility(&event);
}

} // namespace Vela::UiBase
