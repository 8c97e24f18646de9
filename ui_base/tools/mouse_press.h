// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QEvent>
#include <QMouseEvent>
#include <QPointF>

namespace Vela::UiBase {

/// A mouse press that is kept after its event is gone. Positions are in logical pixels: in the view, in its
/// window, and on the screen.
///
/// A value. The event itself cannot be kept: it cannot be copied, and a clone's positions change with the
/// next move of the device.
///
/// @code
/// bool PanTool::mouseMove(QMouseEvent* event) {
///   if (!InteractiveTool::mouseMove(event))
///     return false;
///   pan(event->position() - pressEvent().position());
///   return true;
/// }
/// @endcode
class UI_BASE_EXPORT MousePress {
public:
  /// No press: of type QEvent::None, without a button.
  MousePress() = default;
  /// What @p event says, for later.
  explicit MousePress(const QMouseEvent& event);

  /// Whether it stands for no press.
  bool isNull() const noexcept { return m_type == QEvent::None; }
  /// Press or double click.
  QEvent::Type type() const noexcept { return m_type; }
  /// In coordinates of the widget.
  QPointF position() const noexcept { return m_position; }
  /// In coordinates of the window.
  QPointF scenePosition() const noexcept { return m_scenePosition; }
  /// In coordinates of the screen.
  QPointF globalPosition() const noexcept { return m_globalPosition; }
  /// Which button went down.
  Qt::MouseButton button() const noexcept { return m_button; }
  /// All buttons that were down.
  Qt::MouseButtons buttons() const noexcept { return m_buttons; }
  /// The keys that were held.
  Qt::KeyboardModifiers modifiers() const noexcept { return m_modifiers; }

  /// A fresh event like the one kept, of a device of its own, so that it changes nothing about the mouse.
  QMouseEvent toEvent() const;

private:
  QEvent::Type m_type = QEvent::None;
  QPointF m_position;
  QPointF m_scenePosition;
  QPointF m_globalPosition;
  Qt::MouseButton m_button = Qt::NoButton;
  Qt::MouseButtons m_buttons;
  Qt::KeyboardModifiers m_modifiers;
};

} // namespace Vela::UiBase
