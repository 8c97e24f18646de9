// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/arrow_param.h>
#include <ui_base/popups/placement.h>
#include <ui_base/popups/placement_search.h>

#include <QList>
#include <QPointer>
#include <QWidget>

#include <optional>

namespace Vela::UiBase {

/// The state of a WidgetPosCalculator. Subclasses that need more derive from it and pass theirs to the
/// protected constructor, which takes it over.
class WidgetPosCalculatorPrivate {
public:
  virtual ~WidgetPosCalculatorPrivate() = default;

  /// What the popup is placed beside, in the form the arithmetic wants it.
  Placement::Target target(const QRect& reference) const {
    return {reference, baseOffset, alignment, additionalOffset};
  }

  QPointer<QWidget> widget;
  QPointer<QWidget> refWidget;
  QPoint refPoint;
  bool useRefWidget = true;
  QList<EDirection> directions{Top};
  int baseOffset = 10;
  EWidgetsAlign alignment = AlignCenter;
  QPoint additionalOffset;
  EDirection currentDirection = Top;
  QList<ArrowPair> arrowParamPairs;

  /// Empty: the default of the process.
  std::optional<bool> verifySlidArrow;
  PlacementSearch search;
  /// The free area while a search is under way in which it cannot change.
  std::optional<QRect> keptArea;
};

} // namespace Vela::UiBase
