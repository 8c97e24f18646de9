// SPDX-License-Identifier: MIT
#include <support/screen_record.h>
#include <support/test_case.h>
#include <tqm_mesh_kernel/stepped_dispatcher.h>
#include <ui_base/commands/command_base.h>
#include <ui_base/commands/run_log.h>
#include <ui_base/notifications/notification_bar.h>
#include <ui_base/views/base_view.h>
#include <ui_base/views/cmds_view_controller.h>
#include <vlk_app_service/application_service.h>
#include <vlk_app_service/i_app_manager.h>

#include <QAbstractButton>
#include <QApplication>
#include <QPointer>
#include <QProgressBar>
#include <QThread>

#include <functional>

using Taren::Core::ScopedDispatcher;
using Taren::Core::SteppedDispatcher;
using Vela::Services::ApplicationService;
using namespace Vela::UiBase;

namespace {

class NotingCommand : public CommandBase {
public:
  NotingCommand(CmdsViewController* controller, QString id) : CommandBase(controller), m_id(std::move(id)) {
    enableExecutionNotification(true);
  }
  QString commandId() const override { return m_id; }
  bool onExecuteAsync(bool) override {
    if (work)
      work();
    return true;
  }
  std::function<void()> work;

private:
  const QString m_id;
};

class TwoCommands : public Vela::Services::IAppManager {
public:
  QList<CommandBase*> commandsFor(CmdsViewController* controller) override {
    return {new NotingCommand(controller, "first"), nullptr, new NotingCommand(controller, "second")};
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
    view->show();
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
  NotingCommand* command(const char* id = "first") const {
    return controller->findCommand<NotingCommand>(id);
  }
  static void start(NotingCommand& command) {
    command.setExecutionQoS(Taren::Core::NormalQoS);
    command.work = [] {
      for (const RunProgress progress = CommandRun::current().reporter();; QThread::yieldCurrentThread())
        progress.report(0.3);
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
  void eachViewLoadsTheCommandsOnce();
  void closingUnchecksAndRemovesCommands();
  void busyCursorAndMessageFrameExecution();
  void runIsShownAndCancelled();
  void eachRunHasARowThatComesBack();
  void busyCursorEndsWithItsCommandOrController();
  void pendingContextDoesNotReachControllerDeletedByHand();
};

void CmdsViewControllerTest::eachViewLoadsTheCommandsOnce() {
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

void CmdsViewControllerTest::closingUnchecksAndRemovesCommands() {
  const Screen screen;
  NotingCommand* const command = screen.command();
  command->setCheckable(true);
  command->setChecked(true);
  const auto held = command->shared_from_this();
  const QPointer<CommandBase> other = screen.command("second");
  QVERIFY(screen.view->close());
  Vela::Test::settle();
  QVERIFY(!held->isChecked() && held->isEnabled() && !other);
  QVERIFY(!held->getView() && !held->getViewController());
}

void CmdsViewControllerTest::busyCursorAndMessageFrameExecution() {
  for (const bool enabled : {true, false}) {
    const Screen screen;
    QApplication::setOverrideCursor(Qt::CrossCursor); // somebody else's
    NotingCommand* const command = screen.command();
    command->enableExecutionNotification(enabled);
    command->setExecutionNotificationMessage(StartNotification, QStringLiteral("Loading…"));
    command->work = [&] {
      QCOMPARE(QApplication::overrideCursor()->shape() == Qt::CrossCursor, !enabled);
      QCOMPARE(screen.notification(), enabled ? QStringLiteral("Loading…") : QString());
      command->enableExecutionNotification(!enabled);
    };
    command->trigger();
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::CrossCursor);
    QApplication::restoreOverrideCursor();
    QVERIFY(!QApplication::overrideCursor());
  }
}

void CmdsViewControllerTest::runIsShownAndCancelled() {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
    const Screen screen;
    screen.view->activateWindow();
    screen.view->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(screen.view));
    screen.command()->setText(QStringLiteral("&Smooth…"));
    Screen::start(*screen.command());
    QTRY_COMPARE(screen.cancelButtons().size(), 1);
    const auto* const bar = screen.view->findChild<QProgressBar*>();
    QTRY_COMPARE(bar->value(), 30);
    QCOMPARE(bar->accessibleName(), QStringLiteral("Smooth…"));
    VELA_COMPARE_SCREEN("run");
    for (int i = 0; i < 5 && !screen.cancelButtons().constFirst()->hasFocus(); ++i)
      QTest::keyClick(screen.view->windowHandle(), Qt::Key_Tab);
    QTest::keyClick(screen.view->windowHandle(), key);
    QTRY_COMPARE(screen.notification(), QStringLiteral("Smooth was cancelled."));
    QVERIFY(!QApplication::overrideCursor());
    QTRY_VERIFY(!screen.view->findChild<QProgressBar*>());
  }
}

void CmdsViewControllerTest::eachRunHasARowThatComesBack() {
  const Screen screen;
  NotingCommand* const second = screen.command("second");
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

void CmdsViewControllerTest::busyCursorEndsWithItsCommandOrController() {
  for (const char* end : {"command removed", "view closed", "view deleted"}) {
    SteppedDispatcher dispatcher;
    const ScopedDispatcher installed(dispatcher);
    const Screen screen;
    screen.command()->setExecutionQoS(Taren::Core::NormalQoS);
    screen.command()->trigger();
    QVERIFY(QApplication::overrideCursor());
    if (qstrcmp(end, "command removed") == 0)
      screen.controller->removeCommand(screen.command());
    else if (qstrcmp(end, "view closed") == 0)
      screen.view->close();
    else
      delete screen.view;
    QVERIFY(!QApplication::overrideCursor());
    dispatcher.runAll();
    QVERIFY(ApplicationService::GetInstance().isWorkspaceSwitchingEnabled());
  }
}

void CmdsViewControllerTest::pendingContextDoesNotReachControllerDeletedByHand() {
  const Screen screen;
  const auto held = screen.controller->shared_from_this();
  screen.controller->setContext(screen.controller->disabledContext());
  delete screen.controller;
  Vela::Test::settle();
  QVERIFY(!screen.view);
}

VELA_TEST_MAIN(CmdsViewControllerTest)
#include "cmds_view_controller_test.moc"
