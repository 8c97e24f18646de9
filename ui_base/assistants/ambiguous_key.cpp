// SPDX-License-Identifier: MIT
#include "ambiguous_key.h"

#include "key_takers.h"
#include "shortcut_rules.h"

#include <ui_base/commands/command_base.h>
#include <ui_base/views/cmds_view_controller.h>

#include <QApplication>

namespace Vela::UiBase {

QString tellAmbiguousKey(const QKeySequence& keys, ShortcutRules& rules) {
  QWidget* const window = QApplication::activeWindow();
  const KeyAnswer answer = window ? whoTakes(keys, *window) : KeyAnswer();
  QStringList names;
  QStringList ids;
  CmdsViewController* controller = nullptr;
  for (const KeyTaker& taker : answer.takers) {
    if (!taker.why.isEmpty() || (taker.kind != KeyTaker::Menu && taker.kind != KeyTaker::Command))
      continue;
    names.append(QStringLiteral("\"%1\"").arg(taker.name));
    if (const auto* const command = dynamic_cast<CommandBase*>(taker.action.data())) {
      ids.append(command->commandId());
      controller = controller ? controller : command->getViewController();
    }
  }
  if (names.size() < 2 || ids.isEmpty())
    return {};
  for (const QString& id : std::as_const(ids))
    rules.noteMet(ids.first(), id);
  QString message =
      QCoreApplication::translate("Vela::UiBase::ShortcutScheme", "%1 means %2: none of them was run.")
          .arg(keys.toString(QKeySequence::NativeText), names.join(QLatin1String(", ")));
  if (controller)
    controller->showNotification(message, NotificationWarning);
  return message;
}

} // namespace Vela::UiBase
