// SPDX-License-Identifier: MIT
#include "triangle_selection.h"

#include <bit>
#include <stdexcept>

namespace Workbench {

TriangleSelection::TriangleSelection(std::size_t size)
    : m_size(size), m_words((size + WordBits - 1) / WordBits) {}

TriangleSelection::TriangleSelection(std::size_t size, std::span<const std::uint32_t> triangles)
    : TriangleSelection(size) {
  for (const std::uint32_t triangle : triangles)
    set(triangle);
}

TriangleSelection TriangleSelection::all(std::size_t size) {
  TriangleSelection selection(size);
  selection.selectAll();
  return selection;
}

std::vector<std::uint32_t> TriangleSelection::triangles() const {
  std::vector<std::uint32_t> result;
  result.reserve(m_count);
  for (std::size_t i = 0; i < m_words.size(); ++i) {
    for (std::uint64_t bits = m_words[i]; bits != 0; bits &= bits - 1)
      result.push_back(std::uint32_t(i * WordBits + std::size_t(std::countr_zero(bits))));
  }
  return result;
}

void TriangleSelection::set(std::size_t triangle, bool selected) {
  if (triangle >= m_size)
    throw std::out_of_range("A selection has no such triangle");
  if (contains(triangle) == selected)
    return;
  m_words[triangle / WordBits] ^= std::uint64_t(1) << (triangle % WordBits);
  m_count = selected ? m_count + 1 : m_count - 1;
}

void TriangleSelection::selectAll() {
  std::fill(m_words.begin(), m_words.end(), ~std::uint64_t(0));
  clearTail();
  m_count = m_size;
}

void TriangleSelection::clear() {
  std::fill(m_words.begin(), m_words.end(), std::uint64_t(0));
  m_count = 0;
}

void TriangleSelection::invert() {
  for (std::uint64_t& word : m_words)
    word = ~word;
  clearTail();
  m_count = m_size - m_count;
}

template <typename Combine>
TriangleSelection& TriangleSelection::combine(const TriangleSelection& other, Combine combine) {
  if (other.m_size != m_size)
    throw std::invalid_argument("Selections of meshes of different sizes");
  for (std::size_t i = 0; i < m_words.size(); ++i)
    m_words[i] = combine(m_words[i], other.m_words[i]);
  recount();
  return *this;
}

TriangleSelection& TriangleSelection::operator|=(const TriangleSelection& other) {
  return combine(other, [](std::uint64_t a, std::uint64_t b) { return a | b; });
}

TriangleSelection& TriangleSelection::operator&=(const TriangleSelection& other) {
  return combine(other, [](std::uint64_t a, std::uint64_t b) { return a & b; });
}

TriangleSelection& TriangleSelection::operator-=(const TriangleSelection& other) {
  return combine(other, [](std::uint64_t a, std::uint64_t b) { return a & ~b; });
}

TriangleSelection& TriangleSelection::operator^=(const TriangleSelection& other) {
  return combine(other, [](std::uint64_t a, std::uint64_t b) { return a ^ b; });
}

void TriangleSelection::clearTail() {
  if (m_size % WordBits != 0)
    m_words.back() &= (std::uint64_t(1) << (m_size % WordBits)) - 1;
}

void TriangleSelection::recount() {
  m_count = 0;
  for (const std::uint64_t word : m_words)
    m_count += std::size_t(std::popcount(word));
}

} // namespace Workbench
