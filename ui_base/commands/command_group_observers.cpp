// SPDX-License-Identifier: MIT
#include "command_group_p.h"

#include <utility>

namespace Vela::UiBase {

void CommandGroup::addObserver(CommandStateProtocol* observer) {
  CommandBase::addObserver(observer);
  if (!observer)
    return;
  d->observers.add(observer);
  d->forEachChild([this](CommandBase& child) { d->observers.observe(child); });
}

void CommandGroup::addObserver(const std::shared_ptr<CommandStateProtocol>& observer, bool asynchronous) {
  CommandBase::addObserver(observer, asynchronous);
  if (!observer)
    return;
  d->observers.add(observer, asynchronous);
  d->forEachChild([this](CommandBase& child) { d->observers.observe(child); });
}

void CommandGroup::removeObserver(CommandStateProtocol* observer) {
  CommandBase::removeObserver(observer);
  d->observers.remove(observer);
  d->forEachChild([&](CommandBase& child) { child.removeObserver(observer); });
  d->forEachChild([this](CommandBase& child) { leaveToOtherGroups(child); });
}

void CommandGroup::removeObserver(const std::shared_ptr<CommandStateProtocol>& observer) {
  CommandBase::removeObserver(observer);
  d->observers.remove(observer);
  d->forEachChild([&](CommandBase& child) { child.removeObserver(observer); });
  d->forEachChild([this](CommandBase& child) { leaveToOtherGroups(child); });
}

void CommandGroup::removeAllObservers() {
  CommandBase::removeAllObservers();
  const GroupObservers observers = std::exchange(d->observers, {});
  d->forEachChild([&](CommandBase& child) {
    observers.stopObserving(child);
    leaveToOtherGroups(child);
  });
}

} // namespace Vela::UiBase
