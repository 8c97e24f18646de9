// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Vela::UiBase {

/// What an item of the menu bar shows in one of its two states.
struct AppMenuToggleState {
  /// For the icon provider of QtUiToolkit; empty for no icon.
  QString iconName = {};
  QString text = {};
  QString tooltip = {};
};

/// Describes an item of the menu bar with two states, such as "Sign in" and "Sign out".
struct AppMenuToggleItemSpecifier {
  AppMenuToggleState off = {};
  AppMenuToggleState on = {};
  /// Which of the two is current.
  bool isOn = false;
  /// The slot of the builder's receiver to call on a click, as SLOT() makes it; null for none. Not copied.
  const char* slot = nullptr;

  /// What the item shows in its state of now.
  const AppMenuToggleState& Current() const { return isOn ? on : off; }
};

} // namespace Vela::UiBase
