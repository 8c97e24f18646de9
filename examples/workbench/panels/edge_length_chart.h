// SPDX-License-Identifier: MIT
#pragma once

#include <qskrccommon/units.h>
#include <workbench/mesh_ops/mesh_statistics.h>

#include <QByteArray>

namespace Workbench {

/// Draws how many edges are how long, as an SVG picture in the colours of the palette in use. One unit of the
/// mesh is a millimetre; @p unit is the one of the axis. Empty when there are no edges.
QByteArray edgeLengthChart(const EdgeLengths& lengths, Vela::Common::ELengthUnit unit);

} // namespace Workbench
