// SPDX-License-Identifier: MIT
// Makes a window of a class with a system shadow, takes the shadow away and prints the style of the class
// before and after. Needs no Qt.
#include <ui_base/menus/window_class_style_win.h>

#include <cstdio>
#include <windows.h>

int main() {
  constexpr int classStyle = -26;
  constexpr DWORD dropShadow = 0x20000U;
  constexpr DWORD doubleClicks = 0x8U;

  WNDCLASSW windowClass = {};
  windowClass.style = dropShadow | doubleClicks;
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = L"DropDownMenu";
  if (!RegisterClassW(&windowClass))
    return 2;
  const HWND window = CreateWindowExW(0, windowClass.lpszClassName, L"menu", WS_POPUP, 0, 0, 10, 10, nullptr,
                                      nullptr, windowClass.hInstance, nullptr);
  if (!window)
    return 3;

  const DWORD before = GetClassLongW(window, classStyle);
  Vela::UiBase::clearClassDropShadow(nullptr);
  Vela::UiBase::clearClassDropShadow(window);
  Vela::UiBase::clearClassDropShadow(window);
  const DWORD after = GetClassLongW(window, classStyle);
  std::printf("before 0x%lx, after 0x%lx\n", before, after);
  DestroyWindow(window);
  Vela::UiBase::clearClassDropShadow(window);
  return before == (dropShadow | doubleClicks) && after == doubleClicks ? 0 : 1;
}
