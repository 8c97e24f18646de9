// SPDX-License-Identifier: MIT
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <vlk_common_res/styles.h>
#include <workbench/commands/dark_palette_command.h>
#include <workbench/commands/open_mesh_command.h>
#include <workbench/commands/save_screenshot_command.h>
#include <workbench/commands/shading_command.h>
#include <workbench/screenshot_run.h>

using namespace Workbench;
using Test::WorkbenchFixture;
using Vela::Test::settle;

namespace {

QByteArray cubeFile() { return Test::objFile(Test::cube(2)); }
QByteArray blobFile() { return Test::offFile(Test::blob(30)); }

} // namespace

// Drives the main window as a person does.
class WorkbenchTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void droppedFilesAreOpenedOneAfterAnother() {
    WorkbenchFixture workbench;
    QSignalSpy shown(&workbench.controller().events(), &MeshViewEvents::meshShown);
    const QString cube = workbench.write("cube.obj", cubeFile());
    Test::HeldWork work;
    workbench.drop({cube});
    workbench.drop({cube, workbench.write("blob.off", blobFile())}); // waits
    QCOMPARE(work.dispatcher.pending(Taren::Core::NormalQoS), std::size_t(1));
    work.runAll();
    QCOMPARE(workbench.triangles(), std::size_t(1800));
    QCOMPARE(workbench.notification(), "Opened 2 of 2 files");
    workbench.drop({});
    work.runAll();
    QCOMPARE(shown.count(), 3);
    QVERIFY(workbench.command<OpenMeshCommand>()->isEnabled());
  }

  void aBrokenFileKeepsTheMesh() {
    WorkbenchFixture workbench;
    workbench.open(workbench.write("cube.obj", cubeFile()));
    QSignalSpy failed(&workbench.controller().events(), &MeshViewEvents::openFailed);
    workbench.open(workbench.write("empty.stl", {}));
    QCOMPARE(failed.count(), 1);
    for (const QString& text : {workbench.notification(), workbench.window().statusBar()->currentMessage()})
      QVERIFY2(text.contains("empty.stl") && text.contains("The file is empty."), qPrintable(text));
    QCOMPARE(workbench.triangles(), std::size_t(12));
    QCOMPARE(workbench.window().windowTitle(), QStringLiteral("cube.obj[*] – Workbench"));
    workbench.open(workbench.write("blob.off", blobFile())); // which takes the message away
    QCOMPARE(workbench.triangles(), std::size_t(1800));
    QVERIFY(workbench.window().statusBar()->currentMessage().isEmpty());
  }

  // The steps of one command, held between them.
  void openingGoesStepByStepAndKeepsWhatIsChosenMeanwhile() {
    WorkbenchFixture workbench;
    Test::HeldWork work;
    workbench.controller().openFiles({workbench.write("blob.off", blobFile())});
    QCOMPARE(workbench.notification(), QStringLiteral("Opening blob.off…"));
    QCOMPARE(workbench.window().statusBar()->currentMessage(), QStringLiteral("Opening blob.off…"));
    work.runMain();
    QVERIFY(!workbench.command<OpenMeshCommand>()->isEnabled());
    workbench.press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(workbench.view().shading(), FlatShading);
    QVERIFY(work.dispatcher.step(Taren::Core::NormalQoS));
    QCOMPARE(workbench.triangles(), std::size_t(0)); // which the main thread shows
    work.runAll();
    QCOMPARE(workbench.triangles(), std::size_t(1800));
    QCOMPARE(workbench.notification(), "Opened blob.off");
    QCOMPARE(workbench.view().shading(), FlatShading);
    QVERIFY(workbench.controller().findCommand(ShadingCommand::idOf(FlatShading))->isChecked());
    // Needs a mesh, which there was not when the command began.
    QVERIFY(workbench.command<SaveScreenshotCommand>()->isEnabled());
  }

  void oneScreenshotIsSavedAtATimeOrTellsWhyNot() {
    WorkbenchFixture workbench;
    workbench.open(workbench.write("cube.obj", cubeFile()));
    auto* const command = workbench.command<SaveScreenshotCommand>();
    Test::HeldWork work;
    workbench.press(Qt::Key_S, Qt::ControlModifier | Qt::AltModifier);
    QVERIFY(workbench.chooseFile(workbench.path("picture.png")));
    work.runMain();
    QVERIFY(!command->isEnabled());
    QVERIFY(!command->onExecute()); // not even when something else asks for it
    QVERIFY(!QApplication::activeModalWidget());
    work.runAll();
    QVERIFY(command->isEnabled());
    QCOMPARE(workbench.notification(), "Saved picture.png");
    const QImage picture(workbench.path("picture.png"));
    QCOMPARE(picture.size(), workbench.view().size() * workbench.view().devicePixelRatioF());
    QVERIFY(Test::meshPixels(picture) > 3000);

    Vela::Test::showActive(workbench.window()); // no window manager gives it back
    workbench.press(Qt::Key_S, Qt::ControlModifier | Qt::AltModifier);
    auto* const dialog = workbench.fileDialog();
    QVERIFY(dialog);
    Q_EMIT dialog->fileSelected(workbench.path("missing/picture.png"));
    dialog->reject();
    work.runAll();
    QVERIFY2(workbench.notification().contains("Cannot save “picture.png”."),
             qPrintable(workbench.notification()));
    QVERIFY(!QApplication::overrideCursor());
  }

  void thePaletteIsRemembered() {
    WorkbenchFixture workbench;
    auto& styles = Vela::Resource::Styles::Instance();
    workbench.press(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    styles.setPalette(Vela::Resource::Light);
    DarkPaletteCommand::restorePalette(); // as at the next start
    QCOMPARE(styles.palette(), Vela::Resource::Dark);
    workbench.press(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(styles.palette(), Vela::Resource::Light);
  }

  void theWindowMayGoWhileFilesAreBeingRead() {
    WorkbenchFixture workbench;
    const QString file = workbench.write("large.off", Test::offFile(Test::blob(250)));
    ScreenshotRun run(workbench.window(), workbench.path("image.png"));
    run.start({file, file, file});
    workbench.press(Qt::Key_Q, Qt::ControlModifier);
    QTRY_COMPARE(run.status(), 1); // the window closed, and its views with their commands
    workbench.end();
    settle();
    QVERIFY(!QApplication::overrideCursor());
    QVERIFY(!QFile::exists(workbench.path("image.png")));
  }
};

VELA_TEST_MAIN(WorkbenchTest)
#include "e2e_test.moc"
