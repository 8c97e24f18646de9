// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/run_progress.h>
#include <workbench/mesh.h>
#include <workbench/mesh_ops/triangle_selection.h>

namespace Workbench {

/// How a mesh is smoothed.
struct SmoothOptions {
  /// Each is a step inwards and a step back outwards. 10 takes the noise of a scan away, 100 its fine detail.
  int iterations = 10;
  /// How far the step inwards goes, from 0 to 1 (the middle of the neighbours).
  double inwards = 0.5;
  /// How far the step outwards goes. A little more than inwards keeps the volume: slow waves of the surface
  /// pass both steps nearly unchanged, quick ones shrink.
  double outwards = 0.52;
  /// Limits the work to these triangles; those not selected stay exactly as they are. With none selected all
  /// of the mesh is smoothed.
  TriangleSelection selection;
};

/// Smooths noise away without shrinking the mesh. Its triangles stay, its vertices move.
///
/// Vertices on an open border and where more than two faces meet at an edge keep their places, so holes keep
/// their shape and meshes that meet there still do. Runs on all processors; the result is the same on any
/// number of them.
/// @throws RunCancelled through @p progress; std::invalid_argument when the selection is neither empty
/// nor
///   of as many triangles as the mesh.
Mesh smoothed(const Mesh& mesh, const SmoothOptions& options = {},
              const Vela::UiBase::RunProgress& progress = {});

} // namespace Workbench
