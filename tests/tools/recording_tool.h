// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tools/interactive_tool.h>

#include <QStringList>

#include <memory>

namespace Vela::Test {

/// Writes down what it is given; declines wheels, keys and double clicks.
class RecordingTool : public UiBase::InteractiveTool {
public:
  RecordingTool(QString name, std::shared_ptr<QStringList> journal, UiBase::BaseView* view = nullptr)
      : InteractiveTool(view), m_name(std::move(name)), m_journal(std::move(journal)) {}

  const QString& name() const { return m_name; }

  using InteractiveTool::setIdleCursor;
  using InteractiveTool::startOperation;

  bool mousePress(QMouseEvent* event) override {
    note("press");
    return InteractiveTool::mousePress(event);
  }
  bool mouseMove(QMouseEvent* event) override {
    note("move");
    return InteractiveTool::mouseMove(event);
  }
  bool mouseRelease(QMouseEvent* event) override {
    note("release");
    return InteractiveTool::mouseRelease(event);
  }
  bool mouseDoubleClick(QMouseEvent*) override { return other("double"); }
  bool mouseWheel(QWheelEvent*) override { return other("wheel"); }
  bool keyPress(QKeyEvent*) override { return other("key"); }
  bool keyRelease(QKeyEvent*) override { return other("keyup"); }
  void endOperation() override {
    if (isOperating())
      note("end");
    InteractiveTool::endOperation();
  }

private:
  bool other(const char* what) {
    note(what);
    return false;
  }
  void note(const char* what) { m_journal->append(m_name + QLatin1Char(':') + QLatin1String(what)); }

  const QString m_name;
  const std::shared_ptr<QStringList> m_journal;
};

} // namespace Vela::Test
