// SPDX-License-Identifier: MIT
#include "session_replay.h"

#include "session_rest.h"
#include "session_runs.h"
#include "session_values.h"

#include <ui_base/commands/command_name.h>
#include <ui_base/commands/command_ref.h>
#include <ui_base/commands/flyout_command.h>
#include <ui_base/commands/run_log.h>
#include <ui_base/tools/interactive_tool.h>
#include <ui_base/tools/tool_stack.h>

#include <QApplication>
#include <QPointer>
#include <QProgressDialog>
#include <QTimer>
#include <QWidget>

#include <algorithm>

namespace Vela::UiBase {

namespace {

constexpr int questionInterval = 50; // ms

/// Why a step differs, thrown within this file.
struct Differs {
  QString why;
};

QString dialogOpen() {
  const QWidget* const dialog = QApplication::activeModalWidget();
  if (!dialog || qobject_cast<const QProgressDialog*>(dialog)) // which ends by itself
    return {};
  const QString title = dialog->windowTitle().isEmpty() ? dialog->accessibleName() : dialog->windowTitle();
  return SessionReplay::tr("it asks the user (“%1”).").arg(title);
}

QString shown(const QJsonValue& value) {
  return value.isNull() || value.isUndefined() ? SessionReplay::tr("nothing") : SessionText::text(value);
}

} // namespace

class SessionReplayPrivate {
public:
  struct Begun {
    RunRecord run;
    int manager;
  };

  SessionReplayPrivate(SessionReplay& owner, SessionSubject& sessionSubject)
      : q(owner), subject(sessionSubject), rest(sessionSubject) {}

  void rested();
  void lookForQuestion();
  void runBegan(const RunRecord& record);
  void runEnded(const RunRecord& record);

  const SessionStep* step() const { return at < 0 ? nullptr : &session.steps[at]; }
  void checkStep();
  void checkState() const;
  void next();
  void begin(const SessionStep& step);
  void runCommand(const SessionStep& step);
  void trigger(CommandBase& command, const SessionStep& step);
  void perform(const ToolOperation& operation);
  bool takeRun(const SessionStep& step, bool withInputs);
  bool isPresent(quint64 which) const { return isReplaying && which == replay; }
  void end(const QString& why);

