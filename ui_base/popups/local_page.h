// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <optional>

namespace Vela::UiBase {

/// What a resource (qrc:) or a local file holds; nothing when it cannot be read or is neither.
std::optional<QByteArray> readLocal(const QUrl& url);

/// The page with the colours and fonts of the current palette put in front, where what the page says itself
/// comes after and counts.
QString styledPage(const QString& html);

} // namespace Vela::UiBase
