// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace Vela::UiToolkit {

/// Gives a widget the style sheet of the toolkit widgets, now and after each change of the palette.
void applyToolkitLook(QWidget& widget);

} // namespace Vela::UiToolkit
