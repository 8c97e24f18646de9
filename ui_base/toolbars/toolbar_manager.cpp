// SPDX-License-Identifier: MIT
#include "toolbar_manager.h"

#include "pending_group_states.h"
#include "tool_bar_commands.h"
#include "tool_bar_content.h"
#include "tool_bar_p.h"

#include <ui_base/commands/command_group.h>
#include <ui_base/commands/command_walk.h>
#include <ui_base/core/live_pointer.h>

#include <QEvent>
#include <QIcon>
#include <QLabel>
#include <QList>
#include <QPointer>
#include <QSet>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

namespace {

constexpr int gatheringTime = 200; // ms

struct DynamicToolbar {
  LivePointer<ToolBar> toolbar;
  bool inUse = false;
};

bool isHorizontal(const ToolBar& toolbar) { return toolbar.Orientation() == Qt::Horizontal; }

/// In the pixels of the screen that the label is on.
QPixmap separatorPicture(const QLabel& label, bool horizontal) {
  const QIcon icon(horizontal ? QStringLiteral(":/resources/images/sys_hseparator.png")
                              : QStringLiteral(":/resources/images/sys_vseparator.png"));
  const QList<QSize> sizes = icon.availableSizes();
  return sizes.isEmpty() ? QPixmap() : icon.pixmap(sizes.constFirst(), label.devicePixelRatioF());
}

} // namespace

class ToolbarManagerPrivate {
public:
  QList<DynamicToolbar> dynamicToolbars;
  QSet<QString> groups;  // the identifiers of those that were added
  QSet<QString> removed; // the identifiers of what was removed, though it may still be in its group
  QPoint anchor;
  LivePointer<ToolBar> mainToolbar;
  QList<QPointer<QLabel>> separators;
  int separatorSize = 2;
  PendingGroupStates pendingStates;
  QTimer* actionTimer = nullptr;
  QPointer<QWidget> row; // the parent of the main toolbar

  /// Those that have not died.
  QList<ToolBar*> toolbars() const {
    QList<ToolBar*> alive;
    for (const DynamicToolbar& each : dynamicToolbars) {
      if (each.toolbar)
        alive.append(each.toolbar);
    }
    return alive;
  }
};

const QString ToolbarManager::COMMANDGROUP_PROPERTY = QStringLiteral("CMDGROUP_PROP");

ToolbarManager::ToolbarManager(ToolBar* mainToolbar)
    : QObject(mainToolbar), d(std::make_unique<ToolbarManagerPrivate>()) {
  initialize(mainToolbar);
}

ToolbarManager::~ToolbarManager() {
  for (ToolBar* const toolbar : d->toolbars())
    delete toolbar;
  while (!d->separators.isEmpty())
    removeSeparator(0);
}

void ToolbarManager::initialize(ToolBar* mainToolbar) {
  d->mainToolbar = mainToolbar;
  if (mainToolbar) {
    mainToolbar->installEventFilter(this);
    d->row = mainToolbar->parentWidget();
    if (d->row)
      d->row->installEventFilter(this);
    addSeparator();
  }
  d->actionTimer = new QTimer(this);
  d->actionTimer->setSingleShot(true);
  d->actionTimer->setInterval(gatheringTime);
  connect(d->actionTimer, &QTimer::timeout, this, &ToolbarManager::onActionTimerTimeOut);
}

void ToolbarManager::setGatheringTime(int milliseconds) { d->actionTimer->setInterval(milliseconds); }

// --- the separator

void ToolbarManager::addSeparator() {
  auto* const separator = new QLabel(d->mainToolbar->parentWidget());
  separator->setFocusPolicy(Qt::NoFocus);
  const bool horizontal = isHorizontal(*d->mainToolbar);
  if (horizontal)
    separator->setFixedWidth(d->separatorSize);
  else
    separator->setFixedHeight(d->separatorSize);
  const QPixmap picture = separatorPicture(*separator, horizontal);
  if (!picture.isNull()) {
    separator->setPixmap(picture);
    const QSize size = picture.deviceIndependentSize().toSize();
    if (horizontal)
      separator->setFixedWidth(size.width());
    else
      separator->setFixedHeight(size.height());
  }
  separator->setAlignment(Qt::AlignCenter);
  separator->move(0, 0);
  separator->hide();
  d->separators.append(separator);
}

void ToolbarManager::removeSeparator(int index) { delete d->separators.takeAt(index); }

// --- the toolbars

