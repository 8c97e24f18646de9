// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>
#include <QWindow>

namespace Vela::UiBase {

/// Takes away the window of a widget that was hidden while it was being shown; Qt puts it on the screen all
/// the same. For who has just shown a widget; nothing for others.
inline void hideLeftWindow(QWidget& widget) {
  const QWindow* const window = widget.windowHandle();
  if (!widget.isHidden() || !window || !window->isVisible())
    return;
  widget.setAttribute(Qt::WA_WState_Hidden, false); // or it would not hide it
  widget.hide();
}

/// Shows a popup. One that is hidden by somebody who hears of it before it stands on the screen is hidden in
/// the end. May delete the popup.
inline void showPopup(QWidget& popup) {
  const QPointer<QWidget> shown(&popup);
  popup.show();
  if (shown)
    hideLeftWindow(*shown);
}

/// Has those around a widget forget that the focus was in it; for who is about to give it another parent, or
/// to make it a window. Qt forgets only what the widget itself remembers, and they would go on with a dead
/// one.
inline void leaveFocus(const QWidget& widget) {
  const QPointer<const QWidget> left(&widget);
  QPointer<const QWidget> around(widget.parentWidget());
  while (left && around) {
    QWidget* const focus = around->focusWidget();
    if (focus && (focus == left || left->isAncestorOf(focus)))
      focus->clearFocus();
    if (around)
      around = around->parentWidget();
  }
}

} // namespace Vela::UiBase
