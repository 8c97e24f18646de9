// SPDX-License-Identifier: MIT
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <ui_base/tools/interactive_tool.h>
#include <workbench/commands/history_command.h>
#include <workbench/commands/mode_command.h>
#include <workbench/commands/selection_command.h>
#include <workbench/recent_files.h>

using namespace Workbench;
using namespace Vela::UiBase;
using Vela::Test::settle;

namespace {

/// A workbench that shows two squares side by side, of 8 triangles each, from the front.
class Bench : public Test::WorkbenchFixture {
public:
  Bench() : WorkbenchFixture({800, 600}) {
    WorkbenchFixture::show(Test::merged(squareAt(-1.5F), squareAt(1.5F)));
    Camera camera = view().camera();
    camera.orbit(-camera.yaw(), -camera.pitch());
    view().setCamera(camera);
    QTRY_VERIFY(view().isSettled());
  }

  /// Where a point of the scene is seen.
  QPoint seen(float x, float y) {
    return view().camera().project({x, y, 0}, view().size()).value_or(QPointF()).toPoint();
  }
  QPoint left() { return seen(-1.6F, 0.1F); } // on the left square
  QPoint right() { return seen(1.4F, 0.1F); }
  QPoint background() { return {5, 5}; }

  CommandBase& mode(EToolMode which) { return *controller().findCommand(ModeCommand::idOf(which)); }
  std::size_t selected() { return view().document().selection().count(); }
  /// The view shows the cursor of the tool that picks, and no other tool lies over it.
  bool isAtRest() {
    const auto tool = controller().getTool(LeftButton);
    return tool->isActive() && controller().mode() == PickMode &&
           view().cursor().shape() == Qt::ArrowCursor && !controller().getOperatingTool() &&
           tool->getOperatingCursor().shape() == Qt::PointingHandCursor;
  }

private:
  static Mesh squareAt(float x) {
    return Test::moved(Test::square(1, 2), [x](const QVector3D& p) { return p + QVector3D(x, 0, 0); });
  }
};

} // namespace

/// What a person does to the view with the mouse and the keys.
class ToolsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void dragsMoveTheCamera() {
    Bench bench;
    const MeshView& view = bench.view();
    const double distance = view.camera().distance();
    const QPoint from = bench.left();
    const QPoint to = from + QPoint(40, -30);
    const QVector3D taken = view.pick(from)->point;
    const auto isSeenThere = [&] {
      return QLineF(*view.camera().project(taken, view.size()), to).length() < 2;
    };
    bench.drag(Qt::MiddleButton, from, to);
    QVERIFY(isSeenThere());
    bench.turnWheel(bench.view(), to, 240);
    QVERIFY(isSeenThere() && view.camera().distance() < distance * 0.8);
    bench.turnWheel(bench.view(), to, -240);
    QVERIFY(qAbs(view.camera().distance() - distance) < distance * 0.01);

    bench.press(Qt::Key_0, Qt::ControlModifier);
    const Camera whole = view.camera();
    bench.drag(Qt::RightButton, from, from + QPoint(60, 0));
    QVERIFY(view.camera().yaw() < whole.yaw() - 10);
    QCOMPARE(view.camera().target(), whole.target());
    bench.press(Qt::Key_Left, Qt::ShiftModifier);
    QVERIFY(view.camera().target() != whole.target());
    QVERIFY(!QApplication::activePopupWidget() && bench.isAtRest());
    bench.press(Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(view.camera(), whole);
  }

  // Also when the hand trembles; with the keyboard; and never on the press.
  void theMenuOpensOnAClick() {
    Bench bench;
    const Camera first = bench.view().camera();
    const QPoint at = bench.left();
    const auto send = [&](QContextMenuEvent::Reason reason) {
      QContextMenuEvent event(reason, at, bench.view().mapToGlobal(at));
      QCoreApplication::sendEvent(&bench.view(), &event);
    };
    for (const bool byKeyboard : {false, true}) {
      send(QContextMenuEvent::Mouse);
      QVERIFY(!QApplication::activePopupWidget());
      byKeyboard ? send(QContextMenuEvent::Keyboard) : bench.drag(Qt::RightButton, at, at + QPoint(2, 2));
      QVERIFY(QApplication::activePopupWidget());
      bench.press(Qt::Key_Escape);
      QTRY_VERIFY(!QApplication::activePopupWidget());
      QVERIFY(bench.view().camera() == first && bench.isAtRest());
    }
  }

  void clicksSelect() {
    Bench bench;
    bench.click(Qt::LeftButton, bench.left());
    bench.click(Qt::LeftButton, bench.right());
    QCOMPARE(bench.selected(), std::size_t(1));
    bench.click(Qt::LeftButton, bench.left(), Qt::ShiftModifier);
    QCOMPARE(bench.selected(), std::size_t(2));
    bench.click(Qt::LeftButton, bench.left(), Qt::ControlModifier);
    bench.drag(Qt::LeftButton, bench.left(), bench.right());
    QCOMPARE(bench.selected(), std::size_t(1));
    QTest::mouseDClick(bench.window().windowHandle(), Qt::LeftButton, {},
                       Vela::Test::inWindow(bench.view(), bench.left()));
    bench.click(Qt::LeftButton, bench.background(), Qt::ShiftModifier);
    QCOMPARE(bench.selected(), std::size_t(8));
    bench.click(Qt::LeftButton, bench.background());
    QCOMPARE(bench.selected(), std::size_t(0));
    bench.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(bench.selected(), std::size_t(8));
  }

