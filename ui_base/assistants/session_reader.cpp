// SPDX-License-Identifier: MIT
#include "session_reader.h"

#include "session_values.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace Vela::UiBase {

namespace {

struct Sentences {
  Q_DECLARE_TR_FUNCTIONS(Vela::UiBase::Session)
};

/// What is wrong with a line, thrown within this file.
struct Malformed {
  QString what;
};

QString quoted(const QString& text) { return text.left(40); }

} // namespace

/// What is left of a line to be read.
class SessionReader::Line {
public:
  explicit Line(const QString& text) : m_rest(text.trimmed()) {}

  bool atEnd() const { return m_rest.isEmpty(); }
  QString rest() const { return m_rest; }
  bool beginsWith(QLatin1String text) const { return m_rest.startsWith(text); }
  QChar next() const { return m_rest.isEmpty() ? QChar() : m_rest.front(); }

  /// Up to the next blank, or what stands in quotes.
  QString word() {
    if (atEnd())
      throw Malformed{Sentences::tr("Something is missing at the end.")};
    static const QRegularExpression form(QStringLiteral(R"re(^("(?:[^"\\]|\\.)*"|[^"\s]\S*)(?:\s+|$))re"));
    const QRegularExpressionMatch match = form.match(m_rest);
    if (!match.hasMatch())
      throw Malformed{Sentences::tr("“%1” has no closing quotation mark.").arg(quoted(m_rest))};
    const QString word = match.captured(1);
    m_rest = m_rest.mid(match.capturedEnd());
    return word.startsWith(u'"') ? json(word).toString() : word;
  }

  QVector3D position() {
    static const QRegularExpression form(QStringLiteral(R"re(^\(([^,()]*),([^,()]*),([^,()]*)\)\s*)re"));
    const QRegularExpressionMatch match = form.match(m_rest);
    QVector3D position;
    bool good = match.hasMatch();
    for (int i = 0; i < 3 && good; ++i) {
      position[i] = match.captured(i + 1).trimmed().toFloat(&good);
      good = good && std::isfinite(position[i]);
    }
    if (!good)
      throw Malformed{Sentences::tr("“%1” is not a position such as (1, 0.5, 2).").arg(quoted(m_rest))};
    m_rest = m_rest.mid(match.capturedEnd());
    return position;
  }

  /// All that is left, one JSON value.
  QJsonValue value() const { return json(m_rest); }

  QVariantMap values(const QDir& folder) const {
    if (atEnd())
      return {};
    const QJsonValue all = value();
    if (!all.isObject())
      throw Malformed{Sentences::tr("The values do not stand in braces, as in {\"name\": 1}.")};
    return SessionText::fromJson(all, folder).toMap();
  }

private:
  static QJsonValue json(const QString& text) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson('[' + text.toUtf8() + ']', &error);
    if (error.error != QJsonParseError::NoError || document.array().size() != 1)
      throw Malformed{Sentences::tr("“%1” is not a value in JSON.").arg(quoted(text))};
    return document.array().at(0);
  }

  QString m_rest;
};

std::optional<Session> SessionReader::read(const QString& text, QString* error) {
  const QStringList lines = text.split(u'\n');
  try {
    for (const QString& line : lines) {
      ++m_line;
      readLine(line);
    }
    if (!m_begun)
      throw Malformed{Sentences::tr("The file is empty.")};
    return std::move(m_session);
  } catch (const Malformed& malformed) {
    *error = Sentences::tr("Line %1: %2").arg(m_line).arg(malformed.what);
    return std::nullopt;
  }
}

void SessionReader::readLine(const QString& text) {
  Line line(text);
  if (line.atEnd() || line.next() == u'#')
    return;
  if (!m_begun)
    readFirst(line);
  else if (text.front().isSpace())
    readDetail(line);
  else
    readStep(line.word(), line);
}

void SessionReader::readFirst(Line& line) {
  if (line.word() != QLatin1String("session") || line.atEnd())
    throw Malformed{
        Sentences::tr("This is no session: it does not begin with “session %1”.").arg(Session::format)};
  const QString format = line.word();
  if (format != QString::number(Session::format))
    throw Malformed{Sentences::tr("Sessions of the format “%1” are not known.").arg(quoted(format))};
  expectEnd(line);
  m_begun = true;
}

void SessionReader::expectEnd(const Line& line) {
  if (!line.atEnd())
    throw Malformed{Sentences::tr("“%1” is too much.").arg(quoted(line.rest()))};
}

// A command, and of which manager.
void SessionReader::readName(Line& line, QString& command, int& manager) {
  command = line.word();
  if (!line.beginsWith(QLatin1String("in ")))
    return;
  line.word();
  const QString number = line.word();
  manager = number.toInt();
  if (manager < 1)
    throw Malformed{Sentences::tr("“%1” is no number of a manager, such as 2.").arg(quoted(number))};
}

void SessionReader::readStep(const QString& kind, Line& line) {
  SessionStep step;
  step.line = m_line;
  if (kind == QLatin1String("start") && m_session.steps.isEmpty() && !m_started) {
    m_started = true;
    m_session.startLine = m_line;
    expectEnd(line);
  } else if (kind == QLatin1String("command")) {
    readCommand(line, step);
    m_session.steps.append(step);
  } else if (kind == QLatin1String("operation")) {
    step.kind = SessionStep::Operation;
    readOperation(line, step.operation);
    m_session.steps.append(step);
  } else {
    throw Malformed{
        Sentences::tr("A step begins with “command” or “operation”, not with “%1”.").arg(quoted(kind))};
  }
}

void SessionReader::readCommand(Line& line, SessionStep& step) const {
  readName(line, step.command, step.manager);
  if (!line.atEnd() && line.next() != u'{') {
    const QString checked = line.word();
    if (checked != QLatin1String("on") && checked != QLatin1String("off"))
      throw Malformed{Sentences::tr("“%1” is neither “on” nor “off”.").arg(quoted(checked))};
    step.checked = checked == QLatin1String("on");
  }
  step.inputs = line.values(m_folder);
}

void SessionReader::readOperation(Line& line, ToolOperation& operation) const {
  operation.command = line.word();
  operation.action = line.word();
  const QString name = line.word();
  const auto button = SessionText::button(name);
  if (!button)
    throw Malformed{Sentences::tr("“%1” is no button of the mouse.").arg(quoted(name))};
  operation.button = *button;
  if (!line.atEnd() && line.next() != u'(' && line.next() != u'{') {
    const QString names = line.word();
    const auto modifiers = SessionText::modifiers(names);
    if (!modifiers)
      throw Malformed{Sentences::tr("“%1” are no keys such as shift+control.").arg(quoted(names))};
    operation.modifiers = *modifiers;
  }
  while (line.next() == u'(')
    operation.positions.append(line.position());
  operation.values = line.values(m_folder);
}

// Of the step before, or of the start.
void SessionReader::readDetail(Line& line) {
  const QString name = line.word();
  SessionStep* const step = m_session.steps.isEmpty() ? nullptr : &m_session.steps.last();
  if (!step && !m_started)
    throw Malformed{Sentences::tr("There is no step before that this belongs to.")};
  const auto outcome = SessionText::outcome(name);
  if (step && outcome && !line.atEnd() && line.next() != u'=') {
    readOutcome(line, *outcome);
    return;
  }
  if (!line.atEnd()) {
    if (line.word() != QLatin1String("=") || line.atEnd())
      throw Malformed{Sentences::tr("What is compared is written as “name = value”.")};
    (step ? step->changes : m_session.start).insert(name, line.value());
    return;
  }
  if (step && name == QLatin1String("unknown"))
    step->isCompared = false;
  else if (step && outcome)
    step->outcome = *outcome;
  else
    throw Malformed{Sentences::tr("“%1” says nothing of a step.").arg(quoted(name))};
}

// How a step before the last one ended.
void SessionReader::readOutcome(Line& line, ERunOutcome outcome) {
  QString command;
  int manager = 0;
  readName(line, command, manager);
  expectEnd(line);
  const auto isIt = [&](const SessionStep& step) {
    return step.kind == SessionStep::Command && step.command == command && step.manager == manager;
  };
  auto& steps = m_session.steps;
  const auto found = std::find_if(steps.rbegin(), steps.rend(), isIt);
  if (found == steps.rend())
    throw Malformed{Sentences::tr("There is no step before that runs “%1”.").arg(quoted(command))};
  found->outcome = outcome;
}

} // namespace Vela::UiBase
