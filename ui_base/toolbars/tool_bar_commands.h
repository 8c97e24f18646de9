// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

#include <functional>
#include <vector>

class QAction;

namespace Vela::UiBase {

class CommandBag;
class CommandBase;
class CommandGroup;
class ToolBar;
class ToolButton;

/// The command groups that a toolbar shows in panels of their own: the one way in which a toolbar follows a
/// group. It brings the buttons up to date when children come, go or move, once per turn of the event loop,
/// and takes them away when the group dies.
class ToolBarCommands : public QObject {
  Q_OBJECT

public:
  using Chooser = std::function<bool(const CommandBase& command)>;

  explicit ToolBarCommands(ToolBar& toolBar);
  ~ToolBarCommands() override;

  /// Which commands of the groups are shown; all unless one is set.
  void setChooser(Chooser chooser) { m_chooser = std::move(chooser); }

  /// Begins to show a group. @return false when it is shown already.
  bool add(CommandGroup& group);
  /// Adds what is new in a group, and removes what is gone.
  void update(CommandGroup& group);
  void updateAll();
  /// Shows a group, as it is now.
  void follow(CommandGroup& group);
  /// Shows no other groups.
  void followOnly(const CommandGroup& group);
  /// Ends to show a group, and the groups in it that are shown here.
  void remove(CommandGroup& group);
  bool shows(const CommandGroup& group) const;
  /// The name of the button group in which a command stands.
  QString groupName(const CommandBase& command) const;

private:
  struct Shown {
    QPointer<CommandGroup> group;
    QString name;
    QList<QPointer<QAction>> children; // as they were last seen
    bool dirty = false;
  };

  Shown* find(const CommandGroup& group);
  void scheduleUpdate(CommandGroup& group);
  QList<QPointer<QAction>> chosen(const CommandBag& bag) const;
  void removeDead();
  void removeChild(CommandBase& child, const QString& group);
  void arrange(CommandGroup& group, const QList<QPointer<QAction>>& children,
               const QList<QPointer<QAction>>& before);
  ToolButton* addChild(CommandBase& child, CommandGroup& group, int index);

  ToolBar& m_toolBar;
  std::vector<Shown> m_shown;
  Chooser m_chooser;
  bool m_scheduled = false;
};

/// Whether a group inside another one gets a panel in the same toolbar, and not a sub-toolbar.
bool standsInPanel(const CommandGroup& group);

/// What a button stands for: the action it is bound to, or the one that it carries.
QAction* actionOf(const ToolButton& button);

} // namespace Vela::UiBase
