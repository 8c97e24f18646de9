// SPDX-License-Identifier: MIT
#include "tool_button_accessible.h"

#include <ui_base/core/language.h>
#include <ui_base/toolbars/tool_button_with_menu.h>

#include <QAccessible>
#include <QAccessibleWidget>

namespace Vela::UiBase {

namespace {

class ButtonAccessible : public QAccessibleWidget {
public:
  explicit ButtonAccessible(ToolButton* button) : QAccessibleWidget(button, QAccessible::PushButton) {}

  QAccessible::Role role() const override {
    return button().isCheckable() ? QAccessible::CheckBox : QAccessible::PushButton;
  }

  QString text(QAccessible::Text text) const override {
    if (text == QAccessible::Accelerator)
      return button().shortcut().toString(QKeySequence::NativeText);
    const QString own = QAccessibleWidget::text(text);
    if (text != QAccessible::Name || !own.isEmpty())
      return own;
    const QString name = withoutMnemonic(button().text());
    return name.isEmpty() ? button().toolTip() : name;
  }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = button().isCheckable();
    state.checked = button().isChecked();
    state.pressed = button().isDown();
    state.disabled = state.disabled || button().IsLocked();
    return state;
  }

  QStringList actionNames() const override {
    if (!button().isEnabled() || button().IsLocked())
      return {};
    return button().isCheckable() ? QStringList{pressAction(), toggleAction()} : QStringList(pressAction());
  }

  void doAction(const QString& name) override {
    if (name == pressAction() || name == toggleAction())
      button().click();
  }

protected:
  ToolButton& button() const { return *static_cast<ToolButton*>(widget()); }
};

class MenuButtonAccessible : public ButtonAccessible {
public:
  explicit MenuButtonAccessible(ToolButtonWithMenu* button) : ButtonAccessible(button) {}

  QAccessible::Role role() const override { return QAccessible::ButtonMenu; }

  QAccessible::State state() const override {
    QAccessible::State state = ButtonAccessible::state();
    const bool open = static_cast<const ToolButtonWithMenu&>(button()).IsMenuShowing();
    state.hasPopup = true;
    state.expandable = true;
    state.expanded = open;
    state.collapsed = !open;
    return state;
  }
};

QAccessibleInterface* makeAccessible(const QString& className, QObject* object) {
  if (className == QLatin1String("Vela::UiBase::ToolButtonWithMenu")) {
    auto* const opener = qobject_cast<ToolButtonWithMenu*>(object);
    return opener ? new MenuButtonAccessible(opener) : nullptr;
  }
  auto* const button =
      className == QLatin1String("Vela::UiBase::ToolButton") ? qobject_cast<ToolButton*>(object) : nullptr;
  return button ? new ButtonAccessible(button) : nullptr;
}

void announce(QWidget& button, const QAccessible::State& changed) {
  if (!QAccessible::isActive())
    return;
  QAccessibleStateChangeEvent event(&button, changed);
  QAccessible::updateAccessibility(&event);
}

} // namespace

void makeToolButtonsAccessible() {
  [[maybe_unused]] static const bool installed = (QAccessible::installFactory(makeAccessible), true);
}

void announceMenuState(ToolButtonWithMenu& button) {
  QAccessible::State changed;
  changed.expanded = true;
  changed.collapsed = true;
  announce(button, changed);
}

void announceEnabledState(ToolButton& button) {
  QAccessible::State changed;
  changed.disabled = true;
  announce(button, changed);
}

} // namespace Vela::UiBase
