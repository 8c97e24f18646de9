// SPDX-License-Identifier: MIT
#include "cached_shadow_effect.h"

#include <QGraphicsBlurEffect>
#include <QGraphicsPathItem>
#include <QGraphicsScene>
#include <QPaintEngine>
#include <QPainter>

#include <array>

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

CachedShadowEffect::CachedShadowEffect(const QWidget& widget) : m_widget(widget) {}

void CachedShadowEffect::setShape(const QPainterPath& outline, const QRect& interior) {
  m_outline = outline;
  m_interior = interior;
  update();
}

void CachedShadowEffect::setLooks(const QGraphicsDropShadowEffect& other) {
  setBlurRadius(other.blurRadius());
  setOffset(other.offset());
  setColor(other.color());
}

void CachedShadowEffect::render(qreal ratio) {
  const Key key = {m_outline, blurRadius(), ratio, offset(), color()};
  if (key == m_key)
    return;
  m_key = key;
  m_area = boundingRectFor(m_outline.boundingRect()).toAlignedRect();
  m_shadow = QPixmap(m_area.size() * ratio);
  m_shadow.setDevicePixelRatio(ratio);
  m_shadow.fill(Qt::transparent);
  QPainter painter(&m_shadow);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(-m_area.topLeft());
  paintBlurred(painter, m_outline.translated(offset()), m_area, blurRadius() * ratio, color());
  painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
  painter.fillPath(m_outline, Qt::black);
}

void CachedShadowEffect::drawShadow(QPainter& painter) const {
  const qreal ratio = m_shadow.devicePixelRatioF();
  // Four strips around the interior, where there is nothing to blend.
  const QRect inside = m_interior & m_area;
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
  if (!m_outline.isEmpty()) {
    render(painter->paintEngine()->paintDevice()->devicePixelRatioF());
    drawShadow(*painter);
  }
  drawWidget(*painter);
}

} // namespace Vela::UiBase
