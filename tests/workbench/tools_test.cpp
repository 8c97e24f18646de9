// SPDX-License-Identifier: MIT
#include "mesh_files.h"
#include "test_meshes.h"
#include "tools_bench.h"

#include <support/rows.h>
#include <workbench/commands/decimate_mesh_command.h>
#include <workbench/commands/history_command.h>
#include <workbench/commands/open_mesh_command.h>
#include <workbench/commands/selection_command.h>
#include <workbench/commands/set_pivot_command.h>
#include <workbench/commands/smooth_mesh_command.h>
#include <workbench/recent_files.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>

using namespace Workbench;
using namespace Vela::UiBase;
using Bench = Test::ToolsBench;
using Vela::Test::Rows;
using Vela::Test::settle;

namespace {

using Act = std::function<void(Bench&)>;

} // namespace

/// What a person does to the view with the mouse and the keys.
class ToolsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void dragsMoveTheCamera() {
    Bench bench;
    const Camera first = bench.view().camera();
    const QPoint from = bench.left();
    const QVector3D taken = bench.view().pick(from)->point;

    bench.drag(Qt::MiddleButton, from, from + QPoint(40, -30));
    QPointF now = *bench.view().camera().project(taken, bench.view().size());
    QVERIFY(QLineF(now, from + QPoint(40, -30)).length() < 2);

    const QPoint wheeled = now.toPoint();
    bench.wheel(wheeled, 240);
    QVERIFY(bench.view().camera().distance() < first.distance() * 0.8);
    now = *bench.view().camera().project(taken, bench.view().size());
    QVERIFY(QLineF(now, wheeled).length() < 2);
    bench.wheel(wheeled, -240);
    QVERIFY(qAbs(bench.view().camera().distance() - first.distance()) < first.distance() * 0.01);

