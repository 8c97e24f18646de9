// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/language.h>

#include <QList>

namespace Workbench {

/// The language of the workbench, English or German, which the user chooses while it runs. Remembered.
class Language {
public:
  static const QList<QLocale::Language>& all();
  static QLocale::Language current();
  static void choose(QLocale::Language language);
  /// Takes the one that was chosen last, or else that of the desktop. Needs the application object.
  static void restore();
};

} // namespace Workbench
