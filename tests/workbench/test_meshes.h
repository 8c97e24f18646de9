// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/mesh.h>

#include <functional>

namespace Workbench::Test {

/// An axis-aligned cube around the origin, faces outwards, 12 triangles.
Mesh cube(float edge);
/// A square in the plane z, from (-half, -half) to (half, half), facing +z, of cells x cells x 2 triangles.
Mesh square(float half, int cells = 1, float z = 0);
/// A bumpy closed surface of 2 x rings x rings triangles: enough to fill many tiles.
Mesh blob(int rings);
/// A tube of radius 1, bent to a ring of radius 2 around the y axis: closed, of 2 x rings x rings triangles.
Mesh torus(int rings);
/// Both meshes, the triangles of @p first first.
Mesh merged(const Mesh& first, const Mesh& second);
/// With each point where @p place puts it.
Mesh moved(const Mesh& mesh, const std::function<QVector3D(const QVector3D&)>& place);

} // namespace Workbench::Test
