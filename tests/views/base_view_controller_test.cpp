// SPDX-License-Identifier: MIT
#include "recording_controller.h"

#include <support/test_case.h>
#include <ui_base/notifications/notification_bar.h>
#include <ui_base/tooltips/tooltip_manager.h>
#include <ui_base/views/base_view.h>
#include <vlk_app_service/application_service.h>

#include <QPointer>
#include <QSignalSpy>

#include <atomic>
#include <stdexcept>
#include <thread>

using Vela::Services::ApplicationService;
using Vela::Test::RecordingController;
using Vela::Test::settle;
using namespace Vela::UiBase;

namespace {

/// Answers presentation requests in the place of the controller that asks.
class Container : public PresentViewProtocol {
public:
  bool presentViewController(BaseViewController* controller, ETransitionDirection direction) override {
    presented = controller;
    presentedDirection = direction;
    return answers;
  }
  bool dismissViewController() override {
    ++dismissals;
    return answers;
  }

  bool answers = true;
  BaseViewController* presented = nullptr;
  ETransitionDirection presentedDirection = NoTransition;
  int dismissals = 0;
};

struct Stage {
  QStringList calls;
  QStringList childCalls;
  QPointer<BaseView> view = new BaseView;
  QPointer<BaseView> childView = new BaseView;
  QPointer<RecordingController> controller = new RecordingController(&calls, view);
  QPointer<RecordingController> child = new RecordingController(&childCalls, childView);

  Stage() {
    view->resize(300, 200);
    view->show();
    [[maybe_unused]] const bool exposed = QTest::qWaitForWindowExposed(view);
    calls.clear();
  }
  ~Stage() {
    delete childView;
    delete view;
  }
};

qsizetype shutdownDelegates() { return ApplicationService::GetInstance().shutdownProtocolDelegateCount(); }

} // namespace

class BaseViewControllerTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void presentingNullOrOneselfChangesNothing();
  void delegateTakesPresentationOver();
  void delegateThatDeclinesChangesNothing();
  void presentedAgainElsewhereFollowsOnlyNewPresenter();
  void loadedControllerIsShutdownDelegate();
  void viewThatDiesUnclosedLeavesShutdown();
  void tooltipsHearOfViews();
  void notificationComesAndGoesWithView();
  void notificationsFollowControllerToItsNextView();

  void heldControllerOutlivesItsView();
  void controllerDeletedByHandTakesParentlessViewAlong();
  void controllerDeletedByHandLeavesViewWithParent();
  void controllerDeletedWhileItsViewIsShownTakesItAlongLater();
  void notificationWithoutViewIsDeleted();
  void viewsShareOneController();
  void sharedControllerDeletedByHandLeavesEveryView();
  void heldControllerDeletedByHandLeavesShutdown();
  void replacedControllerForgetsView();
  void constructorThatThrowsAfterAttachingLeavesViewFree();
  void lastReferenceOnWorkerDeletesOnMainThread();
  void controllerWithQtParentHasOneOwner();
};

void BaseViewControllerTest::presentingNullOrOneselfChangesNothing() {
  Stage s;
  const auto container = std::make_shared<Container>();
  s.controller->setDelegate(container, false);
  QVERIFY(!s.controller->presentViewController(nullptr, FromLeft));
  QVERIFY(!s.controller->presentViewController(s.controller, FromLeft));
  QVERIFY(!container->presented);
  QVERIFY(s.calls.isEmpty());
}

void BaseViewControllerTest::delegateTakesPresentationOver() {
  Stage s;
  const auto container = std::make_shared<Container>();
  s.controller->setDelegate(container, false);
  s.child->setDelegate(container, false);
  QVERIFY(s.controller->presentViewController(s.child, FromTop));
  QCOMPARE(container->presented, s.child.data());
  QCOMPARE(container->presentedDirection, FromTop);
  QVERIFY(!s.childView->parentWidget() && !s.childView->isVisible() && !s.child->presenter());
  QVERIFY(s.child->dismissViewController());
  QCOMPARE(container->dismissals, 1);
  settle();
  QVERIFY(s.childView);
}

void BaseViewControllerTest::delegateThatDeclinesChangesNothing() {
  Stage s;
  const auto container = std::make_shared<Container>();
  container->answers = false;
  s.controller->setDelegate(container, false);
  QVERIFY(s.controller->presentViewController(s.child, FromTop));
  QCOMPARE(s.childView->parentWidget(), s.view.data());
}

