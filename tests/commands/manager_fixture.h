// SPDX-License-Identifier: MIT
#pragma once

#include "commands_fixture.h"

#include <tqm_mesh_kernel/stepped_dispatcher.h>
#include <ui_base/commands/command_group.h>

/// Identifiers for the commands of a test.
namespace Ids {
inline constexpr QLatin1String a("a");
inline constexpr QLatin1String b("b");
inline constexpr QLatin1String c("c");
inline constexpr QLatin1String d("d");
} // namespace Ids

class TestManager : public Vela::UiBase::CmdMgr {
public:
  void commandBegan(Vela::UiBase::CommandBase* command) override {
    ++began;
    Vela::UiBase::CmdMgr::commandBegan(command);
  }

  int began = 0;
  QStringList forgotten;

protected:
  void commandForgotten(Vela::UiBase::CommandBase& command) override { forgotten += command.commandId(); }
};

class TestDelegate : public Vela::UiBase::CmdMgrProtocol {
public:
  void commandAdded(Vela::UiBase::CmdMgr*, Vela::UiBase::CommandBase* command) override {
    heard += QStringLiteral("added ") + command->commandId();
    if (added)
      added(*command);
  }
  void commandRemoved(Vela::UiBase::CmdMgr*, QString id) override {
    heard += QStringLiteral("removed ") + id;
  }

  QStringList heard;
  std::function<void(Vela::UiBase::CommandBase&)> added;
};

inline QString groupId(const QString& name) { return QStringLiteral("Vela::UiBase::CommandGroup") + name; }

inline Vela::UiBase::CommandGroup* groupOf(const QString& name,
                                           const QList<Vela::UiBase::CommandBase*>& children) {
  auto* const group = new Vela::UiBase::CommandGroup(QString(), QString(), name);
  for (Vela::UiBase::CommandBase* const child : children)
    group->addCommand(child, 0);
  return group;
}

/// A manager with a delegate; tasks are stepped by hand.
class ManagerFixture {
public:
  ManagerFixture() { manager->setDelegate(delegate, false); }

  TestCommand* add(const QString& id) { return add(new TestCommand(id)); }
  template <class Command>
  Command* add(Command* command) {
    manager->addCommand(command);
    return command;
  }
  /// How often the manager hears the command.
  int heardBy(TestCommand& command) const {
    manager->began = 0;
    command.begin();
    command.end();
    return manager->began;
  }
  const Vela::UiBase::CommandBag& bag() const { return std::as_const(*manager).commandBag(); }
  void apply() { dispatcher.runAll(); }

  Taren::Core::SteppedDispatcher dispatcher;
  Taren::Core::ScopedDispatcher installed{dispatcher};
  std::shared_ptr<TestManager> manager = Taren::Objects::createShared<TestManager>();
  std::shared_ptr<TestDelegate> delegate = std::make_shared<TestDelegate>();
};
