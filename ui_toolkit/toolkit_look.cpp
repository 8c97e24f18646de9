// SPDX-License-Identifier: MIT
#include "toolkit_look.h"

#include <vlk_common_res/styles.h>

#include <QWidget>

namespace Vela::UiToolkit {

using Resource::Styles;

void wearToolkitLook(QWidget& widget) {
  widget.setAttribute(Qt::WA_StyledBackground);
  const auto dress = [&widget] { widget.setStyleSheet(Styles::Instance().UiToolkit()); };
  QObject::connect(&Styles::Instance(), &Styles::changed, &widget, dress);
  dress();
}

} // namespace Vela::UiToolkit
