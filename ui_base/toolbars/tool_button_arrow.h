// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/arrow_param.h>

#include <QPainterPath>

namespace Vela::UiBase {

/// The small triangle in the corner of a button with a menu: it points to the side on which the menu opens,
/// and the other way while it is open. The corner is the bottom right one, in right-to-left layouts the
/// bottom left one.
QPainterPath toolButtonArrow(const QRect& button, EDirection direction, bool menuOpen,
                             Qt::LayoutDirection layout);

} // namespace Vela::UiBase
