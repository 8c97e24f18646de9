// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/toolbars/tool_bar_params.h>

#include <QList>
#include <QPainterPath>
#include <QRect>

class QPainter;

namespace Vela::UiBase {

/// A button group as it is laid out, in the coordinates of the toolbar.
struct ToolBarGroupRects {
  QRect panel;
  QList<QRect> buttons; ///< Those that are not hidden, in order.
};

/// What a toolbar paints behind its buttons: pure geometry.
struct ToolBarPaths {
  QPainterPath bar;
  QPainterPath groups;
  QPainterPath buttonSeparators;
  QList<QRect> groupSeparators; ///< The gaps between the groups.

  void prepareBackground(const QRect& rect, const QList<ToolBarGroupRects>& laidOut, Qt::ToolBarArea area,
                         const ToolBarParams& params);
  void updateButtonSeparators(const QList<ToolBarGroupRects>& laidOut);
  /// What casts the shadow of the toolbar.
  QPainterPath silhouette(bool barVisible, bool groupsVisible) const;
};

/// A rectangle with some of its corners round: those away from the edge at which the toolbar stands, or all.
QPainterPath roundedPath(const QRectF& rect, EToolBarRoundCorner corners, int radius, Qt::ToolBarArea area);

/// Paints the separator between two groups in the middle of the gap.
void paintGroupSeparator(QPainter& painter, const QRect& gap, Qt::Orientation orientation);

} // namespace Vela::UiBase
