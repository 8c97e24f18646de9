// SPDX-License-Identifier: MIT
#pragma once

#include "toolbars_fixture.h"

#include <support/input.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/tool_button_with_button_menu.h>
#include <ui_base/toolbars/tool_button_with_widget_menu.h>

/// A window with a field that has the focus, and a toolbar: two plain buttons, one with a sub-toolbar of two,
/// in which there is another one, and one with a flyout.
struct Screen {
  Screen() {
    window.resize(700, 500);
    field->move(10, 400);
    commands->addCommand(outer, 5);
    outer->setIcon(coloredIcon(Qt::red));
    inner->setIcon(coloredIcon(Qt::red));
    outer->addCommand(inner, 5);
    bar->AddCommandGroup(commands.get());
    flyoutButton = bar->AddAction(flyoutAction, flyout, QStringLiteral("flyouts"));
    Vela::Test::showActive(window);
    field->setFocus();
    Vela::Test::settle();
  }

  Vela::UiBase::ToolButton* button(const QString& id) const { return bar->FindOneButton(id, true); }
  Vela::UiBase::ToolButtonWithMenu* opener(const Vela::UiBase::CommandGroup& group) const {
    return qobject_cast<Vela::UiBase::ToolButtonWithMenu*>(button(group.commandId()));
  }
  Vela::UiBase::ToolBar* menu(const Vela::UiBase::CommandGroup& group) const {
    return qobject_cast<Vela::UiBase::ToolBar*>(opener(group)->GetMenu());
  }
  QAction* action(const char* name) { return new QAction(coloredIcon(Qt::cyan), name, &window); }
  void press(const QList<QKeyCombination>& keys) {
    for (const QKeyCombination key : keys)
      QTest::keyClick(window.windowHandle(), key.key(), key.keyboardModifiers());
    Vela::Test::settle();
  }

  QWidget window;
  QLineEdit* const field = new QLineEdit(&window);
  std::shared_ptr<Vela::UiBase::CommandGroup> commands = namedGroup("a", 2);
  std::shared_ptr<Vela::UiBase::CommandGroup> outer = namedGroup("outer", 2);
  std::shared_ptr<Vela::UiBase::CommandGroup> inner = namedGroup("inner", 2);
  QAction* const flyoutAction = new QAction(coloredIcon(Qt::red), QStringLiteral("flyout"), &window);
  Vela::UiBase::FlyoutBase* const flyout = new Vela::UiBase::FlyoutBase(
      QStringLiteral("flyout"), new QLineEdit, nullptr, true, false, true, true, &window);
  Vela::UiBase::ToolBar* const bar = new Vela::UiBase::ToolBar(&window, Qt::TopToolBarArea);
  Vela::UiBase::ToolButtonWithWidgetMenu* flyoutButton = nullptr;
};