void ToolbarManager::addDynamicCommandGroup(CommandGroup* group) {
  if (!group || !d->mainToolbar)
    return;
  d->removed.remove(group->commandId());
  visitCommands(group->commandBag(),
                [this](const CommandBase& command) { d->removed.remove(command.commandId()); });
  addCommands(*group);
}

void ToolbarManager::addCommands(CommandGroup& group) {
  d->groups.insert(group.commandId());
  const CommandBag& commands = group.commandBag();
  int position = 0;
  for (int i = 0; i < commands.count(); ++i) {
    CommandBase* const command = commands.commandAt(i);
    if (d->removed.contains(command->commandId()))
      continue;
    if (auto* const nested = dynamic_cast<CommandGroup*>(command)) {
      addCommands(*nested);
      continue;
    }
    bool existed = false;
    ToolBar* const toolbar = getToolbar(&group, existed, true);
    ToolButton* button = toolbar->FindOneButton(command->commandId(), false);
    if (!button)
      button = ToolBarPrivate::of(*toolbar).addSingleCommand(command, &group);
    if (button)
      ToolBarPrivate::of(*toolbar).content->move(*button, group.commandId(), position++);
    if (existed)
      continue;
    addToolbar(toolbar);
    toolbar->hide();
  }
}

void ToolbarManager::removeLeftCommands(ToolBar& toolbar, const CommandGroup& group) {
  const QList<ToolButton*> buttons = toolbar.Buttons();
  for (const ToolButton* const button : buttons) {
    auto* const command = dynamic_cast<CommandBase*>(button->Action());
    if (command && !group.commandBag().contains(command))
      toolbar.RemoveCommand(command);
  }
}

void ToolbarManager::addToolbar(ToolBar* toolbar) {
  d->dynamicToolbars.append({toolbar, false});
  connect(toolbar, &ToolBar::LayoutChanged, this, [this, toolbar] {
    if (!toolbar->isHidden())
      calcInnerToolbarPositions();
  });
}

ToolBar* ToolbarManager::getToolbar(CommandGroup* group, bool& existed, bool create) {
  const QString id = group->commandId();
  ToolBar* toolbar = findDynamicToolbar(id);
  existed = toolbar;
  if (toolbar || !create || !d->mainToolbar)
    return toolbar;
  toolbar = new ToolBar(d->mainToolbar->parentWidget(), Qt::BottomToolBarArea);
  toolbar->setProperty(qPrintable(COMMANDGROUP_PROPERTY), id);
  toolbar->setAccessibleName(group->toolTip().isEmpty() ? group->text() : group->toolTip());
  toolbar->CopyAllParametersFrom(d->mainToolbar);
  // The manager places it, and the row is one with the main toolbar.
  toolbar->SetEnableAutoPosition(false);
  toolbar->EnableShadow(false);
  toolbar->setEnabled(d->mainToolbar->isEnabled());
  return toolbar;
}

ToolBar* ToolbarManager::findDynamicToolbar(const QString& groupId) {
  for (ToolBar* const toolbar : d->toolbars()) {
    if (toolbar->property(qPrintable(COMMANDGROUP_PROPERTY)).toString() == groupId)
      return toolbar;
  }
  return nullptr;
}

void ToolbarManager::removeDynamicCommand(CommandBase* command) {
  if (!command)
    return;
  d->removed.insert(command->commandId());
  if (auto* const group = dynamic_cast<CommandGroup*>(command)) {
    const QList<CommandGroup*> nested = group->commandBag().groups();
    for (CommandGroup* const each : nested)
      removeDynamicCommand(each);
    if (ToolBar* const toolbar = findDynamicToolbar(group->commandId())) {
      setToolbarVisible(toolbar, false);
      delete toolbar;
    }
  } else {
    for (ToolBar* const toolbar : d->toolbars())
      toolbar->RemoveCommand(command);
  }
  d->dynamicToolbars.removeIf([](const DynamicToolbar& each) { return !each.toolbar; });
  calcInnerToolbarPositions();
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
  d->pendingStates.append(group, began);
  // A timer is started by its own thread only.
  QMetaObject::invokeMethod(d->actionTimer, qOverload<>(&QTimer::start), Qt::AutoConnection);
}

void ToolbarManager::onActionTimerTimeOut() {
  const QList<PendingGroupStates::State> states = d->pendingStates.takeLatest();
  const QPointer<ToolbarManager> self(this);
  for (const PendingGroupStates::State& state : states) {
    if (self && state.group)
      applyState(static_cast<CommandGroup*>(state.group.data()), state.began);
  }
}

