// SPDX-License-Identifier: MIT
#include "tooltip_picture.h"

#include <QPainter>

namespace Vela::UiBase {

TooltipPicture::TooltipPicture(const QIcon& picture, const QSize& size) : m_picture(picture) {
  setFixedSize(size);
}

void TooltipPicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  m_picture.paint(&painter, rect());
}

} // namespace Vela::UiBase
