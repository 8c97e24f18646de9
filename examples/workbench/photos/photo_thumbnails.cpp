// SPDX-License-Identifier: MIT
#include "photo_thumbnails.h"

#include <QImageReader>

#include <algorithm>

namespace Workbench {
namespace {

constexpr int Ratio = 2; // device pixels; a screen of less scales down

// Many formats are read much faster in a small size. The camera may have lain on its side.
QImage readSmall(const QString& file, QSize most) {
  QImageReader reader(file);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  if (const QSize size = reader.size(); size.isValid()) {
    if (reader.transformation().testFlag(QImageIOHandler::TransformationRotate90))
      most.transpose();
    if (size.width() > most.width() || size.height() > most.height())
      reader.setScaledSize(size.scaled(most, Qt::KeepAspectRatio).expandedTo({1, 1}));
  }
  QImage image = reader.read();
  image.setDevicePixelRatio(Ratio);
  return image;
}

} // namespace

PhotoThumbnails::PhotoThumbnails(const QSize& size, QObject* parent)
    : QObject(parent), m_size(size * Ratio) {}

void PhotoThumbnails::want(const QStringList& files) {
  m_wanted = files;
  m_made.removeIf([&files](const auto& entry) { return !files.contains(entry.key()); });
  if (!m_task.isPending())
    makeNext();
}

void PhotoThumbnails::makeNext() {
  const auto next = std::find_if(m_wanted.cbegin(), m_wanted.cend(),
                                 [this](const QString& file) { return !m_made.contains(file); });
  if (next == m_wanted.cend())
    return;
  m_task.start([this, file = *next, size = m_size](const std::stop_token&) -> LatestTask::Deliver {
    return [this, file, image = readSmall(file, size)] {
      if (m_wanted.contains(file))
        m_made.insert(file, QPixmap::fromImage(image));
      makeNext();
      Q_EMIT made(file);
    };
  });
}

} // namespace Workbench
