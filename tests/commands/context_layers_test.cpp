// SPDX-License-Identifier: MIT
#include "context_model.h"
#include "manager_fixture.h"

#include <support/test_case.h>
#include <ui_base/commands/flyout_command.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/views/base_view.h>

#include <random>
#include <thread>

using namespace Vela::UiBase;

namespace {

CommandContext toContext(const ContextModel::States& states) {
  CommandContext context;
  for (auto entry = states.cbegin(); entry != states.cend(); ++entry)
    context.overwrite(entry.key(), {entry->first, entry->second});
  return context;
}

/// A command with a panel, which asks for the contexts that the test gives it.
class PanelCommand : public FlyoutCommand {
public:
  PanelCommand(QString commandIdentifier, CmdsViewController* controller, QWidget* host)
      : FlyoutCommand(new FlyoutBase("Panel", new QSpinBox, AllPanelButtons, host), controller),
        id(std::move(commandIdentifier)) {
    simpleFlyout()->hide();
  }
  QString commandId() const override { return id; }
  bool onExecuteAsync(bool) override { return true; }

  const QString id;
  CommandContext beginContext;
  CommandContext executionContext;

protected:
  CommandContext getBeginCommandContext() override { return beginContext; }
  CommandContext getExecutionCommandContext() override { return executionContext; }
};

/// The commands of a view beside the model of their contexts. Tasks are stepped by hand.
class Duel {
public:
  explicit Duel(unsigned seed) : m_random(seed) {
    m_model.childrenOf = {{groupId("E"), {"e", "f"}}, {groupId("N"), {"g", "h"}}};
    m_model.exclusive = {{"e", {"f"}}, {"f", {"e"}}};
    m_model.groupOf = {{"e", groupId("E")}, {"f", groupId("E")}, {"g", groupId("N")}, {"h", groupId("N")}};
    m_model.checkable = {"a", "b", "e", "f", "g", "h", "y", groupId("E"), groupId("N")};
    m_controller->addCommand(groupOf("E", {checkableCommand("e"), checkableCommand("f")}));
    auto* const several = groupOf("N", {checkableCommand("g"), checkableCommand("h")});
    several->groupActionGroup()->setExclusive(false);
    m_controller->addCommand(several);
    for (const char* const id : {"a", "b", "c"})
      m_controller->addCommand(m_model.checkable.contains(id) ? checkableCommand(id) : new TestCommand(id));
    for (const auto& [id, qos] : m_runners.asKeyValueRange()) {
      auto* const command = new TestCommand(id, m_controller);
      command->setExecutionQoS(qos);
      m_controller->addCommand(command);
    }
    for (const char* const id : {"x", "y"}) {
      auto* const command = new PanelCommand(id, m_controller, &m_window);
      command->setCheckable(command->id == "y");
      m_controller->addCommand(command);
    }
    m_dispatcher.runAll();
    const CommandContext present = m_controller->currentContext();
    for (auto entry = present.get().cbegin(); entry != present.get().cend(); ++entry)
      m_model.present[entry.key()] = {valueOf(entry->enabled), valueOf(entry->checked)};
  }
  Q_DISABLE_COPY_MOVE(Duel)

  /// @return what is different; empty when nothing is.
  QString difference() {
    QStringList expected;
    for (const ContextModel::Layer& layer : std::as_const(m_model.layers)) {
      ContextModel::States saved;
      for (auto entry = layer.saved.cbegin(); entry != layer.saved.cend(); ++entry) {
        const auto& [id, part] = entry.key();
        if (!layer.late.contains(id))
          (part == ContextModel::Enabled ? saved[id].first : saved[id].second) = entry.value();
      }
      expected += textOf(toContext(saved));
    }
    QStringList stack;
    for (const CommandContext& saved : m_controller->contextStack())
      stack += textOf(saved);
    if (stack != expected)
      return "saved " + stack.join("\n      ") + "\nmodel " + expected.join("\n      ");
    drain();
    const QString states = textOf(m_controller->currentContext());
    const QString model = textOf(toContext(m_model.present));
    return states == model ? QString() : "states " + states + "\nmodel  " + model;
  }

  void step() {
    static constexpr void (Duel::*moves[])() = {
        &Duel::set,     &Duel::push,     &Duel::hold,   &Duel::hold,       &Duel::release,
        &Duel::release, &Duel::pop,      &Duel::enable, &Duel::check,      &Duel::addOrRemove,
        &Duel::regroup, &Duel::run,      &Duel::finish, &Duel::beginOrEnd, &Duel::beginOrEnd,
        &Duel::turn,    &Duel::setGround};
    (this->*moves[below(std::size(moves))])();
  }

private:
  struct Hold {
    ContextHold hold;
    int layer;
  };

  int below(qsizetype limit) { return static_cast<int>(m_random() % unsigned(limit)); }

  void drain() {
    while (m_dispatcher.step(Taren::Core::MainThreadQoS)) {
    }
  }

