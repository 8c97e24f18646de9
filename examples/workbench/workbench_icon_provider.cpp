// SPDX-License-Identifier: MIT
#include "workbench_icon_provider.h"

#include <vlk_common_res/icons.h>

namespace Workbench {

QIcon WorkbenchIconProvider::CreateIcon(const QString& path) const {
  const QIcon icon = Vela::Resource::Icons::icon(path);
  return icon.isNull() ? DefaultIconProvider::CreateIcon(path) : icon;
}

} // namespace Workbench
