// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QPainter;
class QRect;
class QWidget;

namespace Workbench {

/// What an empty view tells: how to fill it.
struct ViewHint {
  QString icon; ///< By its name.
  QString title;
  QString details;
};

/// Draws the hint in the middle of a part of a view, in the font and the colours of the view.
void paintHint(QPainter& painter, const QWidget& view, const QRect& area, const ViewHint& hint);
/// Marks a part of a view as the place where what is being dragged can be dropped.
void paintDropHighlight(QPainter& painter, const QWidget& view, const QRect& area);

} // namespace Workbench
