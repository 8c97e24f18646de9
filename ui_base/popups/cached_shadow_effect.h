// SPDX-License-Identifier: MIT
#pragma once

#include <QGraphicsDropShadowEffect>
#include <QList>
#include <QPainterPath>
#include <QPixmap>
#include <QRect>
#include <QWidget>

#include <functional>

namespace Vela::UiBase {

/// What a shadow falls from, in the coordinates of its widget, and a part of it without which the shadow may
/// be painted.
struct CachedShadowShape {
  QPainterPath outline;
  QRect interior;
};

/// A drop shadow around a shape that is known. It looks like the plain effect outside the shape, but is
/// blurred only for a shape or looks that are new, and not with each frame. Beneath the shape there is
/// none.
class CachedShadowEffect : public QGraphicsDropShadowEffect {
  Q_OBJECT

public:
  /// The shape for a device of this many pixels to a pixel.
  using ShapeFor = std::function<CachedShadowShape(qreal pixelRatio)>;

  /// For this widget, which outlives the effect. `shapeFor` is asked whenever the shadow is painted; without
  /// it the shape is the one that was set.
  explicit CachedShadowEffect(const QWidget& widget, ShapeFor shapeFor = {});

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

  struct Shadow {
    Key key;
    QRect area;
    QPixmap picture;
  };

  /// The shadows painted last, of all widgets: many tooltips are of one size.
  static QList<Shadow>& recent();
  static Shadow render(const Key& key, const QRect& area);
  void prepare(qreal ratio);
  void drawShadow(QPainter& painter) const;
  void drawWidget(QPainter& painter);

  const QWidget& m_widget;
  const ShapeFor m_shapeFor;
  CachedShadowShape m_shape;
  Shadow m_shadow;
};

} // namespace Vela::UiBase
