// SPDX-License-Identifier: MIT
#include "tool_button_accessible.h"

#include "tool_bar_overflow.h"

#include <ui_base/core/language.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/tool_button_with_menu.h>
#include <ui_base/tooltips/tooltip_text.h>

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
    switch (text) {
    case QAccessible::Accelerator:
      return keys().toString(QKeySequence::NativeText);
    case QAccessible::Name:
      return name();
    case QAccessible::Description:
      return description();
    default:
      return QAccessibleWidget::text(text);
    }
  }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = button().isCheckable();
    state.checked = button().isChecked();
    state.pressed = button().isDown();
    state.disabled = state.disabled || button().IsLocked();
    state.focusable = !state.disabled; // by the bar's keys
    state.offscreen = button().isVisible() && button().visibleRegion().isEmpty();
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

private:
  QKeySequence keys() const {
    const QAction* const action = button().Action();
    return action && !action->shortcut().isEmpty() ? action->shortcut() : button().shortcut();
  }

  QString name() const {
    if (QString given = QAccessibleWidget::text(QAccessible::Name); !given.isEmpty())
      return given;
    const QString shown = withoutMnemonic(button().text());
    return shown.isEmpty() ? button().toolTip() : shown;
  }

  // Why it is locked comes first. What the name says need not be heard twice.
  QString description() const {
    const QString text = button().IsLocked() ? TooltipText::plain(button().toolTip())
                                             : QAccessibleWidget::text(QAccessible::Description);
    return text == name() ? QString() : text;
  }
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

class BarAccessible : public QAccessibleWidget {
public:
  explicit BarAccessible(ToolBar* bar) : QAccessibleWidget(bar, QAccessible::ToolBar) {}

  QString text(QAccessible::Text text) const override {
    QString own = QAccessibleWidget::text(text);
    ToolButtonWithMenu* const opener = static_cast<ToolBar*>(widget())->OwnerButton();
    if (text != QAccessible::Name || !own.isEmpty() || !opener)
      return own;
    const QAccessibleInterface* const button = QAccessible::queryAccessibleInterface(opener);
    return button ? button->text(QAccessible::Name) : own;
  }
};

class OverflowAccessible : public QAccessibleWidget {
public:
  explicit OverflowAccessible(ToolBarOverflow* button) : QAccessibleWidget(button, QAccessible::ButtonMenu) {}

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.hasPopup = true;
    state.expandable = true;
    state.expanded = button().menu() && button().menu()->isVisible();
    state.collapsed = !state.expanded;
    return state;
  }
  QStringList actionNames() const override { return {pressAction()}; }
  void doAction(const QString& name) override {
    if (name == pressAction())
      button().click();
  }

private:
  ToolBarOverflow& button() const { return *static_cast<ToolBarOverflow*>(widget()); }
};

QAccessibleInterface* makeAccessible(const QString& className, QObject* object) {
  if (className == QLatin1String("Vela::UiBase::ToolBar")) {
    auto* const bar = qobject_cast<ToolBar*>(object);
    return bar ? new BarAccessible(bar) : nullptr;
  }
  if (className == QLatin1String("Vela::UiBase::ToolBarOverflow")) {
    auto* const overflow = qobject_cast<ToolBarOverflow*>(object);
    return overflow ? new OverflowAccessible(overflow) : nullptr;
  }
  if (className == QLatin1String("Vela::UiBase::ToolButtonWithMenu")) {
    auto* const opener = qobject_cast<ToolButtonWithMenu*>(object);
    return opener ? new MenuButtonAccessible(opener) : nullptr;
  }
  auto* const button =
      className == QLatin1String("Vela::UiBase::ToolButton") ? qobject_cast<ToolButton*>(object) : nullptr;
  return button ? new ButtonAccessible(button) : nullptr;
}

void announce(QWidget& button, const QAccessible::State& changed) {
  QAccessibleStateChangeEvent event(&button, changed);
  QAccessible::updateAccessibility(&event);
}

} // namespace

void makeToolBarsAccessible() {
  [[maybe_unused]] static const bool installed = (QAccessible::installFactory(makeAccessible), true);
}

void announceMenuState(QToolButton& button) {
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
