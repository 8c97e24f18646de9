// SPDX-License-Identifier: MIT
#include "command_state.h"

#include <QtGlobal>

namespace Vela::UiBase {

namespace {

// Signature strings and properties name the type with and without its namespace.
void registerCommandState() {
  qRegisterMetaType<CommandState>("Vela::UiBase::CommandState");
  qRegisterMetaType<CommandState>("CommandState");
}
Q_CONSTRUCTOR_FUNCTION(registerCommandState)

} // namespace

} // namespace Vela::UiBase
