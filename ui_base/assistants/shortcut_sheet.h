// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QString>

namespace Vela::UiBase {

class ShortcutScheme;

/// A page in HTML with every command that has a shortcut, group by group, for people to print.
UI_BASE_EXPORT QString shortcutSheet(const ShortcutScheme& scheme);

} // namespace Vela::UiBase
