// SPDX-License-Identifier: MIT
#include "way_out.h"

#include <ui_base/commands/cmd_mgr.h>
#include <ui_base/commands/command_base.h>
#include <ui_base/commands/command_name.h>
#include <ui_base/commands/flyout_command.h>
#include <ui_base/popups/flyout_base.h>

#include <QCoreApplication>

#include <algorithm>

namespace Vela::UiBase {

namespace {

struct WayOutTexts {
  Q_DECLARE_TR_FUNCTIONS(Vela::UiBase::WayOut)
};

QWidget* openPanel(CommandBase& command) {
  const auto* const flyout = dynamic_cast<FlyoutCommand*>(&command);
  QWidget* const panel = flyout ? flyout->simpleFlyout() : nullptr;
  return panel && panel->isVisible() ? panel : nullptr;
}

QList<CommandRun> stoppableRuns(const CommandBase& command) {
  QList<CommandRun> runs = command.runs();
  runs.removeIf([](const CommandRun& run) { return !run.canBeStopped() || run.isStopRequested(); });
  return runs;
}

void addWayPast(CommandBase& holder, QList<WayOut>& ways) {
  const QString id = holder.commandId();
  const auto known = [&](const WayOut& way) { return way.holderId == id; };
  if (std::ranges::any_of(ways, known))
    return;
  if (openPanel(holder))
    ways.append(
        {WayOut::ShowPanel, id, WayOutTexts::tr("Show the panel of \"%1\"").arg(nameInSentence(holder))});
  if (!stoppableRuns(holder).isEmpty())
    ways.append({WayOut::CancelRun, id, WayOutTexts::tr("Cancel \"%1\"").arg(nameInSentence(holder))});
}

} // namespace

QList<WayOut> waysOut(const CmdMgr& manager, CommandBase& command) {
  const QList<CommandCause> causes = manager.explain(command.commandId());
  QList<WayOut> ways;
  for (const CommandCause& cause : causes) {
    CommandBase* const holder = manager.findCommand(cause.holder.commandId());
    if (cause.kind == CommandCause::Layer && holder)
      addWayPast(*holder, ways);
  }
  const auto passes = [](const CommandCause& cause) { return cause.kind == CommandCause::Layer; };
  if (!causes.isEmpty() && std::ranges::all_of(causes, passes))
    ways.append({WayOut::RunWhenFree,
                 {},
                 WayOutTexts::tr("Run \"%1\" as soon as it is available").arg(nameInSentence(command))});
  return ways;
}

void takeWayOut(const WayOut& way, const CmdMgr& manager) {
  CommandBase* const holder = manager.findCommand(way.holderId);
  if (!holder)
    return;
  if (way.kind == WayOut::CancelRun) {
    holder->requestStop();
  } else if (QWidget* const panel = way.kind == WayOut::ShowPanel ? openPanel(*holder) : nullptr) {
    panel->window()->raise();
    panel->window()->activateWindow();
    panel->setFocus(Qt::ShortcutFocusReason);
    if (!panel->hasFocus() && panel->nextInFocusChain() && panel->isAncestorOf(panel->nextInFocusChain()))
      panel->nextInFocusChain()->setFocus(Qt::ShortcutFocusReason);
  }
}

} // namespace Vela::UiBase
