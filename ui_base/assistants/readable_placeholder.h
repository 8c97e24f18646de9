// SPDX-License-Identifier: MIT
#pragma once

#include <vlk_common_res/styles.h>

#include <QLineEdit>

namespace Vela::UiBase {

/// Makes the text of an empty field readable, for which style sheets take half of the text colour. To be
/// called again when the sheet is another one.
inline void makePlaceholderReadable(QLineEdit& field) {
  field.ensurePolished();
  QPalette colors = field.palette();
  colors.setColor(QPalette::PlaceholderText, Vela::Resource::Styles::Instance().ColorTextLabel());
  field.setPalette(colors);
}

} // namespace Vela::UiBase
