// SPDX-License-Identifier: MIT
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <support/input.h>
#include <support/rows.h>
#include <ui_base/notifications/floating_widget.h>
#include <ui_base/popups/arrowed_window.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/toolbars/action_panel.h>
#include <ui_base/toolbars/tool_button_with_button_menu.h>
#include <ui_base/toolbars/tool_button_with_widget_menu.h>
#include <ui_base/toolbars/toolbar_manager.h>
#include <workbench/commands/history_command.h>
#include <workbench/commands/mode_command.h>
#include <workbench/commands/smooth_flyout_command.h>
#include <workbench/commands/volume_panel_command.h>

#include <QApplication>

using namespace Workbench;
using namespace Vela::UiBase;
using Test::WorkbenchFixture;
using Vela::Test::settle;

namespace {

class BarsBench : public WorkbenchFixture {
public:
  ~BarsBench() { QApplication::setLayoutDirection(Qt::LeftToRight); }

  explicit BarsBench(const QSize& size) : WorkbenchFixture(size) { show(Test::blob(20)); }
  void click(const QWidget& widget) {
    Vela::Test::click(widget);
    settle();
  }
  void selectByRectangle() {
    controller().findCommand(ModeCommand::idOf(RectangleMode))->setChecked(true);
    QWindow* const target = window().windowHandle();
    const QPoint middle = Vela::Test::inWindow(view());
    QTest::mousePress(target, Qt::LeftButton, {}, middle - QPoint(60, 40));
    QTest::mouseMove(target, middle);
    QTest::mouseMove(target, middle + QPoint(60, 40));
    QTest::mouseRelease(target, Qt::LeftButton, {}, middle + QPoint(60, 40));
    settle();
  }
  ToolBar& panel() { return bars().panel(); }
  ToolBar* selectionBar() {
    for (ToolBar* const bar : view().findChildren<ToolBar*>()) {
      if (!bar->property(qPrintable(ToolbarManager::COMMANDGROUP_PROPERTY)).toString().isEmpty())
        return bar;
    }
    return nullptr;
  }
  ToolButtonWithButtonMenu& group(const char* name) {
    return *qobject_cast<ToolButtonWithButtonMenu*>(panel().FindOneButton(QLatin1String(name), false));
  }
  ToolButtonWithWidgetMenu& flyoutButton() {
    return *qobject_cast<ToolButtonWithWidgetMenu*>(
        panel().FindOneButton(SmoothFlyoutCommand::className(), true));
  }
  FlyoutBase& flyout() { return *command<SmoothFlyoutCommand>()->flyout(); }
  bool openFlyoutByClicks() {
    click(group("Smoothing"));
    if (!group("Smoothing").GetMenu()->isVisible())
      return false;
    click(flyoutButton());
    return flyout().isVisible();
  }
  QRect inWindow(const QWidget& widget) { return {widget.mapTo(&window(), QPoint()), widget.size()}; }
};

} // namespace

/// The bars over the mesh, worked with mouse and keyboard.
class WorkbenchBarsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void nothingOverlapsAtAnySize_data() {
    const Vela::Test::Rows<QSize, Qt::LayoutDirection> row("size", "direction");
    row("small", {640, 480}, Qt::LeftToRight);
    row("large", {1920, 1080}, Qt::LeftToRight);
    // From right to left the row of bars grows towards the panel, for which a smaller window has no room.
    row("right to left", {900, 600}, Qt::RightToLeft);
  }
  void nothingOverlapsAtAnySize() {
    QFETCH(QSize, size);
    QFETCH(Qt::LayoutDirection, direction);
    QApplication::setLayoutDirection(direction);
    BarsBench bench({800, 600});
    bench.command<VolumePanelCommand>()->setChecked(true);
    bench.selectByRectangle();
    QTRY_VERIFY(bench.selectionBar() && bench.selectionBar()->isVisible());
    bench.controller().showNotification("What has been done to the mesh at last", NotificationWarning);
    bench.resize(size);
    QTRY_COMPARE(bench.bars().mainBar().x(), (bench.view().width() - bench.bars().mainBar().width()) / 2);

    QList<const QWidget*> floating{&bench.bars().mainBar(), &bench.panel(), bench.selectionBar()};
    for (const FloatingWidget* const widget : bench.view().findChildren<FloatingWidget*>())
      floating += widget;
    QCOMPARE(floating.size(), 5);
    for (const QWidget* const widget : floating) {
      QVERIFY(widget->isVisible());
      QVERIFY(bench.view().rect().contains(widget->geometry()));
      for (const QWidget* const other : floating)
        QVERIFY(widget == other || !widget->geometry().intersects(other->geometry()));
    }

    bench.click(bench.group("Smoothing"));
    const ToolBar& menu = *bench.group("Smoothing").GetMenu();
    QVERIFY(menu.isVisible());
    const QRect button = bench.inWindow(bench.group("Smoothing"));
    QVERIFY(bench.window().rect().contains(bench.inWindow(menu)) && !bench.inWindow(menu).intersects(button));
    bench.click(bench.flyoutButton());
    QVERIFY(bench.flyout().isVisible() && !menu.isVisible());
    const QRect popup = bench.inWindow(*bench.flyoutButton().GetArrowedWindow());
    QVERIFY(bench.window().rect().contains(popup) && !popup.intersects(button));
  }

  void theFlyoutIsWorkedFromThePanel() {
    BarsBench bench({1280, 800});
    const auto before = bench.view().mesh().positions();
    QVERIFY(bench.openFlyoutByClicks());
    QVERIFY(bench.group("Smoothing").IsInExtendMode());
    {
      Test::HeldWork work;
      bench.press(Qt::Key_Return);
      QVERIFY(bench.flyout().IsBusy());
      const QList<ToolButton*> locked = bench.panel().Buttons();
      for (const ToolButton* const button : locked)
        QVERIFY(!button->isEnabled());
      work.runAll();
    }
    QTRY_VERIFY(!bench.flyout().isVisible());
    QVERIFY(bench.view().mesh().positions() != before);
    QVERIFY(!bench.group("Smoothing").IsInExtendMode() && bench.group("Smoothing").isEnabled());
    QCOMPARE(QApplication::focusWidget(), &bench.view());
    ToolButton* const undo = bench.bars().mainBar().FindOneButton(UndoCommand::className(), false);
    QTRY_VERIFY(undo->isEnabled());
    settle();
    bench.click(*undo);
    QVERIFY(bench.view().mesh().positions() == before);

    // The button of the panel closes what it opened, without a trace.
    QVERIFY(bench.openFlyoutByClicks());
    bench.click(bench.group("Smoothing"));
    QVERIFY(!bench.flyout().isVisible() && !bench.command<SmoothFlyoutCommand>()->isActive());
    QVERIFY(!bench.controller().isMeshLocked());
  }
};

VELA_TEST_MAIN(WorkbenchBarsTest)
#include "tool_bars_test.moc"
