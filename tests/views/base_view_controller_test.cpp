// SPDX-License-Identifier: MIT
#include "recording_controller.h"

#include <support/test_case.h>
#include <ui_base/notifications/notification_bar.h>
#include <ui_base/tooltips/tooltip_manager.h>
#include <ui_base/views/base_view.h>
#include <ui_base/views/tabbed_app.h>
#include <vlk_app_service/application_service.h>

#include <QDialog>
#include <QMenu>
#include <QPointer>
#include <QSignalSpy>
#include <QWindow>

using Vela::Services::ApplicationService;
using Vela::Test::RecordingController;
using Vela::Test::settle;
using namespace Vela::UiBase;

namespace {

/// A view that is seen in a window of its own, and another one that is not shown yet. Each has a controller
/// that writes down its calls.
struct ViewStage {
  QStringList calls;
  QStringList otherCalls;
  QPointer<BaseView> view = new BaseView;
  QPointer<BaseView> otherView = new BaseView;
  QPointer<RecordingController> controller = new RecordingController(&calls, view);
  QPointer<RecordingController> other = new RecordingController(&otherCalls, otherView);

  ViewStage() {
    view->show();
    [[maybe_unused]] const bool exposed = QTest::qWaitForWindowExposed(view);
    settle();
    calls.clear();
  }
  ~ViewStage() {
    delete otherView;
    delete view;
  }
  Q_DISABLE_COPY_MOVE(ViewStage)
};

/// Answers presentation requests in the place of the controller that asks.
struct Container : PresentViewProtocol {
  bool presentViewController(BaseViewController* controller, ETransitionDirection) override {
    presented = controller;
    return answer;
  }
  bool dismissViewController() override { return answer; }

  BaseViewController* presented = nullptr;
  bool answer = true;
};

class PageApp : public TabbedApp {
public:
  using TabbedApp::setRootViewController;
  Taren::Core::ERcmStatus Initialize() override { return Taren::Core::RcmSuccess; }
  QString ServiceName() const override { return QStringLiteral("pages"); }
};

} // namespace

/// What a controller does for its view, and which of them goes with which, with or without an application.
class BaseViewControllerTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void lifeIsToldInOrder();
  void windowHiddenWhileItIsShownIsNotMapped();
  void altReleaseIsSynthesizedOnDeactivation();
  void doubleClickWithoutItsReleaseLeavesTheNextPress();
  void delegateMayPresent();
  void loadedControllerIsAskedForShutdown();
  void tooltipsHearOfViews();
  void notificationsFollowControllerToItsNextView();
  void notificationWithoutViewIsDeleted();

  void controllerLivesUntilItHasHandledItsEvent();
  void heldControllerOutlivesItsView();
  void controllerDeletedByHandTakesParentlessViewAlong();
  void viewsShareOneController();
  void rootControllerDiesOnce();
  void rootControllerGoesAlthoughOthersHoldIt();
};

void BaseViewControllerTest::lifeIsToldInOrder() {
  ViewStage s;
  s.view->move(s.view->pos() + QPoint(10, 10));
  s.view->resize(s.view->size() + QSize(10, 10));
  settle();
  QVERIFY(s.calls.contains("viewDidMove") && s.calls.contains("viewDidResize"));
  s.calls.clear();
  QVERIFY(s.view->close());
  settle();
  QVERIFY(!s.view);
  QCOMPARE(s.calls, QStringList({"viewWillClose", "viewWillDisappear", "~"}));
}

void BaseViewControllerTest::windowHiddenWhileItIsShownIsNotMapped() {
  for (const char* call : {"viewDidLoad", "viewWillAppear", "viewDidMove", "viewDidResize"}) {
    ViewStage s;
    s.other->on[call] = [&s] { s.otherView->hide(); };
    s.otherView->show();
    QVERIFY2(!s.otherView->isVisible() && !s.otherView->windowHandle()->isVisible(), call);
    s.otherView->setParent(s.view);
    QVERIFY2(!s.otherView->isVisible(), call);
    s.other->on.clear();
    s.otherView->setParent(nullptr);
    s.otherView->show();
    QVERIFY2(s.otherView->windowHandle()->isVisible(), call);
  }
}

void BaseViewControllerTest::altReleaseIsSynthesizedOnDeactivation() {
  for (const auto& [last, synthesized] : {std::pair{Qt::Key_Alt, 1}, {Qt::Key_A, 0}}) {
    ViewStage s;
    QTest::keyPress(s.view->windowHandle(), Qt::Key_Alt);
    QTest::keyPress(s.view->windowHandle(), last);
    QEvent deactivate(QEvent::ApplicationDeactivate);
    QCoreApplication::sendEvent(QCoreApplication::instance(), &deactivate);
    QVERIFY(!s.calls.contains("keyRelease")); // it goes through the event queue
    QCoreApplication::sendPostedEvents(s.view);
    QCOMPARE(s.calls.count("keyRelease"), synthesized);
  }
}

