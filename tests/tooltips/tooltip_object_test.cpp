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

class Heard : public QWidget {
public:
  using QWidget::QWidget;
  QSet<QEvent::Type> types;

protected:
  bool event(QEvent* event) override {
    types += event->type();
    return QWidget::event(event);
  }
};

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
    const std::function<void()> ways[] = {[&] { f.moveAway(); },
                                          [&] { f.tooltip->SetUseCustomTooltipSettings(false); }};
    for (const auto& leave : ways) {
      f.tooltip->SetCustomTooltipShowUpTime(NEVER);
      f.moveTo(f.widget);
      leave();
      f.tooltip->SetCustomTooltipShowUpTime(AT_ONCE);
      letTimePass(1);
      QVERIFY(!f.tooltip->IsVisible());
    }
  }

  void timeOfAnotherLeaveDoesNotEndAShowing() {
    for (const int showUp : {AT_ONCE, NEVER}) {
      TooltipFixture f({showUp, 20, NEVER, NEVER, NEVER});
      f.moveTo(f.widget);
      QTRY_COMPARE(f.tooltip->IsVisible(), showUp == AT_ONCE);
      f.moveAway();
      f.key(Qt::Key_Escape);
      QVERIFY(!f.tooltip->IsVisible());
      f.tooltip->ShowTooltip();
      letTimePass(40);
      QVERIFY(f.tooltip->IsVisible());
    }
  }

  void compositeWidgets() {
    TooltipFixture f({AT_ONCE, NEVER, NEVER, NEVER, NEVER});
    QWidget part(f.widget);
    part.setGeometry(0, 0, 20, 30);
    QWidget inner(&part);
    inner.setGeometry(5, 5, 10, 20);
    QWidget apart(f.widget);
    apart.setGeometry(40, 0, 20, 30);
    auto own = std::make_unique<TooltipObject>("of its own");
    own->SetTooltipText("x");
    own->AttachTo(&apart);
    f.widget->show();
    for (QWidget* const each : {&part, &inner, &apart})
      each->show();
    f.moveTo(&inner);
    QTRY_VERIFY(f.tooltip->IsVisible());
    f.moveTo(f.widget);
    QVERIFY(f.tooltip->IsVisible());
    f.moveTo(&apart);
    QTRY_VERIFY(own->IsVisible());
    QVERIFY(!f.tooltip->IsVisible());
    f.moveTo(f.widget);
    QTRY_VERIFY(f.tooltip->IsVisible());
    f.press(&inner);
    QVERIFY(!f.tooltip->IsVisible());
    QWidget late(f.widget);
    late.setAttribute(Qt::WA_NoMousePropagation);
    late.setGeometry(20, 0, 10, 30);
    late.show();
    f.moveTo(&late);
    QTRY_VERIFY(f.tooltip->IsVisible());
    f.press(&late);
    QVERIFY(!f.tooltip->IsVisible());
    own.reset();
    f.moveTo(&apart);
    QTRY_VERIFY(f.tooltip->IsVisible());
  }

  void underARestingMouse() {
    TooltipFixture f;
    f.moveTo(f.widget);
    QTRY_VERIFY(f.tooltip->IsVisible());
    f.tooltip->SetEnableTooltip(false);
    QVERIFY(!f.tooltip->IsVisible());
    f.tooltip->SetEnableTooltip(true);
    QTRY_VERIFY(f.tooltip->IsVisible());
    f.tooltip->Detach();
    QVERIFY(!f.tooltip->IsVisible() && !f.tooltip->GetPosCalculator()->RefWidget());
    f.tooltip->AttachTo(f.widget);
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
    Heard heard(f.window);
    f.tooltip->AttachTo(&heard);
    heard.show();
    for (const bool enabled : {true, false}) {
      f.tooltip->SetEnableTooltip(enabled);
      heard.types.clear();
      f.moveTo(&heard);
      f.press(&heard);
      f.moveAway();
      heard.hide();
      heard.show();
      QVERIFY(heard.types.contains(
          {QEvent::Enter, QEvent::MouseMove, QEvent::MouseButtonPress, QEvent::Leave, QEvent::Hide}));
    }
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
    const Rows<bool, Act> row("stays", "act");
    row("press on the widget", false, [](F f) { f.press(f.widget); });
    row("press on the widget, unwanted", true, [](F f) {
      f.tooltip->SetDismissOnPress(false);
      f.press(f.widget);
    });
    row("press on the tooltip", false, [](F f) { f.press(f.shown()); });
    row("press on the tooltip, unwanted", true, [](F f) {
      f.tooltip->SetClickToDismissTooltip(false);
      f.press(f.shown());
    });
    row("Escape", false, [](F f) { f.key(Qt::Key_Escape); });
    row("another key elsewhere", true, [](F f) { f.key(Qt::Key_A); });
    row("check time", false, [](F f) { f.tooltip->SetCustomTooltipCheckTime(AT_ONCE); });
    row("check time, unwanted", true, [](F f) {
      f.tooltip->SetEnableCheckTimer(false);
      f.tooltip->SetCustomTooltipCheckTime(AT_ONCE);
    });
    row("widget hidden", false, [](F f) { f.widget->hide(); });
    row("widget deleted with a foreign object", false, [](F f) {
      f.tooltip->setParent(f.window);
      delete f.widget;
    });
    row("neighbour's tooltip", false, [](F f) { f.other->ShowTooltip(); });
    row("neighbour's tooltip that joins its group", false, [](F f) {
      f.other->SetTooltipGroup("other");
      f.other->ShowTooltip();
      f.other->SetTooltipGroup("test");
    });
    row("a view disappears", false, [](F f) {
      QToolTip::showText(f.window->pos(), "plain", f.window);
      TooltipManager::GetInstance().onViewVisibilityChange(false);
      QTRY_VERIFY(!QToolTip::isVisible());
    });
    row("a view appears", true, [](F) { TooltipManager::GetInstance().onViewVisibilityChange(true); });
    row("widget scrolled away", false, [](F f) { f.widget->move(f.widget->pos() - QPoint(0, 9)); });
    row("window moved", true, [](F f) { f.window->move(30, 30); });
    row("window resized", true, [](F f) { f.window->resize(190, 400); });
    row("covered by a modal window", false, [](F f) {
      QDialog dialog(f.window);
      dialog.setModal(true);
      dialog.show();
      QTRY_VERIFY(!f.tooltip->IsVisible());
    });
    row("content hidden", false, [](F f) { f.tooltip->TooltipControl()->hide(); });
    row("content gone", false, [](F f) { f.tooltip->SetTooltipText({}); });
    row("another layer", false, [](F f) { f.tooltip->SetTooltipLayer(new QWidget(f.window)); });
    // What it was attached to has no say any more.
    row("attached elsewhere", true, [](F f) {
      auto* const part = new QWidget(f.widget);
      part->resize(f.widget->size());
      part->show();
      f.tooltip->AttachTo(f.neighbour);
      f.tooltip->ShowTooltip();
      QCOMPARE(f.tooltip->GetPosCalculator()->RefWidget(), f.neighbour);
      f.moveAway();
      f.moveTo(part);
      f.widget->hide();
    });
  }
  void whatHidesIt() {
    QFETCH(const bool, stays);
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
    Vela::Test::settle();
  }

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
    f.tooltip->SetEnableTooltip(false);
    QVERIFY(f.tooltip->eventFilter(f.widget, &help) && !f.tooltip->eventFilter(f.widget, nullptr));
    QVERIFY(!f.tooltip->IsVisible());
  }

  void focusByKeyboardShows() {
    for (const auto reason : {Qt::TabFocusReason, Qt::BacktabFocusReason, Qt::ShortcutFocusReason,
                              Qt::OtherFocusReason, Qt::MouseFocusReason}) {
      const bool shows = reason != Qt::MouseFocusReason;
      TooltipFixture f;
      f.widget->setFocus(reason);
      letTimePass(1);
      QCOMPARE(f.tooltip->IsVisible(), shows);
      for (const auto key : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_Meta, Qt::Key_F1})
        f.key(key);
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
    f.widget->setFocus(Qt::TabFocusReason);
    f.widget->clearFocus();
    f.widget->setFocus(Qt::MouseFocusReason);
    f.moveTo(f.widget);
    QTRY_VERIFY(f.tooltip->IsVisible());
    f.widget->clearFocus();
    QVERIFY(f.tooltip->IsVisible());
    f.other->SetUseCustomTooltipSettings(false);
    f.neighbour->setFocus(Qt::TabFocusReason);
    letTimePass(1);
    QVERIFY(!f.other->IsVisible());
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
};

VELA_TEST_MAIN(TooltipObjectTest)
#include "tooltip_object_test.moc"
