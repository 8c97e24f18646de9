// SPDX-License-Identifier: MIT
#pragma once

#include <QTemporaryDir>

namespace Workbench::Test {

/// A folder for the files of a test, which goes with it.
class TestFolder {
public:
  QString path(const QString& name) const { return m_folder.filePath(name); }
  /// @return the path of the file that was written.
  QString write(const QString& name, const QByteArray& content) const {
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
      qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
  }

private:
  QTemporaryDir m_folder;
};

} // namespace Workbench::Test
