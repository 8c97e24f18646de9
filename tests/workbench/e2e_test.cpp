// SPDX-License-Identifier: MIT
#include "mesh_files.h"
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <ui_base/assistants/command_palette.h>
#include <ui_base/views/base_view.h>
#include <ui_base/views/base_view_controller.h>
#include <vlk_app_service/application_service.h>
#include <vlk_common_res/styles.h>
#include <workbench/commands/dark_palette_command.h>
#include <workbench/commands/open_mesh_command.h>
#include <workbench/commands/reset_view_command.h>
#include <workbench/commands/save_screenshot_command.h>
#include <workbench/commands/shading_command.h>
#include <workbench/panels/about_dialog.h>
#include <workbench/photos/photo_view.h>
#include <workbench/renderer.h>
#include <workbench/screenshot_run.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QSignalSpy>
#include <QStatusBar>

using namespace Workbench;
using Test::WorkbenchFixture;
using Vela::Test::settle;

namespace {

const QByteArray& cubeFile() {
  static const QByteArray file = Test::objFile(Test::cube(2));
  return file;
}

QByteArray blobFile() { return Test::offFile(Test::blob(30)); }

} // namespace

// Drives the main window as a person does.
class WorkbenchTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void opensAMeshByShortcut() {
    WorkbenchFixture workbench;
    const QString file = workbench.write("cube.obj", cubeFile());
    workbench.press(Qt::Key_O, Qt::ControlModifier);
    QVERIFY(workbench.chooseFile(file));
    QTRY_COMPARE(workbench.triangles(), std::size_t(12));
    QCOMPARE(workbench.window().windowTitle(), QStringLiteral("cube.obj[*] – Workbench"));
    QTRY_COMPARE(workbench.notification(), "Opened cube.obj");
    QVERIFY(workbench.window().statusBar()->currentMessage().isEmpty());
    QTRY_VERIFY(workbench.view().isSettled());
    QVERIFY(Test::meshPixels(imageOf(workbench.view().picture())) > 3000);
  }

  void opensAMeshByMenu() {
    WorkbenchFixture workbench;
    const QString file = workbench.write("blob.off", blobFile());
    workbench.press(Qt::Key_F, Qt::AltModifier);
    QTRY_VERIFY(QApplication::activePopupWidget());
    workbench.press(Qt::Key_O);
    QVERIFY(workbench.chooseFile(file));
    QTRY_COMPARE(workbench.triangles(), std::size_t(1800));
  }

  void aDialogThatIsCancelledChangesNothing() {
    WorkbenchFixture workbench;
    workbench.press(Qt::Key_O, Qt::ControlModifier);
    QPointer<QFileDialog> dialog = workbench.fileDialog();
    QVERIFY(dialog);
    workbench.press(Qt::Key_Escape);
    QTRY_VERIFY(!dialog);
    settle();
    QVERIFY(workbench.notification().isEmpty());
    QVERIFY(workbench.command<OpenMeshCommand>()->isEnabled());
    QVERIFY(!workbench.command<SaveScreenshotCommand>()->isEnabled());
  }

  void opensDroppedFiles() {
    WorkbenchFixture workbench;
    QSignalSpy shown(&workbench.controller().events(), &MeshViewEvents::meshShown);
    workbench.drop({workbench.write("cube.obj", cubeFile()), workbench.write("blob.off", blobFile())});
    QTRY_COMPARE(shown.count(), 2);
    QCOMPARE(workbench.triangles(), std::size_t(1800));
    QTRY_COMPARE(workbench.notification(), "Opened 2 of 2 files");
    workbench.drop({});
    settle();
    QCOMPARE(shown.count(), 2);
  }

  void aBrokenFileKeepsTheMesh_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty") << "empty.stl" << QByteArray() << "The file is empty.";
    QTest::newRow("damaged") << "cut.glb" << Test::storedFile("placed_cube.glb").left(500) << "damaged";
    QTest::newRow("brings the importer down")
        << "a.ply" << QByteArray("ply\nformat binary_\0\0", 20) << "damaged";
  }
  void aBrokenFileKeepsTheMesh() {
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    WorkbenchFixture workbench;
    workbench.open(workbench.write("cube.obj", cubeFile()));
    QSignalSpy failed(&workbench.controller().events(), &MeshViewEvents::openFailed);
    workbench.open(workbench.write(name, content));
    QCOMPARE(failed.count(), 1);
    for (const QString& text : {workbench.notification(), workbench.window().statusBar()->currentMessage()}) {
      QVERIFY2(text.contains(name), qPrintable(text));
      QVERIFY2(text.contains(reason), qPrintable(text));
    }
    QCOMPARE(workbench.triangles(), std::size_t(12));
    QCOMPARE(workbench.window().windowTitle(), QStringLiteral("cube.obj[*] – Workbench"));
    // It can be taken away with the keyboard or by going on.
    workbench.open(workbench.write("blob.off", blobFile()));
    QCOMPARE(workbench.triangles(), std::size_t(1800));
    QVERIFY(workbench.window().statusBar()->currentMessage().isEmpty());
  }

  // The steps of one command, held between them.
  void announcesEveryStep() {
    WorkbenchFixture workbench;
    workbench.open(workbench.write("cube.obj", cubeFile()));
    auto& service = Vela::Services::ApplicationService::GetInstance();
    const auto recorded = service.Kernel().waypoints().waypoints().size();
    Test::HeldWork work;

    workbench.controller().openFiles({workbench.write("blob.off", blobFile())});
    QCOMPARE(workbench.notification(), QStringLiteral("Opening blob.off…"));
    QCOMPARE(workbench.window().statusBar()->currentMessage(), QStringLiteral("Opening blob.off…"));
    QVERIFY(QApplication::overrideCursor());
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::BusyCursor);
    work.runMain();
    QVERIFY(!workbench.command<OpenMeshCommand>()->isEnabled());
    QCOMPARE(workbench.triangles(), std::size_t(12));

    QVERIFY(work.dispatcher().step(Taren::Core::NormalQoS));
    QCOMPARE(workbench.triangles(), std::size_t(12));
    work.dispatcher().step();
    QVERIFY(!service.isWorkspaceSwitchingEnabled());
    work.runAll();
    QCOMPARE(workbench.triangles(), std::size_t(1800));
    QCOMPARE(workbench.notification(), "Opened blob.off");
    QVERIFY(!QApplication::overrideCursor());
    QVERIFY(workbench.command<OpenMeshCommand>()->isEnabled());
    QVERIFY(service.isWorkspaceSwitchingEnabled());
    QCOMPARE(service.Kernel().waypoints().waypoints().size(), recorded + 2);
  }

  void whatIsAskedForMeanwhileWaits() {
    WorkbenchFixture workbench;
    Test::HeldWork work;
    workbench.drop({workbench.write("cube.obj", cubeFile())});
    workbench.drop({workbench.write("blob.off", blobFile())});
    QCOMPARE(work.dispatcher().pending(Taren::Core::NormalQoS), std::size_t(1));
    work.runAll();
    QCOMPARE(workbench.triangles(), std::size_t(1800));
    QVERIFY(workbench.command<OpenMeshCommand>()->isEnabled());
  }

  void whatTheUserChoosesMeanwhileStays() {
    WorkbenchFixture workbench;
    Test::HeldWork work;
    workbench.controller().openFiles({workbench.write("cube.obj", cubeFile())});
    workbench.press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(workbench.view().shading(), FlatShading);
    work.runAll();
    QCOMPARE(workbench.view().shading(), FlatShading);
    QVERIFY(workbench.controller().findCommand(ShadingCommand::idOf(FlatShading))->isChecked());
    // Needs a mesh, which there was not when the command began.
    QVERIFY(workbench.command<SaveScreenshotCommand>()->isEnabled());
    QVERIFY(workbench.command<ResetViewCommand>()->isEnabled());
  }

  void savesAScreenshot() {
    WorkbenchFixture workbench;
    workbench.open(workbench.write("cube.obj", cubeFile()));
    workbench.press(Qt::Key_S, Qt::ControlModifier | Qt::AltModifier);
    QVERIFY(workbench.chooseFile(workbench.path("picture.png")));
    QTRY_COMPARE(workbench.notification(), "Saved picture.png");
    const QImage picture(workbench.path("picture.png"));
    QCOMPARE(picture.size(), workbench.view().size() * workbench.view().devicePixelRatioF());
    QVERIFY(Test::meshPixels(picture) > 3000);
  }

  void oneScreenshotIsSavedAtATime() {
    WorkbenchFixture workbench;
    workbench.open(workbench.write("cube.obj", cubeFile()));
    auto* const command = workbench.command<SaveScreenshotCommand>();
    Test::HeldWork work;
    workbench.press(Qt::Key_S, Qt::ControlModifier | Qt::AltModifier);
    QVERIFY(workbench.chooseFile(workbench.path("picture.png")));
    work.runMain();
    QVERIFY(!command->isEnabled());
    // Not even when something else asks for it.
    QVERIFY(!command->onExecute());
    QVERIFY(!QApplication::activeModalWidget());
    work.runAll();
    QVERIFY(command->isEnabled());
    QVERIFY(!QImage(workbench.path("picture.png")).isNull());
  }

  void aScreenshotThatCannotBeWrittenIsTold() {
    WorkbenchFixture workbench;
    workbench.open(workbench.write("cube.obj", cubeFile()));
    QVERIFY(QDir(workbench.path({})).mkdir("folder"));
    workbench.press(Qt::Key_S, Qt::ControlModifier | Qt::AltModifier);
    auto* const dialog = workbench.fileDialog();
    QVERIFY(dialog);
    Q_EMIT dialog->fileSelected(workbench.path("folder/missing/picture.png"));
    dialog->reject();
    QTRY_VERIFY2(workbench.notification().contains("Cannot save “picture.png”."),
                 qPrintable(workbench.notification()));
    QVERIFY(!QApplication::overrideCursor());
  }

  void switchesThePalette() {
    WorkbenchFixture workbench;
    workbench.open(workbench.write("cube.obj", cubeFile()));
    const QColor light = imageOf(workbench.view().picture()).pixelColor(5, 5);
    workbench.press(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(Vela::Resource::Styles::Instance().palette(), Vela::Resource::Dark);
    QTRY_VERIFY(workbench.view().palette().color(QPalette::Window).lightness() < 100);
    QVERIFY(imageOf(workbench.view().picture()).pixelColor(5, 5).lightness() < light.lightness() - 100);
    // Remembered for the next start.
    Vela::Resource::Styles::Instance().setPalette(Vela::Resource::Light);
    DarkPaletteCommand::restorePalette();
    QCOMPARE(Vela::Resource::Styles::Instance().palette(), Vela::Resource::Dark);
    workbench.press(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(Vela::Resource::Styles::Instance().palette(), Vela::Resource::Light);
  }

  void resetsTheView() {
    WorkbenchFixture workbench;
    workbench.open(workbench.write("cube.obj", cubeFile()));
    const Camera first = workbench.view().camera();
    Camera moved = first;
    moved.orbit(40, 10);
    moved.pan({30, 10}, workbench.view().size());
    workbench.view().setCamera(moved);
    workbench.press(Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(workbench.view().camera(), first);
  }

  void theFocusIsWhereTheKeyboardGoes() {
    WorkbenchFixture workbench;
    const auto hasFocus = [&](const QWidget* widget) {
      const QWidget* const focus = workbench.window().focusWidget();
      return workbench.window().isActiveWindow() && focus && widget &&
             (focus == widget || widget->isAncestorOf(focus));
    };
    const auto isBack = [&] { // which a window manager does
      if (!QApplication::activeModalWidget())
        workbench.window().activateWindow();
      return hasFocus(&workbench.view());
    };
    const MeshView& mesh = workbench.view();
    QTRY_VERIFY(hasFocus(&mesh));
    workbench.press(Qt::Key_2, Qt::AltModifier);
    QTRY_VERIFY(hasFocus(workbench.window().photoView()));
    workbench.press(Qt::Key_1, Qt::AltModifier);
    QTRY_VERIFY(hasFocus(&mesh));

    workbench.press(Qt::Key_O, Qt::ControlModifier);
    QVERIFY(workbench.fileDialog());
    workbench.press(Qt::Key_Escape);
    QTRY_VERIFY(isBack());
    workbench.press(Qt::Key_H, Qt::AltModifier);
    QTRY_VERIFY(QApplication::activePopupWidget());
    workbench.press(Qt::Key_A);
    QTRY_VERIFY(qobject_cast<AboutDialog*>(QApplication::activeModalWidget()));
    workbench.press(Qt::Key_Escape);
    QTRY_VERIFY(isBack());

    const auto* const palette = workbench.window().findChild<Vela::UiBase::CommandPalette*>();
    workbench.press(Qt::Key_K, Qt::ControlModifier);
    QTRY_VERIFY(hasFocus(palette));
    workbench.press(Qt::Key_Escape);
    QVERIFY(hasFocus(&mesh));
  }

  void whatCoversAViewIsWorkedByKeyboardAlone() {
    struct Cover : Vela::UiBase::BaseViewController {
      using BaseViewController::BaseViewController;
      bool keyPress(QKeyEvent* event) override {
        return event->key() == Qt::Key_Escape && dismissViewController();
      }
    };
    WorkbenchFixture workbench;
    const auto focus = [&workbench]() -> QWidget* { return workbench.window().focusWidget(); };
    QTRY_COMPARE(focus(), &workbench.view());
    QPointer<Vela::UiBase::BaseView> view = new Vela::UiBase::BaseView;
    auto* const cover = new Cover(view);
    auto* const field = new QLineEdit(view);
    workbench.controller().setDelegate(std::shared_ptr<Vela::UiBase::PresentViewProtocol>(), false);
    QVERIFY(workbench.controller().presentViewController(cover, Vela::UiBase::FromRight));
    QCOMPARE(focus(), view);
    for (int i = 0; i < 20 && focus() != field; ++i) {
      workbench.press(Qt::Key_Tab);
      QVERIFY(focus() && focus() != &workbench.view());
    }
    workbench.press(Qt::Key_7);
    QCOMPARE(field->text(), QStringLiteral("7"));
    workbench.press(Qt::Key_O, Qt::ControlModifier);
    QVERIFY(workbench.fileDialog());
    workbench.press(Qt::Key_Escape);
    QTRY_VERIFY(!QApplication::activeModalWidget());
    workbench.window().activateWindow(); // which a window manager does
    QTRY_COMPARE(QApplication::focusWidget(), field);
    workbench.press(Qt::Key_Escape);
    QTRY_COMPARE(focus(), &workbench.view());
    QTRY_VERIFY(!view);
  }

  void quits() {
    WorkbenchFixture workbench;
    workbench.press(Qt::Key_Q, Qt::ControlModifier);
    QTRY_VERIFY(!workbench.window().isVisible());
  }

  void aScreenshotRunThatIsCutShortHasFailed() {
    WorkbenchFixture workbench;
    const QString image = workbench.path("image.png");
    ScreenshotRun run(workbench.window(), image);
    run.start({workbench.write("large.off", Test::offFile(Test::blob(250)))});
    workbench.press(Qt::Key_Q, Qt::ControlModifier);
    QTRY_COMPARE(run.status(), 1); // the window closed, and its views with their commands
    QVERIFY(!QFile::exists(image));
  }

  void theWindowMayGoWhileAFileIsBeingRead() {
    WorkbenchFixture workbench;
    const QString file = workbench.write("large.off", Test::offFile(Test::blob(250)));
    workbench.controller().openFiles({file, file, file});
    workbench.press(Qt::Key_Q, Qt::ControlModifier);
    workbench.end();
    settle();
    QVERIFY(!QApplication::overrideCursor());
  }
};

VELA_TEST_MAIN(WorkbenchTest)
#include "e2e_test.moc"
