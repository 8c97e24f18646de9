// SPDX-License-Identifier: MIT
#pragma once

#include <qskrccommon/units.h>
#include <workbench/mesh_ops/mesh_statistics.h>

#include <QCoreApplication>
#include <QList>
#include <QString>

#include <utility>

namespace Workbench {

/// The figures of a mesh for people: a table and a chart as HTML, in the colours of the palette in use. One
/// unit of the mesh is a millimetre.
class MeshReport {
  Q_DECLARE_TR_FUNCTIONS(Workbench::MeshReport)

public:
  MeshReport() = delete;

  /// @param unit what lengths are shown in; areas and volumes in its square and cube.
  static QString html(const MeshStatistics& statistics, Vela::Common::ELengthUnit unit);
  /// The same for the clipboard: a line for each figure, name and value with a tab between.
  static QString text(const MeshStatistics& statistics, Vela::Common::ELengthUnit unit);

private:
  using Rows = QList<std::pair<QString, QString>>;

  static Rows rows(const MeshStatistics& statistics, Vela::Common::ELengthUnit unit);
  static QString edgesText(const EdgeLengths& lengths, Vela::Common::ELengthUnit unit);
};

} // namespace Workbench
