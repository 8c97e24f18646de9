// SPDX-License-Identifier: MIT
#include "recent_files.h"

#include <workbench/config.h>

#include <QFileInfo>

namespace Workbench {

QString RecentFiles::key() { return QStringLiteral("files/recent"); }

QStringList RecentFiles::list() { return config().value(key()).toStringList().mid(0, Most); }

void RecentFiles::add(const QString& file) {
  const QString path = QFileInfo(file).absoluteFilePath();
  QStringList files = list();
  files.removeAll(path);
  files.prepend(path);
  config().setValue(key(), files.mid(0, Most));
}

} // namespace Workbench
