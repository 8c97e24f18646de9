// SPDX-License-Identifier: MIT
#include "deferred_run.h"

namespace Vela::UiBase {

DeferredRun::DeferredRun(const std::shared_ptr<CommandBase>& command, QObject* parent)
    : QObject(parent), m_command(command.get()) {
  connect(command.get(), &QAction::changed, this, &DeferredRun::tryLater);
  connect(command.get(), &QObject::destroyed, this, &QObject::deleteLater);
  tryLater();
}

void DeferredRun::cancel() {
  m_command.clear();
  deleteLater();
}

/// What has just enabled the command shall be through with it first.
void DeferredRun::tryLater() {
  if (m_isQueued)
    return;
  m_isQueued = true;
  QMetaObject::invokeMethod(this, &DeferredRun::runIfFree, Qt::QueuedConnection);
}

void DeferredRun::runIfFree() {
  m_isQueued = false;
  if (!m_command || !m_command->isEnabled())
    return;
  CommandBase* const command = m_command;
  cancel();
  command->trigger();
}

} // namespace Vela::UiBase
