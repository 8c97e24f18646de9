// SPDX-License-Identifier: MIT
#include "annotation_object.h"

#include <vgsdevices/annotation_device.h>

namespace Vela::Graphics {

AnnotationObject::AnnotationObject() = default;

AnnotationObject::~AnnotationObject() = default;

AnnotationObject::AnnotationObject(const AnnotationObject&) = default;

AnnotationObject& AnnotationObject::operator=(const AnnotationObject&) = default;

QColor AnnotationObject::colorOn(const AnnotationDevice& device) const {
  return m_color.isValid() ? m_color : device.ink();
}

} // namespace Vela::Graphics
