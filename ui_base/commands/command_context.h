// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_state.h>
#include <ui_base/ui_base_export.h>

#include <QMap>
#include <QString>

#include <initializer_list>
#include <utility>

namespace Vela::UiBase {

/// How a set of commands shall look: a map from command identifier to CommandState, ordered by identifier. A
/// value type, whose copies share nothing; CmdMgr applies, pushes and pops it.
///
/// @code
/// CommandContext whileSmoothing = manager->disabledContext();
/// whileSmoothing.overwrite(CancelCommand::className(), {State::On, State::Keep});
/// m_hold = manager->holdContext(whileSmoothing);
/// @endcode
class UI_BASE_EXPORT CommandContext {
public:
  CommandContext();
  /// Of several entries of one identifier the last one counts.
  CommandContext(std::initializer_list<std::pair<QString, CommandState>> entries);

  /// The states by the identifier of the command.
  const QMap<QString, CommandState>& get() const { return m_states; }
  /// Whether it says nothing of any command.
  bool isEmpty() const { return m_states.isEmpty(); }
  /// Whether it says something of the command.
  bool contains(const QString& id) const { return m_states.contains(id); }

  /// The entry of an identifier, inserted with (off, off) when missing.
  CommandState& operator[](const QString& id);
  /// A copy of the entry of an identifier, (off, off) when missing.
  CommandState operator[](const QString& id) const;

  /// Assigns to the entry, inserted when missing: a part that is Keep leaves the entry's part as it is.
  void update(const QString& id, const CommandState& state);
  /// Assigns to every entry.
  void update(const CommandState& state);
  /// Copies both parts as they are to the entry, inserted when missing.
  void overwrite(const QString& id, const CommandState& state);
  /// Copies both parts as they are to every entry.
  void overwrite(const CommandState& state);
  /// Copies every entry of the other context as it is, inserted when missing.
  void overwrite(const CommandContext& other);

  /// A copy with both parts of every entry negated.
  CommandContext operator!() const;
  /// Combines the entries whose identifiers both contexts hold; the others stay as they are.
  CommandContext& operator&=(const CommandContext& other);
  /// As operator&=(), with "or".
  CommandContext& operator|=(const CommandContext& other);
  /// See operator&=().
  CommandContext operator&(const CommandContext& other) const;
  /// See operator|=().
  CommandContext operator|(const CommandContext& other) const;

  friend bool operator==(const CommandContext& a, const CommandContext& b) {
    return a.m_states == b.m_states;
  }

private:
  QMap<QString, CommandState> m_states;
};

UI_BASE_EXPORT QDebug operator<<(QDebug debug, const CommandContext& context);

} // namespace Vela::UiBase
