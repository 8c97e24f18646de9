// SPDX-License-Identifier: MIT
#include <support/input.h>
#include <support/screen_record.h>
#include <tqm_mesh_kernel/stepped_dispatcher.h>
#include <ui_base/commands/run_log.h>
#include <ui_base/notifications/notification_bar.h>
#include <ui_base/views/base_view.h>
#include <vlk_app_service/application_service.h>
#include <vlk_app_service/i_app_manager.h>

#include <commands/commands_fixture.h>

using Taren::Core::ScopedDispatcher;
using Taren::Core::SteppedDispatcher;
using Vela::Services::ApplicationService;
using Vela::Test::pressKey;
using namespace Vela::UiBase;

namespace {

struct TwoCommands : Vela::Services::IAppManager {
  QList<CommandBase*> commandsFor(CmdsViewController* controller) override {
    return {new TestCommand("first", controller), nullptr, new TestCommand("second", controller)};
  }
};

/// A view whose controller has two commands, which may work until they are stopped.
struct Screen {
  QPointer<BaseView> view = new BaseView;
  CmdsViewController* controller = new CmdsViewController(view);
  Screen() {
    ApplicationService::GetInstance().setAppManager(std::make_unique<TwoCommands>());
    controller->setRunNoticeDelay(0);
    view->resize(400, 300);
    view->setFocusPolicy(Qt::StrongFocus);
    Vela::Test::showActive(*view);
    view->setFocus();
  }
  ~Screen() {
    const auto underway = RunLog::Instance().runsUnderway();
    for (const CommandRun& run : underway)
      run.requestStop();
    [[maybe_unused]] const bool ended =
        QTest::qWaitFor([] { return RunLog::Instance().runsUnderway().isEmpty(); });
    delete view;
    ApplicationService::GetInstance().setAppManager(nullptr);
  }
  TestCommand* command(const char* id = "first") const { return controller->findCommand<TestCommand>(id); }
  static void start(TestCommand& command) {
    command.setExecutionQoS(Taren::Core::NormalQoS);
    command.enableExecutionNotification(true);
    command.work = [](bool) {
      for (const RunProgress progress = CommandRun::current().reporter();; QThread::yieldCurrentThread())
        progress.report(0.3);
      return true;
    };
    command.trigger();
  }
  QList<QAbstractButton*> cancelButtons() const {
    auto buttons = view->findChildren<QAbstractButton*>();
    buttons.removeIf(
        [](const auto* button) { return !button->isVisible() || button->text() != QLatin1String("Cancel"); });
    return buttons;
  }
  QString notification() const {
    const auto* const notices = view->findChild<NotificationBar*>();
    return notices && notices->isNotificationShowing() ? notices->accessibleName() : QString();
  }
};

} // namespace

class CmdsViewControllerTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void initTestCase() { NotificationBar::setDefaultFadeDuration(0); }

  void eachViewLoadsTheCommandsOnce() {
    const Screen screen;
    screen.view->hide();
    screen.view->show();
    const CommandBag& bag = std::as_const(*screen.controller).commandBag();
    QCOMPARE(bag.count(), 2);
    QCOMPARE(bag.commandAt(1)->commandId(), QStringLiteral("second"));
    const auto held = screen.controller->shared_from_this();
    delete screen.view;
    QVERIFY(!held->isLoaded()); // nor asked for a shutdown
    BaseView next;
    held->setView(&next);
    next.show();
    QCOMPARE(bag.count(), 2);
    held->setView(nullptr);
  }

  void closingUnchecksAndRemovesCommands() {
    const Screen screen;
    TestCommand* const command = screen.command();
    command->setCheckable(true);
    command->setChecked(true);
    const auto held = command->shared_from_this();
    const QPointer<CommandBase> other = screen.command("second");
    QVERIFY(screen.view->close());
    Vela::Test::settle();
    QVERIFY(!held->isChecked() && held->isEnabled() && !other && !held->getView());
  }

  void busyCursorAndMessageFrameExecution() {
    for (const bool enabled : {true, false}) {
      const Screen screen;
      QApplication::setOverrideCursor(Qt::CrossCursor); // somebody else's
      TestCommand* const command = screen.command();
      command->enableExecutionNotification(enabled);
      command->setExecutionNotificationMessage(StartNotification, QStringLiteral("Loading…"));
      std::pair<bool, QString> seen;
      command->work = [&](bool) {
        seen = {QApplication::overrideCursor()->shape() != Qt::CrossCursor, screen.notification()};
        command->enableExecutionNotification(!enabled);
        return true;
      };
      command->trigger();
      QCOMPARE(seen, std::pair(enabled, enabled ? QStringLiteral("Loading…") : QString()));
      QCOMPARE(QApplication::overrideCursor()->shape(), Qt::CrossCursor);
      QApplication::restoreOverrideCursor();
      QVERIFY(!QApplication::overrideCursor());
    }
  }

  void runIsShownAndCancelled() {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
      const Screen screen;
      screen.command()->setText(QStringLiteral("&Smooth…"));
      Screen::start(*screen.command());
      QTRY_COMPARE(screen.cancelButtons().size(), 1);
      const auto* const bar = screen.view->findChild<QProgressBar*>();
      QTRY_COMPARE(bar->value(), 30);
      QCOMPARE(bar->accessibleName(), QStringLiteral("Smooth…"));
      VELA_COMPARE_SCREEN("run");
      for (int i = 0; i < 5 && !screen.cancelButtons().constFirst()->hasFocus(); ++i)
        pressKey(*screen.view, Qt::Key_Tab);
      pressKey(*screen.view, key);
      QTRY_COMPARE(screen.notification(), QStringLiteral("Smooth was cancelled."));
      QVERIFY(!QApplication::overrideCursor());
      QTRY_VERIFY(!screen.view->findChild<QProgressBar*>());
    }
  }

  void eachRunHasARowThatComesBack() {
    const Screen screen;
    TestCommand* const second = screen.command("second");
    Screen::start(*screen.command());
    Screen::start(*second);
    QTRY_COMPARE(screen.cancelButtons().size(), 2);
    screen.controller->showNotification(QStringLiteral("Saved."), FadeInAndOut, 50);
    QCOMPARE(screen.notification(), QStringLiteral("Saved."));
    QTRY_COMPARE(screen.cancelButtons().size(), 2);
    second->requestStop();
    QTRY_VERIFY(second->runs().isEmpty());
    screen.controller->hideNotification();
    QTRY_COMPARE(screen.cancelButtons().size(), 1);
    screen.controller->removeCommand(screen.command());
    QTRY_COMPARE(screen.cancelButtons().size(), 1); // it still works
    RunLog::Instance().runsUnderway().constFirst().requestStop();
    QTRY_VERIFY(screen.cancelButtons().isEmpty());
  }

  void busyCursorEndsWithItsCommandOrController() {
    const std::function<void(const Screen&)> ends[] = {
        [](const Screen& screen) { screen.controller->removeCommand(screen.command()); },
        [](const Screen& screen) { screen.view->close(); }, [](const Screen& screen) { delete screen.view; }};
    for (const auto& end : ends) {
      SteppedDispatcher dispatcher;
      const ScopedDispatcher installed(dispatcher);
      const Screen screen;
      screen.command()->enableExecutionNotification(true);
      screen.command()->setExecutionQoS(Taren::Core::NormalQoS);
      screen.command()->trigger();
      QVERIFY(QApplication::overrideCursor());
      end(screen);
      QVERIFY(!QApplication::overrideCursor());
      dispatcher.runAll();
      QVERIFY(ApplicationService::GetInstance().isWorkspaceSwitchingEnabled());
    }
  }

  void pendingContextDoesNotReachControllerDeletedByHand() {
    const Screen screen;
    const auto held = screen.controller->shared_from_this();
    screen.controller->setContext(screen.controller->disabledContext());
    delete screen.controller;
    Vela::Test::settle();
    QVERIFY(!screen.view);
  }
};

VELA_TEST_MAIN(CmdsViewControllerTest)
#include "cmds_view_controller_test.moc"
