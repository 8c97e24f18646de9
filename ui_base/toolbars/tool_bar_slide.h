// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QEasingCurve>
#include <QPoint>
#include <QPropertyAnimation>
#include <QRect>
#include <QSize>

namespace Vela::UiBase {

/// Where a toolbar stands at an edge of its parent.
struct ToolBarPlace {
  Qt::ToolBarArea area = Qt::NoToolBarArea;
  QRect parent;
  QSize size;
  QPoint offset;
  QPoint current; ///< What stays as it is along the edge.

  /// Just outside of the parent.
  UI_BASE_EXPORT QPoint offScreen() const;
  /// At the edge, its offset away.
  UI_BASE_EXPORT QPoint onScreen() const;
  /// At the edge, and also along it: in the middle, or at its start by the offset.
  UI_BASE_EXPORT QPoint atEdge(bool centered, Qt::LayoutDirection direction) const;
};

/// Makes, but does not start, the move of a widget, which owns it.
QPropertyAnimation* makeSlide(QWidget& widget, const QPoint& from, const QPoint& to, int duration,
                              QEasingCurve::Type easing);

} // namespace Vela::UiBase
