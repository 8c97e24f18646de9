// SPDX-License-Identifier: MIT
#include "view_focus.h"

#include "application_event_relay.h"
#include "base_view.h"
#include "presentation.h"

namespace Vela::UiBase {

bool holdsFocus(const BaseView& view) {
  const QWidget* const focus = view.window()->focusWidget();
  return focus && (focus == &view || view.isAncestorOf(focus));
}

bool canTakeFocus(const QWidget& widget, const BaseView& view) {
  if (&widget != &view && !view.isAncestorOf(&widget))
    return false;
  return widget.isEnabledTo(&view) && widget.isVisibleTo(&view);
}

void passFocusOn(const BaseView& gone) {
  for (QWidget* parent = gone.parentWidget(); parent; parent = parent->parentWidget()) {
    if (const auto* const behind = qobject_cast<BaseView*>(parent); behind && behind->isVisible()) {
      Presentation::of(*behind)->focusFront(&gone);
      return;
    }
  }
  const QWidget* const window = gone.window();
  if (!window->isVisible() || (window->focusWidget() && !holdsFocus(gone)))
    return;
  // Not the window's children, which may be in the course of being deleted.
  const QList<BaseView*> views = ApplicationEventRelay::views();
  for (const BaseView* const view : views) {
    const bool goesToo = view == &gone || gone.isAncestorOf(view);
    if (view->window() == window && !goesToo && view->isVisible() && view->isEnabled()) {
      Presentation::of(*view)->focusFront();
      return;
    }
  }
}

} // namespace Vela::UiBase
