// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_base.h>

#include <QPointer>

#include <memory>

namespace Vela::UiBase {

/// Runs a command once, as soon as it can be used. Goes with the command, and when it is cancelled.
class DeferredRun : public QObject {
  Q_OBJECT

public:
  DeferredRun(const std::shared_ptr<CommandBase>& command, QObject* parent);

  CommandBase* command() const { return m_command.data(); }

public Q_SLOTS:
  void cancel();

private:
  void tryLater();
  void runIfFree();

  QPointer<CommandBase> m_command;
  bool m_isQueued = false;
};

} // namespace Vela::UiBase
