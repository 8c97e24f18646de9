// SPDX-License-Identifier: MIT
#include "view_stage.h"

#include <ui_base/notifications/notification_bar.h>
#include <ui_base/tooltips/tooltip_manager.h>
#include <vlk_app_service/application_service.h>

#include <QSignalSpy>

#include <stdexcept>

using Vela::Services::ApplicationService;
using Vela::Test::LocalView;
using Vela::Test::RecordingController;
using Vela::Test::settle;
using Vela::Test::ViewStage;
using namespace Vela::UiBase;

namespace {

/// Answers presentation requests in the place of the controller that asks.
class Container : public PresentViewProtocol {
public:
  explicit Container(bool answer) : m_answer(answer) {}
  bool presentViewController(BaseViewController* controller, ETransitionDirection itsDirection) override {
    presented = controller;
    direction = itsDirection;
    return m_answer;
  }
  bool dismissViewController() override {
    ++dismissals;
    return m_answer;
  }

  BaseViewController* presented = nullptr;
  ETransitionDirection direction = NoTransition;
  int dismissals = 0;

private:
  const bool m_answer;
};

qsizetype shutdownDelegates() { return ApplicationService::GetInstance().shutdownProtocolDelegateCount(); }

void notify(BaseViewController& controller, const QString& message) {
  controller.showNotification(message, FadeInOnly, 3000, false, nullptr, nullptr);
}

} // namespace

class BaseViewControllerTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void delegateMayPresent();
  void presentedAgainElsewhereFollowsOnlyNewPresenter();
  void loadedControllerIsShutdownDelegate();
  void tooltipsHearOfViews();
  void notificationsFollowControllerToItsNextView();
  void notificationWithoutViewIsDeleted();

  void heldControllerOutlivesItsView();
  void controllerDeletedByHandTakesParentlessViewAlong();
  void controllerDeletedWhileQtWorksWithItsViewTakesItAlongLater();
  void viewsShareOneController();
  void heldControllerDeletedByHandLeavesShutdown();
  void constructorThatThrowsAfterAttachingLeavesViewFree();
};

void BaseViewControllerTest::delegateMayPresent() {
  for (const bool answers : {true, false}) {
    ViewStage s;
    const auto container = std::make_shared<Container>(answers);
    s.controller->setDelegate(container, false);
    s.other->setDelegate(container, false);
    QVERIFY(!s.controller->presentViewController(nullptr, FromLeft));
    QVERIFY(!s.controller->presentViewController(s.controller, FromLeft));
    QVERIFY(!container->presented && s.calls.isEmpty());
    QVERIFY(s.controller->presentViewController(s.other, FromTop));
    QCOMPARE(container->presented, s.other.data());
    QCOMPARE(container->direction, FromTop);
    QCOMPARE(s.otherView->parentWidget(), answers ? nullptr : s.view.data());
    QCOMPARE(s.other->presenter(), answers ? nullptr : s.controller.data());
    QVERIFY(s.other->dismissViewController());
    QCOMPARE(container->dismissals, 1);
    settle();
    QCOMPARE(!s.otherView.isNull(), answers);
  }
}

void BaseViewControllerTest::presentedAgainElsewhereFollowsOnlyNewPresenter() {
  ViewStage s;
  LocalView second;
  auto* const secondController = new RecordingController(nullptr, &second);
  second.resize(120, 90);
  second.show();
  s.controller->presentViewController(s.other, FromLeft);
  QVERIFY(secondController->presentViewController(s.other, FromRight));
  s.view->resize(700, 500);
  QCOMPARE(s.otherView->size(), QSize(120, 90));
  second.resize(150, 110);
  QCOMPARE(s.otherView->size(), QSize(150, 110));
  QCOMPARE(s.other->presenter(), secondController);
}

void BaseViewControllerTest::loadedControllerIsShutdownDelegate() {
  for (const bool closes : {true, false}) {
    const qsizetype before = shutdownDelegates();
    ViewStage s;
    s.view->hide();
    s.view->show();
    QCOMPARE(shutdownDelegates(), before + 1);
    const auto held = s.controller->shared_from_this();
    if (closes)
      s.view->close();
    else
      delete s.view;
    QCOMPARE(shutdownDelegates(), before);
    QVERIFY(!held->isLoaded());
  }
}

