// SPDX-License-Identifier: MIT
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <support/rows.h>
#include <ui_base/notifications/floating_widget.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/toolbars/action_panel.h>
#include <workbench/commands/history_command.h>
#include <workbench/commands/open_mesh_command.h>
#include <workbench/commands/smooth_flyout_command.h>
#include <workbench/commands/volume_panel_command.h>
#include <workbench/mesh_ops/smooth.h>
#include <workbench/panels/smooth_panel.h>

using namespace Workbench;
using namespace Vela::UiBase;
using Test::WorkbenchFixture;
using Vela::Test::settle;

namespace {

/// A workbench that shows a bumpy mesh.
class OverlayBench : public WorkbenchFixture {
public:
  explicit OverlayBench(const Mesh& mesh = Test::blob(20)) : WorkbenchFixture({800, 600}) { show(mesh); }
  bool openFlyout() {
    press(Qt::Key_M, Qt::ControlModifier | Qt::AltModifier);
    settle();
    return QTest::qWaitFor([this] { return flyout().isVisible(); });
  }

  SmoothFlyoutCommand& smoothing() { return *command<SmoothFlyoutCommand>(); }
  FlyoutBase& flyout() { return *smoothing().flyout(); }
  SmoothPanel& panel() { return *flyout().findChild<SmoothPanel*>(); }
  void setIterations(int iterations) { panel().findChild<QSpinBox*>()->setValue(iterations); }
  /// The preview shows what the panel says.
  bool isPreviewCurrent() {
    return view().shownMesh().positions() == smoothed(view().mesh(), panel().options()).positions();
  }
  bool isPlain() {
    return view().shownMesh().positions() == view().mesh().positions() && !smoothing().isActive() &&
           !flyout().isVisible() && !controller().isMeshLocked();
  }
};

} // namespace

/// What lies over the workbench's view.
class WorkbenchOverlaysTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void initTestCase() { qputenv("VLK_PLUGIN_PATH", ""); }
  void cleanupTestCase() { qunsetenv("VLK_PLUGIN_PATH"); }

  void theFlyoutPreviewsAndAppliesAsOneStep() {
    OverlayBench bench;
    QVERIFY(bench.openFlyout());
    QVERIFY(bench.flyout().isAncestorOf(QApplication::focusWidget()));
    QTRY_VERIFY(bench.isPreviewCurrent());
    bench.setIterations(2);
    bench.setIterations(30); // the one before never shows
    QTRY_VERIFY(bench.isPreviewCurrent());
    QVERIFY(!bench.isEnabled(UndoCommand::className()) && !bench.isEnabled(OpenMeshCommand::className()));

    const auto expected = bench.view().shownMesh().positions();
    bench.press(Qt::Key_Return);
    QTRY_VERIFY(bench.isPlain());
    QCOMPARE(QApplication::focusWidget(), &bench.view());
    QVERIFY(bench.view().mesh().positions() == expected);
    QCOMPARE(bench.view().document().undoStack()->count(), 1);
    QTRY_VERIFY(bench.controller().contextStack().isEmpty());
  }

  // Closed while it applies, and as another mesh comes.
  void aFlyoutThatIsNotAppliedLeavesNoTrace() {
    OverlayBench bench;
    const auto before = bench.view().mesh().positions();
    QVERIFY(bench.openFlyout());
    bench.setIterations(20);
    QTRY_VERIFY(bench.isPreviewCurrent());
    {
      Test::HeldWork work;
      bench.flyout().Apply();
      QVERIFY(bench.flyout().IsBusy());
      bench.flyout().Cancel();
      work.runAll();
    }
    QTRY_VERIFY(bench.isPlain());
    QVERIFY(bench.view().mesh().positions() == before);
    QVERIFY(!bench.view().document().undoStack()->canUndo());

    QVERIFY(bench.openFlyout());
    bench.show(Test::cube(2));
    QTRY_VERIFY(bench.isPlain());
    QTRY_VERIFY(bench.isEnabled(OpenMeshCommand::className()));
    QVERIFY(bench.openFlyout()); // and again
  }

  void theFiguresFollowTheMesh() {
    OverlayBench bench(Test::cube(2));
    bench.press(Qt::Key_I, Qt::ControlModifier | Qt::ShiftModifier);
    const auto text = [&bench] {
      const auto* const page = bench.window().findChild<QTextBrowser*>();
      return page ? page->toPlainText().simplified() : QString();
    };
    QTRY_VERIFY(text().contains(QStringLiteral("Vertices 8 Triangles 12 Edges 18 Size 2 × 2 × 2")));
    for (const char* const figures : {"Surface area 24", "Watertight Yes Volume 8"})
      QVERIFY2(text().contains(figures), qPrintable(text()));
    bench.controller().showMesh(Test::square(1), "square");
    QTRY_VERIFY(text().contains("Triangles 2 Edges 5") && text().contains("Watertight No"));
  }

  void barsDoNotOverlapAtAnySize_data() {
    const Vela::Test::Rows<QSize, Qt::LayoutDirection> row("size", "direction");
    row("small", {640, 480}, Qt::LeftToRight);
    row("large", {1920, 1080}, Qt::LeftToRight);
    // From right to left the row of bars grows towards the panel, for which a smaller window has no room.
    row("right to left", {900, 600}, Qt::RightToLeft);
  }
  void barsDoNotOverlapAtAnySize() {
    QFETCH(QSize, size);
    QFETCH(Qt::LayoutDirection, direction);
    QApplication::setLayoutDirection(direction);
    const auto asBefore = qScopeGuard([] { QApplication::setLayoutDirection(Qt::LeftToRight); });
    OverlayBench bench;
    bench.command<VolumePanelCommand>()->setChecked(true);
    bench.press(Qt::Key_A, Qt::ControlModifier); // the bar of the selection
    bench.controller().showNotification("What has been done to the mesh at last", NotificationWarning);
    bench.window().resize(size);
    settle();
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

VELA_TEST_MAIN(WorkbenchOverlaysTest)
#include "overlays_test.moc"
