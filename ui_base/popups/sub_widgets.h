// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>

class QWidget;

namespace Vela::UiBase::SubWidgets {

/// What the visible widgets that stand beside a popup take on each side of it: those of the property
/// "sub_widgets" of its content, each on the side that its property "direction_to" names. Dead ones are
/// skipped; null has none.
QMargins takenBeside(const QWidget* content);

} // namespace Vela::UiBase::SubWidgets
