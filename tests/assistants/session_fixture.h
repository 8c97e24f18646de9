// SPDX-License-Identifier: MIT
#pragma once

#include <support/input.h>
#include <ui_base/assistants/session_recorder.h>
#include <ui_base/assistants/session_replay.h>
#include <ui_base/assistants/session_subject.h>
#include <ui_base/commands/command_group.h>
#include <ui_base/commands/run_log.h>
#include <ui_base/tools/interactive_tool.h>
#include <ui_base/tools/operation_log.h>
#include <ui_base/views/base_view.h>

#include <commands/commands_fixture.h>

namespace Vela::UiBase {

class AddCommand : public TestCommand {
public:
  using TestCommand::TestCommand;

  QVariantMap inputs() const override { return used; }
  bool setInputs(const QVariantMap& inputs) override {
    given = inputs;
    if (meanwhile)
      std::exchange(meanwhile, {})();
    return inputs.isEmpty() || inputs.contains("by");
  }
  bool needsInputs() const override { return true; }
  bool onExecute(bool checked) override {
    used = std::exchange(given, {});
    return TestCommand::onExecute(checked);
  }

  QVariantMap given;
  QVariantMap used;
  std::function<void()> meanwhile; // while it is given inputs, once
};

class SetTool : public InteractiveTool {
public:
  SetTool(BaseView* view, int& shown) : InteractiveTool(view), m_shown(shown) {}

  bool perform(const ToolOperation& operation) override {
    if (operation.action == "set" && !operation.positions.isEmpty())
      m_shown = int(operation.positions.constFirst().x());
    return operation.action == "set";
  }

private:
  int& m_shown;
};

/// An application with a number: commands and a tool that change it.
class Counter : public SessionSubject {
public:
  Counter() {
    add->work = [this](bool) {
      number += add->used.value("by").toInt();
      if ((busy = add->used.contains("later")))
        QTimer::singleShot(30, &view, [this] {
          number *= 10;
          busy = false;
        });
      controller->setGroundState("twice", {State::On, State::Keep});
      return true;
    };
    twice->setExecutionQoS(Taren::Core::NormalQoS);
    twice->work = [this](bool) {
      if (stops)
        CommandRun::current().requestStop();
      number = stops ? number : 2 * number;
      return !stops;
    };
    both->work = [this](bool) { return add->setInputs({{"by", 1}}) && add->onExecute(false); };
    ask->work = [](bool) {
      QDialog dialog;
      dialog.setWindowTitle("Sure?");
      return dialog.exec() == QDialog::Accepted;
    };
    askLater->setExecutionQoS(Taren::Core::NormalQoS);
    askLater->work = [this](bool) {
      bool answer = false;
      QMetaObject::invokeMethod(
          qApp, [&] { answer = ask->work(false); }, Qt::BlockingQueuedConnection);
      return answer;
    };
    for (CommandBase* const command : std::initializer_list<CommandBase*>{add, twice, both, ask, askLater})
      controller->addCommand(command);
    auto* const group = new CommandGroup({}, {}, "modes");
    group->addCommand(checkableCommand("a", true), 0);
    group->addCommand(checkableCommand("b"), 1);
    controller->addCommand(group);
    controller->setGroundState("twice", {State::Off, State::Keep}, "Nothing was added.");
    controller->pushTool(LeftButton, std::make_shared<SetTool>(&view, number));
  }

  bool isBusy() const override { return busy; }
  QVariantMap state() const override { return {{"number", number}}; }
  CommandBase* command(const char* id) const { return controller->findCommand(id); }

  BaseView view;
  std::shared_ptr<CmdsViewController> controller = Taren::Objects::createShared<CmdsViewController>(&view);
  AddCommand* add = new AddCommand("add", controller.get());
  TestCommand* twice = new TestCommand("twice", controller.get());
  TestCommand* both = new TestCommand("both", controller.get());
  TestCommand* ask = new TestCommand("ask", controller.get());
  TestCommand* askLater = new TestCommand("askLater", controller.get());
  int number = 0;
  bool busy = false;
  bool stops = false;
};

/// What a replay of a text comes to: "whole", or why not.
inline QString outcomeOf(const QString& text, SessionSubject& subject, CmdMgr* manager) {
  QString error;
  const auto session = Session::fromText(text, QDir::root(), &error);
  if (!session)
    return error;
  SessionReplay replay(subject);
  replay.addManager(manager);
  QSignalSpy finished(&replay, &SessionReplay::finished);
  replay.start(*session);
  if (!finished.wait())
    return "does not end";
  return finished[0][0].toBool() ? QString("whole") : finished[0][1].toString();
}

} // namespace Vela::UiBase
