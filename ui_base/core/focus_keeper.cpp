// SPDX-License-Identifier: MIT
#include "focus_keeper.h"

#include "dying.h"

#include <QApplication>

#include <utility>

namespace Vela::UiBase {

void FocusKeeper::keep() { m_before = QApplication::focusWidget(); }

bool FocusKeeper::giveBackFrom(const QWidget& taker, Qt::FocusReason reason) {
  QWidget* const before = std::exchange(m_before, nullptr);
  // The window would keep one that is being destroyed as its focus.
  if (!before || isDying(*before) || !before->isVisible() || !before->isEnabled() || !isIn(taker))
    return false;
  before->setFocus(reason);
  return true;
}

bool FocusKeeper::isIn(const QWidget& widget) {
  const QWidget* const focus = QApplication::focusWidget();
  return focus && (focus == &widget || widget.isAncestorOf(focus));
}

} // namespace Vela::UiBase
