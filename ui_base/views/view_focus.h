// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace Vela::UiBase {

class BaseView;

/// Whether the widget that has the focus of the view's window, or would have it if that were active, is the
/// view or lies in it.
bool holdsFocus(const BaseView& view);
/// Whether the widget is the view or lies in it, and can take the focus.
bool canTakeFocus(const QWidget& widget, const BaseView& view);
/// Gives the focus that a hidden or dying view had to the view behind it, or else to another one of its
/// window, so that a window that shows a view never is without a focus.
void passFocusOn(const BaseView& gone);

} // namespace Vela::UiBase
