// SPDX-License-Identifier: MIT
#include "mesh_report.h"

#include <ui_base/popups/info_panel.h>
#include <vlk_common_res/strings.h>
#include <workbench/panels/edge_length_chart.h>

#include <QLocale>

#include <cmath>

namespace Workbench {

using namespace Vela::Common;

namespace {

EAreaUnit squareOf(ELengthUnit unit) {
  switch (unit) {
  case Centimetre:
    return SquareCentimetre;
  case Metre:
    return SquareMetre;
  case Inch:
    return SquareInch;
  case Foot:
    return SquareFoot;
  default:
    return SquareMillimetre;
  }
}

EVolumeUnit cubeOf(ELengthUnit unit) {
  switch (unit) {
  case Centimetre:
    return CubicCentimetre;
  case Metre:
    return CubicMetre;
  case Inch:
    return CubicInch;
  case Foot:
    return CubicFoot;
  default:
    return CubicMillimetre;
  }
}

QString count(std::size_t number) { return QLocale().toString(qulonglong(number)); }

QString lengthText(double millimetres, ELengthUnit unit) {
  return formatValue(convert(millimetres, Millimetre, unit), unit);
}

QString pointText(const QVector3D& point, ELengthUnit unit, const QString& between) {
  QStringList parts;
  for (int axis = 0; axis < 3; ++axis)
    parts += formatNumber(convert(double(point[axis]), Millimetre, unit));
  return parts.join(between) + QChar(QChar::Nbsp) + unitSymbol(unit);
}

QString row(const QString& name, const QString& value) {
  return QStringLiteral("<tr><th align=\"left\">%1</th><td>%2</td></tr>")
      .arg(name.toHtmlEscaped(), value.toHtmlEscaped());
}

} // namespace

QString MeshReport::html(const MeshStatistics& statistics, ELengthUnit unit) {
  const double area = convert(statistics.area, SquareMillimetre, squareOf(unit));
  const QString volume =
      statistics.volume
          ? formatValue(convert(std::abs(*statistics.volume), CubicMillimetre, cubeOf(unit)), cubeOf(unit))
          : Vela::Resource::String::NOT_APPLICABLE_LABEL_TEXT();
  const QString list = QStringLiteral("; ");
  QString html = QStringLiteral("<table width=\"100%\">");
  html += row(tr("Vertices"), count(statistics.vertices));
  html += row(tr("Triangles"), count(statistics.triangles));
  html += row(tr("Edges"), count(statistics.edges));
  html += row(tr("Size"), pointText(statistics.bounds.size(), unit, QStringLiteral(" × ")));
  html += row(tr("Lowest corner"), pointText(statistics.bounds.min, unit, list));
  html += row(tr("Highest corner"), pointText(statistics.bounds.max, unit, list));
  html += row(tr("Surface area"), formatValue(area, squareOf(unit)));
  html += row(tr("Watertight"), statistics.volume ? tr("Yes") : tr("No"));
  html += row(tr("Volume"), volume);
  html += QStringLiteral("</table>");
  if (statistics.edges == 0)
    return html;
  const EdgeLengths& lengths = statistics.edgeLengths;
  html += QStringLiteral("<h3>%1</h3><p>%2</p>")
              .arg(tr("Lengths of edges").toHtmlEscaped(),
                   tr("From %1 to %2, %3 on average")
                       .arg(lengthText(lengths.shortest, unit), lengthText(lengths.longest, unit),
                            lengthText(lengths.mean, unit))
                       .toHtmlEscaped());
  return html + Vela::UiBase::InfoPanel::Image(edgeLengthChart(lengths, unit));
}

} // namespace Workbench
