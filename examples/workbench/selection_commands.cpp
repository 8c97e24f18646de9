// SPDX-License-Identifier: MIT
#include "selection_commands.h"

#include <ui_base/commands/command_group.h>
#include <workbench/command_menus.h>

namespace Workbench {

using namespace Vela::UiBase;

SelectionCommands::SelectionCommands()
    : m_group(Taren::Objects::adoptShared(new CommandGroup(
          QString(),
          Text("Workbench::CommandMenus", QT_TRANSLATE_NOOP("Workbench::CommandMenus", "Selection")),
          QStringLiteral("Selection")))) {
  m_group->setBaseGroupName(SelectedSection);
}

SelectionCommands::~SelectionCommands() = default;

void SelectionCommands::setInUse(bool inUse) {
  if (std::exchange(m_inUse, inUse) == inUse)
    return;
  delegate([group = m_group, inUse](DynamicCommandGroupStateProtocol* observer) {
    if (inUse)
      observer->commandGroupBegan(group.get());
    else
      observer->commandGroupEnded(group.get());
  });
}

} // namespace Workbench
