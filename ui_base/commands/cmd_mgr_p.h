// SPDX-License-Identifier: MIT
#pragma once

#include "cmd_mgr.h"
#include "command_base.h"
#include "command_index.h"
#include "context_layers.h"
#include "pending_context.h"

#include <QHash>
#include <QPointer>

#include <vector>

namespace Vela::UiBase {

class CmdMgrPrivate {
public:
  CommandBag bag;
  CommandIndex index;
  std::weak_ptr<CommandBase> running;
  QList<QPointer<CommandBase>> begun; // not ended; one may have been deleted by hand

  ContextLayers layers;
  QHash<QString, QString> groundReasons;
  std::vector<std::weak_ptr<CommandBase>> departed; // while layers stood
  std::vector<std::weak_ptr<CommandBase>> arrived;  // since the layers were looked at last
  QList<std::shared_ptr<PendingContext>> pending;   // oldest first
  bool applying = false;
};

} // namespace Vela::UiBase
