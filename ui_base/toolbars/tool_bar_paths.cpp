// SPDX-License-Identifier: MIT
#include "tool_bar_paths.h"

#include <QIcon>
#include <QPainter>

#include <algorithm>

namespace Vela::UiBase {

namespace {

// Along the middle between two neighbours; nothing for the step to the next row of a grid.
void addSeparator(QPainterPath& path, const QRect& one, const QRect& other) {
  const QRectF a(one);
  const QRectF b(other);
  if (a.top() < b.bottom() && b.top() < a.bottom()) {
    const qreal x = a.right() <= b.left() ? (a.right() + b.left()) / 2 : (b.right() + a.left()) / 2;
    path.moveTo(x, std::max(a.top(), b.top()));
    path.lineTo(x, std::min(a.bottom(), b.bottom()));
  } else if (a.left() < b.right() && b.left() < a.right()) {
    const qreal y = (a.bottom() + b.top()) / 2;
    path.moveTo(std::max(a.left(), b.left()), y);
    path.lineTo(std::min(a.right(), b.right()), y);
  }
}

QRect gapBetween(const QRect& one, const QRect& other) {
  if (other.left() > one.right())
    return {QPoint(one.right() + 1, one.top()), QPoint(other.left() - 1, one.bottom())};
  if (one.left() > other.right())
    return {QPoint(other.right() + 1, one.top()), QPoint(one.left() - 1, one.bottom())};
  return {QPoint(one.left(), one.bottom() + 1), QPoint(one.right(), other.top() - 1)};
}

/// The line of a border lies within the rectangle.
QRectF inside(const QRect& rect, int borderWidth) {
  const qreal half = borderWidth / 2.0;
  return QRectF(rect).adjusted(half, half, -half, -half);
}

} // namespace

QPainterPath roundedPath(const QRectF& rect, EToolBarRoundCorner corners, int radius, Qt::ToolBarArea area) {
  QPainterPath path;
  if (corners == NoRoundCorner || radius <= 0) {
    path.addRect(rect);
    return path;
  }
  path.addRoundedRect(rect, radius, radius);
  if (corners == AllRoundCorners)
    return path;
  QRectF square = rect; // the half at the edge keeps its corners
  switch (area) {
  case Qt::LeftToolBarArea:
    square.setWidth(rect.width() / 2);
    break;
  case Qt::RightToolBarArea:
    square.setLeft(rect.center().x());
    break;
  case Qt::TopToolBarArea:
    square.setHeight(rect.height() / 2);
    break;
  case Qt::BottomToolBarArea:
    square.setTop(rect.center().y());
    break;
  default:
    return path;
  }
  QPainterPath half;
  half.addRect(square);
  return path.united(half);
}

void ToolBarPaths::prepareBackground(const QRect& rect, const QList<ToolBarGroupRects>& laidOut,
                                     Qt::ToolBarArea area, const ToolBarParams& params) {
  const int barBorder = params.borderAroundGroups ? 0 : params.borderWidth;
  const int groupBorder = params.borderAroundGroups ? params.borderWidth : 0;
  bar = roundedPath(inside(rect, barBorder), params.barCorners, params.cornerRadius, area);
  groups.clear();
  groupSeparators.clear();
  const QRect* before = nullptr;
  for (const ToolBarGroupRects& group : laidOut) {
    groups.addPath(
        roundedPath(inside(group.panel, groupBorder), params.groupCorners, params.cornerRadius, area));
    if (before && groupBorder == 0)
      groupSeparators.append(gapBetween(*before, group.panel));
    before = &group.panel;
  }
}

void ToolBarPaths::updateButtonSeparators(const QList<ToolBarGroupRects>& laidOut) {
  buttonSeparators.clear();
  for (const ToolBarGroupRects& group : laidOut) {
    for (qsizetype i = 1; i < group.buttons.size(); ++i)
      addSeparator(buttonSeparators, group.buttons[i - 1], group.buttons[i]);
  }
}

QPainterPath ToolBarPaths::silhouette(bool barVisible, bool groupsVisible) const {
  if (barVisible)
    return bar;
  return groupsVisible ? groups : QPainterPath();
}

void paintGroupSeparator(QPainter& painter, const QRect& gap, Qt::Orientation orientation) {
  const bool horizontal = orientation == Qt::Horizontal;
  const QIcon icon(horizontal ? QStringLiteral(":/resources/images/sys_hseparator.png")
                              : QStringLiteral(":/resources/images/sys_vseparator.png"));
  const QSize size =
      icon.actualSize({32, 32}).boundedTo(horizontal ? QSize(32, gap.height()) : QSize(gap.width(), 32));
  QRect place(QPoint(), size);
  place.moveCenter(gap.center());
  painter.drawPixmap(place, icon.pixmap(icon.actualSize({32, 32}), painter.device()->devicePixelRatioF()));
}

} // namespace Vela::UiBase
