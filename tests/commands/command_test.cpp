// SPDX-License-Identifier: MIT
#include "execution_fixture.h"

#include <support/test_case.h>
#include <vlk_license/license_service.h>

#include <stdexcept>
#include <thread>

using namespace Vela::License;
using namespace Vela::UiBase;
using Taren::Core::MainThreadQoS;
using Taren::Core::ScopedDispatcher;
using Taren::Core::SteppedDispatcher;
using Taren::Objects::createShared;

namespace {

class Trial : public ILicenseProvider {
public:
  ELicenseState state() const override { return TrialLicense; }
  bool activate(const QString&, QString*) override { return false; }
};

void asks(const std::function<void(AsyncFixture&)>& meanwhile, Qt::Key key, int told) {
  LicenseService::Instance().setProvider(std::make_unique<Trial>());
  AsyncFixture f;
  f.command->setExecutionQoS(MainThreadQoS);
  f.command->setIsPaidFeature(true);
  f.view->show();
  int seen = 0;
  QTimer timer; // goes on: on Windows a loop that was left under a key of QtTest ends with the next message
  QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
    const QPointer<QWidget> box = QApplication::activeModalWidget();
    if (seen || !box || !box->isVisible())
      return;
    ++seen;
    meanwhile(f);
    if (box)
      QTest::keyClick(box->windowHandle(), key);
  });
  timer.start(1);
  f.command->trigger();
  QCOMPARE(seen, 1);
  f.dispatcher.runAll();
  QCOMPARE(f.log.entries.size(), told);
}

enum How { Deleted, Removed, DeletedThoughShared };

void diesAt(const QString& stage, How how, int told) {
  SteppedDispatcher dispatcher;
  const ScopedDispatcher installed(dispatcher);
  int destroyed = 0;
  const auto manager = createShared<CmdMgr>();
  auto* const command = new TestCommand(QStringLiteral("id"));
  command->atEnd = [&destroyed] { ++destroyed; };
  if (how != Deleted)
    manager->addCommand(command);
  ExecutionLog log(*command);
  const auto pass = [&, command](const QString& where) {
    if (where == stage)
      how == Removed ? void(manager->removeCommand(command)) : delete command;
  };
  const auto noteAndPass = [&](const char* where) {
    return [&log, pass, where](CommandBase*, bool checked) {
      log.note(where, checked);
      pass(where);
    };
  };
  command->setCheckable(stage == QLatin1String("toggle"));
  QObject::connect(command, &CommandBase::toBeTriggered, [&] { pass("signal"); });
  QObject::connect(command, &CommandBase::toBeToggled, [&] { pass("toggle"); });
  log.observer->began = noteAndPass("began");
  log.observer->ended = noteAndPass("ended");
  command->work = [work = noteAndPass("work")](bool checked) {
    work(nullptr, checked);
    return true;
  };
  command->trigger();
  dispatcher.runAll();
  QCOMPARE(destroyed, 1);
  QCOMPARE(log.entries.size(), told);
}

} // namespace

/// How a command runs when it is triggered or toggled, what it survives, and how it asks for a licence.
class CommandTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void cleanup() { LicenseService::Instance().setProvider(nullptr); }

  void runsOncePerTriggerOrToggle() {
    const QString ran("began 0, work 0, ended 0");
    const QString toggled("toBeToggled 1, began 1, work 1, ended 1");
    using Row = std::tuple<bool, const char*, QString>;
    for (const auto& [checkable, slot, expected] :
         {Row{false, "trigger", "toBeTriggered 0, " + ran}, Row{false, "toggle", ""},
          Row{false, "onExecute", ran}, Row{true, "trigger", toggled}, Row{true, "toggle", toggled}}) {
      TestCommand command(QStringLiteral("id")); // on the stack, never shared
      command.setCheckable(checkable);
      ExecutionLog log(command);
      connect(&command, &CommandBase::toBeTriggered,
              [&](bool checked) { log.note("toBeTriggered", checked); });
      connect(&command, &CommandBase::toBeToggled, [&](bool checked) { log.note("toBeToggled", checked); });
      QVERIFY(QMetaObject::invokeMethod(&command, slot));
      command.setEnabled(false);
      command.trigger();
      const QString heard = log.entries.join(", ").remove(QRegularExpression(" \\|[^,]*"));
      QCOMPARE(heard, expected);
    }
  }

  void synchronousRunStaysOnItsThread() {
    SteppedDispatcher dispatcher;
    const ScopedDispatcher installed(dispatcher);
    const auto command = createShared<TestCommand>(QStringLiteral("id"));
    ExecutionLog log(*command);
    QThread* thread = nullptr;
    QThread* failedOn = nullptr;
    command->failed = [&](const QString&) { failedOn = QThread::currentThread(); };
    std::thread other([&] {
      thread = QThread::currentThread();
      command->onExecute();
      command->work = [](bool) -> bool { throw std::runtime_error("refused"); };
      command->onExecute();
    });
    other.join();
    QCOMPARE(log.threads, QList<QThread*>(5, thread));
    QVERIFY(!failedOn); // the reason is shown by the main thread
    dispatcher.runAll();
    QCOMPARE(failedOn, QThread::currentThread());
  }

  void guardedObserverNeverSeesADeadCommand() {
    class Guarded : public QObject, public TestObserver {
      using QObject::QObject;
    };
    SteppedDispatcher dispatcher;
    const ScopedDispatcher installed(dispatcher);
    QObject parent;
    auto* const observer = new Guarded(&parent);
    QStringList heard;
    observer->began = [&](CommandBase* command, bool) { heard += command->commandId(); };
    auto shared = createShared<TestCommand>(QStringLiteral("shared"));
    auto unshared = std::make_unique<TestCommand>(QStringLiteral("unshared"));
    for (TestCommand* const command : {shared.get(), unshared.get()}) {
      command->addObserver(observer);
      command->trigger();
    }
    shared.reset();
    unshared.reset();
    dispatcher.runAll();
    QCOMPARE(heard, QStringList{QStringLiteral("shared")}); // which lives as long as it is told of
  }

  void commandDiesOfItsOwnSignals() {
    const std::pair<const char*, int> stages[] = {
        {"signal", 0}, {"toggle", 0}, {"began", 1}, {"work", 2}, {"ended", 3}};
    for (const auto& [stage, told] : stages) {
      diesAt(stage, Deleted, told);
      diesAt(stage, DeletedThoughShared, told);
      diesAt(stage, Removed, 3); // only let go of, it lives to the end of its run
    }
  }

  void everythingMayDieWhileTheUserIsAsked() {
    asks([](AsyncFixture&) {}, Qt::Key_Escape, 0);
    const auto remove = [](AsyncFixture& f) { f.controller->removeCommand(f.command); };
    asks(remove, Qt::Key_Return, 3); // lives to the end of its run
    asks([](AsyncFixture& f) { delete f.command; }, Qt::Key_Return, 0);
    asks([](AsyncFixture& f) { f.deleteView(); }, Qt::Key_Return, 0); // and the box with it
  }
};

VELA_TEST_MAIN(CommandTest)
#include "command_test.moc"
