// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/camera.h>
#include <workbench/mesh.h>
#include <workbench/mesh_ops/triangle_selection.h>

#include <QRectF>

/// @file
/// What is done with a selection of a mesh's triangles. All of these are pure functions for any thread; those
/// that take a selection throw std::invalid_argument when it is not of as many triangles as the mesh.
///
/// @code
/// TriangleSelection part = selectConnected(mesh, hit->triangle);
/// document.edit(tr("Delete"), withoutTriangles(mesh, part));
/// @endcode

namespace Workbench {

/// Everything that hangs together with a triangle over shared vertices, itself included.
/// @throws std::out_of_range when the mesh has no triangle @p seed.
TriangleSelection selectConnected(const Mesh& mesh, std::size_t seed);
/// Adds the triangles that share a vertex with a selected one.
TriangleSelection grown(const Mesh& mesh, const TriangleSelection& selection);
/// Takes away the triangles that share a vertex with one that is not selected. The open border of a mesh is
/// no rim: what is selected whole stays.
TriangleSelection shrunk(const Mesh& mesh, const TriangleSelection& selection);
/// The triangles, hidden ones too, whose centroid is seen within a rectangle of the picture. What lies nearer
/// than the camera shows is left out.
/// @param rectangle  in the pixels of @p viewport; need not be normalized
TriangleSelection trianglesInside(const Mesh& mesh, const Camera& camera, const QRectF& rectangle,
                                  const QSizeF& viewport);

/// The mesh without the selected triangles and without the vertices that no triangle needs any more. The rest
/// keeps its order.
Mesh withoutTriangles(const Mesh& mesh, const TriangleSelection& selection);
/// Sum of the areas of the selected triangles, in square units of the positions.
double areaOf(const Mesh& mesh, const TriangleSelection& selection);

} // namespace Workbench
