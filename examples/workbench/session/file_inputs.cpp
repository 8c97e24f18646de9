// SPDX-License-Identifier: MIT
#include "file_inputs.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace Workbench {

namespace {

QUrl urlOf(const QString& file) {
  return QUrl::fromLocalFile(QDir::cleanPath(QFileInfo(file).absoluteFilePath()));
}

} // namespace

QVariantMap FileInputs::of(const QStringList& files) {
  QVariantList urls;
  for (const QString& file : files)
    urls.append(urlOf(file));
  return {{QStringLiteral("files"), urls}};
}

QVariantMap FileInputs::of(const QString& file) { return {{QStringLiteral("file"), urlOf(file)}}; }

QStringList FileInputs::files(const QVariantMap& inputs) {
  QVariantList urls = inputs.value(QStringLiteral("files")).toList();
  if (inputs.contains(QStringLiteral("file")))
    urls.append(inputs.value(QStringLiteral("file")));
  QStringList files;
  for (const QVariant& url : std::as_const(urls)) {
    const QString file = url.toUrl().toLocalFile();
    if (file.isEmpty())
      return {};
    files.append(file);
  }
  return files;
}

} // namespace Workbench
