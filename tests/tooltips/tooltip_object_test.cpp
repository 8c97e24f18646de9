// SPDX-License-Identifier: MIT
#include "tooltip_fixture.h"

#include <support/rows.h>

using namespace Vela::UiBase;
using Vela::Test::letTimePass;
using Vela::Test::Rows;

using Act = std::function<void(TooltipFixture&)>;

namespace {

constexpr int AT_ONCE = TooltipFixture::AT_ONCE;
constexpr int NEVER = TooltipFixture::NEVER;

} // namespace

class TooltipObjectTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void lastMoveCounts() {
    TooltipFixture f({NEVER, NEVER, NEVER, NEVER, NEVER});
    f.moveTo(f.widget);
    // An interval that is changed while it runs applies at once.
    f.tooltip->SetCustomTooltipShowUpTime(AT_ONCE);
    QTRY_VERIFY(f.tooltip->IsVisible());
    f.moveAway();
    letTimePass(1);
    QVERIFY(f.tooltip->IsVisible());
    f.moveTo(f.widget);
    f.tooltip->SetCustomTooltipDismissTime(AT_ONCE);
    letTimePass(1);
    QVERIFY(f.tooltip->IsVisible()); // coming back has stopped the time
    f.moveAway();
    QTRY_VERIFY(!f.tooltip->IsVisible());