  SessionReplay& q;
  SessionSubject& subject;
  SessionManagers managers;
  SessionRuns runs{managers, subject};
  SessionRest rest;
  QTimer questions;              // looks for dialogs while a command runs
  QPointer<QWidget> modalBefore; // one that was open before the step
  Session session;
  SessionState expected;
  qsizetype at = -1; // the step under way; -1 is the start
  bool isReplaying = false;
  bool isTriggering = false;
  QList<Begun> begun;               // since a step began, of the step itself and of those that follow
  std::optional<RunRecord> outcome; // of the step, where its run is known
  quint64 replay = 0;               // another one for each start, and for each stop
};

void SessionReplayPrivate::runBegan(const RunRecord& record) {
  if (!isReplaying)
    return;
  if (const auto found = runs.began(record); found.command)
    begun.append({record, found.number});
}

void SessionReplayPrivate::runEnded(const RunRecord& record) {
  runs.ended(record);
  for (Begun& known : begun) {
    if (known.run.id == record.id)
      known.run = record;
  }
}

// Whether a run of the step began, of itself or because of a step before; it is then taken.
bool SessionReplayPrivate::takeRun(const SessionStep& step, bool withInputs) {
  const auto json = [](const QVariantMap& inputs) { return SessionText::toJson(inputs, QDir::root()); };
  const auto found = std::ranges::find_if(begun, [&](const Begun& known) {
    const RunRecord& run = known.run;
    return run.commandId == step.command && known.manager == step.manager &&
           run.checked == step.checked.value_or(run.checked) &&
           (!withInputs || json(run.inputs) == json(step.inputs));
  });
  if (found == begun.end())
    return false;
  outcome = found->run;
  begun.erase(found);
  return true;
}

// A step that waits for the user, within its own trigger or from a thread, does not come to an end by itself.
void SessionReplayPrivate::lookForQuestion() {
  const bool isRunning = isTriggering || !RunLog::Instance().runsUnderway().isEmpty();
  const bool isAnother = QApplication::activeModalWidget() != modalBefore;
  const QString question = isReplaying && isRunning && isAnother ? dialogOpen() : QString();
  if (!question.isEmpty())
    end(SessionReplay::tr("%1 does not end: %2").arg(session.steps[at].command, question));
}

void SessionReplayPrivate::rested() {
  if (!isReplaying || isTriggering)
    return;
  const QPointer<SessionReplay> self(&q);
  const quint64 present = replay;
  questions.stop();
  try {
    checkStep();
    if (self && isPresent(present))
      next();
  } catch (const Differs& differs) {
    if (self && isPresent(present)) // it may be another one by now
      end(differs.why);
  }
}

void SessionReplayPrivate::checkStep() {
  const SessionStep* const done = step();
  if (done && done->kind == SessionStep::Command) {
    if (!outcome && !takeRun(*done, false)) {
      const QString question = dialogOpen();
      throw Differs{
          SessionReplay::tr("%1 did not run: %2")
              .arg(done->command, question.isEmpty() ? SessionReplay::tr("it declined.") : question)};
    }
    const QString came = runOutcomeText(outcome->outcome);
    if (outcome->outcome != done->outcome && done->isCompared)
      throw Differs{
          outcome->message.isEmpty()
              ? SessionReplay::tr("%1 ended otherwise: %2").arg(done->command, came)
              : SessionReplay::tr("%1 ended otherwise: %2 (%3)").arg(done->command, came, outcome->message)};
  }
  if (!done)
    expected = session.start;
  else
    SessionText::apply(done->changes, expected);
  if (!done || done->isCompared)
    checkState();
}

// Of a session without a start, only what it names.
void SessionReplayPrivate::checkState() const {
  const SessionState differing = SessionText::changes(expected, sessionState(subject.state()));
  const bool comparesAll = session.startLine > 0;
  for (auto entry = differing.cbegin(); entry != differing.cend(); ++entry) {
    if (comparesAll || expected.contains(entry.key()))
      throw Differs{SessionReplay::tr("%1 is %2 and not %3.")
                        .arg(entry.key(), shown(*entry), shown(expected.value(entry.key(), QJsonValue())))};
  }
}

void SessionReplayPrivate::next() {
  do {
    ++at;
  } while (at < session.steps.size() && session.steps[at].outcome == RunStopped);
  if (at >= session.steps.size()) {
    end({});
    return;
  }
  outcome.reset();
  const SessionStep step = session.steps[at];
  const QPointer<SessionReplay> self(&q);
  const quint64 present = replay;
  Q_EMIT q.stepBegan(int(at + 1), SessionText::line(step, QDir::root()).trimmed());
  if (self && isPresent(present))
    begin(step);
}

void SessionReplayPrivate::begin(const SessionStep& step) {
  const QPointer<SessionReplay> self(&q);
  const quint64 present = replay;
  modalBefore = QApplication::activeModalWidget();
  questions.start();
  if (step.kind == SessionStep::Operation)
    perform(step.operation);
  else if (!takeRun(step, true))
    runCommand(step);
  if (self && isPresent(present))
    rest.await();
}

void SessionReplayPrivate::runCommand(const SessionStep& step) {
  const auto [manager, command, number] = managers.find(step.command, step.manager);
  if (!command)
    throw Differs{SessionReplay::tr("there is no command %1.").arg(step.command)};
  const QString name = nameInSentence(*command);
  const QList<CommandCause> causes = manager->explain(step.command);
  const bool needsLicence =
      std::ranges::find(causes, CommandCause::Licence, &CommandCause::kind) != causes.end();
  if (!command->isEnabled() || needsLicence)
    throw Differs{causes.isEmpty() ? SessionReplay::tr("%1 is grey.").arg(name)
                                   : SessionReplay::tr("%1 is grey: %2").arg(name, causes.constFirst().text)};
  if (step.checked && *step.checked == command->isChecked())
    throw Differs{command->isChecked() ? SessionReplay::tr("%1 is on already.").arg(name)
                                       : SessionReplay::tr("%1 is off already.").arg(name)};
  const CommandRef ref(*command);
  const QPointer<SessionReplay> self(&q);
  const quint64 present = replay;
  if (!command->setInputs(step.inputs))
    throw Differs{SessionReplay::tr("%1 does not understand its inputs.").arg(name)};
  CommandBase* const ready = ref.get();
  if (self && ready && isPresent(present))
    trigger(*ready, step);
}

// The panel of a flyout is not opened: its values are the inputs.
void SessionReplayPrivate::trigger(CommandBase& command, const SessionStep& step) {
  begun.clear();
  const QPointer<SessionReplay> self(&q);
  const quint64 present = replay;
  isTriggering = true;
  if (dynamic_cast<FlyoutCommand*>(&command))
    command.onExecute(step.checked.value_or(false));
  else
    command.trigger();
  if (self && present == replay) // else another one triggers, or none
    isTriggering = false;
}

void SessionReplayPrivate::perform(const ToolOperation& operation) {
  begun.clear();
  const QPointer<SessionReplay> self(&q);
  const quint64 present = replay;
  const auto living = managers.living();
  for (const auto& manager : living) {
    auto* const stack = dynamic_cast<ToolStack*>(manager.get());
    const auto tool = stack ? stack->getTool(EToolActivationButton(operation.button)) : nullptr;
    if (tool && tool->isActive() && tool->perform(operation))
      return;
    if (!self || !isPresent(present))
      return;
  }
  if (!subject.perform(operation) && self)
    throw Differs{
        SessionReplay::tr("nobody can do “%1” of %2 here.").arg(operation.action, operation.command)};
}

void SessionReplayPrivate::end(const QString& why) {
  const bool isWhole = why.isEmpty();
  const SessionStep* const last = isWhole ? nullptr : step();
  const int line = last ? last->line : session.startLine;
  const QString place = last ? SessionReplay::tr("step %1: %2").arg(at + 1).arg(why)
                             : SessionReplay::tr("before step 1: %1").arg(why);
  q.stop();
  Q_EMIT q.finished(isWhole, isWhole ? QString() : place, isWhole ? 0 : line);
}

SessionReplay::SessionReplay(SessionSubject& subject, QObject* parent)
    : QObject(parent), d(std::make_unique<SessionReplayPrivate>(*this, subject)) {
  connect(&d->rest, &SessionRest::reached, this, [this] { d->rested(); });
  connect(&d->questions, &QTimer::timeout, this, [this] { d->lookForQuestion(); });
  d->questions.setInterval(questionInterval);
  connect(&RunLog::Instance(), &RunLog::runBegan, this,
          [this](const RunRecord& record) { d->runBegan(record); });
  connect(&RunLog::Instance(), &RunLog::runEnded, this,
          [this](const RunRecord& record) { d->runEnded(record); });
}

SessionReplay::~SessionReplay() = default;

void SessionReplay::addManager(CmdMgr* manager) { d->managers.add(manager); }

void SessionReplay::start(const Session& session) {
  stop();
  d->session = session;
  d->at = -1;
  d->runs.clear();
  d->begun.clear();
  d->outcome.reset();
  d->isReplaying = true;
  d->rest.await();
}

void SessionReplay::stop() {
  d->isReplaying = d->isTriggering = false;
  d->questions.stop();
  ++d->replay;
  d->rest.cancel();
}

bool SessionReplay::isReplaying() const { return d->isReplaying; }

qsizetype SessionReplay::stepsDone() const { return std::max<qsizetype>(0, d->at); }

} // namespace Vela::UiBase