  ContextModel::States someStates() {
    ContextModel::States states;
    for (const QString& id :
         QStringList{"a", "b", "c", "e", "f", "g", "h", "r", "x", "y", "z", groupId("E")}) {
      if (below(3) == 0)
        states[id] = {below(3), id == "y" ? 2 : below(3)}; // checked, it begins
    }
    return states;
  }
  QString oneOf(const QStringList& ids) { return ids.at(below(ids.size())); }

  void set() {
    const auto states = someStates();
    m_controller->setContext(toContext(states));
    m_model.set(states);
  }
  void push() {
    const auto states = someStates();
    m_controller->pushContext(toContext(states));
    m_model.push(states, {}, false);
  }
  void hold() {
    const auto states = someStates();
    const QString id = oneOf({"a", "e", "g", "x", QString()});
    const auto holder = id.isEmpty() ? ContextHolder::because("busy") : ContextHolder::running(id);
    m_holds.push_back({m_controller->holdContext(toContext(states), holder), 0});
    m_holds.back().layer = m_model.push(states, id, true);
  }
  void release() {
    if (m_holds.empty())
      return;
    const auto at = m_holds.begin() + below(qsizetype(m_holds.size()));
    m_model.release(at->layer);
    m_holds.erase(at);
  }
  void pop() {
    if (!m_model.hasFree() && !m_model.layers.isEmpty())
      return;
    m_controller->popContext();
    m_model.pop();
  }
  void enable() {
    drain();
    const QString id = oneOf({"a", "b", "e", "g", "r", "y", groupId("N")});
    if (CommandBase* const command = m_controller->findCommand(id))
      command->setCommandState({m_model.present[id].first = below(2), State::Keep});
  }
  void check() {
    drain();
    const QString id = oneOf({"a", "b", "e", "f", "g", "h"});
    const int on = below(2);
    if (CommandBase* const command = m_controller->findCommand(id))
      command->setChecked(on);
    m_model.check(m_model.present, id, on);
  }
  void addOrRemove() {
    drain();
    const QString id = oneOf({"a", "b", "c", "z"});
    if (m_model.present.remove(id)) {
      m_controller->removeCommand(id);
      return;
    }
    const bool checkable = m_model.checkable.contains(id);
    const int on = checkable && below(2);
    CommandBase* const command = checkable ? checkableCommand(id, on) : new TestCommand(id);
    m_controller->addCommand(command);
    const int enabled = below(2);
    command->setEnabled(enabled); // who adds it may give it its state right after
    m_model.add(id, enabled, on);
  }
  void regroup() {
    drain();
    auto* const group = dynamic_cast<CommandGroup*>(m_controller->findCommand(groupId("N")));
    if (m_model.present.contains("h")) {
      group->removeCommand("h");
      m_model.leave("h");
      return;
    }
    const int on = below(2);
    group->addCommand(checkableCommand("h", on), 0);
    m_model.join("h", on);
  }
  void run() {
    const QString id = oneOf({"r", "s", "x"});
    const auto states = below(4) ? someStates() : ContextModel::States();
    CommandBase& command = *m_controller->findCommand(id);
    if (auto* const panel = dynamic_cast<PanelCommand*>(&command))
      panel->executionContext = toContext(states); // it applies
    else
      static_cast<TestCommand&>(command).executionContext = toContext(states);
    command.onExecute();
    m_runs[command.executionQoS()].append(states.isEmpty() ? 0 : m_model.push(states, id, true));
  }
  void finish() {
    drain();
    const auto qos = below(2) ? Taren::Core::NormalQoS : Taren::Core::HighQoS;
    if (!m_dispatcher.step(qos))
      return;
    drain();
    m_model.release(m_runs[qos].takeFirst());
  }
  void beginOrEnd() {
    drain();
    const QString id = oneOf({"x", "y"});
    auto* const command = static_cast<PanelCommand*>(m_controller->findCommand(id));
    if (m_sessions.contains(id)) {
      command->onFinalize();
      m_model.present[id].second = 0;
      m_model.release(m_sessions.take(id));
      return;
    }
    auto states = someStates();
    command->beginContext = toContext(states);
    if (states.contains(id))
      states[id] = {2, 2};
    command->isCheckable() ? command->setChecked(true) : command->onBegin();
    m_model.check(m_model.present, id, 1);
    m_sessions[id] = m_model.push(states, id, true);
  }
  void setGround() {
    if (m_model.layers.isEmpty())
      return;
    const QString id = oneOf({"c", "e", "f", "g", "r", "s"});
    const int enabled = below(3);
    const int checked = below(3);
    m_controller->setGroundState(id, {enabled, checked});
    m_model.setGround(id, enabled, checked);
  }
  void turn() {
    if (below(40) == 0)
      reset();
    m_dispatcher.step(Taren::Core::MainThreadQoS);
  }
  void reset() {
    drain();
    m_controller->resetContext();
    drain();
    m_model.layers.clear();
    m_sessions.remove("y"); // unchecked, it ends
    ContextModel::States all = m_model.present;
    for (auto& state : all)
      state = {1, 0};
    m_model.set(all);
  }

