// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QDebug>
#include <QMetaType>

#include <concepts>

namespace Vela::UiBase {

/// A tri-state value: off, on, or leave as it is.
///
/// Assignment *merges*: a right-hand Keep leaves the target as it is. overwrite() copies whatever it is
/// given. A container that assigns its elements therefore does not do what it seems to with Keep; keep states
/// in containers that construct in place and overwrite(), as CommandContext does.
///
/// @code
/// State s = true;
/// s = State::Keep;                 // still on
/// s.overwrite(State::Keep);        // now Keep
/// @endcode
class State {
public:
  enum Action : int {
    Off = 0,
    On = 1,
    Keep = 2, ///< Leave as it is.
  };

  constexpr State() noexcept = default;
  /// On or Off.
  constexpr State(bool on) noexcept : m_value(on ? On : Off) {}
  /// Any of the actions.
  constexpr State(Action action) noexcept : m_value(action) {}
  /// Without it State(2) would be State(true).
  constexpr State(int action) noexcept : m_value(action) {}
  constexpr State(const State&) noexcept = default;

  constexpr State& operator=(const State& other) noexcept {
    if (other.m_value != Keep)
      m_value = other.m_value;
    return *this;
  }
  constexpr State& operator=(Action action) noexcept { return *this = State(action); }
  /// Takes the other one over whatever this is; an assignment would let Keep leave it.
  constexpr void overwrite(const State& other) noexcept { m_value = other.m_value; }

  /// Whether the value is on; Keep reads as false.
  constexpr operator bool() const noexcept { return m_value == On; }
  /// For switch statements and comparisons.
  constexpr operator Action() const noexcept { return static_cast<Action>(m_value); }

  /// Keep stays Keep.
  constexpr State operator!() const noexcept { return m_value == Keep ? State(Keep) : State(m_value != On); }
  /// A right-hand Keep changes nothing; a left-hand Keep counts as on.
  constexpr State& operator&=(const State& other) noexcept {
    if (other.m_value != Keep)
      m_value = m_value != Off && other.m_value != Off ? On : Off;
    return *this;
  }
  /// A right-hand Keep changes nothing; a left-hand Keep counts as off, unlike in operator&=.
  constexpr State& operator|=(const State& other) noexcept {
    if (other.m_value != Keep)
      m_value = m_value == On || other.m_value == On ? On : Off;
    return *this;
  }
  /// A right-hand Keep changes nothing; a left-hand Keep takes the other value.
  constexpr State& operator^=(const State& other) noexcept {
    if (other.m_value == Keep)
      return *this;
    m_value = m_value == Keep ? other.m_value : ((m_value == On) != (other.m_value == On) ? On : Off);
    return *this;
  }

  // Constrained, or the conversions to and from State make every comparison ambiguous.
  template <std::same_as<State> S>
  friend constexpr bool operator==(const S& a, const S& b) noexcept {
    return a.m_value == b.m_value;
  }
  template <std::same_as<State> S, class T>
  requires std::same_as<T, bool> || std::same_as<T, int> || std::same_as<T, State::Action>
  friend constexpr bool operator==(const S& a, T b) noexcept { return a.m_value == S(b).m_value; }

private:
  int m_value = Off;
};

/// How a command stands, or shall stand: enabled and checked. Assignment merges part by part, see State.
struct UI_BASE_EXPORT CommandState {
  State enabled;
  State checked;

  constexpr CommandState() noexcept = default;
  /// What becomes of the enabled and of the checked state.
  constexpr CommandState(State enabledState, State checkedState) noexcept
      : enabled(enabledState), checked(checkedState) {}
  constexpr CommandState(const CommandState&) noexcept = default;
  constexpr CommandState& operator=(const CommandState&) noexcept = default; // merges, as State does

  /// Copies both parts as they are, Keep included.
  constexpr void overwrite(const CommandState& other) noexcept {
    enabled.overwrite(other.enabled);
    checked.overwrite(other.checked);
  }

  friend constexpr bool operator==(const CommandState& a, const CommandState& b) noexcept {
    return a.enabled == b.enabled && a.checked == b.checked;
  }
};

/// "on", "off" and "keep", in this order of parts: CommandState(on, keep).
UI_BASE_EXPORT QDebug operator<<(QDebug debug, const State& state);
UI_BASE_EXPORT QDebug operator<<(QDebug debug, const CommandState& state);

} // namespace Vela::UiBase

Q_DECLARE_METATYPE(Vela::UiBase::CommandState)
