// SPDX-License-Identifier: MIT
#include "tool_bar_place.h"

namespace Vela::UiBase {

namespace {

int between(int from, int to, double share) { return static_cast<int>(from + (to - from) * share); }

} // namespace

QPoint ToolBarPlace::offScreen() const {
  switch (area) {
  case Qt::LeftToolBarArea:
    return {ground.left() - size.width(), rest.y()};
  case Qt::RightToolBarArea:
    return {ground.right() + 1, rest.y()};
  case Qt::TopToolBarArea:
    return {rest.x(), ground.top() - size.height()};
  case Qt::BottomToolBarArea:
    return {rest.x(), ground.bottom() + 1};
  default:
    return rest;
  }
}

QPoint ToolBarPlace::onScreen() const {
  if (isFixed)
    return rest;
  switch (area) {
  case Qt::LeftToolBarArea:
    return {ground.left() + offset.x(), rest.y()};
  case Qt::RightToolBarArea:
    return {ground.right() + 1 - size.width() - offset.x(), rest.y()};
  case Qt::TopToolBarArea:
    return {rest.x(), ground.top() + offset.y()};
  case Qt::BottomToolBarArea:
    return {rest.x(), ground.bottom() + 1 - size.height() - offset.y()};
  default:
    return rest;
  }
}

QPoint ToolBarPlace::position() const {
  const QPoint from = onScreen();
  const QPoint to = offScreen();
  return {between(from.x(), to.x(), out), between(from.y(), to.y(), out)};
}

QPoint ToolBarPlace::atEdge(bool centered, Qt::LayoutDirection direction) const {
  ToolBarPlace stated = *this;
  stated.isFixed = false;
  QPoint place = stated.onScreen();
  if (area == Qt::LeftToolBarArea || area == Qt::RightToolBarArea) {
    const int middle = ground.top() + (ground.height() - size.height()) / 2;
    place.setY(centered ? middle : ground.top() + offset.y());
  } else if (area == Qt::TopToolBarArea || area == Qt::BottomToolBarArea) {
    const int middle = ground.left() + (ground.width() - size.width()) / 2;
    const int start = direction == Qt::RightToLeft ? ground.right() + 1 - size.width() - offset.x()
                                                   : ground.left() + offset.x();
    place.setX(centered ? middle : start);
  }
  return place;
}

} // namespace Vela::UiBase
