// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/arrowed_window.h>

#include <QImage>
#include <QWidget>

/// A content of one size that paints nothing.
class ArrowedContent : public QWidget {
public:
  explicit ArrowedContent(const QSize& size, QWidget* parent = nullptr) : QWidget(parent), m_size(size) {}

  QSize sizeHint() const override { return m_size; }
  void grow(const QSize& size) {
    m_size = size;
    updateGeometry();
  }

private:
  QSize m_size;
};

/// The window with its content, on nothing, on a device of this many pixels to a pixel.
inline QImage pictureOf(QWidget& window, int ratio) {
  QImage image(window.size() * ratio, QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(ratio);
  image.fill(Qt::transparent);
  window.render(&image, {}, {}, QWidget::DrawChildren);
  return image;
}
