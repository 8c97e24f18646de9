// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

namespace Vela::UiBase {

/// A member of an object that calls out on the way of every move of the mouse: tells whether the object lived
/// through it. Counts no references as a QPointer does, whose locks cost more than all else there. For one
/// thread, and for guards on the stack.
class Lifetime {
public:
  Lifetime() = default;
  ~Lifetime() {
    for (Guard* guard = m_innermost; guard; guard = guard->m_outer)
      guard->m_lifetime = nullptr;
  }
  Lifetime(const Lifetime&) = delete;
  Lifetime& operator=(const Lifetime&) = delete;

  /// Exists while the object calls out.
  class Guard {
  public:
    explicit Guard(Lifetime& lifetime)
        : m_lifetime(&lifetime), m_outer(std::exchange(lifetime.m_innermost, this)) {}
    ~Guard() {
      if (m_lifetime)
        m_lifetime->m_innermost = m_outer;
    }
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;

    /// Whether the object has died meanwhile.
    bool ended() const { return !m_lifetime; }

  private:
    friend class Lifetime;

    Lifetime* m_lifetime;
    Guard* m_outer;
  };

private:
  Guard* m_innermost = nullptr;
};

} // namespace Vela::UiBase
