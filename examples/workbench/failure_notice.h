// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

namespace Workbench {

/// Shows what went wrong over a view that has shown a message before. With details, such as the words of
/// another program, a button of the message shows them.
void showFailure(QWidget& view, const QString& message, const QString& details = {});

/// Takes away what was said over a view, errors too: it is about something older.
void clearMessages(const QWidget& view);

} // namespace Workbench
