// SPDX-License-Identifier: MIT
#include "tool_cursors.h"

#include <vlk_common_res/icons.h>

#include <QGuiApplication>
#include <QPainter>

namespace Workbench {
namespace {

constexpr int Size = 32; // logical pixels
const QColor Ink(0x20, 0x24, 0x2a);

QPixmap emptyPixmap() {
  const qreal ratio = qGuiApp->devicePixelRatio();
  QPixmap pixmap(QSize(Size, Size) * ratio);
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(Qt::transparent);
  return pixmap;
}

void paintIcon(QPainter& painter, const QString& name, const QRect& place) {
  const QIcon halo = Vela::Resource::Icons::icon(name, Qt::white);
  for (const QPoint& shift : {QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1)})
    halo.paint(&painter, place.translated(shift));
  Vela::Resource::Icons::icon(name, Ink).paint(&painter, place);
}

void paintCrosshair(QPainter& painter, const QPointF& at) {
  constexpr double Reach = 9;
  constexpr double Gap = 2.5;
  for (const auto& [color, width] : {std::pair(QColor(Qt::white), 3.5), std::pair(Ink, 1.25)}) {
    painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap));
    for (const QPointF& direction : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)})
      painter.drawLine(at + direction * Gap, at + direction * Reach);
  }
}

} // namespace

QCursor iconCursor(const QString& icon) {
  QPixmap pixmap = emptyPixmap();
  QPainter painter(&pixmap);
  paintIcon(painter, icon, QRect(4, 4, 24, 24));
  painter.end();
  return QCursor(pixmap, Size / 2, Size / 2);
}

QCursor crosshairCursor(const QString& icon) {
  constexpr QPoint HotSpot(11, 11);
  QPixmap pixmap = emptyPixmap();
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  paintCrosshair(painter, QPointF(HotSpot) + QPointF(0.5, 0.5));
  paintIcon(painter, icon, QRect(15, 15, 16, 16));
  painter.end();
  return QCursor(pixmap, HotSpot.x(), HotSpot.y());
}

} // namespace Workbench
