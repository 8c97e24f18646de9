// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QLabel;
class QWidget;

namespace Vela::UiBase::TooltipText {

/// A rich or plain text as plain text.
QString plain(const QString& text);

/// Sets the text of a label: in one line where it is short, wrapped where it is longer than a line of a
/// tooltip.
void setWrapped(QLabel* label, const QString& text);

/// The text of a content widget of any kind, in plain text.
QString read(const QWidget* content);
/// Gives a content widget of any kind another text.
void write(QWidget* content, const QString& text);

} // namespace Vela::UiBase::TooltipText
