// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QPoint>
#include <QRect>
#include <QSize>

namespace Vela::UiBase {

/// Where a toolbar stands in its parent: where it rests, and how far it has slid out from there. See
/// ToolBar::Place(). Pixels, in the coordinates of the parent.
struct ToolBarPlace {
  Qt::ToolBarArea area = Qt::NoToolBarArea;
  /// What it slides out of: the parent's rectangle; the bar's own one in a layout or as a window.
  QRect ground;
  QSize size;
  QPoint offset; ///< From the edge, and from the start of the edge.
  /// Where it was put. What lies across the edge counts only when the place is fixed.
  QPoint rest;
  /// It was put there by ToolBar::SetPos() or by a layout.
  bool isFixed = false;
  double out = 0; ///< From 0, at rest, to 1, just outside of the ground.

  /// Just outside of the ground.
  UI_BASE_EXPORT QPoint offScreen() const;
  /// Where it rests: at the edge, the offset away, unless the place is fixed.
  UI_BASE_EXPORT QPoint onScreen() const;
  /// Where it is now, on the way from the one to the other.
  UI_BASE_EXPORT QPoint position() const;
  /// At the edge, and also along it: in the middle, or at its start by the offset.
  UI_BASE_EXPORT QPoint atEdge(bool centered, Qt::LayoutDirection direction) const;

  friend bool operator==(const ToolBarPlace&, const ToolBarPlace&) = default;
};

} // namespace Vela::UiBase
