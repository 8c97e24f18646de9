// SPDX-License-Identifier: MIT
#include "menu_contents.h"

#include <ui_base/popups/placement_sight.h>
#include <ui_base/views/qt_ui_toolkit.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMetaMethod>
#include <QScreen>

#include <algorithm>
#include <array>

namespace Vela::UiBase {

namespace {

/// Whether the receiver has the member and takes it from the signal. QObject::connect() would report one that
/// it has not in several warnings.
bool canReceive(const QObject& receiver, const char* signal, const char* member) {
  const char code = *member;
  if (code != '0' + QSLOT_CODE && code != '0' + QSIGNAL_CODE)
    return false;
  const QByteArray signature = QMetaObject::normalizedSignature(member + 1);
  const QMetaObject& meta = *receiver.metaObject();
  const int index = code == '0' + QSLOT_CODE ? meta.indexOfSlot(signature) : meta.indexOfSignal(signature);
  return index >= 0 && QMetaObject::checkConnectArgs(signal + 1, signature.constData());
}

} // namespace

bool connectToSlot(QObject& sender, const char* signal, QObject* receiver, const char* slot,
                   const QString& item) {
  if (!slot || !*slot)
    return false;
  if (!receiver || !canReceive(*receiver, signal, slot)) {
    qWarning("The menu item \"%s\" does nothing: %s has no slot %s", qPrintable(item),
             receiver ? receiver->metaObject()->className() : "a receiver that is null", slot + 1);
    return false;
  }
  return static_cast<bool>(QObject::connect(&sender, signal, receiver, slot));
}

void MenuContents::append(QMenu& menu, const QList<AppMenuItemSpecifier>& items) const {
  for (const AppMenuItemSpecifier& item : items)
    append(menu, item);
}

void MenuContents::append(QMenu& menu, const AppMenuItemSpecifier& item) const {
  switch (item.kind) {
  case AppMenuSeparator:
    menu.addSeparator();
    return;
  case AppMenuSubMenu:
    append(appendSubMenu(menu, item), item.items);
    return;
  case AppMenuEntry:
    appendEntry(menu, item);
    return;
  }
}

void MenuContents::appendEntry(QMenu& menu, const AppMenuItemSpecifier& item) const {
  if (item.action) {
    menu.addAction(item.action);
    return;
  }
  if (item.text.isEmpty() && item.icon.isNull())
    return; // the action it was made of has died
  // The role keeps the entry in this menu, whatever its text says, on systems that move entries by their
  // text.
  QAction* const action = QtUiToolkit::Instance().CreateAction(item.text, QString(), &menu, item.shortcut,
                                                               nullptr, nullptr, QAction::NoRole);
  action->setObjectName(item.name);
  action->setIcon(item.icon);
  if (!item.tooltip.isEmpty()) {
    action->setToolTip(item.tooltip);
    action->setStatusTip(item.tooltip);
    menu.setToolTipsVisible(true);
  }
  action->setCheckable(item.checkable);
  action->setChecked(item.checked);
  action->setEnabled(item.enabled);
  connectToSlot(*action, SIGNAL(triggered(bool)), receiver, item.slot,
                item.name.isEmpty() ? item.text : item.name);
  menu.addAction(action);
}

QMenu& MenuContents::appendSubMenu(QMenu& menu, const AppMenuItemSpecifier& item) const {
  QMenu* const subMenu = menu.addMenu(item.icon, item.text);
  subMenu->setObjectName(item.name);
  subMenu->setEnabled(item.enabled);
  if (subMenuMade)
    subMenuMade(item.name, *subMenu);
  return *subMenu;
}

void MenuContents::append(QMenu& menu, const QList<QAction*>& actions) {
  for (QAction* const action : actions) {
    if (action)
      menu.addAction(action);
    else
      menu.addSeparator();
  }
}

void activateFirstEntry(QMenu& menu) {
  const QList<QAction*> actions = menu.actions();
  const auto first = std::find_if(actions.begin(), actions.end(), [](const QAction* each) {
    return each->isVisible() && each->isEnabled() && !each->isSeparator();
  });
  if (first == actions.end())
    return;
  if (!(*first)->menu<QMenu*>())
    return menu.setActiveAction(*first);
  // Being set, it would open its sub-menu.
  QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
  QCoreApplication::sendEvent(&menu, &down);
}

QPoint menuInSight(const QWidget& opener, const QPoint& wanted, const QSize& menu, const QPoint& offset) {
  const Placement::Target target{.reference = {opener.mapToGlobal(QPoint(0, 0)), opener.size()},
                                 .baseOffset = offset.y() + 1,
                                 .alignment = opener.isRightToLeft() ? AlignEnd : AlignStart,
                                 .additionalOffset = {offset.x(), 0}};
  const QScreen* const screen = QGuiApplication::screenAt(target.reference.center());
  const QRect area = (screen ? screen : opener.screen())->availableGeometry();
  const QPoint place = Placement::plainInSight({wanted, menu}, target, std::array{Bottom, Top}, area);
  if (place == wanted || !Placement::covers({place, menu}, target))
    return place;
  const bool mirrored = opener.isRightToLeft();
  const std::array beside{mirrored ? Left : Right, mirrored ? Right : Left};
  return Placement::plainInSight({wanted, menu}, target, beside, area);
}

bool holdsPoint(const QWidget& widget, const QPoint& global) {
  return widget.isVisible() && widget.rect().contains(widget.mapFromGlobal(global));
}

bool menuHoldsPoint(const QMenu& menu, const QPoint& global) {
  if (holdsPoint(menu, global))
    return true;
  const QList<QAction*> actions = menu.actions();
  return std::any_of(actions.begin(), actions.end(), [&](const QAction* action) {
    const auto* const subMenu = action->menu<QMenu*>();
    return subMenu && subMenu->isVisible() && menuHoldsPoint(*subMenu, global);
  });
}

} // namespace Vela::UiBase
