// SPDX-License-Identifier: MIT
#include "presentation_screen.h"

#include <ui_base/tooltips/tooltip_manager.h>
#include <vlk_app_service/application_service.h>

using Vela::Services::ApplicationService;
using Vela::Test::settle;
using Screen = Vela::Test::PresentationScreen;
using namespace Vela::UiBase;

/// What a controller does for its view, and which of them goes with which, with or without an application.
class BaseViewControllerTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void ownersTakeAlongWhatIsTheirs_data() {
    const Vela::Test::Rows<QString> row("alive");
    row("bX", "aA cC dD");
    row("aX", "a bB cC dD"); // its view is its window's
    row("a>b bX", "aA b cC dD");
    row("a=b", "a bB cC dD");
    row("a=b ax", "b* cC dD");
    row("a=b ax bx", "cC dD");
    row("a& ax", "* bB cC dD");
    row("a& ax b=a b=c", "* b cC dD");
    row("a& ax b=a w%", "A b cC dD");
    row("a& ax b=a w% b=", "b cC dD");
    for (const char* const before : {"bR bR wR", "bR bx wR", "bR bX wR"})
      row(before, "aA cC dD");
    row("bR cR wR", "aA dD");
    row("a& aR wR", "a bB cC dD"); // although it is held
  }

  void ownersTakeAlongWhatIsTheirs() {
    Screen screen;
    screen.run(QTest::currentDataTag());
    QTEST(screen.alive(), "alive");
    QVERIFY(screen.rootIsTaken);
  }

  void controllerLivesUntilItHasHandledItsEvent() {
    for (const char* const end : {"ax", "a=b"}) {
      Screen screen;
      bool lived = false;
      screen.controller("a")->on["key"] = [&] { lived = (screen.run(end), screen.controller("a")); };
      QTest::keyPress(screen.handle(), Qt::Key_K);
      QVERIFY(lived && !screen.controller("a"));
    }
  }

  void altReleaseIsSynthesizedOnDeactivation() {
    for (const auto& [last, told] : {std::pair{Qt::Key_Alt, ", a keyup"}, {Qt::Key_A, ""}}) {
      Screen screen;
      QTest::keyPress(screen.handle(), Qt::Key_Alt);
      QTest::keyPress(screen.handle(), last);
      QEvent deactivate(QEvent::ApplicationDeactivate);
      QCoreApplication::sendEvent(QCoreApplication::instance(), &deactivate);
      QCOMPARE(screen.calls.size(), 2); // the release goes through the event queue
      settle();
      QCOMPARE(screen.story(), QLatin1String("a key, a key") + told);
    }
  }

  void whoHeardThatTheMouseCameHearsThatItGoes() {
    const QMimeData data;
    QEnterEvent enter({}, {}, {});
    QEvent leave(QEvent::Leave);
    QDragEnterEvent drag({}, Qt::CopyAction, &data, {}, {});
    QDragMoveEvent over({}, Qt::CopyAction, &data, {}, {});
    QDragLeaveEvent dragLeave;
    QDropEvent drop({}, Qt::CopyAction, &data, {}, {});
    const std::tuple<QList<QEvent*>, QEvent*, const char*> cases[] = {
        {{}, &leave, ""},
        {{&enter}, &leave, "a leave"},
        {{&enter, &leave}, &leave, "a leave"},
        {{&drag, &over}, &dragLeave, "a drag, a over, a leave"},
        {{&drag, &dragLeave}, &dragLeave, "a drag, a leave"},
        {{&drag, &drop}, &dragLeave, "a drag, a drop"}};
    for (const auto& [before, goes, story] : cases) {
      Screen screen;
      for (QEvent* const event : before)
        QCoreApplication::sendEvent(screen.view("a"), event);
      screen.run("a>b");
      QCoreApplication::sendEvent(screen.view("a"), goes); // which is covered
      screen.calls.removeIf([](const QString& call) { return call.contains('-') || call.startsWith('b'); });
      QCOMPARE(screen.story(), story);
    }
  }

  void delegateMayPresent() {
    /// Presents one controller, in the place of the controller that asks, and dismisses it.
    struct Container : PresentViewProtocol {
      bool presentViewController(BaseViewController* controller, ETransitionDirection) override {
        return controller == presents;
      }
      bool dismissViewController() override { return presents; }

      BaseViewController* presents = nullptr;
    };
    const Screen screen;
    BaseViewController* const a = screen.controller("a");
    BaseViewController* const b = screen.controller("b");
    const auto container = std::make_shared<Container>();
    a->setDelegate(container, false);
    b->setDelegate(container, false);
    container->presents = b;
    QVERIFY(a->presentViewController(b, FromTop) && b->dismissViewController() && !b->presenter());
    container->presents = nullptr;
    QVERIFY(a->presentViewController(b, FromTop) && b->presenter() == a);
  }

  void loadedControllerIsAskedForShutdown() {
    for (const char* const end : {"a& aq", "a& ax", "a& aX"}) {
      Screen screen;
      screen.run("a^ av");
      screen.controller("a")->endsWithTheProgram = false;
      QVERIFY(!ApplicationService::GetInstance().requestShutdown());
      screen.run(end);
      QVERIFY2(ApplicationService::GetInstance().requestShutdown(), end);
    }
  }

  void tooltipsHearOfViews() {
    Screen screen;
    QSignalSpy visibility(&TooltipManager::GetInstance(), &TooltipManager::viewVisibilityChanged);
    screen.run("a^ av");
    QCOMPARE(visibility, (QList<QVariantList>{{false}, {true}}));
  }

  void notificationsAreSeenOverWhatHasAppeared() {
    for (const auto& [steps, seen] : {std::pair{"an", "a"},
                                      {"a>b an cn c@a", ""},
                                      {"a>b an cn c@a b<", "ac"},
                                      {"bv an b=a", ""},
                                      {"bv an b=a an", "b"}}) {
      Screen screen;
      screen.run(steps);
      QCOMPARE(screen.notices(), QLatin1String(seen));
    }
    BaseViewController controller;
    const QPointer<QWidget> content = new QWidget;
    controller.showNotification(content, FadeInOnly, 3000);
    settle();
    QVERIFY(!content && !controller.isNotificationShowing());
  }
};

VELA_TEST_MAIN(BaseViewControllerTest)
#include "base_view_controller_test.moc"
