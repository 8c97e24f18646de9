// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tools/interactive_tool.h>

#include <QString>

#include <functional>

namespace Vela::Test {

/// Decides about each input before its base gets it.
template <class Base>
class InputTaker : public Base {
public:
  using Base::Base;

  bool mousePress(QMouseEvent* input) override { return takes("press") || Base::mousePress(input); }
  bool mouseMove(QMouseEvent* input) override { return takes("move") || Base::mouseMove(input); }
  bool mouseRelease(QMouseEvent* input) override { return takes("release") || Base::mouseRelease(input); }
  bool mouseDoubleClick(QMouseEvent*) override { return takes("double"); }
  bool mouseWheel(QWheelEvent*) override { return takes("wheel"); }
  bool keyPress(QKeyEvent*) override { return takes("key"); }
  bool keyRelease(QKeyEvent*) override { return takes("keyup"); }

protected:
  virtual bool takes(const QString& input) = 0;
};

/// Tells what it is given, and that its operation ends, as "name:input".
class RecordingTool : public InputTaker<UiBase::InteractiveTool> {
public:
  explicit RecordingTool(QString itsName, UiBase::BaseView* view = nullptr)
      : InputTaker(view), name(std::move(itsName)) {}

  const QString name;
  std::function<bool(const QString&)> hear; // answers whether it takes that

  using InteractiveTool::setIdleCursor;
  using InteractiveTool::startOperation;
  void endOperation() override {
    if (isOperating())
      takes("end");
    InteractiveTool::endOperation();
  }

protected:
  bool takes(const QString& input) override { return hear && hear(name + ':' + input); }
};

} // namespace Vela::Test
