// SPDX-License-Identifier: MIT
#include "menu_bar_keys.h"

#include "menu_bar_menus.h"
#include "menu_bar_widget.h"

#include <QApplication>
#include <QKeyEvent>
#include <QShortcut>
#include <QStyle>
#include <QToolButton>

namespace Vela::UiBase {

MenuBarKeys::MenuBarKeys(MenuBarWidget* bar, MenuBarMenus* menus, QWidget* window)
    : QObject(bar), m_bar(bar), m_menus(menus), m_window(window) {
  if (window)
    window->installEventFilter(this);
  auto* const f10 = new QShortcut(Qt::Key_F10, bar);
  f10->setAutoRepeat(false);
  connect(f10, &QShortcut::activated, this, &MenuBarKeys::toggle);
  connect(menus, &MenuBarMenus::opened, this, [this](QToolButton* item, bool byKeyboard) {
    if (byKeyboard || m_active)
      enter(item);
  });
  connect(menus, &MenuBarMenus::closed, this, [this](bool keepsBar) {
    if (!keepsBar)
      leave();
  });
}

MenuBarKeys::~MenuBarKeys() { forgetAlt(); }

void MenuBarKeys::enter(QToolButton* item) {
  if (!item)
    item = m_bar->neighbour(nullptr, 1);
  if (!item || !m_bar->isVisible())
    return;
  if (!m_active)
    m_focus.keep();
  m_active = true;
  moveTo(item);
}

void MenuBarKeys::leave() {
  if (!m_active)
    return;
  m_active = false;
  QWidget* const focus = m_bar->window()->focusWidget();
  if (!focus || !m_bar->isAncestorOf(focus))
    return; // it went elsewhere on its own
  if (!m_focus.giveBackFrom(*m_bar, Qt::MenuBarFocusReason))
    focus->clearFocus();
}

void MenuBarKeys::toggle() {
  if (m_active)
    leave();
  else
    enter();
}

void MenuBarKeys::moveTo(QToolButton* item) {
  if (item && m_bar->overflows(item))
    item = m_bar->overflowButton();
  if (item)
    item->setFocus(Qt::MenuBarFocusReason);
}

void MenuBarKeys::use(QToolButton* item) {
  if (m_menus->menuOf(item))
    m_menus->open(item, true);
  else
    click(item);
}

void MenuBarKeys::click(QToolButton* item) {
  const QPointer<QToolButton> guard = item;
  leave();
  if (guard)
    guard->click();
}

bool MenuBarKeys::useMnemonic(QToolButton* current, int key) {
  QList<QToolButton*> named = m_bar->items();
  named.removeIf([key](const QToolButton* each) {
    const QKeySequence mnemonic = QKeySequence::mnemonic(each->text());
    return mnemonic.isEmpty() || mnemonic[0].key() != key || !each->isVisible() || !each->isEnabled();
  });
  if (named.size() == 1)
    use(named.constFirst());
  else if (!named.isEmpty())
    moveTo(named[(named.indexOf(current) + 1) % named.size()]);
  return !named.isEmpty();
}

bool MenuBarKeys::filterKey(QToolButton* item, const QKeyEvent& event) {
  const int step = m_bar->isRightToLeft() ? -1 : 1;
  switch (event.key()) {
  case Qt::Key_Right:
    moveTo(m_bar->neighbour(item, step));
    return true;
  case Qt::Key_Left:
    moveTo(m_bar->neighbour(item, -step));
    return true;
  case Qt::Key_Home:
    moveTo(m_bar->neighbour(nullptr, 1));
    return true;
  case Qt::Key_End:
    moveTo(m_bar->neighbour(nullptr, -1));
    return true;
  case Qt::Key_Down:
  case Qt::Key_Up:
    m_menus->open(item, true);
    return true;
  case Qt::Key_Space:
  case Qt::Key_Return:
  case Qt::Key_Enter:
    if (item->popupMode() == QToolButton::MenuButtonPopup)
      click(item);
    else
      use(item);
    return true;
  case Qt::Key_Escape:
  case Qt::Key_Tab:
  case Qt::Key_Backtab:
    leave();
    return true;
  default:
    break;
  }
  if (event.modifiers() & ~Qt::ShiftModifier)
    return false;
  return useMnemonic(item, event.key());
}

bool MenuBarKeys::filterItem(QToolButton* item, QEvent* event) {
  if (event->type() == QEvent::KeyPress && item->hasFocus())
    return filterKey(item, *static_cast<QKeyEvent*>(event));
  if (event->type() == QEvent::KeyRelease && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space)
    return true; // its press was not the button's
  if (event->type() == QEvent::Shortcut && static_cast<QShortcutEvent*>(event)->isAmbiguous()) {
    enter(item); // to choose among those that share the mnemonic
    return true;
  }
  if (event->type() == QEvent::FocusOut && m_active) {
    const QWidget* const focus = QApplication::focusWidget();
    const auto reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason != Qt::MenuBarFocusReason && reason != Qt::PopupFocusReason &&
        (!focus || !m_bar->isAncestorOf(focus)))
      leave();
  }
  return false;
}

void MenuBarKeys::watchAlt(const QKeyEvent& event) {
  const bool navigates = m_bar->style()->styleHint(QStyle::SH_MenuBar_AltKeyNavigation, nullptr, m_bar);
  if (m_altPressed || !navigates || event.isAutoRepeat() || event.key() != Qt::Key_Alt ||
      event.modifiers() != Qt::AltModifier)
    return;
  m_altPressed = true;
  qApp->installEventFilter(this);
}

void MenuBarKeys::followAlt(QEvent* event) {
  switch (event->type()) {
  case QEvent::KeyPress:
    if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_Alt)
      forgetAlt();
    return;
  case QEvent::KeyRelease: {
    const bool alone = static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt;
    forgetAlt();
    if (alone)
      toggle();
    return;
  }
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonRelease:
  case QEvent::FocusIn:
  case QEvent::FocusOut:
  case QEvent::ActivationChange:
  case QEvent::Shortcut:
    forgetAlt(); // Alt goes with something else
    return;
  default:
    return;
  }
}

void MenuBarKeys::forgetAlt() {
  if (!m_altPressed)
    return;
  m_altPressed = false;
  qApp->removeEventFilter(this);
}

bool MenuBarKeys::eventFilter(QObject* watched, QEvent* event) {
  if (m_altPressed)
    followAlt(event);
  else if (watched == m_window && event->type() == QEvent::ShortcutOverride)
    watchAlt(*static_cast<QKeyEvent*>(event));
  return false;
}

} // namespace Vela::UiBase
