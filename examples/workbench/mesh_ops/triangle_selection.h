// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace Workbench {

/// Which triangles of a mesh are selected: a bit a triangle.
///
/// A value; it belongs to no mesh, only to a number of triangles. The set operations take two selections of
/// the same size and throw std::invalid_argument for others.
///
/// @code
/// TriangleSelection selection(mesh.triangles().size());
/// selection.set(hit->triangle);
/// selection |= selectConnected(mesh, other);
/// @endcode
class TriangleSelection {
public:
  /// Of a mesh without triangles.
  TriangleSelection() = default;
  /// None of @p size triangles.
  explicit TriangleSelection(std::size_t size);
  /// These of @p size triangles, in any order.
  /// @throws std::out_of_range for an index that is not less than @p size.
  TriangleSelection(std::size_t size, std::span<const std::uint32_t> triangles);
  /// All of @p size triangles.
  static TriangleSelection all(std::size_t size);

  /// How many triangles the mesh has.
  std::size_t size() const noexcept { return m_size; }
  /// How many of them are selected.
  std::size_t count() const noexcept { return m_count; }
  /// None is selected.
  bool isEmpty() const noexcept { return m_count == 0; }
  /// False also for an index that is out of range.
  bool contains(std::size_t triangle) const noexcept {
    return triangle < m_size && (m_words[triangle / WordBits] >> (triangle % WordBits) & 1U) != 0;
  }
  /// The indices of the selected triangles, ascending.
  std::vector<std::uint32_t> triangles() const;

  /// @throws std::out_of_range for an index that is not less than size().
  void set(std::size_t triangle, bool selected = true);
  void selectAll();
  void clear();
  void invert();

  TriangleSelection& operator|=(const TriangleSelection& other);
  TriangleSelection& operator&=(const TriangleSelection& other);
  /// Takes the triangles of @p other away.
  TriangleSelection& operator-=(const TriangleSelection& other);
  /// Selects what one of the two holds, but not both.
  TriangleSelection& operator^=(const TriangleSelection& other);

  friend bool operator==(const TriangleSelection&, const TriangleSelection&) = default;

private:
  static constexpr std::size_t WordBits = 64;

  template <typename Combine>
  TriangleSelection& combine(const TriangleSelection& other, Combine combine);
  void clearTail();
  void recount();

  std::size_t m_size = 0;
  std::size_t m_count = 0;
  std::vector<std::uint64_t> m_words; // the bits beyond m_size are 0
};

} // namespace Workbench
