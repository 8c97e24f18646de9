// SPDX-License-Identifier: MIT
#include "command_tips.h"

#include "command_base.h"
#include "command_group.h"
#include "menu_entry_accessible.h"

#include <tqm_mesh_kernel/dispatch.h>
#include <ui_base/tooltips/tooltip_reason.h>

#include <QCoreApplication>
#include <QHelpEvent>
#include <QMenu>
#include <QPointer>
#include <QToolButton>
#include <QToolTip>

namespace Vela::UiBase {

namespace {

// A group has nothing to offer when none of its children has.
QString reasonOf(const QAction& action) {
  const auto* const command = dynamic_cast<const CommandBase*>(&action);
  if (!command)
    return {};
  const QString own = command->whyUnavailable();
  const auto* const group = dynamic_cast<const CommandGroup*>(command);
  const CommandBag* const children = own.isEmpty() && group ? &group->commandBag() : nullptr;
  QString first;
  for (int i = 0; children && i < children->count(); ++i) {
    const QString reason = reasonOf(*children->commandAt(i));
    if (reason.isEmpty())
      return {};
    if (first.isEmpty())
      first = reason;
  }
  return own.isEmpty() ? first : own;
}

} // namespace

void CommandTips::start() {
  static QPointer<CommandTips> tips;
  if (tips || !qApp || !Taren::Core::isMainThread())
    return;
  tips = new CommandTips(qApp);
  qApp->installEventFilter(tips);
  TooltipReason::setSource(reasonOf);
  QAccessible::installFactory(MenuEntryAccessible::make);
}

bool CommandTips::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ToolTip && event->type() != QEvent::KeyPress)
    return false;
  auto* const menu = qobject_cast<QMenu*>(watched);
  if (event->type() == QEvent::KeyPress) {
    if (menu) // which goes to another entry only now
      QMetaObject::invokeMethod(
          menu, [menu] { explainActiveEntry(*menu); }, Qt::QueuedConnection);
    return false;
  }
  const auto& help = *static_cast<QHelpEvent*>(event);
  if (menu)
    return explainEntry(*menu, help);
  // Those of subclasses may have tooltips of their own kind.
  if (watched->metaObject() == &QToolButton::staticMetaObject)
    return explainButton(static_cast<QToolButton&>(*watched), help);
  return false;
}

QString CommandTips::tipOf(const QMenu& menu, const QAction& entry) {
  const QString text = menu.toolTipsVisible() ? entry.toolTip() : QString();
  return entry.isEnabled() ? text : TooltipReason::composed(text, TooltipReason::of(entry));
}

bool CommandTips::explainEntry(QMenu& menu, const QHelpEvent& event) {
  const QAction* const entry = menu.actionAt(event.pos());
  if (!entry || entry->isEnabled() || TooltipReason::of(*entry).isEmpty())
    return false;
  QToolTip::showText(event.globalPos(), tipOf(menu, *entry), &menu);
  return true;
}

void CommandTips::explainActiveEntry(QMenu& menu) {
  QAction* const entry = menu.isVisible() ? menu.activeAction() : nullptr;
  const bool hasReason = entry && !entry->isEnabled() && !TooltipReason::of(*entry).isEmpty();
  const QString tip = hasReason ? tipOf(menu, *entry) : QString();
  const QRect area = entry ? menu.actionGeometry(entry) : QRect();
  QToolTip::showText(menu.mapToGlobal(area.bottomLeft()), tip, &menu, area);
}

bool CommandTips::explainButton(QToolButton& button, const QHelpEvent& event) {
  const QString reason = TooltipReason::of(button);
  if (reason.isEmpty())
    return false;
  QToolTip::showText(event.globalPos(), TooltipReason::composed(button.toolTip(), reason), &button);
  return true;
}

} // namespace Vela::UiBase
