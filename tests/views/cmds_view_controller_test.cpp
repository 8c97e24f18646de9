// SPDX-License-Identifier: MIT
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
  Q_OBJECT
  COMMAND_ID(NotingCommand)

public:
  explicit NotingCommand(CmdsViewController* controller) : CommandBase(controller) {}
  bool onExecuteAsync(bool) override {
    if (work)
      work();
    return true;
  }
  std::function<void()> work;
};

class SecondCommand : public NotingCommand {
  Q_OBJECT
  COMMAND_ID(SecondCommand)

public:
  using NotingCommand::NotingCommand;
};

class TwoCommands : public Vela::Services::IAppManager {
public:
  QList<CommandBase*> commandsFor(CmdsViewController* controller) override {
    return {new NotingCommand(controller), nullptr, new SecondCommand(controller)};
  }
};

/// A subclass that passes its view up through the virtual bases.
class PhotoController : public CmdsViewController {
public:
  explicit PhotoController(BaseView* view) : CmdsViewController(view) {}
};

struct Screen {
  QPointer<BaseView> view = new BaseView;
  PhotoController* controller = new PhotoController(view);
  Screen() {
    ApplicationService::GetInstance().setAppManager(std::make_unique<TwoCommands>());
    view->resize(400, 300);
    view->show();
  }
  ~Screen() {
    delete view;
    ApplicationService::GetInstance().setAppManager(nullptr);
  }
  NotingCommand* command() const {
    return dynamic_cast<NotingCommand*>(controller->findCommand(NotingCommand::className()));
  }
};

/// A screen whose commands work until they are stopped.
struct WorkingScreen : Screen {
  WorkingScreen() { controller->setRunNoticeDelay(0); }
  ~WorkingScreen() {
    const auto underway = RunLog::Instance().runsUnderway();
    for (const CommandRun& run : underway)
      run.requestStop();
    [[maybe_unused]] const bool ended =
        QTest::qWaitFor([] { return RunLog::Instance().runsUnderway().isEmpty(); });
  }
  static void start(NotingCommand& command) {
    command.enableExecutionNotification(true);
    command.setExecutionQoS(Taren::Core::NormalQoS);
    command.work = [] {
      for (const RunProgress progress = CommandRun::current().reporter();; QThread::yieldCurrentThread())
        progress.report(0.3);
    };
    command.trigger();
  }
  QProgressBar* bar() const { return view->findChild<QProgressBar*>(); }
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

int overrideCursors() {
  int count = 0;
  QList<QCursor> cursors;
  while (QApplication::overrideCursor()) {
    cursors.prepend(*QApplication::overrideCursor());
    QApplication::restoreOverrideCursor();
    ++count;
  }
  for (const QCursor& cursor : std::as_const(cursors))
    QApplication::setOverrideCursor(cursor);
  return count;
}

} // namespace

class CmdsViewControllerTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void initTestCase() { NotificationBar::setDefaultFadeDuration(0); }
  void commandsComeFromAppManagerInOrder();
  void closingUnchecksAndRemovesCommands();
  void nextViewOfHeldControllerLoadsFreshCommands();
  void busyCursorFramesExecution();
  void executionMessages();
  void runIsShownAndCancelled_data();
  void runIsShownAndCancelled();
  void eachRunHasARowThatComesBack();
  void busyCursorEndsWithItsCommandOrController();
  void commandFindsItsViewUntilItDies();
  void pendingContextDoesNotReachControllerDeletedByHand();
};

void CmdsViewControllerTest::commandsComeFromAppManagerInOrder() {
  const Screen screen;
  screen.view->hide();
  screen.view->show();
  const CommandBag& bag = std::as_const(*screen.controller).commandBag();
  QCOMPARE(bag.count(), 2);
  QCOMPARE(bag.commandAt(0)->commandId(), NotingCommand::className());
  QCOMPARE(bag.commandAt(1)->commandId(), SecondCommand::className());
}

void CmdsViewControllerTest::closingUnchecksAndRemovesCommands() {
  const Screen screen;
  NotingCommand* const command = screen.command();
  command->setCheckable(true);
  command->setChecked(true);
  const auto held = command->shared_from_this();
  const QPointer<CommandBase> other = screen.controller->findCommand(SecondCommand::className());
  QVERIFY(screen.view->close());
  Vela::Test::settle();
  QVERIFY(!held->isChecked() && held->isEnabled());
  QVERIFY(!other);
  QVERIFY(!held->getViewController());
}

void CmdsViewControllerTest::nextViewOfHeldControllerLoadsFreshCommands() {
  const Screen screen;
  const auto held = screen.controller->shared_from_this();
  delete screen.view;
  BaseView next;
  held->setView(&next);
  next.show();
  QCOMPARE(std::as_const(*screen.controller).commandBag().count(), 2);
  held->setView(nullptr);
}

