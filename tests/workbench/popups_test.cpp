// SPDX-License-Identifier: MIT
#include "mesh_files.h"
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <support/test_case.h>
#include <tqm_mesh_kernel/stepped_dispatcher.h>
#include <ui_base/popups/flyout_base.h>
#include <workbench/commands/decimate_mesh_command.h>
#include <workbench/commands/history_command.h>
#include <workbench/commands/open_mesh_command.h>
#include <workbench/commands/placement_command.h>
#include <workbench/commands/smooth_flyout_command.h>
#include <workbench/mesh_ops/smooth.h>
#include <workbench/panels/mesh_info_dialog.h>
#include <workbench/panels/placement_overlay.h>
#include <workbench/panels/smooth_panel.h>

#include <QApplication>
#include <QSpinBox>
#include <QTextBrowser>

using namespace Workbench;
using namespace Vela::UiBase;
using Test::WorkbenchFixture;
using Vela::Test::settle;

namespace {

/// A workbench that shows a bumpy mesh.
class PopupBench : public WorkbenchFixture {
public:
  PopupBench() { qputenv("VLK_PLUGIN_PATH", ""); }
  ~PopupBench() { qunsetenv("VLK_PLUGIN_PATH"); }
  Q_DISABLE_COPY_MOVE(PopupBench)

  bool show(const Mesh& mesh = Test::blob(20)) {
    if (!start())
      return false;
    window().resize(800, 600);
    controller().showMesh(mesh, QStringLiteral("blob"));
    settle();
    return true;
  }
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

/// What opens over the workbench's view.
class WorkbenchPopupsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void theFlyoutPreviewsAndAppliesAsOneStep() {
    PopupBench bench;
    QVERIFY(bench.show());
    QCOMPARE(QApplication::focusWidget(), &bench.view());
    const auto before = bench.view().mesh().positions();
    QVERIFY(bench.openFlyout());
    QVERIFY(bench.flyout().isAncestorOf(QApplication::focusWidget()));
    QTRY_VERIFY(bench.isPreviewCurrent());
    bench.setIterations(2);
    bench.setIterations(30); // the one before never shows
    QTRY_VERIFY(bench.isPreviewCurrent());
    QVERIFY(bench.view().mesh().positions() == before);
    QVERIFY(!bench.command<UndoCommand>()->isEnabled());
    QVERIFY(!bench.command<DecimateMeshCommand>()->isEnabled());
    QVERIFY(!bench.command<OpenMeshCommand>()->isEnabled());

    const auto expected = bench.view().shownMesh().positions();
    bench.press(Qt::Key_Return);
    QTRY_VERIFY(bench.isPlain());
    QCOMPARE(QApplication::focusWidget(), &bench.view());
    QVERIFY(bench.view().mesh().positions() == expected);
    QCOMPARE(bench.view().document().undoStack()->count(), 1);
    QTRY_VERIFY(bench.command<UndoCommand>()->isEnabled());
    bench.press(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(bench.view().mesh().positions() == before);
    QTRY_VERIFY(bench.command<RedoCommand>()->isEnabled());
    bench.command<RedoCommand>()->trigger(); // its keys are those of the desktop
    QVERIFY(bench.view().mesh().positions() == expected);
    settle();
    QVERIFY(bench.controller().contextStack().isEmpty());
  }

