// SPDX-License-Identifier: MIT
#include "edge_length_chart.h"

#include <vlk_common_res/styles.h>

#include <QXmlStreamWriter>

#include <algorithm>

namespace Workbench {

using namespace Vela::Common;
using Vela::Resource::Styles;

namespace {

constexpr double Width = 360; // px
constexpr double Height = 116;
constexpr double Side = 8;  // px
constexpr double Base = 96; // where the bars stand
constexpr double Top = 6;
constexpr double Gap = 2; // between bars

class SvgWriter {
public:
  explicit SvgWriter(QByteArray& svg) : m_xml(&svg) {
    m_xml.writeStartElement(QStringLiteral("svg"));
    m_xml.writeDefaultNamespace(QStringLiteral("http://www.w3.org/2000/svg"));
    number("width", Width);
    number("height", Height);
  }
  ~SvgWriter() { m_xml.writeEndElement(); }
  Q_DISABLE_COPY_MOVE(SvgWriter)

  void rectangle(double x, double y, double width, double height, const QColor& color) {
    m_xml.writeEmptyElement(QStringLiteral("rect"));
    number("x", x);
    number("y", y);
    number("width", width);
    number("height", height);
    attribute("fill", color.name());
  }
  void text(double x, double y, const char* anchor, const QString& text, const QColor& color) {
    m_xml.writeStartElement(QStringLiteral("text"));
    number("x", x);
    number("y", y);
    attribute("text-anchor", QString::fromLatin1(anchor));
    attribute("font-family", Styles::Instance().FontLabel().family());
    number("font-size", 11);
    attribute("fill", color.name());
    m_xml.writeCharacters(text);
    m_xml.writeEndElement();
  }

private:
  void attribute(const char* name, const QString& value) {
    m_xml.writeAttribute(QString::fromLatin1(name), value);
  }
  void number(const char* name, double value) { attribute(name, QString::number(value, 'f', 1)); }

  QXmlStreamWriter m_xml;
};

} // namespace

QByteArray edgeLengthChart(const EdgeLengths& lengths, ELengthUnit unit) {
  if (lengths.counts.empty())
    return {};
  const Styles& styles = Styles::Instance();
  const double most = double(*std::max_element(lengths.counts.begin(), lengths.counts.end()));
  const double step = (Width - 2 * Side) / double(lengths.counts.size());
  QByteArray svg;
  {
    SvgWriter writer(svg);
    const bool overflows = lengths.longest > lengths.end;
    for (std::size_t i = 0; i < lengths.counts.size(); ++i) {
      const double height = double(lengths.counts[i]) / most * (Base - Top);
      const bool isOverflow = overflows && i + 1 == lengths.counts.size();
      writer.rectangle(Side + double(i) * step + Gap / 2, Base - height, step - Gap, height,
                       isOverflow ? styles.ColorTextLabel() : styles.ColorAccent());
    }
    writer.rectangle(Side, Base, Width - 2 * Side, 1, styles.ColorTextLabel());
    const auto label = [&](double length) {
      return formatValue(convert(length, Millimetre, unit), unit, QLocale(), 3);
    };
    const QColor color = styles.ColorTextLabel();
    writer.text(Side, Base + 15, "start", QStringLiteral("0"), color);
    writer.text(Width / 2, Base + 15, "middle", label(lengths.end / 2), color);
    const double last = lengths.end * (1 - 1 / double(lengths.counts.size()));
    writer.text(Width - Side, Base + 15, "end",
                overflows ? QChar(0x2265) + QStringLiteral(" ") + label(last) : label(lengths.end), color);
  }
  return svg;
}

} // namespace Workbench
