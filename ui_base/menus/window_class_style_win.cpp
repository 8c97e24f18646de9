// SPDX-License-Identifier: MIT
#include "window_class_style_win.h"

#include <windows.h>

namespace Vela::UiBase {

namespace {

constexpr int CLASS_STYLE = -26;            // the index GCL_STYLE
constexpr DWORD DROP_SHADOW_BIT = 0x20000U; // CS_DROPSHADOW

} // namespace

void clearClassDropShadow(void* window) noexcept {
  const auto handle = static_cast<HWND>(window);
  if (!IsWindow(handle))
    return;
  const DWORD style = GetClassLongW(handle, CLASS_STYLE);
  if (style & DROP_SHADOW_BIT)
    SetClassLongW(handle, CLASS_STYLE, static_cast<LONG>(style & ~DROP_SHADOW_BIT));
}

} // namespace Vela::UiBase
