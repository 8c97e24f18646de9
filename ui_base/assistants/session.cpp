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

std::optional<Session> Session::fromFile(const QString& file, QString* error) {
  QFile device(file);
  if (!device.open(QIODevice::ReadOnly)) {
    *error = device.errorString();
    return std::nullopt;
  }
  const QByteArray content = device.read(mostBytes + 1);
  if (device.error() != QFileDevice::NoError || content.size() > mostBytes) {
    *error = device.error() != QFileDevice::NoError
                 ? device.errorString()
                 : QCoreApplication::translate("Vela::UiBase::Session", "It is too large for a session.");
    return std::nullopt;
  }
  return fromText(QString::fromUtf8(content), QFileInfo(file).absoluteDir(), error);
}

QString Session::toText(const QDir& folder) const {
  QString text = QStringLiteral("session %1\nstart\n").arg(format) + SessionText::lines(start);
  for (const SessionStep& step : steps)
    text += textOf(step, folder);
  return text;
}

} // namespace Vela::UiBase
