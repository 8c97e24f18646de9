// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QObject>
#include <QTextStream>
#include <QWidget>

#include <cstdio>

namespace Vela::Benchmarks {

/// When a window has been painted for the first time, prints the memory that the program has by then, in
/// kilobytes, and ends it. Which of its widgets is painted first is the window's affair: one may cover
/// another.
class FirstPaint : public QObject {
public:
  explicit FirstPaint(QWidget* window) : QObject(window), m_window(window) { qApp->installEventFilter(this); }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Paint)
      return false;
    if (const auto* const widget = qobject_cast<QWidget*>(watched); widget && widget->window() == m_window) {
      qApp->removeEventFilter(this);
      QMetaObject::invokeMethod(
          this, [] { end(); }, Qt::QueuedConnection); // after the paint
    }
    return false;
  }

private:
  static void end() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (status.open(QIODevice::ReadOnly)) {
      for (QByteArray line = status.readLine(); !line.isEmpty(); line = status.readLine()) {
        if (line.startsWith("VmRSS:"))
          std::printf("%s", line.simplified().split(' ').at(1).constData());
      }
    }
    std::fflush(stdout);
    QApplication::quit();
  }

  QWidget* const m_window; // the parent
};

} // namespace Vela::Benchmarks
