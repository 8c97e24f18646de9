// SPDX-License-Identifier: MIT
#pragma once

class QKeyEvent;
class QObject;
class QShortcutEvent;

namespace Vela::UiBase {

/// Keeps shortcuts from what is covered by a presented view. One that belongs to covered views only is taken
/// away; one that is ambiguous only because of them reaches what is in front.
/// @param owner the action or shortcut that the event is sent to.
/// @return whether the event is done.
bool handleCoveredShortcut(QObject& owner, const QShortcutEvent& event);

/// Whether a key is a shortcut of covered views only. It is to be a plain key then, which what is in front
/// gets: otherwise the shortcut that is taken away would take the key along.
bool isCoveredShortcut(const QKeyEvent& event);

} // namespace Vela::UiBase
