// SPDX-License-Identifier: MIT
#pragma once

#include "command_index.h"

#include <memory>

namespace Vela::UiBase {

/// Leads through the commands that a context names, in order of identifiers.
///
/// A context mostly names the commands as they stand in the manager. So the walk goes along the index's list,
/// which is in the same order, and only looks up by hash what is not the next there: a third of the time.
///
/// The command that it led to last lives until the next step. The walk takes a reference only when a bag is
/// about to change, as counting references at each step would cost more than the rest of it.
class ContextWalk {
public:
  /// @param length of the context.
  ContextWalk(CommandIndex& index, const CommandBag& root, qsizetype length);
  ~ContextWalk();
  Q_DISABLE_COPY_MOVE(ContextWalk)

  /// The command of an identifier, which comes after that of the last step; or null.
  CommandBase* next(const QString& id);

  /// The walks of this thread hold their commands from now on, as some owner may let go of them.
  static void ownersMayLetGo() noexcept;

private:
  CommandIndex::Found find(const QString& id);

  CommandIndex& m_index;
  const CommandBag& m_root;
  qsizetype m_position = 0; // in the list
  bool m_isAlongList;
  const std::shared_ptr<CommandBase>* m_owner = nullptr; // of the last command, until that is held
  std::shared_ptr<CommandBase> m_held;
  ContextWalk* const m_outer; // a command may apply another context

  static thread_local ContextWalk* s_innermost;
};

} // namespace Vela::UiBase
