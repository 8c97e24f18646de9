// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>

namespace Vela::UiBase {

/// What a user knows a command by, for use in a sentence: its text without mnemonic and ellipsis, or, as
/// groups may have none, its tooltip.
inline QString nameInSentence(const QAction& action) {
  QString name = action.iconText(); // has neither mnemonic nor three dots
  if (name.isEmpty())
    name = action.toolTip();
  while (name.endsWith(QChar(0x2026)))
    name.chop(1);
  return name.trimmed();
}

} // namespace Vela::UiBase
