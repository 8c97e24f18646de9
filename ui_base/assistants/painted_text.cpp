// SPDX-License-Identifier: MIT
#include "painted_text.h"

#include <QHash>
#include <QImage>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace Vela::UiBase {

namespace {

constexpr double widthAllowance = 2;     // px, for what leans over its advance
constexpr double heightAllowance = 0.25; // of the height: letters seldom fill it

/// Draws nothing, and keeps what is written.
class TextEngine : public QPaintEngine {
public:
  explicit TextEngine(const QRectF& widget) : QPaintEngine(AllFeatures), m_widget(widget) {}

  bool begin(QPaintDevice*) override { return true; }
  bool end() override { return true; }
  Type type() const override { return User; }
  void updateState(const QPaintEngineState&) override {}
  void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
  void drawPath(const QPainterPath&) override {}
  void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
  void drawPolygon(const QPoint*, int, PolygonDrawMode) override {}
  void drawTextItem(const QPointF& baseline, const QTextItem& item) override {
    if (item.text().trimmed().isEmpty())
      return;
    const QPainter& by = *painter();
    const QTransform toWidget = by.combinedTransform();
    const QRectF rect(baseline.x(), baseline.y() - item.ascent(), item.width(),
                      item.ascent() + item.descent());
    const QRectF clip = by.hasClipping() ? toWidget.mapRect(by.clipBoundingRect()) : m_widget;
    QColor color = by.pen().color();
    color.setAlphaF(static_cast<float>(color.alphaF() * by.opacity()));
    texts.append({item.text(), toWidget.mapRect(rect), clip & m_widget, color});
  }

  QList<PaintedText> texts;

private:
  const QRectF m_widget;
};

class TextDevice : public QPaintDevice {
public:
  explicit TextDevice(const QWidget& widget) : m_widget(widget), m_engine(widget.rect()) {}

  QPaintEngine* paintEngine() const override { return &m_engine; }
  const QList<PaintedText>& texts() const { return m_engine.texts; }

protected:
  int metric(PaintDeviceMetric metric) const override {
    switch (metric) {
    case PdmWidth:
      return m_widget.width();
    case PdmHeight:
      return m_widget.height();
    case PdmWidthMM:
      return m_widget.widthMM();
    case PdmHeightMM:
      return m_widget.heightMM();
    case PdmNumColors:
      return m_widget.colorCount();
    case PdmDepth:
      return m_widget.depth();
    case PdmDpiX:
    case PdmPhysicalDpiX:
      return m_widget.logicalDpiX();
    case PdmDpiY:
    case PdmPhysicalDpiY:
      return m_widget.logicalDpiY();
    case PdmDevicePixelRatio:
      return 1;
    default:
      return QPaintDevice::metric(metric);
    }
  }

private:
  const QWidget& m_widget;
  mutable TextEngine m_engine;
};

double luminance(QRgb color) {
  const auto linear = [](int channel) {
    const double value = channel / 255.0;
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) + 0.0722 * linear(qBlue(color));
}

QRgb laidOver(const QColor& color, QRgb back) {
  const double part = color.alphaF();
  const auto mix = [part](int front, int behind) {
    return static_cast<int>(std::lround(front * part + behind * (1 - part)));
  };
  return qRgb(mix(color.red(), qRed(back)), mix(color.green(), qGreen(back)), mix(color.blue(), qBlue(back)));
}

} // namespace

bool PaintedText::isCutOff() const {
  const QRectF seen = rect & clip;
  return seen.width() < rect.width() - widthAllowance ||
         seen.height() < rect.height() * (1 - heightAllowance);
}

QList<PaintedText> paintedTexts(QWidget& widget) {
  TextDevice device(widget);
  widget.render(&device, {}, {}, {});
  return device.texts();
}

double contrastOn(const QImage& image, const QRectF& rect, const QColor& color) {
  const QRect area = rect.toAlignedRect() & image.rect();
  QHash<QRgb, int> counts;
  for (int y = area.top(); y <= area.bottom(); ++y) {
    for (int x = area.left(); x <= area.right(); ++x) {
      const QRgb pixel = image.pixel(x, y);
      if (pixel != color.rgb()) // of the letters, which may fill a small area
        ++counts[pixel];
    }
  }
  const auto most = std::max_element(counts.cbegin(), counts.cend());
  if (most == counts.cend())
    return 1;
  const double back = luminance(most.key());
  const double front = luminance(laidOver(color, most.key()));
  return (std::max(back, front) + 0.05) / (std::min(back, front) + 0.05);
}

} // namespace Vela::UiBase