    // Leaving before the time is over leaves nothing behind.
    f.tooltip->SetCustomTooltipShowUpTime(NEVER);
    f.moveTo(f.widget);
    f.moveAway();
    f.tooltip->SetCustomTooltipShowUpTime(AT_ONCE);
    letTimePass(1);
    QVERIFY(!f.tooltip->IsVisible());
  }

  void timeOfAnotherLeaveDoesNotEndAShowing() {
    TooltipFixture f({AT_ONCE, 20, NEVER, NEVER, NEVER});
    f.moveTo(f.widget);
    QTRY_VERIFY(f.tooltip->IsVisible());
    f.moveAway();
    f.key(Qt::Key_Escape);
    QVERIFY(!f.tooltip->IsVisible());
    f.tooltip->ShowTooltip();
    letTimePass(40);
    QVERIFY(f.tooltip->IsVisible());
  }

  void compositeWidgets() {
    TooltipFixture f({AT_ONCE, NEVER, NEVER, NEVER, NEVER});
    QWidget part(f.widget);
    part.setGeometry(0, 0, 20, 30);
    QWidget inner(&part);
    inner.setGeometry(5, 5, 10, 20);
    QWidget apart(f.widget);
    apart.setGeometry(40, 0, 20, 30);
    TooltipObject own("of its own");
    own.SetTooltipText("x");
    own.AttachTo(&apart);
    f.widget->show();
    for (QWidget* const each : {&part, &inner, &apart})
      each->show();
    f.moveTo(&inner);
    QTRY_VERIFY(f.tooltip->IsVisible());
    f.moveTo(f.widget);
    QVERIFY(f.tooltip->IsVisible());
    f.moveTo(&apart);
    QTRY_VERIFY(own.IsVisible());
    QVERIFY(!f.tooltip->IsVisible());
    f.moveTo(f.widget);
    QTRY_VERIFY(f.tooltip->IsVisible());
    f.press(&inner);
    QVERIFY(!f.tooltip->IsVisible());
  }

  void underARestingMouse() {
    TooltipFixture f;
    f.moveTo(f.widget);
    QTRY_VERIFY(f.tooltip->IsVisible());
    f.tooltip->SetEnableTooltip(false);
    QVERIFY(!f.tooltip->IsVisible());
    f.tooltip->SetEnableTooltip(true);
    QTRY_VERIFY(f.tooltip->IsVisible());
    // Not while a button is held on it.
    const QPoint at = f.widget->mapTo(f.window, QPoint(9, 9));
    QTest::mousePress(f.window->windowHandle(), Qt::LeftButton, {}, at);
    QTest::mouseMove(f.window->windowHandle(), at + QPoint(2, 2));
    letTimePass(1);
    QVERIFY(!f.tooltip->IsVisible());
    QTest::mouseRelease(f.window->windowHandle(), Qt::LeftButton, {}, at);
  }

  void theWidgetGetsItsEventsAllTheSame() {
    const TooltipFixture f;
    QPushButton button(f.window);
    f.tooltip->AttachTo(&button);
    button.show();
    const QSignalSpy clicks(&button, &QPushButton::clicked);
    for (const bool enabled : {true, false}) {
      f.tooltip->SetEnableTooltip(enabled);
      f.press(&button);
    }
    QCOMPARE(clicks.count(), 2);
  }

  void mouseOnTooltipKeepsItWithHoverEventsOnly() {
    for (const bool hoverEvents : {true, false}) {
      TooltipFixture f({AT_ONCE, 20, NEVER, NEVER, NEVER});
      CountingHandler hovered;
      CountingHandler normal;
      f.tooltip->SetEnableHoverEvents(hoverEvents);
      f.tooltip->SetHoveredStateCallbackHandler(&hovered);
      f.tooltip->SetNormalStateCallbackHandler(&normal);
      f.moveTo(f.widget);
      QTRY_VERIFY(f.tooltip->IsVisible());
      f.moveTo(f.shown());
      letTimePass(60);
      QCOMPARE(f.tooltip->IsVisible(), hoverEvents);
      f.moveAway();
      QTRY_VERIFY(!f.tooltip->IsVisible());
      QCOMPARE(hovered.calls > 0, hoverEvents);
      QCOMPARE(normal.calls, hovered.calls);
    }
  }

  void whatHidesIt_data() {
    using F = TooltipFixture&;
    const Rows<Act> hides("act");
    hides("press on the widget", [](F f) { f.press(f.widget); });
    hides("press on the tooltip", [](F f) { f.press(f.shown()); });
    hides("Escape", [](F f) { f.key(Qt::Key_Escape); });
    hides("check time", [](F f) { f.tooltip->SetCustomTooltipCheckTime(AT_ONCE); });
    hides("widget hidden", [](F f) { f.widget->hide(); });
    hides("widget deleted with a foreign object", [](F f) {
      f.tooltip->setParent(f.window);
      delete f.widget;
    });
    hides("neighbour's tooltip", [](F f) { f.other->ShowTooltip(); });
    hides("a view disappears", [](F) { TooltipManager::GetInstance().onViewVisibilityChange(false); });
    hides("widget scrolled away", [](F f) { f.widget->move(f.widget->pos() - QPoint(0, 9)); });
    hides("covered by a modal window", [](F f) {
      QDialog dialog(f.window);
      dialog.setModal(true);
      dialog.show();
      QTRY_VERIFY(!f.tooltip->IsVisible());
    });
    hides("content hidden", [](F f) { f.tooltip->TooltipControl()->hide(); });
  }
  void whatHidesIt() { actOnShown(false); }

  void whatDoesNotHideIt_data() {
    using F = TooltipFixture&;
    const Rows<Act> keeps("act");
    keeps("press on the widget, unwanted", [](F f) {
      f.tooltip->SetDismissOnPress(false);
      f.press(f.widget);
    });
    keeps("press on the tooltip, unwanted", [](F f) {
      f.tooltip->SetClickToDismissTooltip(false);
      f.press(f.shown());
    });
    keeps("another key elsewhere", [](F f) { f.key(Qt::Key_A); });
    keeps("check time, unwanted", [](F f) {
      f.tooltip->SetEnableCheckTimer(false);
      f.tooltip->SetCustomTooltipCheckTime(AT_ONCE);
    });
    keeps("window moved", [](F f) { f.window->move(30, 30); });
  }
  void whatDoesNotHideIt() { actOnShown(true); }

  void tooltipEventShowsWithoutOwnTime() {
    TooltipFixture f;
    f.tooltip->SetUseCustomTooltipSettings(false);
    QHelpEvent help(QEvent::ToolTip, {1, 1}, f.widget->mapToGlobal(QPoint(1, 1)));
    f.moveTo(f.widget);
    letTimePass(1);
    QVERIFY(f.tooltip->eventFilter(f.widget, &help) && !f.tooltip->IsVisible());
    // It takes a leave with the mouse still there, as when something opens beneath it.
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(f.widget, &leave);
    QVERIFY(f.tooltip->eventFilter(f.widget, &help) && f.tooltip->IsVisible());
  }

  void focusByKeyboardShows() {
    for (const auto reason : {Qt::TabFocusReason, Qt::OtherFocusReason, Qt::MouseFocusReason}) {
      const bool shows = reason != Qt::MouseFocusReason;
      TooltipFixture f;
      f.widget->setFocus(reason);
      letTimePass(1);
      QCOMPARE(f.tooltip->IsVisible(), shows);
      f.key(Qt::Key_Control);
      QCOMPARE(f.tooltip->IsVisible(), shows);
      f.key(Qt::Key_Space);
      QVERIFY(!f.tooltip->IsVisible());
      f.neighbour->setFocus(Qt::TabFocusReason);
      QTRY_VERIFY(f.other->IsVisible());
      f.neighbour->clearFocus();
      QVERIFY(!f.other->IsVisible());
    }
  }

  void focusThatGoesHidesOnlyWhatItHasBrought() {
    TooltipFixture f;
    f.widget->setFocus(Qt::MouseFocusReason);
    f.moveTo(f.widget);
    QTRY_VERIFY(f.tooltip->IsVisible());
    f.widget->clearFocus();
    QVERIFY(f.tooltip->IsVisible());
  }

  void nextAtOnceWhereTheGroupWantsIt() {
    for (const bool atOnce : {true, false}) {
      TooltipFixture f;
      f.other->SetCustomTooltipShowUpTime(NEVER);
      TooltipManager& manager = TooltipManager::GetInstance();
      manager.SetShowNextAtOnce("test", atOnce);
      f.moveTo(f.widget);
      QTRY_VERIFY(f.tooltip->IsVisible() && manager.IsTooltipShown("test"));
      f.tooltip->SetCustomTooltipDismissTime(NEVER);
      f.moveTo(f.neighbour);
      letTimePass(1);
      QCOMPARE(f.other->IsVisible(), atOnce);
      QCOMPARE(f.tooltip->IsVisible(), !atOnce);
      manager.SetShowNextAtOnce("test", false);
    }
  }

private:
  static void actOnShown(bool stays) {
    QFETCH(const Act, act);
    TooltipFixture f({AT_ONCE, NEVER, NEVER, NEVER, NEVER});
    f.moveTo(f.widget);
    QTRY_VERIFY(f.tooltip->IsVisible());
    f.tooltip->SetCustomTooltipShowUpTime(NEVER);
    const QPointer<QWidget> shown(f.shown());
    act(f);
    letTimePass(1);
    QCOMPARE(f.tooltip->IsVisible(), stays);
    QCOMPARE(shown && shown->isVisible(), stays);
  }
};

VELA_TEST_MAIN(TooltipObjectTest)
#include "tooltip_object_test.moc"
