// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tools/interactive_tool.h>

#include <QString>

#include <functional>

namespace Vela::Test {

/// Tells its input; what is not taken goes on to its base.
template <class Base>
class InputTaker : public Base {
public:
  using Base::Base;

  std::function<bool(const QString&)> hear; // answers whether the input is taken

  bool mousePress(QMouseEvent* input) override { return takes("press") || Base::mousePress(input); }
  bool mouseMove(QMouseEvent* input) override { return takes("move") || Base::mouseMove(input); }
  bool mouseRelease(QMouseEvent* input) override { return takes("release") || Base::mouseRelease(input); }
  bool mouseDoubleClick(QMouseEvent*) override { return takes("double"); }
  bool mouseWheel(QWheelEvent*) override { return takes("wheel"); }
  bool keyPress(QKeyEvent*) override { return takes("key"); }
  bool keyRelease(QKeyEvent*) override { return takes("keyup"); }

protected:
  bool takes(const QString& input) const { return hear && hear(input); }
};

/// A tool that has a name, and tells the end of its operation as well.
class RecordingTool : public InputTaker<UiBase::InteractiveTool> {
public:
  explicit RecordingTool(QString itsName, UiBase::BaseView* view = nullptr)
      : InputTaker(view), name(std::move(itsName)) {}

  const QString name;

  using InteractiveTool::setIdleCursor, InteractiveTool::setOperatingCursor;
  using InteractiveTool::startOperation;
  void endOperation() override {
    if (isOperating())
      takes("end");
    InteractiveTool::endOperation();
  }
};

} // namespace Vela::Test
