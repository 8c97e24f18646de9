// SPDX-License-Identifier: MIT
#include "mouse_press.h"

#include <QPointingDevice>

namespace Vela::UiBase {

namespace {

// Making an event moves the point of its device.
const QPointingDevice* replayDevice() {
  static const QPointingDevice device(QStringLiteral("replayed mouse"), -1, QInputDevice::DeviceType::Mouse,
                                      QPointingDevice::PointerType::Generic,
                                      QInputDevice::Capability::Position, 1, 3);
  return &device;
}

} // namespace

MousePress::MousePress(const QMouseEvent& event)
    : m_type(event.type()),
      m_position(event.position()),
      m_scenePosition(event.scenePosition()),
      m_globalPosition(event.globalPosition()),
      m_button(event.button()),
      m_buttons(event.buttons()),
      m_modifiers(event.modifiers()) {}

QMouseEvent MousePress::toEvent() const {
  return QMouseEvent(m_type, m_position, m_scenePosition, m_globalPosition, m_button, m_buttons, m_modifiers,
                     replayDevice());
}

} // namespace Vela::UiBase
