// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/dynamic_command_group_state_protocol.h>

#include <memory>

namespace Workbench {

/// The commands for what is selected, as a group that comes into use when something gets selected and goes
/// out of use when nothing is any more; its delegate is told.
///
/// @code
/// controller->selectionCommands().setDelegate(toolbars, false);
/// @endcode
class SelectionCommands : public Taren::Core::Delegator<Vela::UiBase::DynamicCommandGroupStateProtocol> {
public:
  SelectionCommands();
  ~SelectionCommands() override;

  /// Lives as long as this object. The application manager fills it.
  Vela::UiBase::CommandGroup* group() const { return m_group.get(); }
  bool isInUse() const noexcept { return m_inUse; }
  /// Tells the delegate when that is new.
  void setInUse(bool inUse);

private:
  std::shared_ptr<Vela::UiBase::CommandGroup> m_group;
  bool m_inUse = false;
};

} // namespace Workbench
