// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tooltips/tooltip_types.h>

namespace Vela::UiBase {

class ArrowedWindow;
class WidgetPosCalculator;

namespace TooltipLook {

/// The arrows, the border and the shape of a type of tooltip.
void applyTo(ArrowedWindow& window, ETooltipType type);
/// Only what depends on the palette.
void color(ArrowedWindow& window, ETooltipType type);
/// Where a tooltip of the type stands.
void place(WidgetPosCalculator& calculator, ETooltipType type);
/// Whether it can be worked with: waits, stays under the mouse, and is not closed by a click.
bool isRich(ETooltipType type);

} // namespace TooltipLook

} // namespace Vela::UiBase
