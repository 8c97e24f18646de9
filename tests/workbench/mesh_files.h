// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/mesh.h>

#include <QByteArray>

/// Contents of mesh files, written by hand so that the loader is not tested against a writer with the same
/// mistakes.
namespace Workbench::Test {

QByteArray objFile(const Mesh& mesh);
QByteArray offFile(const Mesh& mesh);
QByteArray asciiPlyFile(const Mesh& mesh);
QByteArray binaryPlyFile(const Mesh& mesh);
QByteArray asciiStlFile(const Mesh& mesh);
QByteArray binaryStlFile(const Mesh& mesh);
/// The mesh is the child of a node that moves it by (10, 0, 0), in one that doubles its size.
QByteArray gltfFile(const Mesh& mesh);
QByteArray glbFile(const Mesh& mesh);

} // namespace Workbench::Test
