// SPDX-License-Identifier: MIT
#include "tool_bar_slide.h"

#include <QWidget>

namespace Vela::UiBase {

QPoint ToolBarPlace::offScreen() const {
  switch (area) {
  case Qt::LeftToolBarArea:
    return {parent.left() - size.width(), current.y()};
  case Qt::RightToolBarArea:
    return {parent.right() + 1, current.y()};
  case Qt::TopToolBarArea:
    return {current.x(), parent.top() - size.height()};
  case Qt::BottomToolBarArea:
    return {current.x(), parent.bottom() + 1};
  default:
    return current;
  }
}

QPoint ToolBarPlace::onScreen() const {
  switch (area) {
  case Qt::LeftToolBarArea:
    return {parent.left() + offset.x(), current.y()};
  case Qt::RightToolBarArea:
    return {parent.right() + 1 - size.width() - offset.x(), current.y()};
  case Qt::TopToolBarArea:
    return {current.x(), parent.top() + offset.y()};
  case Qt::BottomToolBarArea:
    return {current.x(), parent.bottom() + 1 - size.height() - offset.y()};
  default:
    return current;
  }
}

QPoint ToolBarPlace::atEdge(bool centered, Qt::LayoutDirection direction) const {
  QPoint place = onScreen();
  if (area == Qt::LeftToolBarArea || area == Qt::RightToolBarArea) {
    const int middle = parent.top() + (parent.height() - size.height()) / 2;
    place.setY(centered ? middle : parent.top() + offset.y());
  } else if (area == Qt::TopToolBarArea || area == Qt::BottomToolBarArea) {
    const int middle = parent.left() + (parent.width() - size.width()) / 2;
    const int start = direction == Qt::RightToLeft ? parent.right() + 1 - size.width() - offset.x()
                                                   : parent.left() + offset.x();
    place.setX(centered ? middle : start);
  }
  return place;
}

QPropertyAnimation* makeSlide(QWidget& widget, const QPoint& from, const QPoint& to, int duration,
                              QEasingCurve::Type easing) {
  auto* const animation = new QPropertyAnimation(&widget, "pos", &widget);
  animation->setStartValue(from);
  animation->setEndValue(to);
  animation->setDuration(duration);
  animation->setEasingCurve(easing);
  return animation;
}

} // namespace Vela::UiBase
