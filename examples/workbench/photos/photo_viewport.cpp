// SPDX-License-Identifier: MIT
#include "photo_viewport.h"

#include <algorithm>
#include <cmath>

namespace Workbench {
namespace {

constexpr double LargestPixel = 16; // device pixels

double keptInside(double center, double photo, double seen) {
  return photo <= seen ? photo / 2 : std::clamp(center, seen / 2, photo - seen / 2);
}

} // namespace

void PhotoViewport::setPhoto(const QSize& size) {
  m_photo = size.isEmpty() ? QSizeF() : QSizeF(size);
  fit();
}

void PhotoViewport::setCanvas(const QSizeF& size, qreal devicePixelRatio) {
  m_canvas = size;
  m_ratio = devicePixelRatio;
  if (m_fit) {
    fit();
  } else if (!isEmpty()) {
    m_zoom = std::clamp(m_zoom, leastZoom(), mostZoom());
    keepInside();
  }
}

double PhotoViewport::fittingZoom() const {
  if (isEmpty())
    return 1;
  return std::min(m_canvas.width() / m_photo.width(), m_canvas.height() / m_photo.height()) * m_ratio;
}

double PhotoViewport::leastZoom() const { return std::min(1.0, fittingZoom()); }

double PhotoViewport::mostZoom() const { return std::max(LargestPixel, fittingZoom()); }

bool PhotoViewport::canPan() const {
  const QSizeF size = m_photo * scale();
  return !isEmpty() && !m_fit && (size.width() > m_canvas.width() || size.height() > m_canvas.height());
}

void PhotoViewport::fit() {
  m_fit = true;
  m_zoom = fittingZoom();
  keepInside();
}

void PhotoViewport::showOriginalSize(const QPointF& anchor) {
  if (!isEmpty())
    setZoom(1, anchor);
}

void PhotoViewport::zoomAt(double factor, const QPointF& anchor) {
  if (isEmpty() || factor <= 0)
    return;
  const double zoom = m_zoom * factor;
  const bool passesOriginal = (m_zoom < 1 && zoom > 1) || (m_zoom > 1 && zoom < 1);
  setZoom(passesOriginal ? 1 : std::clamp(zoom, leastZoom(), mostZoom()), anchor);
}

void PhotoViewport::setZoom(double zoom, const QPointF& anchor) {
  const QPointF kept = photoPoint(anchor);
  m_zoom = zoom;
  m_center = kept - (anchor - middle()) / scale();
  m_fit = zoom == fittingZoom();
  keepInside();
}

void PhotoViewport::pan(const QPointF& shift) {
  m_center -= shift / scale();
  keepInside();
}

void PhotoViewport::keepInside() {
  const QSizeF seen = m_canvas / scale();
  m_center = {keptInside(m_center.x(), m_photo.width(), seen.width()),
              keptInside(m_center.y(), m_photo.height(), seen.height())};
}

QRectF PhotoViewport::photoRect() const {
  if (isEmpty())
    return {};
  const QPointF corner = (middle() - m_center * scale()) * m_ratio;
  return {QPointF(std::round(corner.x()), std::round(corner.y())) / m_ratio, m_photo * scale()};
}

QPointF PhotoViewport::photoPoint(const QPointF& position) const {
  return m_center + (position - middle()) / scale();
}

} // namespace Workbench