void BaseViewControllerTest::doubleClickWithoutItsReleaseLeavesTheNextPress() {
  for (const QString loss : {"dialog", "menu", "disabled", "grab"}) {
    ViewStage s;
    QDialog dialog;
    dialog.setModal(true);
    QMenu menu;
    menu.addAction(loss);
    s.controller->on["mouseDoubleClick"] = [&] {
      if (loss == "dialog")
        dialog.show();
      else if (loss == "menu")
        menu.popup(s.view->mapToGlobal(s.view->rect().bottomRight()));
      else if (loss == "disabled")
        s.view->setEnabled(false);
      else
        dialog.grabMouse();
    };
    QTest::mouseDClick(s.view->windowHandle(), Qt::LeftButton, {}, {5, 5});
    dialog.releaseMouse();
    dialog.close();
    menu.close();
    s.view->setEnabled(true);
    s.calls.clear();
    QTest::lastMouseTimestamp += QTest::mouseDoubleClickInterval; // not a third one
    QTest::mouseClick(s.view->windowHandle(), Qt::LeftButton, {}, {5, 5});
    QCOMPARE(s.calls.count("mousePress"), 1);
  }
}

void BaseViewControllerTest::delegateMayPresent() {
  ViewStage s;
  const auto container = std::make_shared<Container>();
  s.controller->setDelegate(container, false);
  s.other->setDelegate(container, false);
  QVERIFY(s.controller->presentViewController(s.other, FromTop) && s.other->dismissViewController());
  QCOMPARE(container->presented, s.other.data());
  QVERIFY(!s.other->presenter());
  container->answer = false;
  QVERIFY(s.controller->presentViewController(s.other, FromTop));
  QCOMPARE(s.other->presenter(), s.controller.data());
}

void BaseViewControllerTest::loadedControllerIsAskedForShutdown() {
  struct Asked : RecordingController {
    using RecordingController::RecordingController;
    bool mayShutDown() override { return false; }
  };
  for (const char* end : {"view closed", "view deleted", "controller deleted"}) {
    const QPointer<BaseView> view = new BaseView;
    auto* const controller = new Asked(nullptr, view);
    const auto held = controller->shared_from_this();
    view->show();
    view->hide();
    view->show();
    QVERIFY(!ApplicationService::GetInstance().requestShutdown());
    if (qstrcmp(end, "view closed") == 0)
      view->close();
    else if (qstrcmp(end, "view deleted") == 0)
      delete view;
    else
      delete controller;
    QVERIFY2(ApplicationService::GetInstance().requestShutdown(), end);
    settle();
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
  const auto notify = [&s](const QString& message) {
    s.controller->showNotification(message, FadeInOnly, 3000);
  };
  notify(QStringLiteral("Old."));
  QVERIFY(s.controller->isNotificationShowing());
  BaseView next;
  next.show();
  s.controller->setView(&next);
  QVERIFY(!s.controller->isNotificationShowing());
  notify(QStringLiteral("New."));
  const auto* const bar = next.findChild<NotificationBar*>();
  QVERIFY(bar && bar->isVisible());
  settle();
  QVERIFY(!s.view->findChild<NotificationBar*>());
}

void BaseViewControllerTest::notificationWithoutViewIsDeleted() {
  BaseViewController controller;
  const QPointer<QWidget> content = new QWidget;
  controller.showNotification(content, FadeInOnly, 3000);
  settle();
  QVERIFY(!content && !controller.isNotificationShowing());
}

void BaseViewControllerTest::controllerLivesUntilItHasHandledItsEvent() {
  for (const bool deletes : {false, true}) {
    ViewStage s;
    bool lived = false;
    s.controller->on["keyPress"] = [&] {
      if (deletes)
        delete s.view;
      else
        s.view->setViewController(s.other);
      lived = s.controller;
    };
    QTest::keyPress(s.view->windowHandle(), Qt::Key_K);
    QVERIFY(lived && !s.controller);
  }
}

void BaseViewControllerTest::heldControllerOutlivesItsView() {
  ViewStage s;
  auto held = s.controller->shared_from_this();
  delete s.view;
  BaseView next;
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

void BaseViewControllerTest::viewsShareOneController() {
  ViewStage s;
  s.otherView->setViewController(s.controller);
  QVERIFY(!s.other); // its view was its only owner
  QCOMPARE(s.controller->getView(), s.otherView.data());
  delete s.otherView;
  QVERIFY(s.controller && !s.controller->getView());
  delete s.view;
  QVERIFY(!s.controller);
}

void BaseViewControllerTest::rootControllerDiesOnce() {
  for (const QString first : {"app", "view", "controller", "another takes its place"}) {
    ViewStage s;
    auto app = std::make_unique<PageApp>();
    app->setRootViewController(s.controller);
    app->setRootViewController(s.controller);
    QCOMPARE(app->getVC(), s.controller.data());
    if (first == "view")
      delete s.view;
    else if (first == "controller")
      delete s.controller;
    else if (first != "app")
      app->setRootViewController(s.other);
    if (first != "app")
      QCOMPARE(app->getVC(), first.startsWith("another") ? s.other.data() : nullptr);
    app.reset();
    QVERIFY(!s.controller && !s.view);
    QCOMPARE(s.calls.count(QStringLiteral("~")), 1);
  }
}

void BaseViewControllerTest::rootControllerGoesAlthoughOthersHoldIt() {
  ViewStage s;
  QWidget window;
  s.otherView->setParent(&window); // not the controller's to delete
  auto held = s.other->shared_from_this();
  {
    PageApp app;
    app.setRootViewController(s.other);
  }
  QVERIFY(s.otherView && !s.otherView->getViewController());
  held.reset();
  QCOMPARE(s.otherCalls.count(QStringLiteral("~")), 1);
}

VELA_TEST_MAIN(BaseViewControllerTest)
#include "base_view_controller_test.moc"
