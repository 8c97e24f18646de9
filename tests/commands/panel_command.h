// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/flyout_command.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/views/cmds_view_controller.h>

#include <QStringList>

#include <functional>
#include <utility>

/// A command with a panel, which asks for the contexts that the test gives it.
class PanelCommand : public Vela::UiBase::FlyoutCommand {
  Q_OBJECT

public:
  PanelCommand(QString commandIdentifier, QWidget* content, QWidget* host,
               Vela::UiBase::CmdsViewController* controller)
      : PanelCommand(std::move(commandIdentifier),
                     new Vela::UiBase::FlyoutBase("Panel", content, nullptr, true, true, true, true, host),
                     controller) {}
  PanelCommand(QString commandIdentifier, Vela::UiBase::FlyoutBase* itsPanel,
               Vela::UiBase::CmdsViewController* controller)
      : FlyoutCommand(itsPanel, controller), id(std::move(commandIdentifier)), panel(itsPanel) {
    setText(id);
    panel->resize(panel->sizeHint());
    panel->hide();
  }
  QString commandId() const override { return id; }
  bool onExecuteAsync(bool) override { return true; }

  QString id;
  QPointer<Vela::UiBase::FlyoutBase> panel;
  std::function<void()> atBegin;
  Vela::UiBase::CommandContext beginContext;
  Vela::UiBase::CommandContext executionContext;
  QStringList failures;

protected:
  Vela::UiBase::CommandContext getBeginCommandContext() override {
    if (atBegin)
      atBegin();
    return beginContext;
  }
  Vela::UiBase::CommandContext getExecutionCommandContext() override { return executionContext; }
  void onExecutionFailed(const QString& reason) override { failures += reason; }
};
