// SPDX-License-Identifier: MIT
#pragma once

#include <QCursor>
#include <QString>

namespace Workbench {

/// Cursors drawn from the line icons by their names, with a halo, so that they are seen on light and dark,
/// and in the resolution of the sharpest screen. The crosshair without an icon when there is none of that
/// name.

/// The icon, its middle on the point.
QCursor iconCursor(const QString& icon);
/// A crosshair on the point, the icon small beside it.
QCursor crosshairCursor(const QString& icon);

} // namespace Workbench
