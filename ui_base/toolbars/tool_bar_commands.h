// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

#include <vector>

class QAction;

namespace Vela::UiBase {

class CommandBag;
class CommandBase;
class CommandGroup;
class ToolBar;
class ToolButton;

/// The command groups that a toolbar shows in panels of their own. It brings the buttons up to date when
/// children come, go or move, once per turn of the event loop.
class ToolBarCommands : public QObject {
  Q_OBJECT

public:
  explicit ToolBarCommands(ToolBar& toolBar);
  ~ToolBarCommands() override;

  /// Begins to show a group. @return false when it is shown already.
  bool add(CommandGroup& group);
  /// Adds what is new in a group, and removes what is gone.
  void update(CommandGroup& group);
  /// Ends to show a group, and the groups in it that are shown here.
  void remove(CommandGroup& group);
  bool shows(const CommandGroup& group) const;
  /// The name of the button group in which a command stands.
  QString groupName(const CommandBase& command) const;

private:
  struct Shown {
    QPointer<CommandGroup> group;
    QList<QPointer<QAction>> children; // as they were last seen
    bool dirty = false;
  };

  Shown* find(const CommandGroup& group);
  void scheduleUpdate(CommandGroup& group);
  void removeChild(CommandBase& child, const CommandGroup& group);
  void arrange(const CommandBag& bag, CommandGroup& group, const QList<QPointer<QAction>>& before);
  ToolButton* addChild(CommandBase& child, CommandGroup& group, int index);

  ToolBar& m_toolBar;
  std::vector<Shown> m_shown;
  bool m_scheduled = false;
};

/// Whether a group inside another one gets a panel in the same toolbar, and not a sub-toolbar.
bool standsInPanel(const CommandGroup& group);

/// What a button stands for: the action it is bound to, or the one that it carries.
QAction* actionOf(const ToolButton& button);

} // namespace Vela::UiBase
