// SPDX-License-Identifier: MIT
#include "language_command.h"

#include <workbench/language.h>
#include <workbench/mesh_view_controller.h>

namespace Workbench {

using namespace Vela::UiBase;

LanguageCommand::LanguageCommand(MeshViewController* controller, QLocale::Language language)
    : CommandBase(controller), m_language(language) {
  setText(language == QLocale::German ? QStringLiteral("&Deutsch") : QStringLiteral("&English"));
  setStatusTip(language == QLocale::German ? QStringLiteral("Deutsch sprechen")
                                           : QStringLiteral("Speak English"));
  setCheckable(true);
  const QSignalBlocker blocker(this);
  setChecked(Language::current() == language);
}

QString LanguageCommand::idOf(QLocale::Language language) {
  return QString::fromLatin1(staticMetaObject.className()) + QLocale::languageToCode(language);
}

void LanguageCommand::setCommandState(const CommandState& state) {
  CommandBase::setCommandState({state.enabled, State::Keep});
}

bool LanguageCommand::onExecuteAsync(bool checked) {
  if (checked)
    Language::choose(m_language);
  return true;
}

} // namespace Workbench
