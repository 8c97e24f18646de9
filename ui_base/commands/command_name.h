// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>

namespace Vela::UiBase {

/// A text as it stands in a sentence: without mnemonic and ellipsis.
inline QString nameInSentence(const QString& text) {
  QString name;
  for (qsizetype i = 0; i < text.size() && text[i] != u'\t'; ++i) {
    if (text[i] == u'&' && i + 1 < text.size())
      ++i; // the letter itself; two of them are one
    name += text[i];
  }
  while (name.endsWith(QChar(0x2026)) || name.endsWith(QLatin1String("...")))
    name.chop(name.endsWith(QChar(0x2026)) ? 1 : 3);
  return name.trimmed();
}

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
