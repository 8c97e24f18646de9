// SPDX-License-Identifier: MIT
#include "tooltip_picture.h"

#include <QPainter>

#include <utility>

namespace Vela::UiBase {

TooltipPicture::TooltipPicture(QIcon picture, const QSize& size) : m_picture(std::move(picture)) {
  setFixedSize(size);
}

void TooltipPicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  m_picture.paint(&painter, rect());
}

} // namespace Vela::UiBase
