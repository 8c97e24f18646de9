// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_group.h>
#include <ui_base/core/live_pointer.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/toolbar_manager.h>

#include <QPointer>
#include <QSet>

#include <utility>

class QTimer;

namespace Vela::UiBase {

class PendingGroupStates;
class ToolbarRow;

/// A toolbar of a row, and whether its group is in use.
struct DynamicToolbar {
  QString groupId;
  LivePointer<ToolBar> toolbar;
  bool inUse = false;
};

/// The state of ToolbarManager; a base for that of an application's subclass.
class UI_BASE_EXPORT ToolbarManagerPrivate {
public:
  ToolbarManagerPrivate();
  virtual ~ToolbarManagerPrivate();
  Q_DISABLE_COPY_MOVE(ToolbarManagerPrivate)

  /// Those that have not died.
  QList<ToolBar*> toolbars() const;
  bool isAdded(const QString& id) const;
  bool isAdded(const CommandGroup& group) const;

  /// The row goes where the main toolbar has gone, hidden; the manager filters that place.
  void followParent(QObject& manager);

  QList<DynamicToolbar> dynamicToolbars;
  QList<std::pair<QString, QPointer<CommandGroup>>> groups; // those that were added
  QSet<QString> removed; // the identifiers of what was removed, though it may still be in its group
  LivePointer<ToolBar> mainToolbar;
  std::unique_ptr<ToolbarRow> row;
  const std::unique_ptr<PendingGroupStates> pendingStates;
  QTimer* actionTimer = nullptr;
  QPointer<QWidget> parent; // of the row
};

} // namespace Vela::UiBase
