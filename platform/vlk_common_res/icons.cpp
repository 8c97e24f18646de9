// SPDX-License-Identifier: MIT
#include "icons.h"

#include "palette_icon_engine.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QResource>

#include <algorithm>
#include <array>

namespace Vela::Resource {

namespace {

constexpr QLatin1String FOLDER(":/resources/images");
constexpr std::array MARKS{"info", "warning", "error"};

QByteArray readDrawing(const QString& name) {
  QByteArray drawing = QResource(FOLDER + QLatin1Char('/') + name + QLatin1String(".svg")).uncompressedData();
  drawing.detach(); // from a resource that may be unregistered
  return drawing;
}

QIcon makeIcon(const QString& name, const QByteArray& drawing, const QColor& color) {
  return drawing.isEmpty() ? QIcon() : QIcon(new PaletteIconEngine(name, drawing, color));
}

} // namespace

QIcon Icons::icon(const QString& name) {
  const QByteArray drawing = readDrawing(name);
  const bool isMark = std::find(MARKS.begin(), MARKS.end(), name) != MARKS.end();
  return makeIcon(name, drawing, isMark ? PaletteIconEngine::rootColor(drawing) : QColor());
}

QIcon Icons::icon(const QString& name, const QColor& color) {
  return makeIcon(name, readDrawing(name), color);
}

QStringList Icons::names() {
  QStringList result;
  for (const QFileInfo& file : QDir(FOLDER).entryInfoList({QStringLiteral("*.svg")}, QDir::Files, QDir::Name))
    result += file.completeBaseName();
  return result;
}

QString Icons::pathForRatio(const QString& path, qreal devicePixelRatio) {
  if (devicePixelRatio <= 1.0)
    return path;
  const qsizetype dot = path.lastIndexOf(QLatin1Char('.'));
  if (dot <= path.lastIndexOf(QLatin1Char('/')))
    return path;
  const QString larger = path.left(dot) + QLatin1String("@2x") + path.mid(dot);
  return QFile::exists(larger) ? larger : path;
}

QPixmap Icons::picture(const QString& path, qreal devicePixelRatio) {
  return QPixmap(pathForRatio(path, devicePixelRatio)); // the reader takes the ratio from "@2x"
}

} // namespace Vela::Resource
