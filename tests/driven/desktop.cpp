// SPDX-License-Identifier: MIT
#include "desktop.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QTest>

namespace Driven {
namespace {

void xdotool(const QStringList& arguments) {
  if (const int status = QProcess::execute(QStringLiteral("xdotool"), arguments); status != 0)
    qWarning("xdotool %s: %d", qPrintable(arguments.join(u' ')), status);
}

QStringList moveTo(const QPoint& point) {
  return {QStringLiteral("mousemove"), QString::number(point.x()), QString::number(point.y())};
}

} // namespace

void Hands::press(const QStringList& keys) { xdotool(QStringList(QStringLiteral("key")) + keys); }

void Hands::type(const QString& text) {
  xdotool({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("2"), text});
}

void Hands::click(const QPoint& at) {
  xdotool(moveTo(at) + QStringList{QStringLiteral("click"), QString::number(LeftButton)});
}

void Hands::drag(const QPoint& from, const QPoint& to, EButton button) {
  const QString number = QString::number(button);
  xdotool(moveTo(from) + QStringList{QStringLiteral("mousedown"), number} + moveTo((from + to) / 2) +
          moveTo(to) + QStringList{QStringLiteral("mouseup"), number});
}

void Hands::moveAway() { xdotool(moveTo({1439, 999})); }

void Hands::resizeWindow(const QSize& size) {
  xdotool({QStringLiteral("getactivewindow"), QStringLiteral("windowsize"), QString::number(size.width()),
           QString::number(size.height())});
}

Program::~Program() {
  m_process.kill();
  m_process.waitForFinished();
}

bool Program::start(const QString& executable) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
  environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
  environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_folder.path());
  environment.insert(QStringLiteral("XDG_DATA_HOME"), m_folder.path());
  m_process.setProcessEnvironment(environment);
  m_process.setWorkingDirectory(m_folder.path());
  m_process.setProcessChannelMode(QProcess::ForwardedChannels);
  m_process.start(executable, {});
  return QTest::qWaitFor(
      [this] {
        m_application = Accessible::application(QStringLiteral("workbench"));
        return bool(m_application);
      },
      TimeLimit);
}

bool Program::hasEnded() {
  return QTest::qWaitFor([this] { return m_process.state() == QProcess::NotRunning; }, TimeLimit);
}

Accessible Program::await(AtspiRole role, const QString& name) const {
  Accessible found;
  const auto isThere = [&] { return bool(found = find(role, name)); };
  return QTest::qWaitFor(isThere, TimeLimit) ? found : Accessible();
}

Accessible Program::window() const {
  return m_application.find([](const Accessible& seen) { return seen.role() == ATSPI_ROLE_FRAME; });
}

QImage Program::picture(const QRect& part) const {
  return QGuiApplication::primaryScreen()
      ->grabWindow(0, part.x(), part.y(), part.width(), part.height())
      .toImage();
}

} // namespace Driven
