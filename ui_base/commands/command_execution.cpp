// SPDX-License-Identifier: MIT
#include "command_execution.h"

#include "call_failure.h"
#include "cmd_mgr.h"
#include "upstairs.h"

#include <tqm_mesh_kernel/dispatch.h>
#include <vlk_app_service/application_service.h>

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
  recordWaypoint("CMD BEGIN %1(%2)");
  noteFailure(failureOf([this] { tellBegan(); }));
  CommandBase* const command = m_command.get();
  if (!command || m_failure) {
    finish();
    reportFailure();
    return false;
  }
  const auto qos = command->executionQoS();
  return qos == MainThreadQoS ? runNow() : runLater(qos);
}

void CommandExecution::tellBegan() {
  m_command.get()->broadcast([ref = m_command, checked = m_checked](CommandStateProtocol* observer) {
    if (CommandBase* const began = ref.get())
      observer->commandBeganExecuting(began, checked);
  });
}

bool CommandExecution::runNow() {
  const bool result = work();
  finish();
  reportFailure();
  return result;
}

bool CommandExecution::runLater(Taren::Core::EQualityOfService qos) {
  noteFailure(failureOf([this] { holdContext(); }));
  const auto self = shared_from_this();
  if (!m_failure && dispatchAsync([self] { self->workOnWorker(); }, qos))
    return true;
  close();
  return false;
}

void CommandExecution::holdContext() {
  const CommandContext context = m_command.get()->getExecutionCommandContext();
  CommandBase* const command = m_command.get();
  CmdMgr* const manager = command ? Upstairs::managerOf(command->getViewController()) : nullptr;
  if (!context.isEmpty() && manager && manager->isShared())
    m_context = manager->holdContext(context, ContextHolder::running(command->commandId()));
}

bool CommandExecution::work() noexcept {
  bool result = false;
  noteFailure(failureOf([&] {
    CommandBase* const command = m_command.get();
    result = command && command->onExecuteAsync(m_checked);
  }));
  return result;
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
  m_context.release();
  finish();
  if (m_workspaceSwitch.exchange(WorkspaceSwitch::Closed) == WorkspaceSwitch::Off)
    service().EnableWorkspaceSwitching(true);
  reportFailure();
}

// What an observer throws leaves no run open.
void CommandExecution::finish() {
  recordWaypoint("CMD END   %1(%2)");
  CommandBase* const command = m_command.get();
  if (!command)
    return;
  noteFailure(failureOf([&] {
    command->broadcast([ref = m_command, checked = m_checked](CommandStateProtocol* observer) {
      if (CommandBase* const ended = ref.get())
        observer->commandEndedExecuting(ended, checked);
    });
  }));
}

// The first one tells most.
void CommandExecution::noteFailure(const std::optional<QString>& failure) {
  if (!m_failure)
    m_failure = failure;
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
