// SPDX-License-Identifier: MIT
#include "shortcut_sheet.h"

#include "shortcut_scheme.h"

#include <ui_base/commands/command_group.h>
#include <ui_base/commands/command_name.h>

#include <QMap>

namespace Vela::UiBase {

namespace {

struct Texts {
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
  const auto commands = scheme.commands();
  for (const CommandBase* const command : commands) {
    const auto shortcuts = scheme.shortcuts(*command);
    const CommandGroup* const group = command->commandGroup();
    if (!shortcuts.isEmpty())
      rows[group ? nameInSentence(*group) : QString()] += rowOf(nameInSentence(*command), shortcuts);
  }
  QString page = QStringLiteral("<h1>%1</h1>").arg(Texts::tr("Keyboard Shortcuts"));
  for (auto it = rows.cbegin(); it != rows.cend(); ++it) {
    if (!it.key().isEmpty())
      page += QStringLiteral("<h3>%1</h3>").arg(it.key().toHtmlEscaped());
    page += QStringLiteral("<table>%1</table>").arg(it.value());
  }
  return page;
}

} // namespace Vela::UiBase
