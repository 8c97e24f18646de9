// SPDX-License-Identifier: MIT
#include "session.h"

#include "session_reader.h"
#include "session_values.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

namespace Vela::UiBase {

namespace {

constexpr qint64 mostBytes = 64 * 1024 * 1024;

QString textOf(const SessionStep& step, const QDir& folder) {
  QString text = SessionText::line(step, folder);
  if (step.outcome != RunSucceeded)
    text += QStringLiteral("  %1\n").arg(SessionText::outcomeName(step.outcome));
  return text + (step.isCompared ? SessionText::lines(step.changes) : QStringLiteral("  unknown\n"));
}

} // namespace

std::optional<Session> Session::fromText(const QString& text, const QDir& folder, QString* error) {
  return SessionReader(folder).read(text, error);
}

std::optional<Session> Session::fromFile(const QString& name, QString* error) {
  QFile file(name);
  if (!file.open(QIODevice::ReadOnly)) {
    *error = file.errorString();
    return std::nullopt;
  }
  const QByteArray content = file.read(mostBytes + 1);
  if (file.error() != QFileDevice::NoError || content.size() > mostBytes) {
    *error = file.error() != QFileDevice::NoError
                 ? file.errorString()
                 : QCoreApplication::translate("Vela::UiBase::Session", "It is too large for a session.");
    return std::nullopt;
  }
  return fromText(QString::fromUtf8(content), QFileInfo(name).absoluteDir(), error);
}

QString Session::toText(const QDir& folder) const {
  QString text = QStringLiteral("session %1\nstart\n").arg(format) + SessionText::lines(start);
  for (const SessionStep& step : steps)
    text += textOf(step, folder);
  return text;
}

} // namespace Vela::UiBase
