// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QObject>
#include <QTextStream>

#include <cstdio>

namespace Vela::Benchmarks {

/// Ends the program when a widget has been painted for the first time, and prints the memory it has by then,
/// in kilobytes.
class FirstPaint : public QObject {
public:
  explicit FirstPaint(QObject* widget) : QObject(widget) { widget->installEventFilter(this); }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      watched->removeEventFilter(this);
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
};

} // namespace Vela::Benchmarks
