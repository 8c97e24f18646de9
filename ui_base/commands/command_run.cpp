// SPDX-License-Identifier: MIT
#include "command_run.h"

#include "current_run.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace Vela::UiBase {

struct CommandRun::State {
  State(quint64 number, QString command, QString name)
      : id(number), commandId(std::move(command)), text(std::move(name)) {}

  const quint64 id;
  const QString commandId;
  const QString text;
  std::stop_source stop;
  std::atomic<bool> canBeStopped{false};
  std::atomic<double> progress{-1.0};
  std::atomic<ERunOutcome> outcome{RunUnderway};
};

namespace {

CommandRun& currentRun() {
  thread_local CommandRun run;
  return run;
}

} // namespace

CurrentRun::CurrentRun(CommandRun run) : m_previous(std::exchange(currentRun(), std::move(run))) {}

CurrentRun::~CurrentRun() { currentRun() = m_previous; }

CommandRun::CommandRun(const RunRecord& record, const QString& text)
    : m_state(std::make_shared<State>(record.id, record.commandId, text)) {}

CommandRun CommandRun::current() { return currentRun(); }

quint64 CommandRun::id() const noexcept { return m_state ? m_state->id : 0; }

QString CommandRun::commandId() const { return m_state ? m_state->commandId : QString(); }

QString CommandRun::text() const { return m_state ? m_state->text : QString(); }

ERunOutcome CommandRun::outcome() const noexcept { return m_state ? m_state->outcome.load() : RunAbandoned; }

void CommandRun::end(ERunOutcome outcome) const noexcept { m_state->outcome = outcome; }

std::stop_token CommandRun::stopToken() const {
  if (!m_state)
    return {};
  m_state->canBeStopped = true;
  return m_state->stop.get_token();
}

RunProgress CommandRun::reporter() const {
  return RunProgress(stopToken(), [run = *this](double fraction) { run.setProgress(fraction); });
}

bool CommandRun::canBeStopped() const noexcept { return m_state && m_state->canBeStopped; }

bool CommandRun::requestStop() const noexcept { return m_state && m_state->stop.request_stop(); }

bool CommandRun::isStopRequested() const noexcept { return m_state && m_state->stop.stop_requested(); }

double CommandRun::progress() const noexcept { return m_state ? m_state->progress.load() : -1.0; }

void CommandRun::setProgress(double fraction) const noexcept {
  if (m_state)
    m_state->progress = std::clamp(fraction, 0.0, 1.0);
}

} // namespace Vela::UiBase
