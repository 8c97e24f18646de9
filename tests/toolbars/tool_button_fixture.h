// SPDX-License-Identifier: MIT
#pragma once

#include "toolbars_fixture.h"

#include <support/input.h>
#include <support/rows.h>
#include <ui_base/commands/flyout_command.h>
#include <ui_base/popups/arrowed_window.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/tool_button_with_button_menu.h>
#include <ui_base/toolbars/tool_button_with_widget_menu.h>
#include <ui_base/tooltips/tooltip_object.h>
#include <ui_base/views/base_view.h>
#include <ui_base/views/cmds_view_controller.h>

#include <functional>

class PanelCommand : public Vela::UiBase::FlyoutCommand {
  Q_OBJECT
  COMMAND_ID(PanelCommand)

public:
  PanelCommand(QWidget* panel, Vela::UiBase::CmdsViewController* controller)
      : Vela::UiBase::FlyoutCommand(panel, controller) {
    setText("Smooth");
  }
  bool onExecuteAsync(bool) override { return true; }
};

class CommandObserver : public Vela::UiBase::CommandStateProtocol {
public:
  void commandBegan(Vela::UiBase::CommandBase*) override { ++began; }
  void commandEnded(Vela::UiBase::CommandBase*) override { ++ended; }
  int began = 0;
  int ended = 0;
};

/// A view with a toolbar whose buttons are a plain one, one that opens the flyout of a command, and one that
/// opens a sub-toolbar with a plain button and another flyout.
struct MenuStage {
  explicit MenuStage(bool checkable = false, QWidget* simple = nullptr) {
    window.resize(700, 500);
    auto* const column = new QVBoxLayout(&window);
    column->addWidget(field = new QLineEdit);
    column->addWidget(view = new Vela::UiBase::BaseView, 1);
    controller = new Vela::UiBase::CmdsViewController(view);
    bar = new Vela::UiBase::ToolBar(view, Qt::TopToolBarArea);
    plain = bar->AddAction(new QAction(coloredIcon(Qt::gray), "Plain", view));

    flyout = new Vela::UiBase::FlyoutBase("Smooth", new QSpinBox, Vela::UiBase::AllPanelButtons, view);
    command = new PanelCommand(simple ? simple : flyout.data(), controller);
    command->setCheckable(checkable);
    command->addObserver(observer, false);
    controller->addCommand(command);
    button = bar->AddAction(command, simple ? simple : flyout.data());

    subBar = new Vela::UiBase::ToolBar(view, Qt::LeftToolBarArea);
    subBar->SetHideOnClick(true);
    subPlain = subBar->AddAction(new QAction(coloredIcon(Qt::blue), "Inner", view));
    subFlyout =
        new Vela::UiBase::FlyoutBase("Inner flyout", new QSpinBox, Vela::UiBase::AllPanelButtons, view);
    auto* const subAction = new QAction(coloredIcon(Qt::green), "Inner flyout", view);
    subButton = subBar->AddAction(subAction, subFlyout);
    menuButton = bar->AddAction(nullptr, coloredIcon(Qt::red), subBar, true, "Menu");
    menuButton->setCheckable(true);

    Vela::Test::showActive(window);
    bar->ShowMe();
    field->setFocus();
    Vela::Test::settle();
  }
  void click(QWidget* target) {
    const QPoint point = target->mapTo(&window, target->rect().center());
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, point);
    Vela::Test::settle(); // as between a user's press and release
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, point);
  }
  void key(Qt::Key key) { QTest::keyClick(window.windowHandle(), key); }
  void clickIn(QWidget* panel, const QString& name) {
    const auto buttons = panel->findChildren<QAbstractButton*>();
    for (QAbstractButton* const each : buttons) {
      if (each->text() == name || each->accessibleName() == name)
        return click(each);
    }
    qFatal("no such button");
  }

  QWidget window;
  QLineEdit* field;
  Vela::UiBase::BaseView* view;
  Vela::UiBase::CmdsViewController* controller;
  QPointer<Vela::UiBase::ToolBar> bar;
  Vela::UiBase::ToolButton* plain;
  QPointer<Vela::UiBase::FlyoutBase> flyout;
  PanelCommand* command;
  std::shared_ptr<CommandObserver> observer = std::make_shared<CommandObserver>();
  QPointer<Vela::UiBase::ToolButtonWithWidgetMenu> button;
  QPointer<Vela::UiBase::ToolBar> subBar;
  Vela::UiBase::ToolButton* subPlain;
  QPointer<Vela::UiBase::FlyoutBase> subFlyout;
  QPointer<Vela::UiBase::ToolButtonWithWidgetMenu> subButton;
  QPointer<Vela::UiBase::ToolButtonWithButtonMenu> menuButton;
};

using StageAct = std::function<void(MenuStage&)>;