    bench.view().setCamera(first);
    bench.drag(Qt::RightButton, from, from + QPoint(60, 0));
    QVERIFY(bench.view().camera().yaw() < -10);
    QCOMPARE(bench.view().camera().target(), first.target());
    QVERIFY(!QApplication::activePopupWidget());
    QVERIFY(bench.isAtRest());
  }

  void keysMoveTheCamera_data() {
    const Rows<Qt::Key, Qt::KeyboardModifiers, std::function<bool(const Camera&, const Camera&)>> row(
        "key", "modifiers", "moved");
    row("turn", Qt::Key_Right, {},
        [](auto& a, auto& b) { return b.yaw() < a.yaw() && b.pitch() == a.pitch(); });
    row("tilt", Qt::Key_Down, {},
        [](auto& a, auto& b) { return b.pitch() > a.pitch() && b.yaw() == a.yaw(); });
    row("shift", Qt::Key_Left, Qt::ShiftModifier,
        [](auto& a, auto& b) { return b.target().x() > a.target().x(); });
    row("nearer", Qt::Key_Plus, {}, [](auto& a, auto& b) { return b.distance() < a.distance(); });
    row("farther", Qt::Key_Minus, {}, [](auto& a, auto& b) { return b.distance() > a.distance(); });
  }
  void keysMoveTheCamera() {
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(std::function<bool(const Camera&, const Camera&)>, moved);
    Bench bench;
    const Camera first = bench.view().camera();
    bench.press(key, modifiers);
    QVERIFY(moved(first, bench.view().camera()));
  }

  // Also when the hand trembles; with the keyboard; and never on the press.
  void theMenuOpensOnAClick_data() {
    const Rows<Act> row("ask");
    row("click", [](Bench& bench) { bench.click(Qt::RightButton, bench.left()); });
    row("trembling click",
        [](Bench& bench) { bench.drag(Qt::RightButton, bench.left(), bench.left() + QPoint(2, 2)); });
    row("Shift+F10", [](Bench& bench) { bench.press(Qt::Key_F10, Qt::ShiftModifier); });
    row("menu key", [](Bench& bench) {
      for (const auto reason : {QContextMenuEvent::Mouse, QContextMenuEvent::Keyboard}) {
        QVERIFY(!QApplication::activePopupWidget());
        QContextMenuEvent event(reason, bench.left(), bench.view().mapToGlobal(bench.left()));
        QCoreApplication::sendEvent(&bench.view(), &event);
      }
    });
  }
  void theMenuOpensOnAClick() {
    QFETCH(Act, ask);
    Bench bench;
    const Camera first = bench.view().camera();
    ask(bench);
    QPointer<QMenu> menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QCOMPARE(bench.view().camera(), first);
    QVERIFY(menu->actions().contains(&bench.mode(MeasureMode)));
    bench.press(Qt::Key_Escape);
    QTRY_VERIFY(!menu);
    QVERIFY(bench.isAtRest());
  }

  void clicksSelect() {
    Bench bench;
    bench.click(Qt::LeftButton, bench.left());
    QCOMPARE(bench.selected(), std::size_t(1));
    bench.click(Qt::LeftButton, bench.right());
    QCOMPARE(bench.selected(), std::size_t(1));
    bench.click(Qt::LeftButton, bench.left(), Qt::ShiftModifier);
    bench.click(Qt::LeftButton, bench.left(), Qt::ShiftModifier);
    QCOMPARE(bench.selected(), std::size_t(2));
    bench.click(Qt::LeftButton, bench.left(), Qt::ControlModifier);
    QCOMPARE(bench.selected(), std::size_t(1));
    bench.drag(Qt::LeftButton, bench.left(), bench.right());
    QCOMPARE(bench.selected(), std::size_t(1));
    bench.doubleClick(bench.left());
    QCOMPARE(bench.selected(), std::size_t(8));
    QVERIFY(!bench.view().document().selection().contains(8));
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
    for (const auto& lose : {std::function([&] { bench.press(Qt::Key_Escape); }),
                             std::function([&] { bench.press(Qt::Key_F10); })}) {
      bench.view().setFocus();
      bench.pull(Qt::LeftButton, corner, middle);
      QVERIFY(!bench.view().rubberBand().isNull());
      lose();
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
    const auto measured = [&] { return measurements.distances().size(); };

    bench.drag(Qt::LeftButton, from, to);
    QCOMPARE(measured(), std::size_t(1));
    const auto [a, b] = measurements.distances().back();
    QVERIFY(qAbs(a.distanceToPoint(b) - 4) < 0.1F);
    QVERIFY(bench.view().statusText().contains(measurements.text()));
    bench.click(Qt::LeftButton, from);
    Vela::Test::moveMouse(bench.view(), to);
    bench.click(Qt::LeftButton, to);
    QCOMPARE(measured(), std::size_t(2));
    bench.doubleClick(from);
    QVERIFY(measurements.isBegun());
    QCOMPARE(measured(), std::size_t(2));
    bench.press(Qt::Key_Escape);
    QVERIFY(!measurements.isBegun());
    QCOMPARE(bench.controller().mode(), MeasureMode);
    // Beside the surface, without the mouse, in another mode.
    bench.drag(Qt::LeftButton, from, bench.background());
    QVERIFY(!measurements.isBegun());
    bench.pull(Qt::LeftButton, from, to);
    bench.press(Qt::Key_F10);
    QVERIFY(!measurements.isBegun());
    bench.release(Qt::LeftButton, to);
    bench.view().setFocus();
    bench.click(Qt::LeftButton, from);
    bench.mode(PickMode).setChecked(true);
    QVERIFY(!measurements.isBegun());
    QCOMPARE(measured(), std::size_t(2));
    bench.press(Qt::Key_Backspace, Qt::ControlModifier);
    QCOMPARE(measured(), std::size_t(0));
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

  void operationsLockTheMeshAndCanBeCancelledAndUndone() {
    Bench bench;
    bench.show(Test::blob(20));
    Test::HeldWork work;
    const auto before = bench.view().mesh().positions();
    const auto begin = [&] {
      work.runAll();
      bench.press(Qt::Key_M, Qt::ControlModifier);
      work.runMain();
    };

    begin();
    for (const QString& id : {OpenMeshCommand::className(), UndoCommand::className(),
                              DecimateMeshCommand::className(), SelectionCommand::idOf(DeleteSelection)})
      QVERIFY2(!bench.isEnabled(id), qPrintable(id));
    QCOMPARE(bench.notification(), QStringLiteral("Smoothing…"));
    bench.press(Qt::Key_Escape);
    work.runAll();
    QCOMPARE(bench.notification(), "Smooth Mesh was cancelled.");
    QVERIFY(bench.view().mesh().positions() == before);
    QVERIFY(!bench.view().document().undoStack()->canUndo());

    begin();
    work.runAll();
    QVERIFY(bench.view().mesh().positions() != before);
    bench.view().document().undoStack()->undo();
    QVERIFY(bench.view().mesh().positions() == before);
  }

  void theRotationCentreIsSetByAClick_data() {
    const Rows<Act, bool> row("end", "moves");
    const auto click = [](Bench& bench) {
      bench.click(Qt::LeftButton, bench.background());
      bench.click(Qt::LeftButton, bench.right());
    };
    row("click", click, true);
    row(
        "Escape", [](Bench& bench) { bench.press(Qt::Key_Escape); }, false);
    row(
        "right click", [](Bench& bench) { bench.click(Qt::RightButton, bench.right()); }, false);
    row(
        "again", [](Bench& bench) { bench.press(Qt::Key_R, Qt::ControlModifier); }, false);
    row(
        "another mode", [](Bench& bench) { bench.press(Qt::Key_2, Qt::ControlModifier); }, false);
    row(
        "another mesh", [](Bench& bench) { bench.controller().showMesh(bench.view().mesh(), {}); }, false);
  }
  void theRotationCentreIsSetByAClick() {
    QFETCH(Act, end);
    QFETCH(bool, moves);
    Bench bench;
    const QVector3D point = bench.view().pick(bench.right())->point;
    bench.press(Qt::Key_R, Qt::ControlModifier);
    QVERIFY(!bench.notification().isEmpty());
    QVERIFY(!bench.isAtRest());
    bench.drag(Qt::RightButton, bench.left(), bench.left() + QPoint(30, 0)); // still turns
    bench.drag(Qt::RightButton, bench.left(), bench.left() - QPoint(30, 0));
    end(bench);
    bench.mode(PickMode).setChecked(true);
    QCOMPARE(bench.view().camera().target().distanceToPoint(point) < 0.1F, moves);
    QCOMPARE(bench.selected(), std::size_t(0));
    QVERIFY(bench.notification().isEmpty());
    QVERIFY(!QApplication::activePopupWidget());
    QVERIFY(!bench.controller().runningCommand());
    QVERIFY(bench.isAtRest());
  }
};

VELA_TEST_MAIN(ToolsTest)
#include "tools_test.moc"
