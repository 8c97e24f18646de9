// SPDX-License-Identifier: MIT
#include "command_execution.h"

#include "cmd_mgr.h"
#include "upstairs.h"

#include <tqm_mesh_kernel/dispatch.h>
#include <vlk_app_service/application_service.h>

#include <QCoreApplication>
#include <QScopeGuard>

namespace Vela::UiBase {

using Taren::Core::dispatchAsync;
using Taren::Core::isMainThread;
using Taren::Core::MainThreadQoS;

namespace {

Services::ApplicationService& service() { return Services::ApplicationService::GetInstance(); }

} // namespace

CommandExecution::CommandExecution(CommandBase& command, bool checked)
    : m_command(command),
      m_className(QString::fromLatin1(command.metaObject()->className())),
      m_checked(checked) {}

bool CommandExecution::run() {
  CommandBase* const command = m_command.get();
  recordWaypoint("CMD BEGIN %1(%2)");
  command->broadcast([ref = m_command, checked = m_checked](CommandStateProtocol* observer) {
    if (CommandBase* const began = ref.get())
      observer->commandBeganExecuting(began, checked);
  });
  if (!m_command.get()) {
    finish();
    return false;
  }
  const auto qos = command->executionQoS();
  return qos == MainThreadQoS ? runNow() : runLater(qos);
}

bool CommandExecution::runNow() {
  const bool result = work();
  finish();
  reportFailure();
  return result;
}

bool CommandExecution::runLater(Taren::Core::EQualityOfService qos) {
  pushContext();
  const auto self = shared_from_this();
  if (dispatchAsync([self] { self->workOnWorker(); }, qos))
    return true;
  close();
  return false;
}

void CommandExecution::pushContext() {
  const CommandContext context = m_command.get()->getExecutionCommandContext();
  CmdMgr* const manager = Upstairs::managerOf(m_command.get()->getViewController());
  if (context.isEmpty() || !manager || !manager->isShared())
    return;
  manager->pushContext(context);
  m_contextHolder = manager->shared_from_this();
}

void CommandExecution::popContext() {
  if (const auto manager = m_contextHolder.lock())
    manager->popContext();
}

bool CommandExecution::work() noexcept {
  try {
    CommandBase* const command = m_command.get();
    return command && command->onExecuteAsync(m_checked);
  } catch (const std::exception& error) {
    m_failure = QString::fromLocal8Bit(error.what());
  } catch (...) {
    m_failure = QCoreApplication::translate("Vela::UiBase::CommandBase", "unknown error");
  }
  return false;
}

void CommandExecution::workOnWorker() {
  const auto self = shared_from_this();
  dispatchAsync([self] { self->switchWorkspacesOff(); }, MainThreadQoS);
  work();
  if (!dispatchAsync([self] { self->close(); }, MainThreadQoS))
    close();
}

// Does nothing after the closing steps, which overtake it when the dispatcher refused them.
void CommandExecution::switchWorkspacesOff() {
  auto untouched = WorkspaceSwitch::Untouched;
  if (m_workspaceSwitch.compare_exchange_strong(untouched, WorkspaceSwitch::Off))
    service().EnableWorkspaceSwitching(false);
}

void CommandExecution::close() {
  // Also when an observer throws.
  const auto last = qScopeGuard([this] {
    if (m_workspaceSwitch.exchange(WorkspaceSwitch::Closed) == WorkspaceSwitch::Off)
      service().EnableWorkspaceSwitching(true);
    reportFailure();
  });
  popContext();
  finish();
}

void CommandExecution::finish() {
  recordWaypoint("CMD END   %1(%2)");
  CommandBase* const command = m_command.get();
  if (!command)
    return;
  command->broadcast([ref = m_command, checked = m_checked](CommandStateProtocol* observer) {
    if (CommandBase* const ended = ref.get())
      observer->commandEndedExecuting(ended, checked);
  });
}

void CommandExecution::reportFailure() {
  if (!m_failure)
    return;
  if (!isMainThread()) {
    dispatchAsync([self = shared_from_this()] { self->reportFailure(); }, MainThreadQoS);
    return;
  }
  if (CommandBase* const command = m_command.get())
    command->onExecutionFailed(*m_failure);
}

void CommandExecution::recordWaypoint(const char* text) const {
  service().Kernel().ProfilerWaypoint(QString::fromLatin1(text).arg(
      m_className, m_checked ? QStringLiteral("true") : QStringLiteral("false")));
}

} // namespace Vela::UiBase
