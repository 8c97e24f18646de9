// SPDX-License-Identifier: MIT
#include "toolbar_manager.h"

#include "pending_group_states.h"
#include "tool_bar_commands.h"
#include "tool_bar_p.h"
#include "toolbar_manager_p.h"
#include "toolbar_row.h"

#include <ui_base/commands/command_group.h>
#include <ui_base/commands/command_walk.h>

#include <QEvent>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

static constexpr int gatheringTime = 200; // ms

ToolbarManagerPrivate::ToolbarManagerPrivate() : pendingStates(std::make_unique<PendingGroupStates>()) {}

ToolbarManagerPrivate::~ToolbarManagerPrivate() = default;

QList<ToolBar*> ToolbarManagerPrivate::toolbars() const {
  QList<ToolBar*> alive;
  for (const DynamicToolbar& each : dynamicToolbars) {
    if (each.toolbar)
      alive.append(each.toolbar);
  }
  return alive;
}

bool ToolbarManagerPrivate::isAdded(const QString& id) const {
  return std::any_of(groups.cbegin(), groups.cend(), [&id](const auto& group) { return group.first == id; });
}

bool ToolbarManagerPrivate::isAdded(const CommandGroup& group) const {
  return std::any_of(groups.cbegin(), groups.cend(),
                     [&group](const auto& each) { return each.second == &group; });
}

const QString ToolbarManager::COMMANDGROUP_PROPERTY = QStringLiteral("CMDGROUP_PROP");

ToolbarManager::ToolbarManager(ToolBar* mainToolbar)
    : ToolbarManager(*new ToolbarManagerPrivate, mainToolbar) {}

ToolbarManager::ToolbarManager(ToolbarManagerPrivate& state, ToolBar* mainToolbar)
    : QObject(mainToolbar), d(&state) {
  initialize(mainToolbar);
}

// A click on one of their buttons may be the cause.
ToolbarManager::~ToolbarManager() {
  const QList<DynamicToolbar> toolbars = d->dynamicToolbars;
  for (const DynamicToolbar& each : toolbars) {
    if (each.toolbar)
      each.toolbar->hide();
    if (each.toolbar)
      each.toolbar->deleteLater();
  }
}

void ToolbarManager::initialize(ToolBar* mainToolbar) {
  d->mainToolbar = mainToolbar;
  d->row = std::make_unique<ToolbarRow>(mainToolbar);
  if (mainToolbar) {
    mainToolbar->installEventFilter(this);
    d->followParent(*this);
  }
  d->actionTimer = new QTimer(this);
  d->actionTimer->setSingleShot(true);
  d->actionTimer->setInterval(gatheringTime);
  connect(d->actionTimer, &QTimer::timeout, this, &ToolbarManager::onActionTimerTimeOut);
}

void ToolbarManager::setGatheringTime(int milliseconds) { d->actionTimer->setInterval(milliseconds); }

// --- the toolbars

void ToolbarManager::addDynamicCommandGroup(CommandGroup* group) {
  if (!group || !d->mainToolbar)
    return;
  d->removed.remove(group->commandId());
  visitCommands(group->commandBag(),
                [this](const CommandBase& command) { d->removed.remove(command.commandId()); });
  follow(*group);
}

// The toolbars come in the order in which the first commands of their groups do.
void ToolbarManager::follow(CommandGroup& group) {
  if (!d->isAdded(group)) {
    d->groups.append({group.commandId(), &group});
    connect(&group, &QObject::destroyed, this, &ToolbarManager::forgetDeadGroups);
  }
  const QPointer<ToolbarManager> self(this);
  const QPointer<CommandGroup> guarded(&group);
  const CommandBag commands = group.commandBag(); // a copy, which keeps the commands
  bool shown = false;
  for (int i = 0; i < commands.count() && self; ++i) {
    CommandBase* const command = commands.commandAt(i);
    if (d->removed.contains(command->commandId()))
      continue;
    if (auto* const nested = dynamic_cast<CommandGroup*>(command))
      follow(*nested);
    else if (guarded && !std::exchange(shown, true))
      ToolBarPrivate::of(*getToolbar(group)).commands->follow(group);
  }
  ToolBar* const toolbar = self && guarded && !shown ? findDynamicToolbar(group.commandId()) : nullptr;
  if (toolbar)
    ToolBarPrivate::of(*toolbar).commands->follow(group);
}

