// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QKeySequence;

namespace Vela::UiBase {

class ShortcutRules;

/// A key means several things in the active window, and Qt runs none: says so over the view of the first
/// command, and lets the rules know. Commands of covered views and mnemonics among themselves are left to
/// who knows them.
/// @return what was said; empty when that was nothing.
QString tellAmbiguousKey(const QKeySequence& keys, ShortcutRules& rules);

} // namespace Vela::UiBase
