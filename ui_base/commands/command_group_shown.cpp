// SPDX-License-Identifier: MIT
#include "command_group_p.h"
#include "command_ref.h"
#include "upstairs.h"

#include <QScopeGuard>

#include <utility>

namespace Vela::UiBase {

namespace {

// A group without children stands for itself.
bool isNothingEnabled(const CommandBag& children) {
  for (int i = 0; i < children.count(); ++i) {
    if (children.commandAt(i)->isEnabled())
      return false;
  }
  return children.count() > 0;
}

} // namespace

void CommandGroup::setCommandState(const CommandState& state) {
  const CommandRef self(*this);
  if (state.enabled != State::Keep && state.enabled != isEnabled())
    setEnabled(state.enabled);
  if (self.get() && state.checked != State::Keep && isCheckable() && state.checked != isChecked())
    setChecked(state.checked);
}

// Not what the child says of itself: another one may be on, and one that is not checkable says off.
void CommandGroup::showChildren() {
  bool anyChecked = false;
  d->forEachChild([&](const CommandBase& child) { anyChecked = anyChecked || child.isChecked(); });
  onChildTriggered(anyChecked);
}

// Not whether it is checked: while its menu is open the button is, whatever changes in the group.
void CommandGroup::showOnButton() {
  if (d->toolButton)
    d->toolButton->setEnabled(isEnabled() && !isNothingEnabled(d->bag));
}

void CommandGroup::setEnabled(bool enabled) {
  const QPointer<CommandGroup> self(this);
  CommandBase::setEnabled(enabled);
  if (self)
    showOnButton();
}

void CommandGroup::setChecked(bool checked) {
  const QPointer<CommandGroup> self(this);
  CommandBase::setChecked(checked);
  if (self && d->toolButton)
    d->toolButton->setChecked(isCheckable() ? isChecked() : checked);
}

ToolButton* CommandGroup::toolButton() const { return Upstairs::asToolButton(d->toolButton); }

void CommandGroup::setToolButton(ToolButton* button) {
  const CommandRef self(*this);
  d->toolButton = Upstairs::asButton(button);
  showOnButton();
  if (self.get() && d->toolButton && isCheckable())
    d->toolButton->setChecked(isChecked());
}

void CommandGroup::uncheckChildren(bool) {
  const CommandRef self(*this);
  const bool before = std::exchange(d->unchecking, true);
  const auto done = qScopeGuard([&] {
    if (self.get())
      d->unchecking = before;
  });
  const CommandBag children = d->bag; // a child that runs may change the group
  for (int i = 0; i < children.count() && self.get(); ++i) {
    CommandBase* const child = children.commandAt(i);
    if (d->bag.contains(child) && child->isCheckable() && child->isChecked())
      child->toggle();
  }
  if (self.get() && isCheckable() && isChecked())
    setChecked(false);
}

void CommandGroup::onChildTriggered(bool checked) {
  if (isCheckable())
    setChecked(checked);
}

void CommandGroup::onChildToBeTriggered(bool checked) {
  if (!d->unchecking)
    Q_EMIT childToBeTriggered(checked);
}

void CommandGroup::onChildChanged() { showOnButton(); }

} // namespace Vela::UiBase