ToolBar* ToolbarManager::getToolbar(CommandGroup& group) {
  const QString id = group.commandId();
  if (ToolBar* const present = findDynamicToolbar(id))
    return present;
  auto* const toolbar = new ToolBar(d->mainToolbar->parentWidget(), Qt::BottomToolBarArea);
  toolbar->hide();
  toolbar->setProperty(qPrintable(COMMANDGROUP_PROPERTY), id);
  const auto nameBar = [toolbar, &group] {
    toolbar->setAccessibleName(group.toolTip().isEmpty() ? group.text() : group.toolTip());
  };
  connect(&group, &QAction::changed, toolbar, nameBar);
  nameBar();
  toolbar->CopyAllParametersFrom(d->mainToolbar);
  // The manager places it, and the row is one with the main toolbar.
  toolbar->SetEnableAutoPosition(false);
  toolbar->EnableShadow(false);
  toolbar->setEnabled(d->mainToolbar->isEnabled());
  ToolBarPrivate::of(*toolbar).commands->setChooser(
      [self = QPointer<ToolbarManager>(this)](const CommandBase& command) {
        return self && !self->d->removed.contains(command.commandId()) &&
               !dynamic_cast<const CommandGroup*>(&command);
      });
  d->dynamicToolbars.append({id, toolbar, false});
  connect(toolbar, &ToolBar::LayoutChanged, this, [this, toolbar] {
    if (!toolbar->isHidden())
      d->row->place(d->toolbars());
  });
  return toolbar;
}

ToolBar* ToolbarManager::findDynamicToolbar(const QString& groupId) const {
  for (const DynamicToolbar& each : std::as_const(d->dynamicToolbars)) {
    if (each.toolbar && each.groupId == groupId)
      return each.toolbar;
  }
  return nullptr;
}

void ToolbarManager::removeDynamicCommand(CommandBase* command) {
  if (!command)
    return;
  d->removed.insert(command->commandId());
  if (auto* const group = dynamic_cast<CommandGroup*>(command)) {
    const QPointer<ToolbarManager> self(this);
    const QString id = group->commandId();
    const QList<CommandGroup*> all = group->commandBag().groups();
    const QList<QPointer<CommandGroup>> nested(all.cbegin(), all.cend());
    for (const QPointer<CommandGroup>& each : nested) {
      if (self && each)
        removeDynamicCommand(each);
    }
    if (self)
      removeToolbar(id);
    return;
  }
  const QList<ToolBar*> toolbars = d->toolbars();
  const QList<QPointer<ToolBar>> guarded(toolbars.cbegin(), toolbars.cend());
  for (const QPointer<ToolBar>& toolbar : guarded) {
    if (toolbar)
      ToolBarPrivate::of(*toolbar).commands->updateAll();
  }
}

void ToolbarManager::removeToolbar(const QString& groupId) {
  const QPointer<ToolBar> toolbar = findDynamicToolbar(groupId);
  const QPointer<ToolbarManager> self(this);
  if (toolbar)
    setToolbarVisible(toolbar, false);
  if (toolbar)
    toolbar->deleteLater();
  if (self)
    d->dynamicToolbars.removeIf(
        [&](const DynamicToolbar& each) { return !each.toolbar || each.groupId == groupId; });
}

// As long as another group of that identifier lives, the toolbar is for that one.
void ToolbarManager::forgetDeadGroups() {
  QStringList gone;
  for (const auto& [id, group] : std::as_const(d->groups)) {
    if (!group)
      gone.append(id);
  }
  d->groups.removeIf([](const auto& each) { return !each.second; });
  const QPointer<ToolbarManager> self(this);
  for (const QString& id : std::as_const(gone)) {
    if (self && !d->isAdded(id))
      removeToolbar(id);
  }
}

bool ToolbarManager::findDynamicCommand(const QString& id) {
  const QList<ToolBar*> toolbars = d->toolbars();
  return std::any_of(toolbars.begin(), toolbars.end(),
                     [&id](const ToolBar* toolbar) { return toolbar->FindOneButton(id, true); });
}

// --- groups begin and end

void ToolbarManager::commandGroupBegan(CommandGroup* group) { onCommandGroupStateChanged(group, true); }

void ToolbarManager::commandGroupEnded(CommandGroup* group) { onCommandGroupStateChanged(group, false); }

void ToolbarManager::onCommandGroupStateChanged(CommandGroup* group, bool began) {
  d->pendingStates->append(group, began);
  // A timer is started by its own thread only.
  QMetaObject::invokeMethod(d->actionTimer, qOverload<>(&QTimer::start), Qt::AutoConnection);
}

