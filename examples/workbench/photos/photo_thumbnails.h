// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/latest_task.h>

#include <QHash>
#include <QPixmap>
#include <QSize>
#include <QStringList>

namespace Workbench {

/// Small pictures of photographs, read one after another on a thread of the dispatcher and kept as long as
/// they are wanted. For the main thread.
///
/// @code
/// connect(&thumbnails, &PhotoThumbnails::made, this, [&] { showIcons(); });
/// thumbnails.want(document.files());
/// @endcode
class PhotoThumbnails : public QObject {
  Q_OBJECT

public:
  /// @param size  logical pixels, which each thumbnail fits into; sharp on a screen of twice the resolution
  explicit PhotoThumbnails(const QSize& size, QObject* parent = nullptr);

  /// Sees to those of these files; forgets all others.
  void want(const QStringList& files);
  /// Null while it is not there, and of a file that is no picture.
  QPixmap of(const QString& file) const { return m_made.value(file); }

Q_SIGNALS:
  /// of() that file is another.
  void made(const QString& file);

private:
  void makeNext();

  QSize m_size;
  QStringList m_wanted;
  QHash<QString, QPixmap> m_made;
  LatestTask m_task;
};

} // namespace Workbench
