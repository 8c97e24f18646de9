// SPDX-License-Identifier: MIT
#include "cached_shadow_effect.h"

#include <QGraphicsBlurEffect>
#include <QGraphicsPathItem>
#include <QGraphicsScene>
#include <QPaintEngine>
#include <QPainter>

#include <array>
#include <utility>

namespace Vela::UiBase {

namespace {

/// How much farther a blur effect spreads than the blur of a shadow of the same radius.
constexpr qreal BlurSpread = 2.5;

void paintBlurred(QPainter& painter, const QPainterPath& shape, const QRectF& area, qreal radius,
                  const QColor& color) {
  QGraphicsScene scene;
  auto* const item = scene.addPath(shape, Qt::NoPen, color);
  auto* const blur = new QGraphicsBlurEffect;
  blur->setBlurRadius(radius / BlurSpread);
  item->setGraphicsEffect(blur);
  scene.render(&painter, area, area);
}

} // namespace

CachedShadowEffect::CachedShadowEffect(const QWidget& widget, ShapeFor shapeFor)
    : m_widget(widget), m_shapeFor(std::move(shapeFor)) {}

void CachedShadowEffect::setShape(const QPainterPath& outline, const QRect& interior) {
  m_shape = {outline, interior};
  update();
}

void CachedShadowEffect::setLooks(const QGraphicsDropShadowEffect& other) {
  setBlurRadius(other.blurRadius());
  setOffset(other.offset());
  setColor(other.color());
}

void CachedShadowEffect::render(qreal ratio) {
  const Key key = {m_shape.outline, blurRadius(), ratio, offset(), color()};
  if (key == m_key)
    return;
  m_key = key;
  m_area = boundingRectFor(m_shape.outline.boundingRect()).toAlignedRect();
  m_shadow = QPixmap(m_area.size() * ratio);
  m_shadow.setDevicePixelRatio(ratio);
  m_shadow.fill(Qt::transparent);
  QPainter painter(&m_shadow);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(-m_area.topLeft());
  paintBlurred(painter, m_shape.outline.translated(offset()), m_area, blurRadius() * ratio, color());
  painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
  painter.fillPath(m_shape.outline, Qt::black);
}

void CachedShadowEffect::drawShadow(QPainter& painter) const {
  const qreal ratio = m_shadow.devicePixelRatioF();
  // Four strips around the interior, where there is nothing to blend.
  const QRect inside = m_shape.interior & m_area;
  const int right = inside.x() + inside.width();
  const int below = inside.y() + inside.height();
  const std::array<QRect, 4> strips = {
      QRect(m_area.topLeft(), QPoint(m_area.right(), inside.y() - 1)),
      QRect(QPoint(m_area.x(), inside.y()), QPoint(inside.x() - 1, below - 1)),
      QRect(QPoint(right, inside.y()), QPoint(m_area.right(), below - 1)),
      QRect(QPoint(m_area.x(), below), m_area.bottomRight()),
  };
  for (const QRect& strip : strips) {
    const QRectF source(QPointF(strip.topLeft() - m_area.topLeft()) * ratio, QSizeF(strip.size()) * ratio);
    painter.drawPixmap(QRectF(strip), m_shadow, source);
  }
}

void CachedShadowEffect::drawWidget(QPainter& painter) {
  const QPoint place = m_widget.mapTo(m_widget.window(), QPoint());
  if (painter.worldTransform() != QTransform::fromTranslate(place.x(), place.y())) {
    QPoint offset;
    const QPixmap source = sourcePixmap(Qt::LogicalCoordinates, &offset, NoPad);
    painter.drawPixmap(offset, source);
    return;
  }
  // With a painter that QWidget::render() was given, the place in the window would be added a second time.
  painter.save();
  painter.setWorldTransform({});
  drawSource(&painter);
  painter.restore();
}

void CachedShadowEffect::draw(QPainter* painter) {
  const qreal ratio = painter->paintEngine()->paintDevice()->devicePixelRatioF();
  if (m_shapeFor)
    m_shape = m_shapeFor(ratio);
  if (!m_shape.outline.isEmpty()) {
    render(ratio);
    drawShadow(*painter);
  }
  drawWidget(*painter);
}

} // namespace Vela::UiBase