void ToolbarManager::onActionTimerTimeOut() {
  const QList<PendingGroupStates::State> states = d->pendingStates->takeLatest();
  const QPointer<ToolbarManager> self(this);
  for (const PendingGroupStates::State& state : states) {
    if (self && state.group)
      applyState(static_cast<CommandGroup&>(*state.group), state.began);
  }
}

void ToolbarManager::applyState(CommandGroup& group, bool began) {
  const QString id = group.commandId();
  const QPointer<ToolbarManager> self(this);
  if (began && d->mainToolbar && d->isAdded(id) && !d->removed.contains(id))
    follow(group);
  const QPointer<ToolBar> toolbar = self ? findDynamicToolbar(id) : nullptr;
  if (toolbar && began)
    ToolBarPrivate::of(*toolbar).commands->followOnly(group);
  if (!self || !toolbar)
    return;
  for (DynamicToolbar& each : d->dynamicToolbars) {
    if (each.toolbar == toolbar)
      each.inUse = began;
  }
  // With a hidden main toolbar it waits for that one.
  if (!began || (d->mainToolbar && !d->mainToolbar->isHidden()))
    setToolbarVisible(toolbar, began);
}

void ToolbarManager::setToolbarVisible(ToolBar* toolbar, bool visible) {
  if (toolbar->isHidden() != visible)
    return;
  const QPointer<ToolBar> shown(toolbar);
  const QPointer<ToolbarManager> self(this);
  const int count = visibleToolbarCount();
  if (visible && count == 0)
    d->row->moveSeparator(); // the main toolbar may have stood before the manager came
  if (count == (visible ? 0 : 1))
    d->row->showSeparator(visible);
  if (visible && self && shown)
    d->row->fit(*toolbar);
  else if (shown)
    toolbar->HideAllButtonMenusExcept(false, nullptr);
  if (shown)
    shown->setVisible(visible);
  if (self)
    d->row->place(d->toolbars());
}

void ToolbarManager::setToolbarsVisible(bool visible) {
  const QPointer<ToolbarManager> self(this);
  const QList<DynamicToolbar> toolbars = d->dynamicToolbars;
  for (const DynamicToolbar& each : toolbars) {
    if (self && each.toolbar && (each.inUse || !visible))
      setToolbarVisible(each.toolbar, visible);
  }
}

int ToolbarManager::visibleToolbarCount() const {
  const QList<ToolBar*> toolbars = d->toolbars();
  return int(std::count_if(toolbars.begin(), toolbars.end(),
                           [](const ToolBar* toolbar) { return !toolbar->isHidden(); }));
}

// The row stands where the main toolbar does.
void ToolbarManagerPrivate::followParent(QObject& manager) {
  if (parent == mainToolbar->parentWidget())
    return;
  if (parent)
    parent->removeEventFilter(&manager);
  const QPointer<QWidget> place = parent = mainToolbar->parentWidget();
  if (place)
    place->installEventFilter(&manager);
  const QList<ToolBar*> all = toolbars();
  const QList<LivePointer<ToolBar>> guarded(all.cbegin(), all.cend());
  const QPointer<QObject> guard(&manager); // who hears of a move may end it, or move the main toolbar again
  for (const LivePointer<ToolBar>& toolbar : guarded) {
    if (guard && toolbar && place && parent == place)
      toolbar->setParent(place);
  }
}

void ToolbarManager::placeRow() {
  d->row->moveSeparator();
  d->row->place(d->toolbars());
}

bool ToolbarManager::eventFilter(QObject* watched, QEvent* event) {
  const QPointer<ToolbarManager> self(this);
  if (watched == d->parent && event->type() == QEvent::Resize)
    d->row->place(d->toolbars());
  if (!self || !d->mainToolbar || watched != d->mainToolbar)
    return false;
  switch (event->type()) {
  case QEvent::ParentChange:
    d->followParent(*this);
    break;
  case QEvent::Move:
  case QEvent::Resize:
  case QEvent::LayoutDirectionChange:
    placeRow();
    break;
  case QEvent::Show:
    placeRow();
    if (self)
      setToolbarsVisible(true);
    break;
  case QEvent::Hide:
    setToolbarsVisible(false);
    break;
  case QEvent::EnabledChange: {
    const QList<ToolBar*> toolbars = d->toolbars();
    const QList<LivePointer<ToolBar>> guarded(toolbars.cbegin(), toolbars.cend()); // one may end another
    for (const LivePointer<ToolBar>& toolbar : guarded) {
      if (self && toolbar && d->mainToolbar)
        toolbar->setEnabled(d->mainToolbar->isEnabled());
    }
    break;
  }
  default:
    break;
  }
  return false;
}

} // namespace Vela::UiBase
