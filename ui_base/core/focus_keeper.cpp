// SPDX-License-Identifier: MIT
#include "focus_keeper.h"

#include <QApplication>

#include <utility>

namespace Vela::UiBase {

void FocusKeeper::keep() { m_before = QApplication::focusWidget(); }

bool FocusKeeper::giveBackFrom(const QWidget& taker, Qt::FocusReason reason) {
  QWidget* const before = std::exchange(m_before, nullptr);
  // One that is being destroyed has left the focus chain; the window would keep it as its focus.
  if (!before || !before->nextInFocusChain() || !before->isVisible() || !before->isEnabled() || !isIn(taker))
    return false;
  before->setFocus(reason);
  return true;
}

bool FocusKeeper::isIn(const QWidget& widget) {
  const QWidget* const focus = QApplication::focusWidget();
  return focus && (focus == &widget || widget.isAncestorOf(focus));
}

} // namespace Vela::UiBase
