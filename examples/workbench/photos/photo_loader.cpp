// SPDX-License-Identifier: MIT
#include "photo_loader.h"

#include <workbench/photos/jpeg_end.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

namespace Workbench {
namespace {

constexpr int MostMegabytes = 2048; // of an image in memory
constexpr double ReadingPart = 0.7; // of the work

struct PhotoText {
  Q_DECLARE_TR_FUNCTIONS(Workbench::PhotoLoader)
};

// Tells how far the reading is, and ends it by an error of the device: decoders know no other way.
class WatchedFile : public QFile {
public:
  WatchedFile(const QString& fileName, const Vela::UiBase::RunProgress& progress)
      : QFile(fileName), m_progress(progress) {}

protected:
  qint64 readData(char* data, qint64 most) override {
    try {
      m_progress.report(ReadingPart * double(pos()) / double(std::max<qint64>(1, size())));
    } catch (const Vela::UiBase::RunCancelled&) {
      return -1;
    }
    return QFile::readData(data, most);
  }

private:
  const Vela::UiBase::RunProgress& m_progress;
};

// What can be said about a file without reading it.
QString obstacle(const QString& fileName) {
  const QFileInfo file(fileName);
  if (!file.exists())
    return PhotoText::tr("The file does not exist.");
  if (!file.isFile())
    return PhotoText::tr("It is not a file.");
  if (!file.isReadable())
    return PhotoText::tr("There is no permission to read the file.");
  if (file.size() == 0)
    return PhotoText::tr("The file is empty.");
  return {};
}

QString reasonOf(const QImageReader& reader) {
  switch (reader.error()) {
  case QImageReader::UnsupportedFormatError:
    return PhotoText::tr("It is no picture of a known format.");
  case QImageReader::InvalidDataError:
    return PhotoText::tr("The file is damaged or incomplete.");
  default:
    return reader.errorString();
  }
}

bool isTooLarge(const QSize& size) {
  return qint64(size.width()) * size.height() * 4 > qint64(MostMegabytes) * 1024 * 1024;
}

QImage readImage(const QString& fileName, const Vela::UiBase::RunProgress& progress) {
  if (const QString reason = obstacle(fileName); !reason.isEmpty())
    throw PhotoLoadError(fileName, reason);
  WatchedFile file(fileName, progress);
  if (!file.open(QIODevice::ReadOnly))
    throw PhotoLoadError(fileName, file.errorString());
  QImageReader reader(&file);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  if (isTooLarge(reader.size()))
    throw PhotoLoadError(fileName, PhotoText::tr("The picture is too large: %1 × %2 pixels.")
                                       .arg(reader.size().width())
                                       .arg(reader.size().height()));
  QImage image = reader.read();
  if (progress.isStopRequested())
    throw Vela::UiBase::RunCancelled();
  if (image.isNull())
    throw PhotoLoadError(fileName, reasonOf(reader));
  if (QFile whole(fileName); whole.open(QIODevice::ReadOnly) && !hasJpegEnd(whole))
    throw PhotoLoadError(fileName, PhotoText::tr("The file is damaged or incomplete."));
  return image;
}

QStringList suffixes() {
  QStringList list;
  for (const QByteArray& format : QImageReader::supportedImageFormats())
    list += QString::fromLatin1(format);
  return list;
}

} // namespace

PhotoLoadError::PhotoLoadError(const QString& fileName, const QString& reason)
    : std::runtime_error(QStringLiteral("%1: %2").arg(fileName, reason).toStdString()),
      m_fileName(fileName),
      m_reason(reason) {}

QString PhotoLoadError::message() const {
  return PhotoText::tr("Cannot open “%1”. %2").arg(QFileInfo(m_fileName).fileName(), m_reason);
}

PhotoImage loadPhoto(const QString& fileName, const Vela::UiBase::RunProgress& progress) {
  [[maybe_unused]] static const bool raised = (QImageReader::setAllocationLimit(MostMegabytes), true);
  progress.report(0);
  const QImage image = readImage(fileName, progress);
  progress.report(ReadingPart);
  return PhotoImage(image, progress);
}

bool isPhotoFileName(const QString& fileName) {
  return suffixes().contains(QFileInfo(fileName).suffix().toLower());
}

QString photoNamePatterns() {
  QStringList patterns;
  for (const QString& suffix : suffixes())
    patterns += QStringLiteral("*.") + suffix;
  return patterns.join(QLatin1Char(' '));
}

} // namespace Workbench
