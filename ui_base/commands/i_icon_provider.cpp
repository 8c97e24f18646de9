// SPDX-License-Identifier: MIT
#include "i_icon_provider.h"

namespace Vela::UiBase {

IIconProvider::~IIconProvider() = default;

} // namespace Vela::UiBase
