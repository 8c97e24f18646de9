// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QDropEvent;
class QMimeData;

namespace Workbench {

/// The local files among what is being dragged.
QStringList filesOf(const QMimeData& data);
/// Accepts an event of a drag, as it is proposed, when it brings files. @return whether it does.
bool acceptFiles(QDropEvent& event);

} // namespace Workbench
