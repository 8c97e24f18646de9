// SPDX-License-Identifier: MIT
#include "cycle_checkable_command.h"

#include "command_group.h"

#include <QKeySequence>
#include <QPointer>

namespace Vela::UiBase {

class CycleCheckableCommandPrivate {
public:
  QPointer<CommandGroup> group;
  QString id;
};

namespace {

int positionAfterChecked(const CommandBag& children) {
  for (int i = 0; i < children.count(); ++i) {
    if (children.commandAt(i)->isChecked())
      return (i + 1) % children.count();
  }
  return 0;
}

// The candidate itself when no child is enabled.
int firstEnabledFrom(const CommandBag& children, int candidate) {
  for (int step = 0; step < children.count(); ++step) {
    const int position = (candidate + step) % children.count();
    if (children.commandAt(position)->isEnabled())
      return position;
  }
  return candidate;
}

} // namespace

CycleCheckableCommand::CycleCheckableCommand(CmdsViewController* controller, const QKeySequence& shortcut,
                                             CommandGroup* group)
    : CycleCheckableCommand(controller, shortcut, group, className()) {}

CycleCheckableCommand::CycleCheckableCommand(CmdsViewController* controller, const QKeySequence& shortcut,
                                             CommandGroup* group, const QString& id)
    : CommandBase(controller), d(std::make_unique<CycleCheckableCommandPrivate>()) {
  d->group = group;
  d->id = id.isEmpty() ? className() : id;
  setShortcut(shortcut);
}

CycleCheckableCommand::~CycleCheckableCommand() { beginDestruction(); }

QString CycleCheckableCommand::className() {
  static const QString name = QString::fromLatin1(staticMetaObject.className());
  return name;
}

QString CycleCheckableCommand::commandId() const { return d->id; }

bool CycleCheckableCommand::onExecuteAsync(bool) {
  if (!d->group || !d->group->isEnabled())
    return false;
  const CommandBag& children = d->group->commandBag();
  if (children.count() == 0)
    return false;
  const int next = firstEnabledFrom(children, positionAfterChecked(children));
  const auto child = children.sharedCommandAt(next); // its run may end the group
  child->toggle();
  return true;
}

} // namespace Vela::UiBase
