// SPDX-License-Identifier: MIT
#include "tooltip_fixture.h"

#include <QDialog>
#include <QHelpEvent>
#include <QScreen>
#include <QSignalSpy>

using namespace Vela::UiBase;

using Act = std::function<void(TooltipFixture&)>;
Q_DECLARE_METATYPE(Act)

namespace {

constexpr int AT_ONCE = TooltipFixture::AT_ONCE;
constexpr int NEVER = TooltipFixture::NEVER;

} // namespace

class TooltipObjectTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void restShowsAndLeavingHides() {
    TooltipFixture f;
    QVERIFY(!f.tooltip->IsVisible());
    f.moveTo(f.widget);
    QTRY_VERIFY(f.tooltip->IsVisible() && f.shown()->isVisible());
    QCOMPARE(f.shown()->parentWidget(), f.window);
    // It stands above its widget and points at its middle.
    const QPoint tip = f.shown()->mapTo(f.window, f.tooltip->GetArrowedWindow()->GetArrowPoint());
    QCOMPARE(tip.x(), f.widget->geometry().center().x());
    QVERIFY(tip.y() < f.widget->y());
    f.moveAway();
    QTRY_VERIFY(!f.tooltip->IsVisible() && !f.shown()->isVisible());
  }

  void lastMoveCounts() {
    TooltipFixture f({NEVER, NEVER, NEVER, NEVER, NEVER});
    f.moveTo(f.widget);
    // An interval that is changed while it runs applies at once.
    f.tooltip->SetCustomTooltipShowUpTime(AT_ONCE);
    QTRY_VERIFY(f.tooltip->IsVisible());
    f.moveAway();
    f.letTimePass(1);
    QVERIFY(f.tooltip->IsVisible());
    f.moveTo(f.widget);
    f.tooltip->SetCustomTooltipDismissTime(AT_ONCE);
    f.letTimePass(1);
    QVERIFY(f.tooltip->IsVisible()); // coming back has stopped the time
    f.moveAway();
    QTRY_VERIFY(!f.tooltip->IsVisible());

    // Leaving before the time is over leaves nothing behind.
    f.tooltip->SetCustomTooltipShowUpTime(NEVER);
    f.moveTo(f.widget);
    f.moveAway();
    f.tooltip->SetCustomTooltipShowUpTime(AT_ONCE);
    f.letTimePass(1);
    QVERIFY(!f.tooltip->IsVisible());
  }

  void timeOfOneShowingDoesNotEndTheNext() {
    TooltipFixture f({AT_ONCE, 20, NEVER, NEVER, NEVER});
    f.moveTo(f.widget);
    QTRY_VERIFY(f.tooltip->IsVisible());
    f.moveAway();
    f.key(Qt::Key_Escape);
    QVERIFY(!f.tooltip->IsVisible());
    f.tooltip->ShowTooltip();
    f.letTimePass(40);
    QVERIFY(f.tooltip->IsVisible());
  }

  void timeOfALeaveBeforeDoesNotEndAShowing() {
    TooltipFixture f({NEVER, 20, NEVER, NEVER, NEVER});
    f.moveTo(f.widget);
    f.moveAway();
    f.tooltip->ShowTooltip();
    f.letTimePass(40);
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
    TooltipObject own(QStringLiteral("of its own"));
    own.SetTooltipText(QStringLiteral("x"));
    own.AttachTo(&apart);
    f.widget->show();
    for (QWidget* const each : {&part, &inner, &apart})
      each->show();
    f.moveTo(&inner);
    f.moveTo(&inner, {6, 6});
    QTRY_VERIFY(f.tooltip->IsVisible());
    f.moveTo(f.widget);
    f.moveTo(&part, {1, 1});
    QVERIFY(f.tooltip->IsVisible());
    f.moveTo(&apart);
    f.moveTo(&apart, {3, 3});
    QTRY_VERIFY(own.IsVisible());
    QVERIFY(!f.tooltip->IsVisible());
    f.moveTo(f.widget, {30, 15});
    f.moveTo(f.widget, {32, 15});
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
    f.tooltip->Detach();
    f.tooltip->AttachTo(f.widget);
    QTRY_VERIFY(f.tooltip->IsVisible());
    // Not while a button is held on it.
    const QPoint at = f.widget->mapTo(f.window, QPoint(9, 9));
    QTest::mousePress(f.window->windowHandle(), Qt::LeftButton, {}, at);
    QTest::mouseMove(f.window->windowHandle(), at + QPoint(2, 2));
    f.letTimePass(1);
    QVERIFY(!f.tooltip->IsVisible());
    QTest::mouseRelease(f.window->windowHandle(), Qt::LeftButton, {}, at);
  }

  void mouseOnTooltipKeepsItWithHoverEventsOnly_data() {
    QTest::addColumn<bool>("hoverEvents");
    QTest::newRow("hover events") << true;
    QTest::newRow("default") << false;
  }
  void mouseOnTooltipKeepsItWithHoverEventsOnly() {
    QFETCH(const bool, hoverEvents);
    TooltipFixture f({AT_ONCE, 20, NEVER, NEVER, NEVER});
    CountingHandler hovered;
    CountingHandler normal;
    f.tooltip->SetEnableHoverEvents(hoverEvents);
    f.tooltip->SetHoveredStateCallbackHandler(&hovered);
    f.tooltip->SetNormalStateCallbackHandler(&normal);
    f.moveTo(f.widget);
    QTRY_VERIFY(f.tooltip->IsVisible());
    f.moveTo(f.shown());
    if (!hoverEvents) {
      QTRY_VERIFY(!f.tooltip->IsVisible());
      QCOMPARE(hovered.calls + normal.calls, 0);
      return;
    }
    f.letTimePass(60);
    QVERIFY(f.tooltip->IsVisible());
    f.moveAway();
    QTRY_VERIFY(!f.tooltip->IsVisible());
    QVERIFY(hovered.calls > 0);
    QCOMPARE(normal.calls, hovered.calls);
    // Over the tooltip it had no ear for moves over the widget; that has ended.
    f.moveTo(f.widget);
    QTRY_VERIFY(f.tooltip->IsVisible());
  }

  void whatHidesIt_data() {
    QTest::addColumn<Act>("act");
    QTest::addColumn<bool>("stays");
    using F = TooltipFixture&;
    const auto row = [](const char* name, const Act& act, bool stays = false) {
      QTest::newRow(name) << act << stays;
    };
    row("press on the widget", [](F f) { f.press(f.widget); });
    row(
        "press on the widget, unwanted",
        [](F f) {
          f.tooltip->SetDismissOnPress(false);
          f.press(f.widget);
        },
        true);
    row("press on the tooltip", [](F f) { f.press(f.shown()); });
    row(
        "press on the tooltip, unwanted",
        [](F f) {
          f.tooltip->SetClickToDismissTooltip(false);
          f.press(f.shown());
        },
        true);
    row("Escape", [](F f) { f.key(Qt::Key_Escape); });
    row(
        "another key elsewhere", [](F f) { f.key(Qt::Key_A); }, true);
    row("check time", [](F f) { f.tooltip->SetCustomTooltipCheckTime(AT_ONCE); });
    row(
        "check time, unwanted",
        [](F f) {
          f.tooltip->SetEnableCheckTimer(false);
          f.tooltip->SetCustomTooltipCheckTime(AT_ONCE);
        },
        true);
    row("widget hidden", [](F f) { f.widget->hide(); });
    row("window hidden", [](F f) { f.window->hide(); });
    row("widget deleted with a foreign object", [](F f) {
      f.tooltip->setParent(f.window);
      delete f.widget;
    });
    row("disabled", [](F f) { f.tooltip->OnEnableTooltip(false); });
    row("forced", [](F f) { f.tooltip->ForceHideTooltip(); });
    row("detached", [](F f) { f.tooltip->Detach(); });
    row("neighbour's tooltip", [](F f) { f.other->ShowTooltip(); });
    row(
        "tooltip of another group",
        [](F f) {
          TooltipObject apart(QStringLiteral("apart"));
          apart.SetTooltipText(QStringLiteral("x"));
          apart.AttachTo(f.window);
          apart.ShowTooltip();
          QVERIFY(apart.IsVisible());
        },
        true);
    row("a view disappears", [](F) { TooltipManager::GetInstance().onViewVisibilityChange(false); });
    row(
        "a view appears", [](F) { TooltipManager::GetInstance().onViewVisibilityChange(true); }, true);
    row("widget scrolled away", [](F f) { f.widget->move(f.widget->pos() - QPoint(0, 9)); });
    row(
        "window moved", [](F f) { f.window->move(30, 30); }, true);
    row("covered by a modal window", [](F f) {
      QDialog dialog(f.window);
      dialog.setModal(true);
      dialog.show();
      QTRY_VERIFY(!f.tooltip->IsVisible());
    });
    row("its group is another one's", [](F f) {
      f.other->SetTooltipGroup(QStringLiteral("apart"));
      f.other->ShowTooltip();
      QVERIFY(f.tooltip->IsVisible());
      f.other->SetTooltipGroup(QStringLiteral("test"));
    });
    row("content hidden", [](F f) { f.tooltip->TooltipControl()->hide(); });
    row("content deleted", [](F f) { delete f.tooltip->TooltipControl(); });
  }
  void whatHidesIt() {
    QFETCH(const Act, act);
    QFETCH(const bool, stays);
    TooltipFixture f({AT_ONCE, NEVER, NEVER, NEVER, NEVER});
    f.moveTo(f.widget);
    QTRY_VERIFY(f.tooltip->IsVisible());
    f.tooltip->SetCustomTooltipShowUpTime(NEVER);
    const QPointer<QWidget> shown(f.shown());
    act(f);
    f.letTimePass(1);
    QCOMPARE(f.tooltip->IsVisible(), stays);
    QCOMPARE(shown && shown->isVisible(), stays);
  }

  void onlyTooltipEventsAreSwallowed_data() {
    QTest::addColumn<bool>("enabled");
    QTest::newRow("enabled") << true;
    QTest::newRow("disabled") << false;
  }
  void onlyTooltipEventsAreSwallowed() {
    QFETCH(const bool, enabled);
    TooltipFixture f;
    f.tooltip->SetEnableTooltip(enabled);
    QHelpEvent help(QEvent::ToolTip, {1, 1}, f.widget->mapToGlobal(QPoint(1, 1)));
    QVERIFY(f.tooltip->eventFilter(f.widget, &help));
    QVERIFY(!f.tooltip->IsVisible());
    QVERIFY(!f.tooltip->eventFilter(f.widget, nullptr));
    for (const auto type : {QEvent::Enter, QEvent::Leave, QEvent::Hide, QEvent::FocusOut, QEvent::Paint}) {
      QEvent event(type);
      QVERIFY(!f.tooltip->eventFilter(f.widget, &event));
    }
    f.moveTo(f.widget);
    f.letTimePass(1);
    QCOMPARE(f.tooltip->IsVisible(), enabled);
  }

  void tooltipEventShowsWithoutOwnTime() {
    TooltipFixture f;
    f.tooltip->SetUseCustomTooltipSettings(false);
    QHelpEvent help(QEvent::ToolTip, {1, 1}, f.widget->mapToGlobal(QPoint(1, 1)));
    f.moveTo(f.widget);
    f.letTimePass(1);
    QVERIFY(f.tooltip->eventFilter(f.widget, &help) && !f.tooltip->IsVisible());
    // It takes a leave with the mouse still there, as when something opens beneath it.
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(f.widget, &leave);
    QVERIFY(f.tooltip->eventFilter(f.widget, &help) && f.tooltip->IsVisible());
  }

  void focusShows_data() {
    QTest::addColumn<int>("reason");
    QTest::addColumn<bool>("shows");
    QTest::newRow("Tab") << int(Qt::TabFocusReason) << true;
    QTest::newRow("by program") << int(Qt::OtherFocusReason) << true;
    QTest::newRow("mouse") << int(Qt::MouseFocusReason) << false;
    QTest::newRow("window activated") << int(Qt::ActiveWindowFocusReason) << false;
  }
  void focusShows() {
    QFETCH(const int, reason);
    QFETCH(const bool, shows);
    TooltipFixture f;
    QCOMPARE(f.widget->focusPolicy(), Qt::NoFocus);
    f.widget->setFocus(static_cast<Qt::FocusReason>(reason));
    f.letTimePass(1);
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

  void nextAtOnceWhereTheGroupWantsIt_data() {
    QTest::addColumn<bool>("atOnce");
    QTest::newRow("group wants it") << true;
    QTest::newRow("default") << false;
  }
  void nextAtOnceWhereTheGroupWantsIt() {
    QFETCH(const bool, atOnce);
    TooltipFixture f;
    f.other->SetCustomTooltipShowUpTime(NEVER);
    TooltipManager& manager = TooltipManager::GetInstance();
    manager.SetShowNextAtOnce(QStringLiteral("test"), atOnce);
    f.moveTo(f.neighbour);
    f.letTimePass(1);
    QVERIFY(!f.other->IsVisible()); // there is none up yet
    f.moveTo(f.widget);
    QTRY_VERIFY(f.tooltip->IsVisible() && manager.IsTooltipShown(QStringLiteral("test")));
    f.tooltip->SetCustomTooltipDismissTime(NEVER);
    f.moveTo(f.neighbour);
    f.letTimePass(1);
    QCOMPARE(f.other->IsVisible(), atOnce);
    QCOMPARE(f.tooltip->IsVisible(), !atOnce);
    manager.SetShowNextAtOnce(QStringLiteral("test"), false);
  }

  void layers() {
    TooltipFixture f;
    TooltipManager& manager = TooltipManager::GetInstance();
    QWidget layer(f.window);
    layer.setGeometry(f.window->rect());
    manager.SetTooltipLayer(QStringLiteral("test"), &layer);
    QCOMPARE(manager.getTooltipLayer(f.tooltip), &layer);
    f.tooltip->ShowTooltip();
    QVERIFY(layer.isVisible() && f.shown()->parentWidget() == &layer);
    manager.SetTooltipLayer(QStringLiteral("test"), nullptr);

    // A layer of another window is not where the user looks.
    QWidget elsewhere;
    QWidget foreign(&elsewhere);
    manager.SetTooltipLayer(QStringLiteral("test"), &foreign);
    QCOMPARE(manager.getTooltipLayer(f.tooltip), f.window);
    manager.SetTooltipLayer(QStringLiteral("test"), nullptr);

    // A spot belongs to the window that shows it, whichever is active.
    elsewhere.show();
    elsewhere.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&elsewhere));
    const TooltipObject spot(QStringLiteral("test"), f.window);
    QCOMPARE(manager.getTooltipLayer(const_cast<TooltipObject*>(&spot)), f.window);
    elsewhere.hide();

    // The widget goes to a window of its own, and its tooltip with it.
    f.widget->setParent(nullptr);
    f.widget->show();
    f.tooltip->ShowTooltip();
    QCOMPARE(f.shown()->parentWidget(), f.widget);
    f.tooltip->Detach();
    delete f.widget;

    // Nowhere to be shown.
    f.window->hide();
    f.other->ShowTooltip();
    QVERIFY(f.window->isHidden() && !f.other->IsVisible());
    TooltipObject lost(QStringLiteral("test"));
    lost.SetTooltipText(QStringLiteral("x"));
    lost.ShowTooltip();
    QVERIFY(!manager.getTooltipLayer(nullptr) && !lost.IsVisible());
  }

  void types_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("times"); // show-up and dismiss
    QTest::addColumn<bool>("rich");
    QTest::addColumn<int>("side");
    QTest::newRow("quick") << int(QuickTooltip) << 0 << false << int(Top);
    QTest::newRow("quick, beside") << int(QuickSideTooltip) << 0 << false << int(Right);
    QTest::newRow("quick hint") << int(QuickHintTooltip) << 0 << false << int(Bottom);
    QTest::newRow("rich") << int(RichTooltip) << 1 << true << int(Bottom);
    QTest::newRow("rich, beside") << int(RichSideTooltip) << 1 << true << int(Left);
  }
  void types() {
    QFETCH(const int, type);
    QFETCH(const bool, rich);
    QFETCH(const int, side);
    TooltipFixture f({30, 30, NEVER, NEVER, NEVER});
    f.tooltip->SetUseCustomTooltipSettings(false);
    f.tooltip->SetTooltipType(static_cast<ETooltipType>(type));
    QCOMPARE(f.tooltip->IsHoverEventsEnabled(), rich);
    f.moveTo(f.widget);
    QTRY_VERIFY(f.tooltip->IsVisible());
    QCOMPARE(int(f.tooltip->GetPosCalculator()->Direction(0)), side);
    const QRect body = f.shown()->geometry();
    QVERIFY(!body.intersects(f.widget->geometry()));
    QCOMPARE(body.bottom() < f.widget->y(), side == Top);
    QCOMPARE(body.top() > f.widget->geometry().bottom(), side == Bottom);
    QCOMPARE(body.left() > f.widget->geometry().right(), side == Right);
    QCOMPARE(body.right() < f.widget->x(), side == Left);
    f.press(f.shown());
    QCOMPARE(f.tooltip->IsVisible(), rich);
  }

  // Owners along the edges and in the corners, in windows of all sizes.
  void inSightEverywhere_data() {
    QTest::addColumn<QSize>("window");
    QTest::addColumn<Qt::LayoutDirection>("layout");
    for (const QSize& size : {QSize(90, 40), QSize(160, 90), QSize(300, 200), QSize(760, 700)})
      for (const Qt::LayoutDirection layout : {Qt::LeftToRight, Qt::RightToLeft})
        QTest::addRow("%d x %d, %d", size.width(), size.height(), layout) << size << layout;
  }
  void inSightEverywhere() {
    QFETCH(const QSize, window);
    QFETCH(const Qt::LayoutDirection, layout);
    TooltipFixture f({NEVER, NEVER, NEVER, NEVER, NEVER});
    f.window->setLayoutDirection(layout);
    f.window->resize(window);
    f.neighbour->hide();
    f.widget->resize(24, 16);
    for (int type = QuickTooltip; type <= RichSideTooltip; ++type) {
      f.tooltip->SetTooltipType(ETooltipType(type));
      for (const auto& [x, y] :
           {std::pair(0, 0), {1, 0}, {2, 0}, {0, 1}, {1, 1}, {2, 1}, {0, 2}, {1, 2}, {2, 2}}) {
        f.tooltip->HideTooltip();
        f.widget->move((window.width() - 24) * x / 2, (window.height() - 16) * y / 2);
        f.tooltip->ShowTooltip();
        const QRect shown(f.shown()->mapToGlobal(f.tooltip->GetArrowedWindow()->GetBounds().topLeft()),
                          f.tooltip->GetArrowedWindow()->GetBounds().size());
        const QRect room = f.shown()->isWindow() ? f.shown()->screen()->geometry() : f.window->geometry();
        QVERIFY(f.tooltip->IsVisible() && room.contains(shown));
        const QRect owner(f.widget->mapToGlobal(QPoint()), f.widget->size());
        QVERIFY(!shown.intersects(owner));
        const QPoint tip = f.shown()->mapToGlobal(f.tooltip->GetArrowedWindow()->GetArrowPoint());
        QVERIFY(owner.adjusted(-9, -9, 9, 9).contains(tip));
      }
    }
  }
};

VELA_TEST_MAIN(TooltipObjectTest)
#include "tooltip_object_test.moc"
