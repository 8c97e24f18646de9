// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/run_progress.h>
#include <workbench/mesh.h>

namespace Workbench {

/// Reduces a mesh to at most @p triangles triangles, taking away where that changes the surface least.
///
/// Edges are contracted one after another in the order of the error they cause: the sum of the squared
/// distances to the planes of all faces that were merged. A contraction that would turn a face over or join
/// what is not one surface is left out, so a closed mesh stays closed and keeps its holes and handles. Open
/// borders keep their shape. Where nothing more may be contracted the result has more triangles than asked
/// for; a mesh that has no more than @p triangles is returned as it is. Triangles with a corner twice and
/// vertices without a triangle are dropped from what is reduced.
/// @throws RunCancelled through @p progress.
///
/// @code
/// const Mesh preview = decimated(scan, scan.triangles().size() / 5);
/// @endcode
Mesh decimated(const Mesh& mesh, std::size_t triangles, const Vela::UiBase::RunProgress& progress = {});

} // namespace Workbench
