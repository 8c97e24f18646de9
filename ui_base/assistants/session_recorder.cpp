// SPDX-License-Identifier: MIT
#include "session_recorder.h"

#include "session_rest.h"
#include "session_runs.h"
#include "session_values.h"

#include <ui_base/commands/command_base.h>
#include <ui_base/commands/command_name.h>
#include <ui_base/commands/run_log.h>
#include <ui_base/tools/operation_log.h>

#include <QFile>
#include <QFileInfo>
#include <QPointer>

#include <algorithm>

namespace Vela::UiBase {

class SessionRecorderPrivate {
public:
  SessionRecorderPrivate(SessionRecorder& recorder, SessionSubject& sessionSubject)
      : q(recorder), subject(sessionSubject), rest(sessionSubject) {}

  void runBegan(const RunRecord& record);
  void runEnded(const RunRecord& record);
  void operationTold(const ToolOperation& operation);
  void rested();

  void warnOf(const RunRecord& record, const CommandBase& command, bool overlaps);
  void warnOfLost(const QString& name, const QVariantMap& values);
  void writeStep(const SessionStep& step);
  void warn(const QString& sentence);
  void write(const QString& text);

  SessionRecorder& q;
  SessionSubject& subject;
  SessionManagers managers;
  SessionRuns runs{managers, subject};
  SessionRest rest;
  QFile file;
  qint64 whole = 0; // bytes of it
  QDir folder;
  QString error;
  SessionState state;
  bool started = false;              // the state at the start is written
  bool isOpen = false;               // the last step waits for its state
  quint64 run = 0;                   // of the last step
  QHash<quint64, int> stepsUnderway; // runs of steps, with their managers
  QList<QMetaObject::Connection> connections;
};

void SessionRecorderPrivate::write(const QString& text) {
  if (!file.isOpen())
    return;
  QByteArray left = text.toUtf8();
  const qint64 size = left.size();
  for (qint64 done = 1; done > 0 && !left.isEmpty(); left.remove(0, std::max<qint64>(0, done)))
    done = file.write(left); // a full disk takes a part at first, and only then says why not more
  if (left.isEmpty()) {
    whole += size;
    return;
  }
  error = file.errorString();
  file.resize(whole); // half a line would make all of it unreadable
  isOpen = false;
  q.stop();
  const auto tell = [&recorder = q, why = error] { Q_EMIT recorder.failed(why); };
  QMetaObject::invokeMethod(&q, tell, Qt::QueuedConnection); // it may be deleted in there
}

void SessionRecorderPrivate::warn(const QString& sentence) {
  write(QStringLiteral("# %1\n").arg(QString(sentence).replace(u'\n', u' ')));
  Q_EMIT q.warned(sentence);
}

void SessionRecorderPrivate::writeStep(const SessionStep& step) {
  if (!started) { // before the application rested for the first time
    started = true;
    write(QStringLiteral("start\n") + SessionText::lines(state = sessionState(subject.state())));
  }
  if (isOpen)
    write(QStringLiteral("  unknown\n"));
  const QString line = SessionText::line(step, folder);
  write(line);
  if (!file.isOpen())
    return;
  isOpen = true;
  run = 0;
  rest.await();
  Q_EMIT q.stepRecorded(line.trimmed());
}

void SessionRecorderPrivate::warnOf(const RunRecord& record, const CommandBase& command, bool overlaps) {
  const QString name = nameInSentence(command);
  const QPointer<SessionRecorder> self(&q);
  if (command.needsInputs() && record.inputs.isEmpty())
    warn(SessionRecorder::tr("“%1” works on something that it does not give: it cannot be replayed.")
             .arg(name));
  if (overlaps && self)
    warn(
        SessionRecorder::tr("“%1” began while something else ran; replayed it begins afterwards.").arg(name));
  if (self)
    warnOfLost(name, record.inputs);
}

void SessionRecorderPrivate::warnOfLost(const QString& name, const QVariantMap& values) {
  QStringList lost;
  for (auto entry = values.cbegin(); entry != values.cend(); ++entry) {
    if (!SessionText::canBeWritten(*entry))
      lost.append(entry.key());
  }
  if (!lost.isEmpty())
    warn(SessionRecorder::tr("“%1” works on something that has no form as text (%2): it cannot be replayed.")
             .arg(name, lost.join(QLatin1String(", "))));
}

void SessionRecorderPrivate::runBegan(const RunRecord& record) {
  const bool overlaps = runs.isAnyUnderway();
  const SessionManagers::Found began = runs.began(record);
  const QPointer<CommandBase> command = began.command;
  if (!command)
    return;
  const QPointer<SessionRecorder> self(&q);
  warnOf(record, *command, overlaps);
  if (!self || !file.isOpen() || !command)
    return;
  SessionStep step;
  step.command = record.commandId;
  step.manager = began.number;
  step.inputs = record.inputs;
  if (command->isCheckable())
    step.checked = record.checked;
  writeStep(step);
  if (!self)
    return;
  run = record.id;
  stepsUnderway.insert(run, step.manager);
}

void SessionRecorderPrivate::runEnded(const RunRecord& record) {
  runs.ended(record);
  const bool isStep = stepsUnderway.contains(record.id);
  const int manager = stepsUnderway.take(record.id);
  if (!isStep || record.outcome == RunSucceeded || !isOpen)
    return;
  QString line = SessionText::outcomeName(record.outcome);
  if (record.id != run) // of a step before the last one
    line += u' ' + SessionText::commandName(record.commandId, manager);
  write(QStringLiteral("  %1\n").arg(line));
}

void SessionRecorderPrivate::operationTold(const ToolOperation& operation) {
  const QPointer<SessionRecorder> self(&q);
  warnOfLost(operation.command, operation.values);
  if (!self || !file.isOpen())
    return;
  SessionStep step;
  step.kind = SessionStep::Operation;
  step.operation = operation;
  writeStep(step);
}

void SessionRecorderPrivate::rested() {
  const SessionState now = sessionState(subject.state());
  if (!started) {
    started = true;
    write(QStringLiteral("start\n") + SessionText::lines(now));
  } else if (std::exchange(isOpen, false)) {
    write(SessionText::lines(SessionText::changes(state, now)));
  }
  state = now;
}

SessionRecorder::SessionRecorder(SessionSubject& subject, QObject* parent)
    : QObject(parent), d(std::make_unique<SessionRecorderPrivate>(*this, subject)) {
  connect(&d->rest, &SessionRest::reached, this, [this] { d->rested(); });
}

SessionRecorder::~SessionRecorder() { stop(); }

void SessionRecorder::addManager(CmdMgr* manager) { d->managers.add(manager); }

bool SessionRecorder::start(const QString& file) {
  if (isRecording()) {
    d->error = tr("A session is being recorded already.");
    return false;
  }
  d->file.setFileName(file);
  d->folder = QFileInfo(file).absoluteDir();
  d->error.clear();
  d->started = d->isOpen = false;
  d->runs.clear();
  d->stepsUnderway.clear();
  d->whole = 0;
  if (!d->file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) {
    d->error = d->file.errorString();
    return false;
  }
  auto& log = RunLog::Instance();
  d->connections = {
      connect(&log, &RunLog::runBegan, this, [this](const RunRecord& record) { d->runBegan(record); }),
      connect(&log, &RunLog::runEnded, this, [this](const RunRecord& record) { d->runEnded(record); }),
      connect(&OperationLog::Instance(), &OperationLog::told, this,
              [this](const ToolOperation& operation) { d->operationTold(operation); })};
  d->write(QStringLiteral("session %1\n").arg(Session::format));
  if (isRecording())
    d->rest.await();
  return isRecording();
}

void SessionRecorder::stop() {
  for (const auto& connection : std::as_const(d->connections))
    disconnect(connection);
  d->connections.clear();
  d->rest.cancel();
  if (d->file.isOpen() && std::exchange(d->isOpen, false))
    d->file.write("  unknown\n");
  d->file.close();
}

bool SessionRecorder::isRecording() const { return d->file.isOpen(); }

bool SessionRecorder::isUpToDate() const { return isRecording() && !d->rest.isAwaited(); }

QString SessionRecorder::error() const { return d->error; }

} // namespace Vela::UiBase