  void rectanglesSelect() {
    Bench bench;
    bench.press(Qt::Key_3, Qt::ControlModifier);
    const QPoint corner = bench.seen(-2.7F, 1.2F);
    const QPoint middle = bench.seen(0, -1.2F);
    bench.drag(Qt::LeftButton, corner, middle);
    QCOMPARE(bench.selected(), std::size_t(8));
    bench.drag(Qt::LeftButton, bench.seen(2.7F, 1.2F), middle, Qt::ShiftModifier);
    QCOMPARE(bench.selected(), std::size_t(16));
    bench.drag(Qt::LeftButton, corner, middle, Qt::ControlModifier);
    QCOMPARE(bench.selected(), std::size_t(8));
    // A drag that is called off, or loses the mouse, selects nothing.
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_F10}) {
      bench.view().setFocus();
      bench.pull(Qt::LeftButton, corner, middle);
      QVERIFY(!bench.view().rubberBand().isNull());
      bench.press(key);
      QVERIFY(bench.view().rubberBand().isNull());
      bench.release(Qt::LeftButton, middle);
      QCOMPARE(bench.selected(), std::size_t(8));
    }
    QCOMPARE(bench.controller().mode(), RectangleMode);
  }

  void measuresOnTheSurface() {
    Bench bench;
    bench.press(Qt::Key_2, Qt::ControlModifier);
    Measurements& measurements = bench.view().measurements();
    const QPoint from = bench.seen(-2, 0.5F);
    const QPoint to = bench.seen(2, 0.5F);
    bench.drag(Qt::LeftButton, from, to);
    const auto [a, b] = measurements.distances().back();
    QVERIFY(qAbs(a.distanceToPoint(b) - 4) < 0.1F);
    bench.click(Qt::LeftButton, from);
    Vela::Test::moveMouse(bench.view(), bench.right());
    bench.click(Qt::LeftButton, bench.right());
    QCOMPARE(measurements.distances().size(), std::size_t(2));
    bench.click(Qt::RightButton, to);
    bench.press(Qt::Key_T); // takes away what lies there
    QCOMPARE(measurements.distances().size(), std::size_t(1));
    QVERIFY(measurements.distances().back().to != b);
    // Beside the surface, without the mouse, in another mode.
    bench.drag(Qt::LeftButton, from, bench.background());
    QVERIFY(!measurements.isBegun());
    bench.pull(Qt::LeftButton, from, to);
    bench.press(Qt::Key_F10);
    QVERIFY(!measurements.isBegun());
    bench.release(Qt::LeftButton, to);
    bench.view().setFocus();
    bench.click(Qt::LeftButton, from);
    QVERIFY(measurements.isBegun());
    bench.mode(PickMode).setChecked(true);
    QVERIFY(!measurements.isBegun());
    QCOMPARE(measurements.distances().size(), std::size_t(1));
  }

  // In whatever order modes are switched, files opened and commands end.
  void modesLeaveNothingBehind() {
    Bench bench;
    const QString other = bench.write("cube.obj", Test::objFile(Test::cube(2)));
    RecentFiles::add(other); // as it will be
    settle();
    const QString selectAll = SelectionCommand::idOf(SelectAll);
    const CommandContext before = bench.controller().availability();
    Test::HeldWork work;
    bench.press(Qt::Key_2, Qt::ControlModifier);
    work.runAll();
    QVERIFY(!bench.isEnabled(selectAll));
    bench.press(Qt::Key_M, Qt::ControlModifier); // begins while it measures
    work.runMain();
    bench.press(Qt::Key_3, Qt::ControlModifier);
    work.runMain();
    QVERIFY(bench.isEnabled(selectAll));
    bench.press(Qt::Key_2, Qt::ControlModifier);
    bench.controller().openFiles({other});
    bench.press(Qt::Key_S, Qt::AltModifier); // the smoothing is stopped, and the mesh replaced
    QTRY_VERIFY(!QApplication::activeModalWidget());
    work.runAll();
    QCOMPARE(bench.triangles(), std::size_t(12));
    QVERIFY(!bench.isEnabled(selectAll));
    QVERIFY(bench.mode(MeasureMode).isChecked());
    QVERIFY(bench.controller().contextStack().isEmpty());
    bench.press(Qt::Key_Escape);
    work.runAll();
    QVERIFY(bench.isAtRest());
    QCOMPARE(bench.controller().availability(), before);
    const auto& states = before.get();
    for (auto it = states.cbegin(); it != states.cend(); ++it)
      QCOMPARE(bench.isEnabled(it.key()), bool(it.value().enabled));
  }

  void operationsLockTheMeshAndCanBeCancelled() {
    Bench bench;
    bench.show(Test::blob(20));
    Test::HeldWork work;
    const auto before = bench.view().mesh().positions();
    bench.press(Qt::Key_M, Qt::ControlModifier);
    work.runMain();
    QVERIFY(!bench.isEnabled(UndoCommand::className()));
    bench.press(Qt::Key_Escape);
    work.runAll();
    QCOMPARE(bench.notification(), "Smooth Mesh was cancelled.");
    QVERIFY(bench.view().mesh().positions() == before);
    QVERIFY(!bench.view().document().undoStack()->canUndo());
  }
};

VELA_TEST_MAIN(ToolsTest)
#include "tools_test.moc"
