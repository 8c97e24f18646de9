// SPDX-License-Identifier: MIT
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <support/rows.h>
#include <ui_base/notifications/floating_widget.h>
#include <ui_base/toolbars/action_panel.h>
#include <workbench/commands/volume_panel_command.h>

using namespace Workbench;
using namespace Vela::UiBase;
using Test::WorkbenchFixture;

/// The bars over the mesh.
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
    const auto asBefore = qScopeGuard([] { QApplication::setLayoutDirection(Qt::LeftToRight); });
    WorkbenchFixture bench({800, 600});
    bench.show(Test::blob(20));
    bench.command<VolumePanelCommand>()->setChecked(true);
    bench.press(Qt::Key_A, Qt::ControlModifier); // the bar of the selection
    bench.controller().showNotification("What has been done to the mesh at last", NotificationWarning);
    bench.resize(size);
    const auto floating = [&bench] {
      QWidgetList all;
      for (QWidget* const each : bench.view().findChildren<QWidget*>()) {
        if (each->isVisible() && (qobject_cast<ToolBar*>(each) || qobject_cast<FloatingWidget*>(each)))
          all += each;
      }
      return all;
    };
    QTRY_COMPARE(floating().size(), 5);
    QTRY_COMPARE(bench.bars().mainBar()->x(), (bench.view().width() - bench.bars().mainBar()->width()) / 2);
    for (const QWidget* const widget : floating()) {
      QVERIFY(bench.view().rect().contains(widget->geometry()));
      for (const QWidget* const other : floating())
        QVERIFY(widget == other || !widget->geometry().intersects(other->geometry()));
    }
  }
};

VELA_TEST_MAIN(WorkbenchBarsTest)
#include "tool_bars_test.moc"
