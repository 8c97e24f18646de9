// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/arrow_param.h>
#include <ui_base/ui_base_export.h>

#include <QList>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>

class QPoint;
class QRect;
class QWidget;

namespace Vela::UiBase {

class PlacementSearch;
class WidgetPosCalculatorPrivate;

/// Tells where a popup is to stand beside a widget or a point: on the first side, in order of preference, on
/// which it lies in the free area of the application's active window, or else on the last one. For an
/// ArrowedWindow it also chooses the arrow, and slides it along the window's edge where that brings the
/// window into the free area.
///
/// It moves nothing: the caller moves the popup to the position it is told, which is in the coordinates of
/// the popup's parent widget, or global when it has none. The free area is measured in the coordinates of the
/// active window, so the two agree for children of that window that fill it. Without an active window every
/// place will do.
///
/// Popup and reference are not owned and may be deleted at any time; without them there is no position. Meant
/// to be kept and asked again for each showing. All lengths are in pixels; main thread only.
///
/// @code
/// m_place = new Vela::UiBase::WidgetPosCalculator(this);
/// m_place->SetWidget(m_menu);
/// m_place->SetRefWidget(this);
/// m_place->SetDirection(Vela::UiBase::Bottom);
/// …
/// if (const auto position = m_place->Position())
///   m_menu->move(*position);
/// @endcode
class UI_BASE_EXPORT WidgetPosCalculator : public QObject {
  Q_OBJECT

public:
  /// Without widget and reference, on top, centred.
  explicit WidgetPosCalculator(QObject* parent = nullptr);
  ~WidgetPosCalculator() override;

  /// The popup.
  void SetWidget(QWidget* widget);
  /// See SetWidget().
  QWidget* Widget() const;

  /// What it stands beside: a widget…
  void SetRefWidget(QWidget* widget);
  /// See SetRefWidget().
  QWidget* RefWidget() const;
  /// …or a point, in global coordinates. What was set last counts.
  void SetRefPoint(const QPoint& point);
  /// The reference point.
  const QPoint& RefWiget() const;

  /// The gap between reference and popup; 10 by default.
  void SetBaseOffset(int offset);
  /// See SetBaseOffset().
  int BaseOffset() const;
  /// Along the side; AlignCenter by default. Popups with an arrow are aligned by it.
  void SetAlignment(EWidgetsAlign alignment);
  /// See SetAlignment().
  EWidgetsAlign Alignment() const;
  /// Added to positions without an arrow.
  void SetAdditionalOffset(const QPoint& offset);
  /// See SetAdditionalOffset().
  const QPoint& AdditionalOffset() const;

  /// The side to prefer. The opposite side follows, then the other two. AnyDirection prefers none: left, top,
  /// right, bottom.
  void SetDirection(EDirection direction);
  /// The sides to prefer, in order. Their opposites follow, then the others.
  void SetDirections(const QList<EDirection>& directions);
  /// The side on which the popup was placed last; before that, the side that was set. The argument has no
  /// meaning.
  EDirection Direction(int = 0) const;
  /// All sides in the order in which they are tried; Top alone until a side is set.
  const QList<EDirection>& Directions() const;

  /// Whether a window whose arrow was slid is looked at again: it is taken only when it now lies in the free
  /// area and does not cover the reference, else the next arrow is tried, and the preferred one is the last
  /// resort. Off, it is taken unseen. Until it is set here, the default of the process applies.
  void SetVerifySlidArrow(bool verify);
  /// See SetVerifySlidArrow().
  bool VerifySlidArrow() const;
  /// The default of the process, off until it is set. Applies at once, also to existing calculators.
  static void SetVerifySlidArrowByDefault(bool verify);
  /// See SetVerifySlidArrowByDefault().
  static bool VerifySlidArrowByDefault();

  /// Stores in `position` where the popup is to stand. `widgetRect` is the popup's rectangle in its own
  /// coordinates, or an empty one for its present rect(). With `arrowed` the popup is an ArrowedWindow, which
  /// gets the chosen arrow and takes the size that goes with it; `arrowPoint` is the tip of its present
  /// arrow.
  /// @return false, with `position` untouched, when there is no popup or no reference.
  virtual bool GetPosition(QPoint& position, const QRect& widgetRect, bool arrowed,
                           const QPoint& arrowPoint) const;
  /// The position of the popup as it is, or nothing: GetPosition() with an answer.
  std::optional<QPoint> Position(bool arrowed = false) const;

  /// Why the popup stands where it stands: what was tried last, and what was wrong with it.
  const PlacementSearch& LastSearch() const;
  /// Called after each search of any calculator of the process; null calls nobody. For tools that show how
  /// popups are placed.
  using SearchObserver = std::function<void(const WidgetPosCalculator&)>;
  /// Hears of every search on the main thread; an empty one ends it.
  static void SetSearchObserver(SearchObserver observer);

protected:
  /// For subclasses with more state; takes it over.
  WidgetPosCalculator(WidgetPosCalculatorPrivate& state, QObject* parent);

  /// Nothing; for subclasses, which call it themselves.
  virtual void Initialize();

  /// Whether the popup may stand at `position`. If not, sets `adjust` to how far its arrow should slide along
  /// its edge. Subclasses loosen or tighten it; the search goes by what they say.
  virtual bool VerifyPosition(const QPoint& position, const QRect& widgetRect, QPoint& adjust) const;

  /// Completes the list of sides.
  void GetFullPriorityDirectionList();
  /// The free area in coordinates of the active window: without 30 pixels at each side, and without what the
  /// visible widgets of the popup's property "sub_widgets" (a list of widgets) take on the sides that their
  /// property "direction_to" names (an EDirection; Left when it is not set). For an ArrowedWindow it is the
  /// property of its content. Widgets of the list that have died are skipped. False without popup or active
  /// window.
  bool GetMaxAvailableMovingArea(QRect& area) const;
  /// The reference in the coordinates of the popup's parent, or global ones. False without a reference.
  bool GetRefGeometry(QRect& geometry) const;
  /// Lists the arrows to try.
  void PrepareArrowParamPairs(const QList<SArrowParam>& arrows, bool autoDecide) const;

  /// The search for a popup without an arrow.
  QPoint GetPosition(const QRect& refRect, const QRect& widgetRect) const;
  /// The search for an ArrowedWindow; (0, 0) when the popup is none. One without an arrow is placed like a
  /// popup without one. `arrowPoint` has no meaning: each arrow brings its own.
  QPoint GetPosition(const QRect& refRect, const QRect& widgetRect, const QPoint& arrowPoint) const;
  /// The position of the window with one arrow.
  QPoint GetPosition(const QPair<SArrowParam, EDirection>& arrow, const QRect& refRect,
                     const QRect& widgetRect, const QPoint& arrowPoint) const;

private:
  friend class PopupSight;

  const std::unique_ptr<WidgetPosCalculatorPrivate> d;
};

} // namespace Vela::UiBase
