// SPDX-License-Identifier: MIT
#pragma once

#include <vlk_license/vlk_license_export.h>

#include <QPoint>
#include <QString>

class QLabel;
class QWidget;

namespace Vela::License {

/// \name Lock badge on a button of a paid feature
/// To be used on the main thread only.
///
/// \code
/// QLabel* badge = attachLockBadge(button, QStringLiteral(":/resources/images/lock_normal.png"), {0, 0},
///                                 tr("This is a paid feature."));
/// ...
/// removeLockBadge(button); // badge is gone, the button has its tooltip back
/// \endcode
/// @{

/// Puts a badge with the picture \a pixmapPath at \a offset pixels from the top left corner of \a button,
/// sharp at any pixel ratio for which a picture is there ("@2x"), and shows \a toolTip on the button in place
/// of its own. A tooltip that the button is given meanwhile becomes its own tooltip when the badge goes. The
/// badge lets the mouse through.
///
/// A button has one badge: attaching again changes it. Returns the badge, owned by the button and deleted
/// with it; null when \a button is null.
LICENSE_EXPORT QLabel* attachLockBadge(QWidget* button, const QString& pixmapPath, const QPoint& offset,
                                       const QString& toolTip);

/// Deletes the badge of \a button and gives the button its own tooltip back. Does nothing for null or a
/// button without a badge.
LICENSE_EXPORT void removeLockBadge(QWidget* button);
/// @}

} // namespace Vela::License
