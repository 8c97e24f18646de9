// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/views/default_icon_provider.h>

namespace Workbench {

/// Gives the toolkit the shared line icons by their names, in the colours of the palette; for everything else
/// it does what the default provider does.
class WorkbenchIconProvider : public DefaultIconProvider {
public:
  QIcon CreateIcon(const QString& path) const override;
};

} // namespace Workbench
