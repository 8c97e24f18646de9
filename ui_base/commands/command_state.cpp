// SPDX-License-Identifier: MIT
#include "command_state.h"

#include <QtGlobal>

namespace Vela::UiBase {

namespace {

// Signature strings and properties name the type with and without its namespace.
void registerCommandState() { qRegisterMetaType<CommandState>("CommandState"); }
Q_CONSTRUCTOR_FUNCTION(registerCommandState)

} // namespace

QDebug operator<<(QDebug debug, const State& state) {
  const QDebugStateSaver saver(debug);
  const char* const text = state == State::Keep ? "keep" : state ? "on" : "off";
  return debug.nospace() << text;
}

QDebug operator<<(QDebug debug, const CommandState& state) {
  const QDebugStateSaver saver(debug);
  return debug.nospace() << "CommandState(" << state.enabled << ", " << state.checked << ')';
}

} // namespace Vela::UiBase
