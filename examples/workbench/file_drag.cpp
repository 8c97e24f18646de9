// SPDX-License-Identifier: MIT
#include "file_drag.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace Workbench {

QStringList filesOf(const QMimeData& data) {
  QStringList files;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile())
      files += url.toLocalFile();
  }
  return files;
}

bool acceptFiles(QDropEvent& event) {
  if (filesOf(*event.mimeData()).isEmpty())
    return false;
  event.acceptProposedAction();
  return true;
}

} // namespace Workbench
