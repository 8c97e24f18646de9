// SPDX-License-Identifier: MIT
#include "toolkit_look.h"

#include <vlk_common_res/styles.h>

#include <QWidget>

namespace Vela::UiToolkit {

using Resource::Styles;

void applyToolkitLook(QWidget& widget) {
  widget.setAttribute(Qt::WA_StyledBackground);
  const auto applyStyles = [&widget] { widget.setStyleSheet(Styles::Instance().UiToolkit()); };
  QObject::connect(&Styles::Instance(), &Styles::changed, &widget, applyStyles);
  applyStyles();
  // Before its first polish Qt would keep to this sheet, whichever the application sets afterwards.
  widget.ensurePolished();
}

} // namespace Vela::UiToolkit
