// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

class QDragEnterEvent;
class QDragLeaveEvent;
class QDragMoveEvent;
class QDropEvent;
class QEvent;
class QKeyEvent;
class QMouseEvent;
class QWheelEvent;

namespace Vela::UiBase {

/// Anything that takes the input of a view: view controllers, interactive tools, and commands that want
/// input.
///
/// Each handler answers true when it consumed the event; false, the default, passes it on to the next
/// responder and at last to the widget. Events belong to the caller and live for the length of the call.
///
/// Not owned through this type: it has no virtual destructor.
class UI_BASE_EXPORT ViewResponder {
public:
  virtual bool mouseDoubleClick(QMouseEvent* event);
  virtual bool mouseMove(QMouseEvent* event);
  virtual bool mousePress(QMouseEvent* event);
  virtual bool mouseRelease(QMouseEvent* event);
  virtual bool mouseWheel(QWheelEvent* event);
  virtual bool mouseEnter(QEvent* event);
  virtual bool mouseLeave(QEvent* event);
  virtual bool mouseDragEnter(QDragEnterEvent* event);
  virtual bool mouseDragLeave(QDragLeaveEvent* event);
  virtual bool mouseDragMove(QDragMoveEvent* event);
  virtual bool mouseDrop(QDropEvent* event);
  virtual bool keyPress(QKeyEvent* event);
  virtual bool keyRelease(QKeyEvent* event);

protected:
  ViewResponder() = default;
  ViewResponder(const ViewResponder&) = default;
  ViewResponder& operator=(const ViewResponder&) = default;
  ~ViewResponder() = default;
};

} // namespace Vela::UiBase
