// SPDX-License-Identifier: MIT
#include "menu_bar_menus.h"

#include "menu_bar_overflow.h"
#include "menu_bar_widget.h"
#include "menu_contents.h"

#include <QCursor>
#include <QKeyEvent>
#include <QPointer>
#include <QStyle>

namespace Vela::UiBase {

MenuBarMenus::MenuBarMenus(MenuBarWidget* bar)
    : QObject(bar), m_bar(bar), m_overflow(new MenuBarOverflow(bar, this)) {
  m_closeTimer.setSingleShot(true);
  connect(&m_closeTimer, &QTimer::timeout, this, &MenuBarMenus::closeWhenOutside);
  link(bar->overflowButton(), m_overflow->menu());
}

void MenuBarMenus::setCloseDelay(int milliseconds) {
  m_closeDelay = milliseconds;
  if (milliseconds < 0)
    m_closeTimer.stop();
}

QMenu* MenuBarMenus::menuOf(const QToolButton* item) const { return m_menus.value(item); }

QMenu* MenuBarMenus::overflowMenu() const { return m_overflow->menu(); }

void MenuBarMenus::link(QToolButton* item, QMenu* menu) {
  const LivePointer<QToolButton> guard = item;
  const LivePointer<QMenu> newMenu = menu;
  const QPointer<MenuBarMenus> self = this;
  if (item == m_openItem)
    close(); // who hears of it may end the bar, the item or the menu
  if (!self || !guard)
    return;
  if (item == m_openItem)
    menuHidden(); // replaced before it was shown
  menu = newMenu;
  if (!m_menus.contains(item))
    connect(item, &QObject::destroyed, this, [this, item] { m_menus.remove(item); });
  m_menus[item] = menu;
  item->setMenu(menu);
  if (!menu)
    return;
  connect(menu, &QObject::destroyed, this, [this, item](QObject* dead) {
    const auto link = m_menus.find(item);
    if (link == m_menus.end() || link->remains() != dead)
      return;
    link->clear();
    if (item == m_openItem.remains())
      menuHidden();
  });
}

void MenuBarMenus::open(QToolButton* item, bool byKeyboard) {
  if (m_bar->overflows(item) && menuOf(item)) {
    const QPointer<MenuBarMenus> self = this;
    const LivePointer<QToolButton> guard = item;
    open(m_bar->overflowButton(), byKeyboard);
    if (self && guard && m_openItem == m_bar->overflowButton())
      m_overflow->activate(guard);
    return;
  }
  const LivePointer<QMenu> menu = menuOf(item);
  if (!menu || item == m_openItem || !menu->isEnabled() || !item->isEnabled() || !item->isVisible())
    return;
  if (m_openItem) {
    const QPointer<MenuBarMenus> self = this;
    const LivePointer<QToolButton> guard = item;
    m_switches = true;
    close(); // who hears of it may end the bar, the item or the menu
    if (!self)
      return;
    m_switches = false;
    if (!guard || !menu)
      return menuHidden();
  }
  m_openItem = item;
  m_bar->window()->installEventFilter(this);
  m_barPlace = m_bar->mapToGlobal(QPoint());
  m_pointer = QCursor::pos();
  m_keepsBar = false;
  m_pointerWasInside = false;
  item->setDown(true);
  menu->setAttribute(Qt::WA_NoMouseReplay, false);
  Q_EMIT opened(item, byKeyboard);
  const QPointer<MenuBarMenus> self = this;
  m_opening = menu;
  menu->popup(positionFor(*item, menu->sizeHint()));
  if (!self || !menu) {
    if (menu)
      menu->close(); // the bar has ended
    return;
  }
  m_opening.clear();
  if (item != m_openItem || menu != menuOf(item)) {
    menu->close(); // replaced by who heard that it would be shown
    return;
  }
  // Entries that came just now change the size, and so the place.
  menu->move(positionFor(*item, menu->size()));
  if (menu->isEmpty())
    menu->close();
  else if (byKeyboard)
    activateFirstEntry(*menu);
}

void MenuBarMenus::close(bool keepsBar) {
  QMenu* const menu = m_openItem ? menuOf(m_openItem) : nullptr;
  if (!menu)
    return;
  m_keepsBar = keepsBar;
  menu->close();
}

void MenuBarMenus::end() {
  QMenu* const menu = menuOf(m_openItem);
  m_switches = true; // the keyboard need not leave a bar that is gone
  menuHidden();
  if (menu)
    menu->close();
  if (m_opening && m_opening->parent() == m_bar) {
    m_opening->setParent(nullptr);
    m_opening->deleteLater();
  }
}

QPoint MenuBarMenus::positionFor(const QToolButton& item, const QSize& menu) const {
  const bool mirrored = item.isRightToLeft();
  const QPoint offset(mirrored ? -m_position.x() : m_position.x(), m_position.y());
  const QPoint corner = item.mapToGlobal(QPoint(mirrored ? item.width() - menu.width() : 0, item.height()));
  return menuInSight(item, corner + offset, menu, offset);
}

void MenuBarMenus::adopt(QMenu* menu) {
  // The button's own mechanism may show a menu too.
  const QList<QToolButton*> items = m_bar->items() << m_bar->overflowButton();
  for (QToolButton* const item : items) {
    if (!m_openItem && menuOf(item) == menu) {
      m_openItem = item;
      item->setDown(true);
    }
  }
}

void MenuBarMenus::menuHidden() {
  m_closeTimer.stop();
  if (m_openItem)
    m_openItem->setDown(false);
  m_openItem.clear();
  if (!m_switches)
    Q_EMIT closed(m_keepsBar);
}

void MenuBarMenus::closeWhenOutside() {
  const QMenu* const menu = menuOf(m_openItem);
  const QPoint cursor = QCursor::pos();
  if (menu && !menuHoldsPoint(*menu, cursor) && !holdsPoint(*m_bar, cursor))
    close();
}

void MenuBarMenus::step(int direction) {
  QToolButton* item = m_openItem;
  const int count = int(m_bar->items().size()) + 1; // the overflow button
  for (int i = 0; i < count && item; ++i) {
    item = m_bar->neighbour(item, direction);
    if (menuOf(item) && menuOf(item)->isEnabled())
      return open(item, true);
  }
}

bool MenuBarMenus::filterMove(const QMouseEvent& event) {
  // An open menu gets the movements over the whole screen, and some when the pointer rests.
  const QPoint at = event.globalPosition().toPoint();
  if (at == m_pointer)
    return false;
  m_pointer = at;
  const QMenu* const menu = menuOf(m_openItem);
  QToolButton* const item = m_bar->itemAt(at);
  if (item && item != m_openItem && menuOf(item)) {
    open(item, false);
    return true;
  }
  const bool inMenu = menu && menuHoldsPoint(*menu, at);
  if (inMenu || item || holdsPoint(*m_bar, at))
    m_closeTimer.stop();
  else if (m_pointerWasInside && m_closeDelay >= 0 && !m_closeTimer.isActive())
    m_closeTimer.start(m_closeDelay);
  m_pointerWasInside = m_pointerWasInside || inMenu;
  return false;
}

bool MenuBarMenus::filterPress(QMenu* menu, const QMouseEvent& event) {
  // A press on the open item closes its menu, and must not reach the item and open it again.
  if (!m_openItem || m_bar->itemAt(event.globalPosition().toPoint()) != m_openItem ||
      menuHoldsPoint(*menuOf(m_openItem), event.globalPosition().toPoint()))
    return false;
  menu->setAttribute(Qt::WA_NoMouseReplay);
  menuOf(m_openItem)->setAttribute(Qt::WA_NoMouseReplay);
  close();
  return true;
}

bool MenuBarMenus::filterKey(QMenu* menu, const QKeyEvent& event) {
  const bool isDropDown = menu == menuOf(m_openItem);
  const int forward = menu->isRightToLeft() ? Qt::Key_Left : Qt::Key_Right;
  const int back = menu->isRightToLeft() ? Qt::Key_Right : Qt::Key_Left;
  m_closeTimer.stop();
  m_pointerWasInside = false; // the keyboard is used
  if (event.key() == Qt::Key_Escape && isDropDown) {
    close(true);
    return true;
  }
  if (event.key() == Qt::Key_Alt || event.key() == Qt::Key_F10) {
    close();
    return true;
  }
  if (event.key() == back && isDropDown) {
    step(-1);
    return true;
  }
  const QAction* const active = menu->activeAction();
  const bool opensSubMenu = active && active->isEnabled() && active->menu<QMenu*>();
  if (event.key() == forward && !opensSubMenu) {
    step(1);
    return true;
  }
  return false;
}

bool MenuBarMenus::filterMenu(QMenu* menu, QEvent* event) {
  if (event->type() == QEvent::Show)
    adopt(menu);
  if (!m_openItem)
    return false;
  switch (event->type()) {
  case QEvent::Hide:
    if (menu == menuOf(m_openItem))
      menuHidden();
    return false;
  case QEvent::MouseMove:
    return filterMove(*static_cast<QMouseEvent*>(event));
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonDblClick:
    return filterPress(menu, *static_cast<QMouseEvent*>(event));
  case QEvent::MouseButtonRelease: // of the press that opened the menu
    return holdsPoint(*m_bar, static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
  case QEvent::Leave:
    if (m_pointerWasInside && m_closeDelay >= 0 && !m_closeTimer.isActive())
      m_closeTimer.start(m_closeDelay);
    return false;
  case QEvent::KeyPress:
    return filterKey(menu, *static_cast<QKeyEvent*>(event));
  default:
    return false;
  }
}

bool MenuBarMenus::eventFilter(QObject* watched, QEvent* event) {
  // Window systems tell of a move once more when it is done.
  if (event->type() == QEvent::Move && watched == m_bar->window() &&
      m_bar->mapToGlobal(QPoint()) != m_barPlace)
    close();
  return false;
}

bool MenuBarMenus::opensOnPress(const QToolButton& item, const QPoint& position) const {
  if (!menuOf(&item))
    return false;
  if (item.popupMode() != QToolButton::MenuButtonPopup)
    return true;
  const int arrow = item.style()->pixelMetric(QStyle::PM_MenuButtonIndicator, nullptr, &item);
  return item.isRightToLeft() ? position.x() < arrow : position.x() >= item.width() - arrow;
}

bool MenuBarMenus::filterItem(QToolButton* item, QEvent* event) {
  switch (event->type()) {
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonDblClick: {
    const auto& mouse = *static_cast<QMouseEvent*>(event);
    if (mouse.button() != Qt::LeftButton || !opensOnPress(*item, mouse.position().toPoint()))
      return false;
    open(item, false);
    return true;
  }
  case QEvent::Shortcut:
    if (!menuOf(item) || static_cast<QShortcutEvent*>(event)->isAmbiguous())
      return false;
    open(item, true);
    return true;
  case QEvent::Hide:
  case QEvent::EnabledChange:
    if (item == m_openItem && (item->isHidden() || !item->isEnabled()))
      close();
    return false;
  default:
    return false;
  }
}

} // namespace Vela::UiBase
