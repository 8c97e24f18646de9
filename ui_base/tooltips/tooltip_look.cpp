// SPDX-License-Identifier: MIT
#include "tooltip_look.h"

#include "a_tooltip_object_p.h"

#include <vlk_common_res/styles.h>

#include <algorithm>
#include <array>

namespace Vela::UiBase {

using Resource::Styles;

namespace {

struct Look {
  EArrowPosition arrow;
  EArrowPosition otherArrow; // where there is no room on the preferred side
  int arrowLength;
  int margin;
  int radius;
  int border;
  bool shadow;
  EDirection side;
  EWidgetsAlign alignment;
  int distance;
};

constexpr std::array LOOKS{
    Look{ArrowBottom, ArrowTop, 6, 0, 3, 1, false, Top, AlignCenter, 4},    // QuickTooltip
    Look{ArrowLeft, ArrowRight, 10, 0, 3, 1, false, Right, AlignCenter, 5}, // QuickSideTooltip
    Look{ArrowTop, ArrowBottom, 5, 0, 2, 1, false, Bottom, AlignStart, 2},  // QuickHintTooltip
    Look{ArrowTop, ArrowBottom, 10, 2, 6, 1, true, Bottom, AlignCenter, 4}, // RichTooltip
    Look{ArrowRight, ArrowLeft, 10, 2, 6, 1, true, Left, AlignCenter, 8},   // RichSideTooltip
};

const Look& lookOf(ETooltipType type) {
  return LOOKS[static_cast<std::size_t>(std::clamp<int>(type, QuickTooltip, RichSideTooltip))];
}

} // namespace

void TooltipLook::applyTo(ArrowedWindow& window, ETooltipType type) {
  const Look& look = lookOf(type);
  SArrowParam arrow;
  arrow.position = look.arrow;
  arrow.length = look.arrowLength;
  window.SetContentMargin(look.margin);
  window.SetRoundCornerRadius(look.radius);
  window.EnableShadow(look.shadow);
  window.SetArrow(arrow);
  arrow.position = look.otherArrow;
  window.AddArrow(arrow);
  color(window, type);
}

void TooltipLook::color(ArrowedWindow& window, ETooltipType type) {
  window.SetBorder(Styles::Instance().ColorActionPanelBorder(), lookOf(type).border, Qt::SolidLine,
                   Qt::RoundJoin);
}

void TooltipLook::place(WidgetPosCalculator& calculator, ETooltipType type) {
  const Look& look = lookOf(type);
  calculator.SetDirection(look.side);
  calculator.SetAlignment(look.alignment);
  calculator.SetBaseOffset(look.distance);
  // At the edge of a window the other side is better than a tooltip over its widget.
  calculator.SetVerifySlidArrow(true);
}

bool TooltipLook::isRich(ETooltipType type) { return type == RichTooltip || type == RichSideTooltip; }

// --- the window and the calculator that a tooltip makes when it needs them

ArrowedWindow& ATooltipObjectPrivate::arrows() {
  if (arrowedWindow)
    return *arrowedWindow;
  arrowedWindow = new ArrowedWindow(layer);
  arrowedWindow->hide();
  arrowedWindow->SetBorder(QColor(150, 150, 150, 100), 0, Qt::SolidLine, Qt::BevelJoin);
  if (typed)
    TooltipLook::applyTo(*arrowedWindow, tooltipType);
  applyArrow();
  QObject::connect(&Styles::Instance(), &Styles::changed, arrowedWindow.data(), [this] {
    if (typed)
      TooltipLook::color(*arrowedWindow, tooltipType);
  });
  return *arrowedWindow;
}

WidgetPosCalculator& ATooltipObjectPrivate::calculator() {
  if (posCalculator)
    return *posCalculator;
  posCalculator = std::make_unique<WidgetPosCalculator>();
  posCalculator->SetDirection(Top);
  posCalculator->SetWidget(tooltipWindow);
  if (QWidget* const widget = reference())
    posCalculator->SetRefWidget(widget);
  if (typed)
    TooltipLook::place(*posCalculator, tooltipType);
  applyPlacement();
  return *posCalculator;
}

void ATooltipObjectPrivate::applyArrow() {
  if (placement)
    arrowedWindow->SetArrow(placement->arrow);
}

void ATooltipObjectPrivate::applyPlacement() {
  if (!placement)
    return;
  posCalculator->SetDirection(placement->direction);
  posCalculator->SetBaseOffset(placement->distance);
  posCalculator->SetAlignment(placement->alignment);
  posCalculator->SetAdditionalOffset(placement->offset);
}

void ATooltipObjectPrivate::applyType() {
  typed = true;
  placement.reset();
  if (arrowedWindow)
    TooltipLook::applyTo(*arrowedWindow, tooltipType);
  if (posCalculator)
    TooltipLook::place(*posCalculator, tooltipType);
}

} // namespace Vela::UiBase