void BaseViewControllerTest::presentedAgainElsewhereFollowsOnlyNewPresenter() {
  Stage s;
  BaseView second;
  second.setAttribute(Qt::WA_DeleteOnClose, false);
  auto* const secondController = new RecordingController(nullptr, &second);
  second.resize(120, 90);
  second.show();
  s.controller->presentViewController(s.child, FromLeft);
  QVERIFY(secondController->presentViewController(s.child, FromRight));
  s.view->resize(700, 500);
  QCOMPARE(s.childView->size(), QSize(120, 90));
  second.resize(150, 110);
  QCOMPARE(s.childView->size(), QSize(150, 110));
  QCOMPARE(s.child->presenter(), secondController);
}

void BaseViewControllerTest::loadedControllerIsShutdownDelegate() {
  const qsizetype before = shutdownDelegates();
  Stage s;
  QCOMPARE(shutdownDelegates(), before + 1);
  s.view->hide();
  s.view->show();
  QCOMPARE(shutdownDelegates(), before + 1);
  const auto held = s.controller->shared_from_this();
  s.view->close();
  QCOMPARE(shutdownDelegates(), before);
  QVERIFY(!held->isLoaded());
}

void BaseViewControllerTest::viewThatDiesUnclosedLeavesShutdown() {
  const qsizetype before = shutdownDelegates();
  Stage s;
  const auto held = s.controller->shared_from_this();
  delete s.view;
  QCOMPARE(shutdownDelegates(), before);
  QVERIFY(!held->isLoaded() && !held->getView());
}

void BaseViewControllerTest::tooltipsHearOfViews() {
  QSignalSpy visibility(&TooltipManager::GetInstance(), &TooltipManager::viewVisibilityChanged);
  Stage s;
  s.view->hide();
  QCOMPARE(visibility.size(), 2);
  QCOMPARE(visibility.at(0).at(0).toBool(), true);
  QCOMPARE(visibility.at(1).at(0).toBool(), false);
}

void BaseViewControllerTest::notificationComesAndGoesWithView() {
  Stage s;
  QVERIFY(!s.controller->isNotificationShowing());
  s.controller->hideNotification(); // nothing to hide yet
  s.controller->showNotification(QStringLiteral("Loading…"), FadeInOnly, 3000, false, nullptr, nullptr);
  QVERIFY(s.controller->isNotificationShowing());
  auto* const bar = s.view->findChild<NotificationBar*>();
  QVERIFY(bar && bar->isVisible());
  s.controller->presentViewController(s.child, FromLeft);
  QVERIFY(!bar->isVisible());
  s.child->dismissViewController();
  QVERIFY(bar->isVisible());
  s.controller->hideNotification();
  QVERIFY(!s.controller->isNotificationShowing());
  const auto held = s.controller->shared_from_this();
  delete s.view;
  held->showNotification(QStringLiteral("Nobody can see this"), FadeInOnly, 3000, false, nullptr, nullptr);
  QVERIFY(!held->isNotificationShowing());
}

void BaseViewControllerTest::notificationsFollowControllerToItsNextView() {
  Stage s;
  s.controller->showNotification(QStringLiteral("Old."), FadeInOnly, 3000, false, nullptr, nullptr);
  BaseView next;
  next.setAttribute(Qt::WA_DeleteOnClose, false);
  next.show();
  s.controller->setView(&next);
  QVERIFY(!s.controller->isNotificationShowing());
  s.controller->showNotification(QStringLiteral("New."), FadeInOnly, 3000, false, nullptr, nullptr);
  auto* const bar = next.findChild<NotificationBar*>();
  QVERIFY(bar && bar->isVisible());
  settle();
  QVERIFY(!s.view->findChild<NotificationBar*>());
}

void BaseViewControllerTest::heldControllerOutlivesItsView() {
  Stage s;
  auto held = s.controller->shared_from_this();
  delete s.view;
  QVERIFY(s.controller);
  BaseView next;
  next.setAttribute(Qt::WA_DeleteOnClose, false);
  held->setView(&next);
  held.reset();
  QVERIFY(s.controller);
  next.setViewController(nullptr);
  QVERIFY(!s.controller);
}