void BaseViewControllerTest::tooltipsHearOfViews() {
  QSignalSpy visibility(&TooltipManager::GetInstance(), &TooltipManager::viewVisibilityChanged);
  ViewStage s;
  s.view->hide();
  QCOMPARE(visibility, (QList<QVariantList>{{true}, {false}}));
}

void BaseViewControllerTest::notificationsFollowControllerToItsNextView() {
  ViewStage s;
  s.controller->hideNotification(); // nothing to hide yet
  notify(*s.controller, QStringLiteral("Old."));
  QVERIFY(s.controller->isNotificationShowing());
  LocalView next;
  next.show();
  s.controller->setView(&next);
  QVERIFY(!s.controller->isNotificationShowing());
  notify(*s.controller, QStringLiteral("New."));
  const auto* const bar = next.findChild<NotificationBar*>();
  QVERIFY(bar && bar->isVisible());
  settle();
  QVERIFY(!s.view->findChild<NotificationBar*>());
  s.controller->hideNotification();
  QVERIFY(!s.controller->isNotificationShowing());
}

void BaseViewControllerTest::notificationWithoutViewIsDeleted() {
  BaseViewController controller;
  notify(controller, QStringLiteral("Nobody can see this"));
  const QPointer<QWidget> content = new QWidget;
  controller.showNotification(content, FadeInOnly, 3000, false, nullptr, nullptr);
  settle();
  QVERIFY(!content && !controller.isNotificationShowing());
}

void BaseViewControllerTest::heldControllerOutlivesItsView() {
  ViewStage s;
  auto held = s.controller->shared_from_this();
  delete s.view;
  LocalView next;
  held->setView(&next);
  next.setViewController(new RecordingController(nullptr));
  QVERIFY(!held->getView() && next.getViewController() != held.get());
  held->setView(&next);
  held.reset();
  QVERIFY(s.controller);
  next.setViewController(nullptr);
  QVERIFY(!s.controller);
}

void BaseViewControllerTest::controllerDeletedByHandTakesParentlessViewAlong() {
  ViewStage s;
  s.controller->presentViewController(s.other, FromLeft);
  delete s.other;
  QVERIFY(s.otherView && !s.otherView->getViewController());
  delete s.controller;
  QVERIFY(!s.view);
}

void BaseViewControllerTest::controllerDeletedWhileQtWorksWithItsViewTakesItAlongLater() {
  for (const char* call :
       {"viewDidLoad", "viewWillAppear", "viewWillDisappear", "viewDidResize", "mouseEnter", "mouseLeave"}) {
    ViewStage s;
    s.other->on[QString::fromLatin1(call)] = [&s] { delete s.other; };
    s.otherView->show();
    s.otherView->resize(100, 100);
    QEvent leave(QEvent::Leave);
    QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
    QCoreApplication::sendEvent(s.otherView, &enter);
    QCoreApplication::sendEvent(s.otherView, &leave);
    s.otherView->hide();
    settle();
    QVERIFY2(!s.other && !s.otherView, call);
  }
}

void BaseViewControllerTest::viewsShareOneController() {
  for (const bool byHand : {true, false}) {
    ViewStage s;
    s.otherView->setViewController(s.controller);
    QVERIFY(!s.other); // its view was its only owner
    QCOMPARE(s.controller->getView(), s.otherView.data());
    if (byHand) {
      delete s.controller;
      QVERIFY(!s.otherView); // it was the controller's view
      QVERIFY(!s.view->getViewController());
      QTest::mouseClick(s.view->windowHandle(), Qt::LeftButton, {}, QPoint(10, 10));
      continue;
    }
    delete s.otherView;
    QVERIFY(s.controller && !s.controller->getView());
    delete s.view;
    QVERIFY(!s.controller);
  }
}

void BaseViewControllerTest::heldControllerDeletedByHandLeavesShutdown() {
  struct Asked : RecordingController {
    using RecordingController::RecordingController;
    bool mayShutDown() override { return false; }
  };
  QWidget parent;
  auto* const controller = new Asked(nullptr, new BaseView(&parent));
  parent.show();
  const auto held = controller->shared_from_this();
  QVERIFY(!ApplicationService::GetInstance().requestShutdown());
  delete controller;
  QVERIFY(ApplicationService::GetInstance().requestShutdown());
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

VELA_TEST_MAIN(BaseViewControllerTest)
#include "base_view_controller_test.moc"
