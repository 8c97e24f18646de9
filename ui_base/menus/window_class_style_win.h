// SPDX-License-Identifier: MIT
#pragma once

namespace Vela::UiBase {

/// Whether the system gives windows of one class a shadow, which clearClassDropShadow() takes away.
#ifdef _WIN32
inline constexpr bool HAS_CLASS_DROP_SHADOW = true;

/// Clears the drop-shadow bit in the style of the class that `window`, a native window handle, belongs to.
/// All windows of that class cast no system shadow from then on. Null and a handle that is no window are
/// ignored.
void clearClassDropShadow(void* window) noexcept;
#else
inline constexpr bool HAS_CLASS_DROP_SHADOW = false;

inline void clearClassDropShadow(void*) noexcept {}
#endif

} // namespace Vela::UiBase
