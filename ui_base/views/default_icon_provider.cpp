// SPDX-License-Identifier: MIT
#include "default_icon_provider.h"

#include <QFile>
#include <QFileInfo>

const QString DefaultIconProvider::IMAGE_EXTENSION = QStringLiteral(".png");

namespace {

/// An image file cut in two: "icons/save" and ".svg".
struct ImagePath {
  QString baseName;
  QString extension;
};

bool isImageFile(const QString& path) { return QFileInfo(path).isFile(); }

ImagePath splitPath(const QString& path) {
  const QString suffix = QFileInfo(path).suffix();
  const QStringList known = {QStringLiteral("png"), QStringLiteral("svg"), QStringLiteral("svgz"),
                             QStringLiteral("gif"), QStringLiteral("jpg"), QStringLiteral("jpeg"),
                             QStringLiteral("bmp"), QStringLiteral("ico"), QStringLiteral("xpm")};
  if (!known.contains(suffix, Qt::CaseInsensitive))
    return {path, QString()};
  const auto length = path.size() - suffix.size() - 1;
  return {path.left(length), path.mid(length)};
}

void addFile(QIcon& icon, const QString& file, QIcon::Mode mode) {
  if (file.isEmpty())
    return;
  // QIcon itself looks for the large file only when a high-resolution screen is there already.
  icon.addFile(file, QSize(), mode);
  const ImagePath parts = splitPath(file);
  const QString large = parts.baseName + QLatin1String("@2x") + parts.extension;
  if (QFile::exists(large))
    icon.addFile(large, QSize(), mode);
}

} // namespace

QIcon DefaultIconProvider::CreateIcon(const QString& path) const {
  if (path.isEmpty())
    return {};
  ImagePath parts = splitPath(path);
  if (parts.extension.isEmpty())
    parts.extension = IMAGE_EXTENSION;

  const QString ownFile =
      isImageFile(path) ? path : ModeFile(parts.baseName, QIcon::Selected, parts.extension);
  const QString normalFile = ModeFile(parts.baseName, QIcon::Normal, parts.extension);
  QIcon icon;
  addFile(icon, normalFile.isEmpty() ? ownFile : normalFile, QIcon::Normal);
  addFile(icon, ModeFile(parts.baseName, QIcon::Active, parts.extension), QIcon::Active);
  if (!icon.isNull())
    return icon;
  const QString resource = QStringLiteral(":/resources/images/") + path;
  if (!path.contains(QLatin1Char('/')) && !ModeFile(resource, QIcon::Normal).isEmpty())
    return CreateIcon(resource);
  return QIcon::fromTheme(path);
}

QString DefaultIconProvider::ModeFile(const QString& baseName, QIcon::Mode mode,
                                      const QString& extension) const {
  QString suffix;
  if (mode == QIcon::Normal)
    suffix = QStringLiteral("_normal");
  else if (mode == QIcon::Active)
    suffix = QStringLiteral("_active");
  const QString file = baseName + suffix + extension;
  return QFile::exists(file) ? file : QString();
}
