// SPDX-License-Identifier: MIT
#include "command_execution.h"

#include "call_failure.h"
#include "cmd_mgr.h"
#include "command_name.h"
#include "current_run.h"
#include "run_log.h"
#include "run_source.h"
#include "upstairs.h"

#include <tqm_mesh_kernel/dispatch.h>
#include <vlk_app_service/application_service.h>

namespace Vela::UiBase {

using Taren::Core::dispatchAsync;
using Taren::Core::isMainThread;
using Taren::Core::MainThreadQoS;

namespace {

using Clock = std::chrono::steady_clock;

Services::ApplicationService& service() { return Services::ApplicationService::GetInstance(); }

RunRecord recordOf(quint64 id, const CommandBase& command, bool checked) {
  RunRecord record;
  record.id = id;
  record.commandId = command.commandId();
  record.checked = checked;
  record.parent = CommandRun::current().id();
  record.source = InputWatch::source();
  record.begin = Clock::now();
  return record;
}

} // namespace

CommandExecution::CommandExecution(CommandBase& command, bool checked)
    : m_command(command),
      m_className(QString::fromLatin1(command.metaObject()->className())),
      m_checked(checked),
      m_record(recordOf(RunLog::nextId(), command, checked)),
      m_run(m_record, nameInSentence(command)) {}

bool CommandExecution::run() {
  const CurrentRun current(m_run);
  noteFailure(failureOf([this] { m_record.inputs = m_command.get()->inputs(); }));
  RunLog::Instance().begin(m_record, m_run, *m_command.get());
  recordWaypoint("CMD BEGIN %1(%2)");
  tellBegan();
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
  CommandBase* const command = m_command.get();
  if (!command)
    return;
  const auto tell = [ref = m_command, checked = m_checked](CommandStateProtocol& observer) {
    if (CommandBase* const began = ref.get())
      observer.commandBeganExecuting(began, checked);
  };
  noteFailure(failureOfTelling(*command, tell));
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
  m_record.outcome = RunRefused;
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
  const CurrentRun current(m_run);
  const Clock::time_point start = Clock::now();
  m_record.wait = start - m_record.begin;
  m_record.thread = Taren::Core::traceThread();
  noteFailure(failureOf([this] { m_record.outcome = outcomeOfWork(); }));
  m_record.duration = Clock::now() - start;
  m_record.blockedMainThread = isMainThread() && m_record.duration > RunLog::Instance().mainThreadLimit();
  return m_record.outcome == RunSucceeded;
}

ERunOutcome CommandExecution::outcomeOfWork() {
  CommandBase* const command = m_command.get();
  if (!command)
    return RunAbandoned;
  try {
    if (command->onExecuteAsync(m_checked))
      return RunSucceeded;
  } catch (const RunCancelled&) {
    return RunStopped;
  }
  return m_run.isStopRequested() ? RunStopped : RunDeclined;
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
  const CurrentRun current(m_run);
  m_context.release();
  finish();
  if (m_workspaceSwitch.exchange(WorkspaceSwitch::Closed) == WorkspaceSwitch::Off)
    service().EnableWorkspaceSwitching(true);
  reportFailure();
}

// What an observer throws leaves no run open.
void CommandExecution::finish() {
  recordWaypoint("CMD END   %1(%2)");
  endRecord();
  CommandBase* const command = m_command.get();
  if (!command)
    return;
  const auto tell = [ref = m_command, checked = m_checked](CommandStateProtocol& observer) {
    if (CommandBase* const ended = ref.get())
      observer.commandEndedExecuting(ended, checked);
  };
  noteFailure(failureOfTelling(*command, tell));
}

// Before the observers hear of the end, so that they find the outcome.
void CommandExecution::endRecord() {
  if (m_failure) {
    m_record.outcome = RunFailed;
    m_record.message = *m_failure;
  } else if (m_record.outcome == RunUnderway) {
    m_record.outcome = RunAbandoned;
  }
  m_run.end(m_record.outcome);
  RunLog::Instance().end(m_record);
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
