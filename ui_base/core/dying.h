// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <algorithm>

namespace Vela::UiBase {

/// Whether a widget is being destroyed: it has left the focus chain, and nobody can be taken into it. A
/// living window without any child is never taken for a dying one; nor is a dying one of these noticed with
/// Qt 6.8.
inline bool isDying(const QWidget& widget) {
  const QWidget* const next = widget.nextInFocusChain();
  if (next != &widget)
    return !next;
  // Since Qt 6.8 it is a chain of its own: so is a window that is alive, but for what it holds.
  if (!widget.isWindow())
    return true;
  const QObjectList& children = widget.children();
  return std::any_of(children.begin(), children.end(), [](const QObject* child) {
    return child && child->isWidgetType() && !static_cast<const QWidget*>(child)->isWindow();
  });
}

} // namespace Vela::UiBase