  // However the flyout closes, also while it applies: the mesh is what it was, or the one that came.
  void aFlyoutThatIsNotAppliedLeavesNoTrace_data() {
    using Close = std::function<void(PopupBench&)>;
    QTest::addColumn<Close>("close");
    QTest::addColumn<std::size_t>("triangles");
    const std::size_t same = Test::blob(20).triangles().size();
    QTest::newRow("Escape") << Close([](PopupBench& bench) { bench.press(Qt::Key_Escape); }) << same;
    QTest::newRow("Escape in the view") << Close([](PopupBench& bench) {
      bench.view().setFocus();
      bench.press(Qt::Key_Escape);
    }) << same;
    QTest::newRow("cancel") << Close([](PopupBench& bench) { bench.flyout().Cancel(); }) << same;
    QTest::newRow("close") << Close([](PopupBench& bench) { bench.flyout().CloseMe(); }) << same;
    QTest::newRow("cancel while it applies") << Close([](PopupBench& bench) {
      Taren::Core::SteppedDispatcher dispatcher;
      const Taren::Core::ScopedDispatcher installed(dispatcher);
      bench.flyout().Apply();
      QVERIFY(bench.flyout().IsBusy());
      bench.flyout().Cancel();
      dispatcher.runAll();
    }) << same;
    QTest::newRow("another mesh") << Close([](PopupBench& bench) {
      bench.controller().showMesh(Test::cube(2), QStringLiteral("cube"));
    }) << std::size_t(12);
    QTest::newRow("a file is dropped") << Close([](PopupBench& bench) {
      bench.drop({bench.write("cube.obj", Test::objFile(Test::cube(2)))});
    }) << std::size_t(12);
  }
  void aFlyoutThatIsNotAppliedLeavesNoTrace() {
    QFETCH(std::function<void(PopupBench&)>, close);
    QFETCH(std::size_t, triangles);
    PopupBench bench;
    QVERIFY(bench.show());
    const auto before = bench.view().mesh().positions();
    QVERIFY(bench.openFlyout());
    bench.setIterations(20);
    QTRY_VERIFY(bench.isPreviewCurrent());
    close(bench);
    QTRY_VERIFY(bench.isPlain());
    QTRY_COMPARE(bench.triangles(), triangles);
    QCOMPARE(bench.view().mesh().positions() == before, triangles != 12);
    QVERIFY(!bench.view().document().undoStack()->canUndo());
    QTRY_VERIFY(bench.command<OpenMeshCommand>()->isEnabled());
    QVERIFY(bench.openFlyout()); // and again
  }

  void theFiguresFollowTheMesh() {
    PopupBench bench;
    QVERIFY(bench.show(Test::cube(2)));
    bench.press(Qt::Key_I, Qt::ControlModifier | Qt::ShiftModifier);
    const QPointer<MeshInfoDialog> dialog = bench.window().findChild<MeshInfoDialog*>();
    QVERIFY(dialog);
    const auto text = [&dialog] {
      const auto* const page = dialog->findChild<QTextBrowser*>();
      return page ? page->toPlainText().simplified() : QString();
    };
    QTRY_VERIFY(text().contains(QStringLiteral("Vertices 8 Triangles 12 Edges 18 Size 2 × 2 × 2")));
    QVERIFY2(text().contains(QStringLiteral("Surface area 24")), qPrintable(text()));
    QVERIFY2(text().contains(QStringLiteral("Watertight Yes Volume 8")), qPrintable(text()));
    bench.view().measurements().setUnit(Vela::Common::Centimetre);
    QTRY_VERIFY(text().contains(QStringLiteral("Size 0.2 × 0.2 × 0.2")));
    bench.controller().showMesh(Test::square(1), QStringLiteral("square"));
    QTRY_VERIFY(text().contains(QStringLiteral("Triangles 2 Edges 5")));
    QVERIFY(text().contains(QStringLiteral("Watertight No")));
    QTest::keyClick(dialog->windowHandle(), Qt::Key_Escape);
    QTRY_VERIFY(!dialog);
  }

  void theOverlayTellsHowAPopupWasPlaced() {
    PopupBench bench;
    QVERIFY(bench.show());
    PlacementOverlay& overlay = *bench.command<PlacementOverlayCommand>()->overlay();
    QVERIFY(overlay.search().candidates().isEmpty());
    QVERIFY(bench.openFlyout());
    bench.press(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(overlay.isVisible());
    const QWidget* const popup = bench.flyout().parentWidget();
    QVERIFY(overlay.search().taken());
    QCOMPARE(overlay.search().taken()->rect, popup->geometry());
    QVERIFY(bench.window().rect().contains(popup->geometry()));
    QVERIFY(!overlay.grab().toImage().isNull());
    // The popup can still be worked through it.
    QCOMPARE(QApplication::widgetAt(bench.panel().mapToGlobal(QPoint(3, 3)))->window(), &bench.window());
    bench.window().resize(640, 480);
    settle();
    QCOMPARE(overlay.size(), bench.window().size());
    bench.press(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(!overlay.isVisible());
  }
};

VELA_TEST_MAIN(WorkbenchPopupsTest)
#include "popups_test.moc"
