// SPDX-License-Identifier: MIT
#include "command_tips.h"

#include "command_base.h"
#include "command_group.h"
#include "menu_entry_accessible.h"

#include <tqm_mesh_kernel/dispatch.h>
#include <ui_base/core/application_events.h>
#include <ui_base/popups/widget_pos_calculator.h>
#include <ui_base/tooltips/tooltip_reason.h>
#include <ui_base/tooltips/tooltip_wrapper.h>

#include <QCoreApplication>
#include <QHelpEvent>
#include <QMenu>
#include <QToolButton>

#include <utility>

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

// One that was made of the text of the entry says nothing new.
QString ownTipOf(const QAction& entry) {
  const QString tip = entry.toolTip();
  return tip == QAction(entry.text()).toolTip() ? QString() : tip;
}

} // namespace

TooltipEnd::TooltipEnd(TooltipWrapper& tooltip, QWidget& owner) : QObject(&tooltip), m_tooltip(tooltip) {
  owner.installEventFilter(this);
}

void TooltipEnd::setEntry(const QAction* entry) { m_entry = entry; }

bool TooltipEnd::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
  case QEvent::MouseMove: {
    const auto* const menu = qobject_cast<QMenu*>(watched);
    if (menu && menu->actionAt(static_cast<QMouseEvent*>(event)->position().toPoint()) != m_entry)
      m_tooltip.HideTooltip();
    break;
  }
  case QEvent::Leave:
  case QEvent::Hide:
  case QEvent::Wheel:
  case QEvent::MouseButtonPress:
  case QEvent::KeyPress:
    m_tooltip.HideTooltip();
    break;
  default:
    break;
  }
  return false;
}

void CommandTips::start() {
  static QPointer<CommandTips> tips;
  if (tips || !qApp || !Taren::Core::isMainThread())
    return;
  tips = new CommandTips(qApp);
  ApplicationEvents::watch(*tips, {QEvent::ToolTip, QEvent::KeyPress});
  TooltipReason::setSource(reasonOf);
  QAccessible::installFactory(MenuEntryAccessible::make);
}

bool CommandTips::eventFilter(QObject* watched, QEvent* event) {
  auto* const menu = qobject_cast<QMenu*>(watched);
  if (event->type() == QEvent::KeyPress) {
    if (menu) // which goes to another entry only now
      QMetaObject::invokeMethod(
          menu, [this, menu] { menu->isVisible() && explainEntry(*menu, menu->activeAction()); },
          Qt::QueuedConnection);
    return false;
  }
  if (menu)
    return explainEntry(*menu, menu->actionAt(static_cast<QHelpEvent*>(event)->pos()));
  // Those of subclasses may have tooltips of their own kind.
  if (watched->metaObject() == &QToolButton::staticMetaObject)
    return explainButton(static_cast<QToolButton&>(*watched));
  return false;
}

QString CommandTips::tipOf(const QMenu& menu, const QAction& entry) {
  const QString text = menu.toolTipsVisible() ? ownTipOf(entry) : QString();
  return entry.isEnabled() ? text : TooltipReason::composed(text, TooltipReason::of(entry));
}

TooltipWrapper& CommandTips::tooltipOf(QWidget& owner, const QAction* entry) {
  if (!m_tooltip || m_tooltip->parent() != &owner) {
    delete m_tooltip;
    m_tooltip = new TooltipWrapper(QStringLiteral("command tips"), &owner);
    m_end = new TooltipEnd(*m_tooltip, owner);
  }
  m_end->setEntry(entry);
  return *m_tooltip;
}

// Beside the menu, so that no entry is covered.
bool CommandTips::explainEntry(QMenu& menu, const QAction* entry) {
  const QString tip = entry ? tipOf(menu, *entry) : QString();
  if (tip.isEmpty())
    return false;
  const QRect area = menu.actionGeometry(const_cast<QAction*>(entry));
  const bool mirrored = menu.isRightToLeft();
  TooltipWrapper& tooltip = tooltipOf(menu, entry);
  tooltip.GetPosCalculator()->SetDirections(mirrored ? QList{Left, Right} : QList{Right, Left});
  tooltip.UpdateText(tip);
  const int side = mirrored ? 0 : menu.width();
  tooltip.Show(menu.mapToGlobal(QPoint(side, area.center().y())), true, ShowForDuration);
  return true;
}

bool CommandTips::explainButton(QToolButton& button) {
  const QString reason = TooltipReason::of(button);
  if (reason.isEmpty())
    return false;
  TooltipWrapper& tooltip = tooltipOf(button);
  tooltip.GetPosCalculator()->SetRefWidget(&button);
  tooltip.GetPosCalculator()->SetDirection(Bottom);
  tooltip.UpdateText(TooltipReason::composed(button.toolTip(), reason));
  tooltip.Show({}, false, ShowForDuration);
  return true;
}

} // namespace Vela::UiBase
