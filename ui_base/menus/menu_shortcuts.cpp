// SPDX-License-Identifier: MIT
#include "menu_shortcuts.h"

#include <QMenu>

#include <utility>

namespace Vela::UiBase {

MenuShortcuts::MenuShortcuts(std::function<QWidget*()> home, std::function<QList<QAction*>()> wanted)
    : QWidget(home()), m_home(std::move(home)), m_wanted(std::move(wanted)) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  setFixedSize(0, 0);
  show();
}

void MenuShortcuts::refreshLater() {
  if (!std::exchange(m_asked, true))
    QMetaObject::invokeMethod(
        this, [this] { refresh(); }, Qt::QueuedConnection);
}

void MenuShortcuts::refresh() {
  m_asked = false;
  if (QWidget* const home = m_home(); home && home != parentWidget()) {
    setParent(home);
    show();
  }
  const QList<QAction*> wanted = m_wanted();
  const QList<QPointer<QAction>> before = std::exchange(m_held, {wanted.cbegin(), wanted.cend()});
  for (const auto& action : before) {
    if (action && !wanted.contains(action))
      removeAction(action);
  }
  for (QAction* const action : wanted) {
    if (!before.contains(action))
      addAction(action);
  }
}

QList<QAction*> shortcutActions(const QMenu& menu, const std::function<void(QMenu&)>& visit) {
  QList<QAction*> found;
  if (!menu.isEnabled())
    return found;
  const QList<QAction*> actions = menu.actions();
  for (QAction* const action : actions) {
    if (auto* const subMenu = action->menu<QMenu*>()) {
      visit(*subMenu);
      if (action->isEnabled() && action->isVisible())
        found += shortcutActions(*subMenu, visit);
    } else if (!action->shortcuts().isEmpty()) {
      found += action;
    }
  }
  return found;
}

} // namespace Vela::UiBase
