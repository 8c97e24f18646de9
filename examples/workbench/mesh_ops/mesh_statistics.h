// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/run_progress.h>
#include <workbench/mesh.h>

namespace Workbench {

/// How many edges of a mesh are how long.
struct EdgeLengths {
  double shortest = 0;
  double mean = 0;
  double longest = 0;
  /// The counts of edges in steps of equal width from 0 up to @c end. The last one also counts the few edges,
  /// one in a hundred at most, that are longer: they would leave no room for the others.
  std::vector<std::size_t> counts;
  double end = 0;
};

/// The figures of a mesh, in its own units.
struct MeshStatistics {
  std::size_t vertices = 0;
  std::size_t triangles = 0;
  std::size_t edges = 0; ///< One for all triangles that meet at it.
  Bounds bounds;
  double area = 0;
  /// Nothing for a mesh that is not closed; negative when its faces are inside out.
  std::optional<double> volume;
  EdgeLengths edgeLengths;
};

/// Takes the figures of a mesh. Safe on any thread.
/// @throws RunCancelled through @p progress.
MeshStatistics meshStatistics(const Mesh& mesh, const Vela::UiBase::RunProgress& progress = {});

} // namespace Workbench