void ToolbarManager::applyState(CommandGroup* group, bool began) {
  const QString id = group->commandId();
  if (began && d->mainToolbar && d->groups.contains(id) && !d->removed.contains(id))
    addCommands(*group);
  ToolBar* const toolbar = findDynamicToolbar(id);
  if (!toolbar)
    return;
  if (began)
    removeLeftCommands(*toolbar, *group);
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
  const int count = visibleToolbarCount();
  if ((visible && count == 0) || (!visible && count == 1)) {
    for (const auto& separator : std::as_const(d->separators)) {
      if (separator)
        separator->setVisible(visible);
    }
  }
  const QPointer<ToolBar> shown(toolbar);
  const QPointer<ToolbarManager> self(this);
  if (visible)
    fitToolbar(toolbar);
  else
    toolbar->HideAllButtonMenusExcept(false, nullptr);
  if (shown)
    shown->setVisible(visible);
  if (self)
    calcInnerToolbarPositions();
}

void ToolbarManager::setToolbarsVisible(bool visible) {
  const QList<DynamicToolbar> toolbars = d->dynamicToolbars;
  for (const DynamicToolbar& each : toolbars) {
    if (each.toolbar && (each.inUse || !visible))
      setToolbarVisible(each.toolbar, visible);
  }
}

int ToolbarManager::visibleToolbarCount() {
  const QList<ToolBar*> toolbars = d->toolbars();
  return int(std::count_if(toolbars.begin(), toolbars.end(),
                           [](const ToolBar* toolbar) { return !toolbar->isHidden(); }));
}

// --- the row

void ToolbarManager::calcDynamicToolbarPanelGeometry() {
  if (!d->mainToolbar)
    return;
  const QRect main = d->mainToolbar->geometry();
  const bool horizontal = isHorizontal(*d->mainToolbar);
  d->anchor = horizontal ? QPoint(main.right() + MAIN_SPACING, main.top())
                         : QPoint(main.left(), main.bottom() + MAIN_SPACING);
  for (const auto& separator : std::as_const(d->separators)) {
    if (!separator)
      continue;
    if (horizontal)
      separator->setFixedHeight(main.height());
    else
      separator->setFixedWidth(main.width());
    separator->move(d->anchor);
  }
  calcInnerToolbarPositions();
}

void ToolbarManager::calcInnerToolbarPositions() {
  if (!d->mainToolbar || d->separators.isEmpty() || !d->separators.constFirst())
    return;
  const bool horizontal = isHorizontal(*d->mainToolbar);
  const QMargins margins = d->mainToolbar->MainContentMargins();
  const int step = d->mainToolbar->ButtonGroupSpacing() + (horizontal ? margins.right() : margins.bottom());
  QRect previous = d->separators.constFirst()->geometry();
  int gap = MAIN_SPACING;
  for (ToolBar* const toolbar : d->toolbars()) {
    if (toolbar->isHidden())
      continue;
    toolbar->move(horizontal ? QPoint(previous.right() + gap, previous.top())
                             : QPoint(previous.left(), previous.bottom() + gap));
    fitToolbar(toolbar);
    previous = toolbar->geometry();
    gap = step;
  }
}

// As large as its buttons need, as long as the window has room for it; beyond that the toolbar lists them.
void ToolbarManager::fitToolbar(ToolBar* toolbar) {
  QSize size = toolbar->sizeHint();
  if (d->row) {
    const QPoint position = toolbar->pos();
    const QSize room = d->row->size() - QSize(position.x(), position.y());
    size = size.boundedTo(room).expandedTo(toolbar->minimumSizeHint());
  }
  if (toolbar->size() != size)
    toolbar->resize(size);
}

bool ToolbarManager::eventFilter(QObject* watched, QEvent* event) {
  if (watched == d->row && event->type() == QEvent::Resize)
    calcInnerToolbarPositions();
  if (!d->mainToolbar || watched != d->mainToolbar)
    return QObject::eventFilter(watched, event);
  switch (event->type()) {
  case QEvent::Move:
  case QEvent::Resize:
    calcDynamicToolbarPanelGeometry();
    break;
  case QEvent::Show:
    calcDynamicToolbarPanelGeometry();
    setToolbarsVisible(true);
    break;
  case QEvent::Hide:
    setToolbarsVisible(false);
    break;
  case QEvent::EnabledChange:
    for (ToolBar* const toolbar : d->toolbars())
      toolbar->setEnabled(d->mainToolbar->isEnabled());
    break;
  default:
    break;
  }
  return QObject::eventFilter(watched, event);
}

} // namespace Vela::UiBase
