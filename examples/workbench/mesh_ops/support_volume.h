// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/run_progress.h>
#include <workbench/mesh.h>

#include <optional>

namespace Workbench {

struct SupportOptions {
  /// How far a face may lean over before it needs support, in degrees from upright: 0 for every face that
  /// looks down at all, 90 for none.
  double limitAngle = 45;
  /// How many columns the longer side of the mesh's footprint is cut into. The result is as exact as they
  /// are narrow.
  int columns = 512;
};

/// The volume of the supports that hold up what leans over too far when the mesh is printed standing as it
/// is, its y axis upwards, on a plate under its lowest point: solid prisms from each such face straight down
/// to the mesh below it, or to the plate. In cubic units of the mesh.
///
/// Parts that run through one another count as one body; a mesh whose faces are inside out is measured as if
/// they were not. Safe on any thread.
///
/// @return nothing for a mesh that is not closed.
/// @throws RunCancelled through @p progress.
std::optional<double> supportVolume(const Mesh& mesh, const SupportOptions& options = {},
                                    const Vela::UiBase::RunProgress& progress = {});

} // namespace Workbench
