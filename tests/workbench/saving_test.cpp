// SPDX-License-Identifier: MIT
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <support/rows.h>
#include <ui_base/popups/dialog_ex.h>
#include <workbench/commands/save_mesh_command.h>
#include <workbench/mesh_loader.h>
#include <workbench/photos/photo_view.h>

using namespace Workbench;
using Vela::Test::Rows;
using Vela::Test::settle;
using Vela::UiBase::DialogEx;

namespace {

class Bench : public Test::WorkbenchFixture {
public:
  Bench() { open(write("cube.obj", Test::objFile(Test::cube(2)))); }
  QString file() const { return path("cube.obj"); }
  // A step that makes a mesh of 200 triangles of it.
  void edit() {
    view().document().edit(QStringLiteral("Make a blob"), Test::blob(10));
    settle();
  }
  MeshDocument& document() { return view().document(); }
  Vela::UiBase::CommandBase& saver(ESaving saving) {
    return *controller().findCommand(SaveMeshCommand::idOf(saving));
  }

  DialogEx* question() { return qobject_cast<DialogEx*>(QApplication::activeModalWidget()); }
  // By the key that is underlined.
  void answer(Qt::Key key) {
    press(key, key == Qt::Key_Escape ? Qt::NoModifier : Qt::AltModifier);
    QTRY_VERIFY(!question());
  }
};

std::size_t trianglesIn(const QString& file) { return loadMesh(file).triangles().size(); }

} // namespace

