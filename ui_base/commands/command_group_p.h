// SPDX-License-Identifier: MIT
#pragma once

#include "command_group.h"
#include "group_observers.h"

#include <QAbstractButton>
#include <QHash>
#include <QPointer>

namespace Vela::UiBase {

class CommandGroupPrivate {
public:
  CommandBag bag;
  QHash<QString, int> ranks;
  QActionGroup* actionGroup = nullptr; // a child of the group
  bool grid = false;
  int gridSize = 0;
  bool virtualGroup = false;
  bool unchecking = false;
  ToolBar* toolbar = nullptr;
  QPointer<QAbstractButton> toolButton;
  GroupObservers observers;

  template <class Visitor>
  void forEachChild(const Visitor& visit) const {
    for (int i = 0; i < bag.count(); ++i)
      visit(*bag.commandAt(i));
  }
};

} // namespace Vela::UiBase
