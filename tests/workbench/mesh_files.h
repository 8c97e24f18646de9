// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/mesh.h>

#include <QByteArray>

/// Contents of mesh files, not made by the program's own writer, which may have the mistakes of its reader.
namespace Workbench::Test {

QByteArray objFile(const Mesh& mesh);
QByteArray offFile(const Mesh& mesh);
/// A file of the folder meshes: cubes of edge 2. Those called "placed" are the child of a node that moves it
/// by (10, 0, 0), in one that doubles its size.
QByteArray storedFile(const char* name);

} // namespace Workbench::Test
