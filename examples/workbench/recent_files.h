// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace Workbench {

/// The files that were opened or saved last, the newest first, kept in the settings of the user.
namespace RecentFiles {

inline constexpr int Most = 8;

/// The key of the settings, for who wants to hear of changes.
QString key();
QStringList list();
/// Puts a file in front.
void add(const QString& file);

} // namespace RecentFiles

} // namespace Workbench
