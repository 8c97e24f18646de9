// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_base.h>

#include <QLocale>

namespace Workbench {

class MeshViewController;

/// Has the workbench speak a language. One command for each; they stand in an exclusive group.
///
/// The language belongs to the application: contexts of a view do not switch it.
class LanguageCommand : public Vela::UiBase::CommandBase {
  Q_OBJECT

public:
  LanguageCommand(MeshViewController* controller, QLocale::Language language);

  static QString idOf(QLocale::Language language);
  QString commandId() const override { return idOf(m_language); }
  void setCommandState(const Vela::UiBase::CommandState& state) override;
  bool onExecuteAsync(bool checked) override;

private:
  QLocale::Language m_language;
};

} // namespace Workbench
