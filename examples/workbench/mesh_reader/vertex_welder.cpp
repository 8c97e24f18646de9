// SPDX-License-Identifier: MIT
#include "vertex_welder.h"

#include <cstring>
#include <stdexcept>

namespace Workbench {
namespace {

constexpr std::size_t FirstSlots = 1024;

std::uint64_t hashOf(const VertexWelder::Position& position) {
  std::array<std::uint32_t, 3> bits{};
  std::memcpy(bits.data(), position.data(), sizeof bits);
  std::uint64_t hash = bits[0] | std::uint64_t(bits[1]) << 32U;
  hash = (hash ^ hash >> 32U) * 0x9E3779B97F4A7C15U;
  hash = (hash ^ hash >> 29U ^ bits[2]) * 0xBF58476D1CE4E5B9U;
  return hash ^ hash >> 32U;
}

} // namespace

VertexWelder::VertexWelder() : m_slots(FirstSlots, Free) {}

std::uint32_t VertexWelder::add(const Position& position) {
  // A negative zero becomes a positive one: the bits are compared.
  const Position unified{position[0] + 0.0F, position[1] + 0.0F, position[2] + 0.0F};
  std::size_t slot = slotOf(unified);
  if (m_slots[slot] != Free)
    return m_slots[slot];
  if (m_positions.size() >= Free)
    throw std::length_error("Too many vertices");
  if ((m_positions.size() + 1) * 2 > m_slots.size()) {
    grow();
    slot = slotOf(unified);
  }
  m_slots[slot] = std::uint32_t(m_positions.size());
  m_positions.push_back(unified);
  return m_slots[slot];
}

std::size_t VertexWelder::slotOf(const Position& position) const {
  const std::size_t mask = m_slots.size() - 1;
  std::size_t slot = hashOf(position) & mask;
  while (m_slots[slot] != Free &&
         std::memcmp(m_positions[m_slots[slot]].data(), position.data(), sizeof position) != 0)
    slot = (slot + 1) & mask;
  return slot;
}

void VertexWelder::grow() {
  m_slots.assign(m_slots.size() * 2, Free);
  for (std::size_t i = 0; i < m_positions.size(); ++i)
    m_slots[slotOf(m_positions[i])] = std::uint32_t(i);
}

} // namespace Workbench
