// SPDX-License-Identifier: MIT
#include "command_context.h"

#include <QDebug>

namespace Vela::UiBase {

CommandContext::CommandContext() = default;
CommandContext::CommandContext(std::initializer_list<std::pair<QString, CommandState>> entries) {
  for (const auto& [id, state] : entries)
    overwrite(id, state);
}

CommandState& CommandContext::operator[](const QString& id) { return m_states[id]; }

CommandState CommandContext::operator[](const QString& id) const { return m_states.value(id); }

void CommandContext::update(const QString& id, const CommandState& state) { m_states[id] = state; }

void CommandContext::update(const CommandState& state) {
  for (CommandState& entry : m_states)
    entry = state;
}

void CommandContext::overwrite(const QString& id, const CommandState& state) {
  m_states[id].overwrite(state);
}

void CommandContext::overwrite(const CommandState& state) {
  for (CommandState& entry : m_states)
    entry.overwrite(state);
}

void CommandContext::overwrite(const CommandContext& other) {
  for (auto it = other.m_states.cbegin(); it != other.m_states.cend(); ++it)
    overwrite(it.key(), it.value());
}

CommandContext CommandContext::operator!() const {
  CommandContext negated(*this);
  for (CommandState& entry : negated.m_states)
    entry.overwrite({!entry.enabled, !entry.checked});
  return negated;
}

CommandContext& CommandContext::operator&=(const CommandContext& other) {
  for (auto it = m_states.begin(); it != m_states.end(); ++it) {
    if (const auto found = other.m_states.constFind(it.key()); found != other.m_states.cend()) {
      it->enabled &= found->enabled;
      it->checked &= found->checked;
    }
  }
  return *this;
}

CommandContext& CommandContext::operator|=(const CommandContext& other) {
  for (auto it = m_states.begin(); it != m_states.end(); ++it) {
    if (const auto found = other.m_states.constFind(it.key()); found != other.m_states.cend()) {
      it->enabled |= found->enabled;
      it->checked |= found->checked;
    }
  }
  return *this;
}

CommandContext CommandContext::operator&(const CommandContext& other) const {
  CommandContext combined(*this);
  combined &= other;
  return combined;
}

CommandContext CommandContext::operator|(const CommandContext& other) const {
  CommandContext combined(*this);
  combined |= other;
  return combined;
}

QDebug operator<<(QDebug debug, const CommandContext& context) {
  const QDebugStateSaver saver(debug);
  debug.nospace() << "CommandContext(";
  for (auto entry = context.get().cbegin(); entry != context.get().cend(); ++entry)
    debug << (entry == context.get().cbegin() ? "" : ", ") << entry.key() << ": " << entry.value();
  return debug << ')';
}

} // namespace Vela::UiBase
