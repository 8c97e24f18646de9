// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QHash>
#include <QList>
#include <QString>

#include <memory>
#include <vector>

namespace Vela::UiBase {

class CommandBase;
class CommandGroup;

/// An ordered registry of commands, each under its identifier. Shares ownership of its commands; a copy holds
/// the same commands. The time of a look-up does not depend on how many commands there are. For the main
/// thread.
///
/// A second object under an identifier that is taken is accepted; look-ups find the first.
///
/// @code
/// CommandBag bag;
/// bag.addCommand(new OpenCommand(controller));      // the bag owns it now
/// if (CommandBase* open = bag[OpenCommand::className()])
///   open->trigger();
/// @endcode
class UI_BASE_EXPORT CommandBag {
public:
  CommandBag();
  /// A copy shares the commands.
  CommandBag(const CommandBag&);
  CommandBag& operator=(const CommandBag&);
  virtual ~CommandBag();

  /// Appends a command. @return false for null, and when the same object stands there under its identifier.
  bool addCommand(const std::shared_ptr<CommandBase>& command);
  /// Takes a plain pointer into shared ownership, or joins the ownership when it is shared, then appends it.
  bool addCommand(CommandBase* command);
  /// Like addCommand(), at a position, which is limited to the ends.
  bool insertCommand(int position, const std::shared_ptr<CommandBase>& command);

  /// Removes the first command of that identifier. @return false when there is none.
  bool removeCommand(const QString& id);
  /// Removes that object. @return false when it is not here.
  bool removeCommand(const CommandBase* command);
  /// Gives up all commands; those nobody else holds are deleted.
  void clear();

  /// Whether that object stands here.
  bool contains(const CommandBase* command) const;
  /// Whether a command with this identifier is in it.
  bool hasCommand(const QString& id) const;
  /// @p index becomes the position of the first match, or the number of commands when there is none.
  bool hasCommand(const QString& id, int& index) const;
  /// The first command of that identifier, or null.
  CommandBase* getCommand(const QString& id) const;
  /// As the other, with its position.
  CommandBase* getCommand(const QString& id, int& index) const;
  /// See getCommand().
  CommandBase* operator[](const QString& id) const { return getCommand(id); }
  /// As getCommand(), with a reference that keeps the command alive.
  std::shared_ptr<CommandBase> getSharedCommand(const QString& id) const;

  /// How many commands are in it.
  int count() const noexcept { return static_cast<int>(m_entries.size()); }
  /// The command at a position, or null when there is no such position.
  CommandBase* commandAt(int i) const;
  /// The command at a place as a reference that keeps it alive; null outside.
  std::shared_ptr<CommandBase> sharedCommandAt(int i) const;
  /// Those of the commands that are groups, in order.
  const QList<CommandGroup*>& groups() const noexcept { return m_groups; }

private:
  friend class CommandIndex;

  struct Entry {
    QString id;
    std::shared_ptr<CommandBase> command;
  };
  struct First {
    std::shared_ptr<CommandBase> command;
    int count = 0; // how many commands stand under the identifier
  };
  using Entries = std::vector<Entry>;

  int positionOf(const QString& id) const;
  void remove(Entries::const_iterator entry);
  void collectGroups();

  Entries m_entries;
  QHash<QString, First> m_first;
  QList<CommandGroup*> m_groups;
  mutable QHash<QString, int> m_positions; // of the first of each identifier; empty when out of date
};

} // namespace Vela::UiBase
