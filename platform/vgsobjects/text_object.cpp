// SPDX-License-Identifier: MIT
#include "text_object.h"

#include "halo.h"

#include <utility>

namespace Vela::Graphics {

TextObject::TextObject(const QVector3D& position, QString text)
    : m_position(position), m_text(std::move(text)) {}

TextObject::~TextObject() = default;

void TextObject::draw(const AnnotationDevice& device) const {
  if (const auto at = device.project(m_position))
    drawText(device, *at + m_offset, m_text, colorOn(device));
}

} // namespace Vela::Graphics
