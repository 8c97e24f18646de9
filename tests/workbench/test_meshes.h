// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/mesh.h>

#include <QByteArray>

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

/// @name Contents of mesh files
/// Not made by the program's own writer, which may have the mistakes of its reader.
/// @{
QByteArray objFile(const Mesh& mesh);
QByteArray offFile(const Mesh& mesh);
/// A file of the folder meshes: cubes of edge 2. Those called "placed" are the child of a node that moves it
/// by (10, 0, 0), in one that doubles its size.
QByteArray storedFile(const char* name);
/// @}

} // namespace Workbench::Test
