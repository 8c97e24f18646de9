// SPDX-License-Identifier: MIT
#include "mesh_report.h"

#include <ui_base/popups/info_panel.h>
#include <vlk_common_res/strings.h>
#include <workbench/panels/edge_length_chart.h>

#include <QGuiApplication>
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

// The names stand where one begins to read; rich text has no mirrored tables.
QString row(const QString& name, const QString& value) {
  const QString cells =
      QGuiApplication::isRightToLeft()
          ? QStringLiteral("<tr><td align=\"right\">%2</td><th align=\"right\">%1</th></tr>")
          : QStringLiteral("<tr><th align=\"left\">%1</th><td>%2</td></tr>");
  return cells.arg(name.toHtmlEscaped(), value.toHtmlEscaped());
}

} // namespace

MeshReport::Rows MeshReport::rows(const MeshStatistics& statistics, ELengthUnit unit) {
  const double area = convert(statistics.area, SquareMillimetre, squareOf(unit));
  const QString volume =
      statistics.volume
          ? formatValue(convert(std::abs(*statistics.volume), CubicMillimetre, cubeOf(unit)), cubeOf(unit))
          : Vela::Resource::String::NOT_APPLICABLE_LABEL_TEXT();
  const QString list = QStringLiteral("; ");
  return {{tr("Vertices"), count(statistics.vertices)},
          {tr("Triangles"), count(statistics.triangles)},
          {tr("Edges"), count(statistics.edges)},
          {tr("Size"), pointText(statistics.bounds.size(), unit, QStringLiteral(" × "))},
          {tr("Lowest corner"), pointText(statistics.bounds.min, unit, list)},
          {tr("Highest corner"), pointText(statistics.bounds.max, unit, list)},
          {tr("Surface area"), formatValue(area, squareOf(unit))},
          {tr("Watertight"), statistics.volume ? tr("Yes") : tr("No")},
          {tr("Volume"), volume}};
}

QString MeshReport::edgesText(const EdgeLengths& lengths, ELengthUnit unit) {
  return tr("From %1 to %2, %3 on average")
      .arg(lengthText(lengths.shortest, unit), lengthText(lengths.longest, unit),
           lengthText(lengths.mean, unit));
}

QString MeshReport::html(const MeshStatistics& statistics, ELengthUnit unit) {
  QString html = QStringLiteral("<table width=\"100%\">");
  for (const auto& [name, value] : rows(statistics, unit))
    html += row(name, value);
  html += QStringLiteral("</table>");
  if (statistics.edges == 0)
    return html;
  html += QStringLiteral("<h3>%1</h3><p>%2</p>")
              .arg(tr("Lengths of edges").toHtmlEscaped(),
                   edgesText(statistics.edgeLengths, unit).toHtmlEscaped());
  html += Vela::UiBase::InfoPanel::Image(edgeLengthChart(statistics.edgeLengths, unit));
  return QStringLiteral("<div align=\"%1\">%2</div>")
      .arg(QGuiApplication::isRightToLeft() ? QLatin1String("right") : QLatin1String("left"), html);
}

QString MeshReport::text(const MeshStatistics& statistics, ELengthUnit unit) {
  QStringList lines;
  for (const auto& [name, value] : rows(statistics, unit))
    lines += name + u'\t' + value;
  if (statistics.edges > 0)
    lines += tr("Lengths of edges") + u'\t' + edgesText(statistics.edgeLengths, unit);
  return lines.join(u'\n');
}

} // namespace Workbench