void BaseViewControllerTest::controllerDeletedByHandTakesParentlessViewAlong() {
  Stage s;
  delete s.controller;
  QVERIFY(!s.view);
}

void BaseViewControllerTest::controllerDeletedByHandLeavesViewWithParent() {
  Stage s;
  s.controller->presentViewController(s.child, FromLeft);
  delete s.child;
  QVERIFY(s.childView && !s.childView->getViewController());
}

void BaseViewControllerTest::controllerDeletedWhileItsViewIsShownTakesItAlongLater() {
  for (const char* call : {"viewDidLoad", "viewWillAppear", "viewWillDisappear"}) {
    Stage s;
    s.child->on[QString::fromLatin1(call)] = [&s] { delete s.child; };
    s.childView->show();
    if (s.childView)
      s.childView->hide();
    settle();
    QVERIFY(!s.child && !s.childView);
  }
}

void BaseViewControllerTest::notificationWithoutViewIsDeleted() {
  BaseViewController controller;
  const QPointer<QWidget> content = new QWidget;
  controller.showNotification(content, FadeInOnly, 3000, false, nullptr, nullptr);
  settle();
  QVERIFY(!content);
}

void BaseViewControllerTest::viewsShareOneController() {
  Stage s;
  s.childView->setViewController(s.controller);
  QVERIFY(!s.child); // its view was its only owner
  QCOMPARE(s.controller->getView(), s.childView.data());
  delete s.childView;
  QVERIFY(s.controller && !s.controller->getView());
  delete s.view;
  QVERIFY(!s.controller);
}

void BaseViewControllerTest::sharedControllerDeletedByHandLeavesEveryView() {
  Stage s;
  s.childView->setViewController(s.controller);
  delete s.controller;
  QVERIFY(!s.childView); // it was the controller's view
  QVERIFY(s.view && !s.view->getViewController());
  QTest::mouseClick(s.view->windowHandle(), Qt::LeftButton, {}, QPoint(10, 10));
}

void BaseViewControllerTest::heldControllerDeletedByHandLeavesShutdown() {
  struct Asked : RecordingController {
    using RecordingController::RecordingController;
    bool mayShutDown() override { return false; }
  };
  QWidget parent;
  auto* const view = new BaseView(&parent);
  auto* const controller = new Asked(nullptr, view);
  parent.show();
  const auto held = controller->shared_from_this();
  QVERIFY(!ApplicationService::GetInstance().requestShutdown());
  delete controller;
  QVERIFY(ApplicationService::GetInstance().requestShutdown());
}

void BaseViewControllerTest::replacedControllerForgetsView() {
  Stage s;
  const auto held = s.controller->shared_from_this();
  s.view->setViewController(new RecordingController(nullptr));
  QVERIFY(!held->getView());
  QVERIFY(s.view->getViewController() != held.get());
}

void BaseViewControllerTest::constructorThatThrowsAfterAttachingLeavesViewFree() {
  struct Throwing : RecordingController {
    explicit Throwing(BaseView* view) : RecordingController(nullptr, view) {
      throw std::runtime_error("no licence");
    }
  };
  QWidget parent;
  auto* const view = new BaseView(&parent);
  QVERIFY_THROWS_EXCEPTION(std::runtime_error, new Throwing(view));
  QVERIFY(!view->getViewController());
}

void BaseViewControllerTest::lastReferenceOnWorkerDeletesOnMainThread() {
  QStringList calls;
  auto held = Taren::Objects::createShared<RecordingController>(&calls);
  std::atomic<QThread*> deletedOn{nullptr};
  connect(
      held.get(), &QObject::destroyed, held.get(), [&] { deletedOn = QThread::currentThread(); },
      Qt::DirectConnection);
  std::thread([moved = std::move(held)]() mutable { moved.reset(); }).join();
  QVERIFY(calls.isEmpty());
  QTRY_COMPARE(calls, QStringList({"~"}));
  QCOMPARE(deletedOn.load(), QThread::currentThread());
}

void BaseViewControllerTest::controllerWithQtParentHasOneOwner() {
  Stage s;
  QObject parent;
  auto* const controller = new RecordingController(nullptr);
  controller->setParent(&parent);
  s.view->setViewController(controller);
  QVERIFY(!controller->parent());
}

VELA_TEST_MAIN(BaseViewControllerTest)
#include "base_view_controller_test.moc"
