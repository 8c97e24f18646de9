// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_base.h>

#include <memory>

class QKeySequence;

namespace Vela::UiBase {

class CycleCheckableCommandPrivate;

/// Switches a group to the next child each time it runs: a shortcut that steps through the choices of the
/// group.
///
/// The child behind the first checked one is toggled; behind the last child, and when none is checked, the
/// first. A disabled child is passed over, unless all of them are disabled. Nothing happens while the group
/// is disabled.
///
/// The group is not owned; a command whose group has died does nothing. Like every action, the command has to
/// be added to a widget for its shortcut to work.
///
/// @code
/// auto* next = new CycleCheckableCommand(controller, QKeySequence(Qt::Key_Tab), shadingGroup);
/// view->addAction(controller->addCommand(next));
/// @endcode
class UI_BASE_EXPORT CycleCheckableCommand : public CommandBase {
  Q_OBJECT

public:
  /// Goes through the checkable children of @p group by @p shortcut.
  CycleCheckableCommand(CmdsViewController* controller, const QKeySequence& shortcut, CommandGroup* group);
  /// With an identifier of its own, so that several can stand in one manager; empty is className().
  CycleCheckableCommand(CmdsViewController* controller, const QKeySequence& shortcut, CommandGroup* group,
                        const QString& id);
  ~CycleCheckableCommand() override;

  /// The identifier of its class.
  static QString className();
  QString commandId() const override;

  /// @return false when there is no group or no child, or when the group is disabled.
  bool onExecuteAsync(bool checked) override;

private:
  const std::unique_ptr<CycleCheckableCommandPrivate> d;
};

} // namespace Vela::UiBase
