// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/language.h>

#include <QAbstractButton>
#include <QCoreApplication>

namespace Vela::UiBase {

/// Gives a button a text of the library's that follows the language, until the application gives it another.
inline void keepOwnText(QAbstractButton* button, const char* context, const char* source) {
  keepTranslated(button, [button, context, source, shown = QString()]() mutable {
    if (!shown.isNull() && button->text() != shown)
      return;
    shown = QCoreApplication::translate(context, source);
    button->setText(shown);
  });
}

} // namespace Vela::UiBase
