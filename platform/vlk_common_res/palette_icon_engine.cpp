// SPDX-License-Identifier: MIT
#include "palette_icon_engine.h"

#include "color_scheme.h"

#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <utility>

namespace Vela::Resource {

namespace {

constexpr char ROOT_COLOR[] = " color=\"";
constexpr qsizetype COLOR_LENGTH = 7; // #rrggbb

qsizetype rootColorPosition(const QByteArray& svg) {
  const qsizetype found = svg.indexOf(ROOT_COLOR);
  return found < 0 ? -1 : found + qsizetype(sizeof ROOT_COLOR - 1);
}

QByteArray recolored(QByteArray svg, const QColor& color) {
  const qsizetype position = rootColorPosition(svg);
  return position < 0 ? svg : svg.replace(position, COLOR_LENGTH, color.name().toLatin1());
}

} // namespace

PaletteIconEngine::PaletteIconEngine(QString name, QByteArray svg, const QColor& fixedColor)
    : m_name(std::move(name)), m_svg(std::move(svg)), m_fixedColor(fixedColor) {}

QColor PaletteIconEngine::rootColor(const QByteArray& svg) {
  const qsizetype position = rootColorPosition(svg);
  return position < 0 ? QColor() : QColor(QLatin1String(svg.mid(position, COLOR_LENGTH)));
}

QColor PaletteIconEngine::color(QIcon::Mode mode) const {
  const ColorScheme& colors = colorScheme(Styles::Instance().palette());
  if (mode == QIcon::Disabled)
    return colors.iconDisabled;
  if (m_fixedColor.isValid())
    return m_fixedColor;
  if (mode == QIcon::Selected)
    return colors.accentText;
  return mode == QIcon::Active ? colors.link : colors.icon;
}

void PaletteIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) {
  const qreal ratio = painter->device() != nullptr ? painter->device()->devicePixelRatio() : 1.0;
  QPixmap image = pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state);
  image.setDevicePixelRatio(ratio);
  const QSizeF size = image.deviceIndependentSize();
  painter->drawPixmap(QRectF(rect).center() - QPointF(size.width(), size.height()) / 2, image);
}

QPixmap PaletteIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/) {
  const int side = qMin(size.width(), size.height());
  if (side <= 0)
    return {};
  const QColor inColor = color(mode);
  const QString cacheKey = QStringLiteral("vlk_icon_%1_%2_%3").arg(m_name, inColor.name()).arg(side);
  QPixmap result;
  if (QPixmapCache::find(cacheKey, &result))
    return result;

  result = QPixmap(side, side);
  result.fill(Qt::transparent);
  QSvgRenderer renderer(recolored(m_svg, inColor));
  QPainter painter(&result);
  renderer.render(&painter);
  painter.end();
  QPixmapCache::insert(cacheKey, result);
  return result;
}

QSize PaletteIconEngine::actualSize(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) {
  const int side = qMin(size.width(), size.height());
  return {side, side};
}

QIconEngine* PaletteIconEngine::clone() const { return new PaletteIconEngine(*this); }

QString PaletteIconEngine::key() const { return QStringLiteral("vlk_palette_icon"); }

QString PaletteIconEngine::iconName() { return m_name; }

bool PaletteIconEngine::isNull() { return m_svg.isEmpty(); }

} // namespace Vela::Resource
