// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QVariantMap>

namespace Workbench {

/// Files as inputs of commands and values of operations: under "files", or "file" where there is one. Each is
/// a QUrl, so that sessions name it relative to their folder.
namespace FileInputs {

QVariantMap of(const QStringList& files);
QVariantMap of(const QString& file);
/// The files of such inputs; empty where they are none.
QStringList files(const QVariantMap& inputs);

} // namespace FileInputs
} // namespace Workbench
