// SPDX-License-Identifier: MIT
#pragma once

#include <QGraphicsDropShadowEffect>
#include <QPainterPath>
#include <QPixmap>
#include <QRect>
#include <QWidget>

namespace Vela::UiBase {

/// A drop shadow around a shape that is known. It looks like the plain effect outside the shape, but is
/// blurred only when the shape or the looks have changed, and not with each frame. Beneath the shape there is
/// none.
class CachedShadowEffect : public QGraphicsDropShadowEffect {
  Q_OBJECT

public:
  /// For this widget, which outlives the effect.
  explicit CachedShadowEffect(const QWidget& widget);

  /// The shape in the coordinates of the widget, and a part of it without which the shadow may be painted.
  void setShape(const QPainterPath& outline, const QRect& interior);
  /// Takes over blur, offset and colour.
  void setLooks(const QGraphicsDropShadowEffect& other);

protected:
  void draw(QPainter* painter) override;

private:
  struct Key {
    QPainterPath outline;
    qreal blurRadius = 0;
    qreal ratio = 0;
    QPointF offset;
    QColor color;
    friend bool operator==(const Key&, const Key&) = default;
  };

  void render(qreal ratio);
  void drawShadow(QPainter& painter) const;
  void drawWidget(QPainter& painter);

  const QWidget& m_widget;
  QPainterPath m_outline;
  QRect m_interior;
  Key m_key;
  QRect m_area;
  QPixmap m_shadow;
};

} // namespace Vela::UiBase
