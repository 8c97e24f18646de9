// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QPoint>
#include <QSize>
#include <Qt>

#include <functional>

class QWidget;

namespace Vela::UiBase {

class WidgetPosCalculator;

/// The last step of whatever pops up: puts the popup of a calculator where `position` says, and keeps it in
/// sight.
///
/// The answer stands while the popup lies in its parent there, or on its screen. Otherwise the popup goes to
/// the first place beside its reference, of all sides and arrows, where all of it is seen; an arrow slides
/// along its edge and goes on pointing. A parent that is too small for that is left, for its window or, as a
/// window of the type `outside`, for the screen; with the next showing the popup comes home. Only a hidden
/// popup changes its parent, so place it before you show it. Where there is no room beside the reference at
/// all, the popup lies over it.
///
/// @param position what WidgetPosCalculator::GetPosition() or the caller's own rule gives; asked once the
///   popup is where it belongs. May delete popup, calculator and caller.
/// @param fit for what can be smaller, as a panel that scrolls: has the popup ask for no more than this size,
///   in pixels. Called for each place that is tried, before a larger one is sought elsewhere.
///
/// @code
/// placeInSight(*m_place, [this] { return GetMenuPosition(); });
/// m_menu->show();
/// @endcode
UI_BASE_EXPORT void placeInSight(WidgetPosCalculator& calculator, const std::function<QPoint()>& position,
                                 Qt::WindowType outside = Qt::Tool,
                                 const std::function<void(const QSize&)>& fit = {});

/// Gives a popup that has left its parent back to it now; for who will not place it any more. Nothing for one
/// that is shown, or that was given another parent since.
UI_BASE_EXPORT void bringHome(QWidget& popup);

} // namespace Vela::UiBase
