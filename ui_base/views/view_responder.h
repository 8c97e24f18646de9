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
  /// @return whether the event was used, as of all functions here.
  virtual bool mouseDoubleClick(QMouseEvent* event);
  /// The mouse has moved over the view.
  virtual bool mouseMove(QMouseEvent* event);
  /// A button of the mouse went down.
  virtual bool mousePress(QMouseEvent* event);
  /// A button of the mouse came up.
  virtual bool mouseRelease(QMouseEvent* event);
  /// The wheel was turned.
  virtual bool mouseWheel(QWheelEvent* event);
  /// The mouse has come into the view.
  virtual bool mouseEnter(QEvent* event);
  /// The mouse has left the view.
  virtual bool mouseLeave(QEvent* event);
  /// Something is dragged into the view.
  virtual bool mouseDragEnter(QDragEnterEvent* event);
  /// What was dragged has left the view.
  virtual bool mouseDragLeave(QDragLeaveEvent* event);
  /// Something is dragged over the view.
  virtual bool mouseDragMove(QDragMoveEvent* event);
  /// What was dragged is dropped.
  virtual bool mouseDrop(QDropEvent* event);
  /// A key went down.
  virtual bool keyPress(QKeyEvent* event);
  /// A key came up.
  virtual bool keyRelease(QKeyEvent* event);

protected:
  ViewResponder() = default;
  ViewResponder(const ViewResponder&) = default;
  ViewResponder& operator=(const ViewResponder&) = default;
  ~ViewResponder() = default;
};

} // namespace Vela::UiBase
