// SPDX-License-Identifier: MIT
#include "shortcut_sheet.h"

#include "shortcut_scheme.h"
#include "shortcut_use.h"

#include <ui_base/commands/command_group.h>
#include <ui_base/commands/command_name.h>

#include <QCoreApplication>
#include <QMap>
#include <QSet>

namespace Vela::UiBase {

namespace {

struct SheetTexts {
  Q_DECLARE_TR_FUNCTIONS(Vela::UiBase::ShortcutSheet)
};

QString rowOf(const QString& name, const QList<QKeySequence>& shortcuts) {
  return QStringLiteral("<tr><td>%1&nbsp;&nbsp;</td><td><b>%2</b></td></tr>")
      .arg(name.toHtmlEscaped(),
           QKeySequence::listToString(shortcuts, QKeySequence::NativeText).toHtmlEscaped());
}

} // namespace

QString shortcutSheet(const ShortcutScheme& scheme) {
  QMap<QString, QString> rows; // by group; what stands in none comes first
  QSet<QString> seen;          // two windows have the same commands
  const auto commands = scheme.commands();
  for (const CommandBase* const command : commands) {
    const auto shortcuts = scheme.shortcuts(*command);
    const CommandGroup* const group = command->commandGroup();
    const bool isKnown = seen.contains(command->commandId());
    seen.insert(command->commandId());
    if (!shortcuts.isEmpty() && !isKnown)
      rows[group ? nameInSentence(*group) : QString()] += rowOf(nameInSentence(*command), shortcuts);
  }
  QString page = QStringLiteral("<h1>%1</h1>").arg(SheetTexts::tr("Keyboard Shortcuts"));
  for (auto it = rows.cbegin(); it != rows.cend(); ++it) {
    if (!it.key().isEmpty())
      page += QStringLiteral("<h3>%1</h3>").arg(it.key().toHtmlEscaped());
    page += QStringLiteral("<table>%1</table>").arg(it.value());
  }
  QString everywhere;
  const auto keys = libraryKeys();
  for (const ShortcutUse& use : keys)
    everywhere += rowOf(use.name, {use.keys});
  page += QStringLiteral("<h3>%1</h3><table>%2</table>").arg(SheetTexts::tr("Everywhere"), everywhere);
  return page;
}

} // namespace Vela::UiBase