void CmdsViewControllerTest::busyCursorFramesExecution() {
  for (const bool before : {true, false}) {
    for (const bool meanwhile : {true, false}) {
      const Screen screen;
      QApplication::setOverrideCursor(Qt::CrossCursor); // somebody else's
      NotingCommand* const command = screen.command();
      command->enableExecutionNotification(before);
      int seen = 0;
      command->work = [&] {
        seen = overrideCursors() - 1;
        command->enableExecutionNotification(meanwhile);
      };
      command->trigger();
      QCOMPARE(seen, before ? 1 : 0);
      QCOMPARE(overrideCursors(), 1);
      QApplication::restoreOverrideCursor();
      QVERIFY(!screen.controller->isNotificationShowing());
    }
  }
}

void CmdsViewControllerTest::executionMessages() {
  for (const QString start : {"Loading…", ""}) {
    for (const QString end : {"Loaded.", ""}) {
      const Screen screen;
      NotingCommand* const command = screen.command();
      command->enableExecutionNotification(true);
      command->setExecutionNotificationMessage(StartNotification, start);
      command->setExecutionNotificationMessage(EndNotification, end);
      bool during = false;
      command->work = [&] { during = screen.controller->isNotificationShowing(); };
      command->trigger();
      QCOMPARE(during, !start.isEmpty());
      QCOMPARE(screen.controller->isNotificationShowing(), !end.isEmpty());
    }
  }
}

void CmdsViewControllerTest::runIsShownAndCancelled_data() {
  QTest::addColumn<std::function<void(const WorkingScreen&)>>("cancel");
  const auto row = [](const char* name, std::function<void(const WorkingScreen&)> cancel) {
    QTest::newRow(name) << std::move(cancel);
  };
  row("click", [](const auto& s) {
    const auto* const button = s.cancelButtons().constFirst();
    QTest::mouseClick(s.view->windowHandle(), Qt::LeftButton, {},
                      button->mapTo(s.view.data(), button->rect().center()));
  });
  for (const auto& [name, key] :
       {std::pair{"Return", Qt::Key_Return}, {"Space", Qt::Key_Space}, {"Escape", Qt::Key_Escape}}) {
    row(name, [key = key](const auto& s) {
      for (int i = 0; i < 5 && !s.cancelButtons().constFirst()->hasFocus(); ++i)
        QTest::keyClick(s.view->windowHandle(), Qt::Key_Tab);
      QTest::keyClick(s.view->windowHandle(), key);
    });
  }
}

void CmdsViewControllerTest::runIsShownAndCancelled() {
  QFETCH(const std::function<void(const WorkingScreen&)>, cancel);
  WorkingScreen screen;
  screen.view->setFocusPolicy(Qt::StrongFocus);
  screen.view->activateWindow();
  screen.view->setFocus();
  QVERIFY(QTest::qWaitForWindowActive(screen.view));
  NotingCommand* const command = screen.command();
  command->setText(QStringLiteral("&Smooth…"));
  screen.start(*command);
  QTRY_VERIFY(screen.bar() && screen.bar()->isVisible());
  const auto* const bar = screen.bar();
  QCOMPARE(bar->value(), 30);
  QCOMPARE(bar->accessibleName(), QStringLiteral("Smooth…"));
  QCOMPARE(screen.notification(), QStringLiteral("Smooth…"));
  QCOMPARE(screen.cancelButtons().size(), 1);
  QVERIFY(!screen.cancelButtons().constFirst()->accessibleName().isEmpty());
  cancel(screen);
  QTRY_COMPARE(screen.notification(), QStringLiteral("Smooth was cancelled."));
  QCOMPARE(overrideCursors(), 0);
  QTRY_VERIFY(!screen.bar());
}

void CmdsViewControllerTest::eachRunHasARowThatComesBack() {
  WorkingScreen screen;
  screen.start(*screen.command());
  auto* const second =
      dynamic_cast<NotingCommand*>(screen.controller->findCommand(SecondCommand::className()));
  second->setExecutionNotificationMessage(StartNotification, QStringLiteral("Counting…"));
  screen.start(*second);
  QTRY_COMPARE(screen.cancelButtons().size(), 2);
  screen.controller->showNotification(QStringLiteral("Saved."), FadeInAndOut, 50, false, nullptr, nullptr);
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
    NotingCommand* const command = screen.command();
    command->enableExecutionNotification(true);
    command->setExecutionQoS(Taren::Core::NormalQoS);
    command->trigger();
    QCOMPARE(overrideCursors(), 1);
    if (qstrcmp(end, "command removed") == 0)
      screen.controller->removeCommand(command);
    else if (qstrcmp(end, "view closed") == 0)
      screen.view->close();
    else
      delete screen.view;
    QCOMPARE(overrideCursors(), 0);
    dispatcher.runAll();
    QCOMPARE(overrideCursors(), 0);
    QVERIFY(ApplicationService::GetInstance().isWorkspaceSwitchingEnabled());
  }
}

void CmdsViewControllerTest::commandFindsItsViewUntilItDies() {
  auto screen = std::make_unique<Screen>();
  const auto command = screen->command()->shared_from_this();
  QCOMPARE(command->getView(), screen->view.data());
  QCOMPARE(command->getViewController(), screen->controller);
  screen.reset();
  QVERIFY(!command->getView() && !command->getViewController());
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
