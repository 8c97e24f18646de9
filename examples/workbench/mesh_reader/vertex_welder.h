// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace Workbench {

/// Gives every position that comes up an index, the same position always the same one. Formats that repeat
/// the corners of each triangle become connected meshes that way.
class VertexWelder {
public:
  using Position = std::array<float, 3>;

  VertexWelder();

  /// @throws std::length_error when 32 bits no longer count the positions.
  std::uint32_t add(const Position& position);

  const std::vector<Position>& positions() const noexcept { return m_positions; }

private:
  static constexpr std::uint32_t Free = 0xFFFFFFFFU;

  std::size_t slotOf(const Position& position) const;
  void grow();

  std::vector<Position> m_positions;
  std::vector<std::uint32_t> m_slots; // indices of positions; a power of two, at most half full
};

} // namespace Workbench
