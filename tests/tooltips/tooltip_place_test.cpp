// SPDX-License-Identifier: MIT
#include "tooltip_fixture.h"

#include <support/rows.h>

#include <QScreen>
#include <QSignalSpy>
#include <QToolTip>

using namespace Vela::UiBase;
using Vela::Test::Rows;

/// On which layer and where tooltips stand.
class TooltipPlaceTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void layers() {
    TooltipFixture f;
    TooltipManager& manager = TooltipManager::GetInstance();
    QWidget layer(f.window);
    layer.setGeometry(f.window->rect());
    manager.SetTooltipLayer("test", &layer);
    QCOMPARE(manager.getTooltipLayer(f.tooltip), &layer);
    f.tooltip->ShowTooltip();
    QVERIFY(layer.isVisible() && f.shown()->parentWidget() == &layer);
    manager.SetTooltipLayer("test", nullptr);

    // A layer of another window is not where the user looks.
    QWidget elsewhere;
    QWidget foreign(&elsewhere);
    manager.SetTooltipLayer("test", &foreign);
    QCOMPARE(manager.getTooltipLayer(f.tooltip), f.window);
    manager.SetTooltipLayer("test", nullptr);

    // A spot belongs to the window that shows it, whichever is active.
    elsewhere.show();
    elsewhere.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&elsewhere));
    const TooltipObject spot("test", f.window);
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
    TooltipObject lost("test");
    lost.SetTooltipText("x");
    lost.ShowTooltip();
    QVERIFY(!manager.getTooltipLayer(nullptr) && !lost.IsVisible());
  }

  void types_data() {
    const Rows<ETooltipType, bool, EDirection> row("type", "rich", "side");
    row("quick", QuickTooltip, false, Top);
    row("quick, beside", QuickSideTooltip, false, Right);
    row("quick hint", QuickHintTooltip, false, Bottom);
    row("rich", RichTooltip, true, Bottom);
    row("rich, beside", RichSideTooltip, true, Left);
  }
  void types() {
    QFETCH(const ETooltipType, type);
    QFETCH(const bool, rich);
    QFETCH(const EDirection, side);
    TooltipFixture f({30, 30, NEVER, NEVER, NEVER});
    f.tooltip->SetUseCustomTooltipSettings(false);
    f.tooltip->SetTooltipType(type);
    QCOMPARE(f.tooltip->IsHoverEventsEnabled(), rich);
    f.moveTo(f.widget);
    QTRY_VERIFY(f.tooltip->IsVisible());
    QCOMPARE(f.tooltip->GetPosCalculator()->Direction(0), side);
    const QRect body = f.shown()->geometry();
    QVERIFY(!body.intersects(f.widget->geometry()));
    QCOMPARE(body.bottom() < f.widget->y(), side == Top);
    QCOMPARE(body.top() > f.widget->geometry().bottom(), side == Bottom);
    QCOMPARE(body.left() > f.widget->geometry().right(), side == Right);
    QCOMPARE(body.right() < f.widget->x(), side == Left);
    f.press(f.shown());
    QCOMPARE(f.tooltip->IsVisible(), rich);
  }

  void qtsOwnToolTipGoesWithTheView() {
    QWidget view;
    view.show();
    TooltipManager& manager = TooltipManager::GetInstance();
    QSignalSpy changed(&manager, &TooltipManager::viewVisibilityChanged);
    QToolTip::showText(view.mapToGlobal(QPoint(10, 10)), "tip", &view);
    manager.onViewVisibilityChange(true);
    QVERIFY(QToolTip::isVisible());
    manager.onViewVisibilityChange(false);
    QTRY_VERIFY(!QToolTip::isVisible());
    QCOMPARE(changed, QList<QVariantList>({{true}, {false}}));
  }

  // Owners along the edges and in the corners, in windows of all sizes.
  void inSightEverywhere_data() {
    const Rows<QSize, Qt::LayoutDirection> row("window", "layout");
    row("tiny", {90, 40}, Qt::LeftToRight);
    row("small, mirrored", {160, 90}, Qt::RightToLeft);
    row("roomy", {760, 700}, Qt::LeftToRight);
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
      for (int place = 0; place < 9; ++place) {
        f.tooltip->HideTooltip();
        f.widget->move((window.width() - 24) * (place % 3) / 2, (window.height() - 16) * (place / 3) / 2);
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

private:
  static constexpr int NEVER = TooltipFixture::NEVER;
};

VELA_TEST_MAIN(TooltipPlaceTest)
#include "tooltip_place_test.moc"
