// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QRectF>
#include <QSize>

namespace Workbench {

/// Which part of a photograph is seen in a view, and how large.
///
/// A value, without any window. Positions and sizes in the view are in logical pixels; the zoom is in device
/// pixels for one pixel of the photograph, so that 1, the original size, is sharp on every screen. A
/// photograph that is smaller than the view stands in its middle, a larger one leaves no room at the edges.
///
/// @code
/// PhotoViewport viewport;
/// viewport.setCanvas(view.size(), view.devicePixelRatioF());
/// viewport.setPhoto(photo.size());                      // all of it is seen
/// viewport.zoomAt(PhotoViewport::ZoomStep, mousePosition); // what is there keeps its place
/// painter.drawImage(viewport.photoRect(), photo);
/// @endcode
class PhotoViewport {
public:
  /// The factor of one step of the wheel, a key or a button.
  static constexpr double ZoomStep = 1.25;

  /// Shows all of another photograph, of @p size in pixels; an empty size for none.
  void setPhoto(const QSize& size);
  /// The view has another size, or lies on another screen. A photograph that fits goes on to fit.
  void setCanvas(const QSizeF& size, qreal devicePixelRatio);

  bool isEmpty() const noexcept { return m_photo.isEmpty() || m_canvas.isEmpty(); }
  const QSizeF& canvas() const noexcept { return m_canvas; }
  qreal devicePixelRatio() const noexcept { return m_ratio; }

  /// Device pixels for a pixel of the photograph.
  double zoom() const noexcept { return m_zoom; }
  /// The limits: all of the photograph or its original size, whatever is less; and so near that its pixels
  /// can be counted, or all of a tiny one.
  double leastZoom() const;
  double mostZoom() const;
  bool canZoomIn() const { return !isEmpty() && m_zoom < mostZoom(); }
  bool canZoomOut() const { return !isEmpty() && m_zoom > leastZoom(); }
  /// All of the photograph is shown, as large as the view allows.
  bool isFit() const noexcept { return m_fit; }
  /// Not all of the photograph is seen.
  bool canPan() const;

  void fit();
  void showOriginalSize(const QPointF& anchor);
  /// Magnifies by a factor, within the limits; what is seen at @p anchor keeps its place as far as the
  /// photograph's edges allow. A step that would pass the original size ends at it.
  void zoomAt(double factor, const QPointF& anchor);
  /// Shifts the photograph in the view.
  void pan(const QPointF& shift);

  /// Where the whole photograph lies in the view. Its corner is on a device pixel.
  QRectF photoRect() const;
  /// The point of the photograph, in its pixels, that is seen at a position.
  QPointF photoPoint(const QPointF& position) const;
  QPointF middle() const { return {m_canvas.width() / 2, m_canvas.height() / 2}; }

  friend bool operator==(const PhotoViewport&, const PhotoViewport&) = default;

private:
  double scale() const { return m_zoom / m_ratio; } // logical pixels for one of the photograph
  double fittingZoom() const;
  void setZoom(double zoom, const QPointF& anchor);
  void keepInside();

  QSizeF m_photo;
  QSizeF m_canvas;
  qreal m_ratio = 1;
  double m_zoom = 1;
  QPointF m_center; // the point of the photograph in the middle of the view
  bool m_fit = true;
};

} // namespace Workbench
