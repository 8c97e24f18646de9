// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/toolbars/tool_bar_place.h>

#include <QEasingCurve>
#include <QPointer>
#include <QPropertyAnimation>

namespace Vela::UiBase {

class ToolBar;

/// Owns the place of a toolbar. Where it rests is changed by whoever moves the bar, how far it is out by its
/// slides alone; where the bar is follows from the two.
class ToolBarPlacer {
public:
  explicit ToolBarPlacer(ToolBar& toolBar) : m_toolBar(toolBar) {}
  ~ToolBarPlacer();
  Q_DISABLE_COPY_MOVE(ToolBarPlacer)

  ToolBarPlace place() const;
  /// Whether the bar is placed at its edge.
  bool isAutomatic() const;
  bool isLaidOut() const;

  /// Puts the bar to a place that it keeps.
  void pin(const QPoint& position);
  /// Has the bar keep its present place no longer.
  void unpin() { m_pinned = false; }
  /// Places the bar at its edge, where it is placed automatically.
  void placeAtEdge();
  /// The bar may have been moved. One that is hidden is not told.
  void noteMove();
  /// What the place depends on has changed.
  void update();

  void setDuration(int milliseconds) { m_duration = milliseconds; }
  /// Slides from where the bar is to its rest, or out.
  void slide(bool in);
  /// Ends a slide where the bar is.
  void stop();
  bool isSlidingIn() const { return m_animation && m_to == 0; }
  /// Takes the bar out, or back to where it rests, at once.
  void goOut();
  void comeIn();

private:
  double out() const;
  void put();

  ToolBar& m_toolBar;
  QPoint m_rest;
  bool m_pinned = false;
  bool m_placedByOverride = false; // elsewhere than at the edge
  bool m_placing = false;          // a move of the bar is not somebody else's
  QPoint m_last;                   // where the bar was when it was last looked at
  double m_from = 0;               // how far out the slide begins
  double m_to = 0;                 // and ends, or the bar is without a slide
  int m_duration = 300;            // ms
  QPointer<QPropertyAnimation> m_animation;
};

} // namespace Vela::UiBase
