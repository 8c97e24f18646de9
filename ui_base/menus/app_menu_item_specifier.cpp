// SPDX-License-Identifier: MIT
#include "app_menu_item_specifier.h"

namespace Vela::UiBase {

AppMenuItemSpecifier AppMenuItemSpecifier::Separator() { return {.kind = AppMenuSeparator}; }

AppMenuItemSpecifier AppMenuItemSpecifier::SubMenu(const QString& name, const QString& text,
                                                   const QList<AppMenuItemSpecifier>& items) {
  return {.name = name, .text = text, .kind = AppMenuSubMenu, .items = items};
}

AppMenuItemSpecifier AppMenuItemSpecifier::OfAction(QAction* action) { return {.action = action}; }

} // namespace Vela::UiBase