  const QMap<QString, Taren::Core::EQualityOfService> m_runners{{"r", Taren::Core::NormalQoS},
                                                                {"s", Taren::Core::HighQoS}};
  Taren::Core::SteppedDispatcher m_dispatcher;
  Taren::Core::ScopedDispatcher m_installed{m_dispatcher};
  QWidget m_window;
  BaseView m_view;
  CmdsViewController* m_controller = new CmdsViewController(&m_view);
  ContextModel m_model;
  std::mt19937 m_random;
  std::vector<Hold> m_holds;
  QMap<Taren::Core::EQualityOfService, QList<int>> m_runs; // 0 where nothing was pushed
  QMap<QString, int> m_sessions;
};

} // namespace

/// Layers of contexts, which end in any order.
class ContextLayersTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  // VELA_MODEL_STEPS and VELA_MODEL_SEED make it longer or another one.
  void layersFollowTheModel() {
    const int asked = qEnvironmentVariableIntValue("VELA_MODEL_STEPS");
    const int steps = asked > 0 ? asked : 1000;
    const auto seed = unsigned(qEnvironmentVariableIntValue("VELA_MODEL_SEED"));
    qInfo("seed %u", seed);
    for (int round = 0; round < steps / 200; ++round) {
      Duel duel(seed + unsigned(round));
      for (int step = 0; step < 200; ++step) {
        duel.step();
        if (const QString difference = step % 3 ? QString() : duel.difference(); !difference.isEmpty())
          QFAIL(qPrintable(
              QStringLiteral("seed %1, step %2\n%3").arg(seed + unsigned(round)).arg(step).arg(difference)));
      }
    }
  }

  void popTakesWhatNobodyHolds() {
    ManagerFixture f;
    auto* const command = f.add(checkableCommand(Ids::a));
    auto hold = f.manager->holdContext(f.manager->disabledContext());
    auto moved = std::move(hold);
    f.manager->pushContext({});
    auto upper = f.manager->holdContext({}, ContextHolder::because("busy"));
    f.manager->popContext(); // the one below the top
    // NOLINTNEXTLINE(bugprone-use-after-move,clang-analyzer-cplusplus.Move): what was moved holds nothing
    QVERIFY(moved.isHolding() && upper.isHolding() && !hold.isHolding());
    f.manager->popContext(); // all are held
    QVERIFY(moved.isHolding() && !upper.isHolding());
    f.apply();
    QVERIFY(!command->isEnabled());
    f.manager->setGroundState("a", {State::Off, State::On});
    std::thread([&] { moved.release(); }).join();
    f.apply();
    QVERIFY(!command->isEnabled() && command->isChecked());
    f.manager.reset();
    upper.release();
  }

  void whatOnlyAGroupOfTheApplicationKnowsIsGivenBackToo() {
    class Knowing : public CommandGroup {
    public:
      Knowing() : CommandGroup(QString(), QString(), QStringLiteral("K")) {}
      bool hasCommand(const QString& id) const override { return id == own->commandId(); }
      CommandBase* getCommand(const QString&) override { return own.get(); }

      const std::shared_ptr<CommandBase> own =
          Taren::Objects::adoptShared<CommandBase>(checkableCommand("z"));
    };
    ManagerFixture f;
    const CommandBase& own = *f.add(new Knowing)->own;
    const CommandBase& command = *f.add(QString(Ids::a));
    f.manager->setContext({{"a", {2, 0}}, {"z", {2, 1}}}); // waits as the layer comes
    auto hold = f.manager->holdContext({{"a", {0, 2}}, {"z", {0, 0}}});
    f.manager->updateContextInStack("a", {0, 2});
    f.apply();
    QVERIFY(!own.isEnabled() && !own.isChecked());
    hold.release();
    f.apply();
    QVERIFY(own.isEnabled() && own.isChecked() && !command.isEnabled());
  }

  void holdsEndInOneAnother() {
    ManagerFixture f;
    auto* const first = f.add(checkableCommand(Ids::a));
    auto* const second = f.add(Ids::b);
    auto* const third = f.add(Ids::c);
    auto outer = f.manager->holdContext({{"a", {2, 1}}, {"b", {0, 2}}});
    auto inner = f.manager->holdContext({{"b", {0, 2}}, {"c", {0, 2}}});
    f.apply();
    QVERIFY(first->isChecked() && !second->isEnabled() && !third->isEnabled());
    f.add(Ids::d);
    f.manager->removeCommand(Ids::d);              // before the layers are laid over it
    connect(first, &QAction::toggled, first, [&] { // while the outer one is half released
      inner.release();
      f.manager->pushContext({{"c", {0, 2}}});
      f.dispatcher.runAll();
      f.manager->popContext();
    });
    outer.release();
    f.apply();
    QVERIFY(!first->isChecked() && second->isEnabled() && third->isEnabled());
    QVERIFY(f.manager->contextStack().isEmpty());
  }
};

VELA_TEST_MAIN(ContextLayersTest)
#include "context_layers_test.moc"
