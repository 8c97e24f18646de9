// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QWidgetList>

namespace Vela::Test {

/// Those at the back first; Qt's own order is by address.
QWidgetList visibleWindows();

/// A line for each visible widget, under the one it lies in: its class, place, focus, cursor, actions,
/// running timers and what a screen reader is told.
QStringList visibleWidgets();

/// The first line that two lists do not have in common; empty where they are the same.
QString firstDifference(const QStringList& now, const QStringList& then);

} // namespace Vela::Test