// Work is kept: saving, and the questions before it would be lost.
class SavingTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void savesToItsFile() {
    Bench bench;
    QVERIFY(!bench.saver(SaveMesh).isEnabled() && bench.saver(SaveMeshAs).isEnabled());
    QVERIFY(!bench.window().isWindowModified());
    bench.edit();
    QVERIFY(bench.window().isWindowModified() && bench.saver(SaveMesh).isEnabled());
    bench.press(Qt::Key_S, Qt::ControlModifier);
    QTRY_COMPARE(bench.notification(), "Saved cube.obj");
    QCOMPARE(trianglesIn(bench.file()), std::size_t(200));
    QVERIFY(!bench.window().isWindowModified());
    QTRY_VERIFY(!bench.saver(SaveMesh).isEnabled());
    bench.document().undoStack()->undo();
    QVERIFY(bench.window().isWindowModified());
    bench.document().undoStack()->redo();
    QVERIFY(!bench.window().isWindowModified());
    bench.document().setSelection(TriangleSelection::all(200));
    QVERIFY(!bench.window().isWindowModified());
  }

  void savesUnderAnotherName_data() {
    const Rows<Qt::Key, Qt::KeyboardModifiers, QString, QString, QString> row("key", "modifiers", "opened",
                                                                              "typed", "written");
    const auto both = Qt::ControlModifier | Qt::ShiftModifier;
    row("as", Qt::Key_S, both, "cube.obj", "new.stl", "new.stl");
    row("ending added", Qt::Key_S, both, "cube.obj", "new", "new.obj");
    row("only read", Qt::Key_S, Qt::ControlModifier, "cube.off", "new", "new.ply");
    row("export", Qt::Key_E, Qt::ControlModifier, "cube.obj", "new.ply", "new.ply");
  }
  void savesUnderAnotherName() {
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(QString, opened);
    QFETCH(QString, typed);
    QFETCH(QString, written);
    const bool isExport = key == Qt::Key_E;
    Bench bench;
    bench.write("cube.off", Test::offFile(Test::cube(2)));
    bench.open(bench.path(opened));
    bench.edit();
    bench.press(key, modifiers);
    QVERIFY(bench.chooseFile(bench.path(typed)));
    QTRY_COMPARE(bench.notification(), QStringLiteral("Saved ") + written);
    QCOMPARE(trianglesIn(bench.path(written)), std::size_t(200));
    QCOMPARE(trianglesIn(bench.path(opened)), std::size_t(12));
    QCOMPARE(bench.document().fileName(), bench.path(isExport ? opened : written));
    QCOMPARE(bench.window().isWindowModified(), isExport);
    QVERIFY(bench.window().windowTitle().startsWith(isExport ? opened : written));
  }

  void whatCannotBeSavedStaysMarked() {
    Bench bench;
    QVERIFY(QDir(bench.path({})).mkdir("gone"));
    bench.document().setSaved(bench.view().mesh(), bench.path("gone/cube.obj"));
    QVERIFY(QDir(bench.path({})).rmdir("gone"));
    bench.edit();
    bench.press(Qt::Key_Q, Qt::ControlModifier);
    QVERIFY(bench.question());
    bench.answer(Qt::Key_S);
    QTRY_VERIFY(bench.notification().contains("Cannot save “cube.obj”. The folder does not exist."));
    settle();
    QVERIFY(bench.window().isVisible() && bench.window().isWindowModified());
    QVERIFY(!bench.question() && bench.saver(SaveMesh).isEnabled());
    bench.press(Qt::Key_Q, Qt::ControlModifier);
    QVERIFY(bench.question()); // asks again
  }

  void asksBeforeChangesAreLost_data() {
    const Rows<QString, Qt::Key, std::size_t, bool> row("way", "answer", "inFile", "left");
    for (const QByteArray way : {"quit", "close", "open", "drop"}) {
      row(way + ", save", way, Qt::Key_S, 200, true);
      row(way + ", discard", way, Qt::Key_D, 12, true);
      row(way + ", cancel", way, Qt::Key_C, 12, false);
      row(way + ", Escape", way, Qt::Key_Escape, 12, false);
    }
  }
  void asksBeforeChangesAreLost() {
    QFETCH(QString, way);
    QFETCH(Qt::Key, answer);
    QFETCH(std::size_t, inFile);
    QFETCH(bool, left);
    Bench bench;
    const QString other = bench.write("other.off", Test::offFile(Test::square(1)));
    bench.edit();
    bench.press(Qt::Key_2, Qt::AltModifier); // the page of the photographs
    leave(bench, way, other);
    QVERIFY(bench.question());
    QVERIFY(bench.question()->Text().contains("cube.obj"));
    QVERIFY(bench.view().isVisible()); // what is asked about
    bench.answer(answer);
    if (way == "open" || way == "drop")
      QTRY_COMPARE(bench.triangles(), std::size_t(left ? 2 : 200));
    else
      QTRY_COMPARE(bench.window().isVisible(), !left);
    settle();
    QCOMPARE(trianglesIn(bench.file()), inFile);
  }

  void theViewAloneAsksToo() {
    Bench bench;
    bench.edit();
    QVERIFY(!bench.controller().viewWillClose());
    QVERIFY(bench.question());
    bench.answer(Qt::Key_Escape);
    QVERIFY(bench.saver(SaveMesh).isEnabled());
  }

  void nothingIsAskedWhenNothingIsLost() {
    Bench bench;
    bench.edit();
    bench.document().undoStack()->undo();
    bench.document().setSelection(TriangleSelection::all(12));
    bench.open(bench.write("other.off", Test::offFile(Test::square(1))));
    QCOMPARE(bench.triangles(), std::size_t(2));
    bench.press(Qt::Key_Q, Qt::ControlModifier);
    QTRY_VERIFY(!bench.window().isVisible());
  }

  void asksBeforeWorkIsLost_data() {
    const Rows<QString, bool> row("way", "stops");
    for (const QByteArray way : {"quit", "open"}) {
      row(way + ", stop", way, true);
      row(way + ", cancel", way, false);
    }
  }
  void asksBeforeWorkIsLost() {
    QFETCH(QString, way);
    QFETCH(bool, stops);
    Bench bench;
    const QString other = bench.write("other.off", Test::offFile(Test::square(1)));
    Test::HeldWork work;
    bench.press(Qt::Key_M, Qt::ControlModifier);
    work.runMain();
    QVERIFY(bench.controller().isMeshEdited() && !bench.window().isWindowModified());
    leave(bench, way, other);
    work.runMain();
    QVERIFY(bench.question());
    bench.answer(stops ? Qt::Key_S : Qt::Key_C);
    work.runAll();
    settle();
    work.runAll();
    QCOMPARE(bench.window().isVisible(), !(stops && way == "quit"));
    QCOMPARE(bench.triangles(), std::size_t(stops && way == "open" ? 2 : 12));
    QCOMPARE(bench.window().isWindowModified(), !stops); // smoothed
  }

  void quittingWaitsForWhatIsBeingSaved() {
    Bench bench;
    bench.edit();
    Test::HeldWork work;
    bench.press(Qt::Key_S, Qt::ControlModifier);
    work.runMain();
    QVERIFY(bench.controller().isSaving());
    bench.window().close();
    QVERIFY(bench.window().isVisible() && !bench.question());
    work.runAll();
    QVERIFY(!bench.window().isVisible());
    QCOMPARE(trianglesIn(bench.file()), std::size_t(200));
  }

private:
  static void leave(Bench& bench, const QString& way, const QString& other) {
    if (way == "quit")
      bench.press(Qt::Key_Q, Qt::ControlModifier);
    else if (way == "close")
      bench.window().close();
    else if (way == "open")
      bench.controller().openFiles({other});
    else
      bench.drop({other}, bench.window().photoView());
    settle();
  }
};

VELA_TEST_MAIN(SavingTest)
#include "saving_test.moc"
