// SPDX-License-Identifier: MIT
#include "cached_shadow_effect.h"

#include <QCoreApplication>
#include <QGraphicsBlurEffect>
#include <QGraphicsPathItem>
#include <QGraphicsScene>
#include <QPaintEngine>
#include <QPainter>

#include <algorithm>
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

QList<CachedShadowEffect::Shadow>& CachedShadowEffect::recent() {
  static QList<Shadow> shadows;
  // A picture must not be destroyed after the application.
  static const bool watched = [] {
    qAddPostRoutine([] { shadows.clear(); });
    return true;
  }();
  Q_UNUSED(watched)
  return shadows;
}

CachedShadowEffect::Shadow CachedShadowEffect::render(const Key& key, const QRect& area) {
  QPixmap picture(area.size() * key.ratio);
  picture.setDevicePixelRatio(key.ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(-area.topLeft());
  paintBlurred(painter, key.outline.translated(key.offset), area, key.blurRadius * key.ratio, key.color);
  painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
  painter.fillPath(key.outline, Qt::black);
  painter.end();
  return {key, area, picture};
}

void CachedShadowEffect::prepare(qreal ratio) {
  constexpr qsizetype most = 12;
  const Key key = {m_shape.outline, blurRadius(), ratio, offset(), color()};
  if (key == m_shadow.key)
    return;
  QList<Shadow>& known = recent();
  const auto found =
      std::find_if(known.cbegin(), known.cend(), [&](const Shadow& each) { return each.key == key; });
  if (found != known.cend()) {
    m_shadow = *found;
    return;
  }
  m_shadow = render(key, boundingRectFor(key.outline.boundingRect()).toAlignedRect());
  if (known.size() >= most)
    known.removeFirst();
  known.append(m_shadow);
}

void CachedShadowEffect::drawShadow(QPainter& painter) const {
  const qreal ratio = m_shadow.picture.devicePixelRatioF();
  // Four strips around the interior, where there is nothing to blend.
  const QRect inside = m_shape.interior & m_shadow.area;
  const int right = inside.x() + inside.width();
  const int below = inside.y() + inside.height();
  const std::array<QRect, 4> strips = {
      QRect(m_shadow.area.topLeft(), QPoint(m_shadow.area.right(), inside.y() - 1)),
      QRect(QPoint(m_shadow.area.x(), inside.y()), QPoint(inside.x() - 1, below - 1)),
      QRect(QPoint(right, inside.y()), QPoint(m_shadow.area.right(), below - 1)),
      QRect(QPoint(m_shadow.area.x(), below), m_shadow.area.bottomRight()),
  };
  for (const QRect& strip : strips) {
    const QRectF source(QPointF(strip.topLeft() - m_shadow.area.topLeft()) * ratio,
                        QSizeF(strip.size()) * ratio);
    painter.drawPixmap(QRectF(strip), m_shadow.picture, source);
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
    prepare(ratio);
    drawShadow(*painter);
  }
  drawWidget(*painter);
}

} // namespace Vela::UiBase
