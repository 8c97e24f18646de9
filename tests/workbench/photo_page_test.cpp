// SPDX-License-Identifier: MIT
#include "mesh_files.h"
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <support/input.h>
#include <ui_base/notifications/notification_bar.h>
#include <ui_toolkit/image_viewer_tool_bar.h>
#include <ui_toolkit/print_material_info_panel.h>
#include <vlk_common_res/strings.h>
#include <workbench/commands/volume_panel_command.h>
#include <workbench/pages/workbench_pages.h>
#include <workbench/photos/photo_view.h>

#include <QImageWriter>
#include <QLabel>
#include <QToolButton>
#include <QWheelEvent>

using namespace Workbench;
using Workbench::Test::WorkbenchFixture;
using namespace Vela::Test;

namespace {

/// A workbench for looking at photographs.
class PhotoBench : public WorkbenchFixture {
public:
  PhotoView& photos() { return *window().photoView(); }
  PhotoDocument& document() { return photos().document(); }

  /// A photograph of one colour with a white pixel in its middle.
  QString photo(const QString& name, const QSize& size, QColor color = Qt::red) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    image.setPixelColor(size.width() / 2, size.height() / 2, Qt::white);
    image.save(path(name));
    return path(name);
  }
  PhotoBench() : WorkbenchFixture({700, 500}) {}
  bool show(const QStringList& files) {
    controller().openFiles(files);
    return isShown();
  }
  bool isShown() {
    return QTest::qWaitFor(
        [this] { return window().pages().current() == PhotoPage && photos().isSettled(); });
  }
  QString name() { return QFileInfo(document().fileName()).fileName(); }
  QToolButton* button(const char* objectName) {
    return photos().toolBar().findChild<QToolButton*>(QLatin1String(objectName));
  }
  void turnWheel(const QPointF& at) {
    QWheelEvent event(at, photos().mapToGlobal(at), {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&photos(), &event);
  }
  QString message() {
    const auto* const bar = photos().findChild<Vela::UiBase::NotificationBar*>();
    return bar && bar->isNotificationShowing() ? bar->accessibleName() : QString();
  }
};

} // namespace

// Drives the page of the photographs, and the way to it and back, as a person does.
class PhotoPageTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void goesAlongTheRowByButtonsAndKeys() {
    PhotoBench bench;
    QVERIFY(bench.show({bench.photo("a.png", {300, 200}), bench.photo("b.png", {50, 400}, Qt::green),
                        bench.photo("c.png", {300, 200}, Qt::blue)}));
    QCOMPARE(bench.name(), "a.png");
    QVERIFY(bench.photos().nameText().contains("1 of 3"));
    QVERIFY(bench.photos().figuresText().contains(QStringLiteral("300 × 200 px")));
    QCOMPARE(bench.window().windowTitle(), QStringLiteral("a.png[*] – Workbench"));
    QVERIFY(!bench.button("prev_button")->isEnabled());

    click(*bench.button("next_button"));
    QTRY_VERIFY(bench.photos().isSettled());
    QCOMPARE(bench.name(), "b.png");
    bench.photos().setFocus();
    QTest::keyPress(bench.window().windowHandle(), Qt::Key_Greater, Qt::ShiftModifier);
    QTest::keyRelease(bench.window().windowHandle(), Qt::Key_Shift);
    QTest::keyRelease(bench.window().windowHandle(), Qt::Key_Less); // the same key on some keyboards
    QTRY_VERIFY(bench.photos().isSettled());
    QCOMPARE(bench.name(), "c.png");
    QVERIFY(!bench.button("next_button")->isEnabled());

    bench.button("prev_button")->setFocus();
    bench.press(Qt::Key_Less);
    QTRY_VERIFY(bench.photos().isSettled());
    QCOMPARE(bench.name(), "b.png"); // one step, though the view sees the key as well
    bench.press(Qt::Key_W, Qt::ControlModifier);
    QTRY_VERIFY(bench.photos().isSettled());
    QCOMPARE(bench.document().count(), 2);
    QCOMPARE(bench.name(), "c.png");
  }

  void zoomsAtThePointerByKeysAndByButtons() {
    PhotoBench bench;
    QVERIFY(bench.show({bench.photo("a.png", {3000, 2000})}));
    const PhotoViewport& viewport = bench.photos().viewport();
    QVERIFY(viewport.isFit());
    QVERIFY(!bench.button("zoom_out_button")->isEnabled());

    const QPointF pointer(200, 120);
    const QPoint position = inWindow(bench.photos(), pointer.toPoint());
    for (int i = 0; i < 3; ++i)
      bench.turnWheel(pointer);
    QVERIFY(!viewport.isFit());
    const QPointF seen = viewport.photoPoint(pointer);
    bench.turnWheel(pointer);
    QVERIFY((viewport.photoPoint(pointer) - seen).manhattanLength() < 1e-6);

    const PhotoViewport before = viewport;
    QTest::mousePress(bench.window().windowHandle(), Qt::LeftButton, {}, position);
    QCOMPARE(bench.photos().cursor().shape(), Qt::ClosedHandCursor);
    QTest::mouseMove(bench.window().windowHandle(), position - QPoint(40, 30));
    QTest::mouseRelease(bench.window().windowHandle(), Qt::LeftButton, {}, position - QPoint(40, 30));
    QCOMPARE(viewport.photoPoint(pointer - QPointF(40, 30)), before.photoPoint(pointer));

    bench.photos().setFocus();
    bench.press(Qt::Key_O);
    QCOMPARE(viewport.zoom(), 1.0);
    for (int i = 0; i < 40 && bench.button("zoom_in_button")->isEnabled(); ++i)
      bench.press(Qt::Key_Plus, Qt::ShiftModifier);
    QCOMPARE(viewport.zoom(), viewport.mostZoom());
    QVERIFY(!bench.button("zoom_in_button")->isEnabled());
    click(*bench.button("zoom_out_button"));
    QVERIFY(viewport.zoom() < viewport.mostZoom());
    bench.press(Qt::Key_F);
    QVERIFY(viewport.isFit());
  }

  void turnsPhotographsUpright() {
    PhotoBench bench;
    QImage image(60, 30, QImage::Format_RGB32);
    image.fill(Qt::red);
    QImageWriter writer(bench.path("turned.jpg"));
    writer.setTransformation(QImageIOHandler::TransformationRotate90);
    QVERIFY(writer.write(image) && bench.show({bench.path("turned.jpg")}));
    QCOMPARE(bench.document().photo().size(), QSize(30, 60));
    bench.photos().setFocus(); // F6 goes to the buttons and back
    bench.press(Qt::Key_F6);
    QVERIFY(bench.photos().toolBar().isAncestorOf(QApplication::focusWidget()));
    bench.press(Qt::Key_F6);
    QVERIFY(bench.photos().hasFocus());
  }

  void whatIsNoPictureIsToldAndLosesNothing() {
    PhotoBench bench;
    QVERIFY(bench.show({bench.photo("a.png", {300, 200})}));
    bench.drop({bench.write("letter.txt", "Dear Sir"), bench.path("missing.png")}, &bench.photos());
    QTRY_VERIFY(!bench.document().isLoading());
    QVERIFY2(bench.message().contains(QRegularExpression("letter.txt.*known format")),
             qPrintable(bench.message()));
    QCOMPARE(bench.name(), "a.png");
    QCOMPARE(bench.document().count(), 1);

    bench.drop({bench.write("b.jpg", "no picture"), bench.photo("c.png", {20, 10})}, &bench.photos());
    QTRY_COMPARE(bench.name(), "c.png");
  }

  void eachPageKeepsWhatItShows() {
    PhotoBench bench;
    const QString mesh = bench.write("cube.obj", Workbench::Test::objFile(Workbench::Test::cube(2)));
    QVERIFY(bench.show({mesh, bench.photo("a.png", {3000, 2000})}));
    QTRY_COMPARE(bench.triangles(), std::size_t(12));
    bench.press(Qt::Key_A, Qt::ControlModifier); // does nothing to a mesh that is not seen
    bench.press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    bench.photos().setFocus();
    bench.press(Qt::Key_Plus);
    const PhotoViewport viewport = bench.photos().viewport();

    bench.press(Qt::Key_1, Qt::AltModifier);
    QCOMPARE(bench.window().pages().current(), MeshPage);
    QVERIFY(bench.view().isVisible() && !bench.photos().isVisible());
    QVERIFY(bench.view().document().selection().isEmpty());
    QCOMPARE(bench.view().shading(), SmoothShading);
    settle();
    bench.press(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(bench.view().document().selection().count(), std::size_t(12));

    bench.press(Qt::Key_2, Qt::AltModifier);
    QVERIFY(bench.isShown());
    QCOMPARE(bench.photos().viewport(), viewport);
    bench.drop({mesh}, &bench.photos());
    QTRY_VERIFY(bench.view().isVisible());
  }

  void nothingIsReadWhileNobodyLooks() {
    PhotoBench bench;
    QVERIFY(bench.show({bench.photo("a.png", {300, 200}), bench.photo("b.png", {300, 200})}));
    bench.document().showNext();
    bench.window().pages().show(MeshPage); // at once, before the small file is read
    settle();
    QVERIFY(bench.document().isLoading());
    bench.press(Qt::Key_2, Qt::AltModifier);
    QVERIFY(bench.isShown());
    QCOMPARE(bench.name(), "b.png");
  }

  void tellsWhatPrintingTakes() {
    PhotoBench bench;
    bench.press(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    Vela::UiToolkit::PrintMaterialInfoPanel& panel = bench.command<VolumePanelCommand>()->panel()->panel();
    QVERIFY(panel.isVisible());
    // Two cubes of 2 mm, one 3 mm over the other, which is to the side of it.
    const auto cubeAt = [](const QVector3D& place) {
      std::vector<QVector3D> corners = Workbench::Test::cube(2).positions();
      for (QVector3D& corner : corners)
        corner += place;
      return Mesh(corners, Workbench::Test::cube(2).triangles());
    };
    bench.controller().showMesh(Workbench::Test::blob(200), "replaced before it is done");
    bench.controller().showMesh(Workbench::Test::merged(cubeAt({}), cubeAt({5, 3, 0})), "two");
    QVERIFY(panel.IsBusy());
    QTRY_VERIFY(!panel.IsBusy());
    QCOMPARE(panel.ModelVolume().value(), 16.0);
    QVERIFY(std::abs(panel.SupportVolume().value() - 12) < 0.1);
    for (QAction* const unit : panel.VolumeUnitActions()) {
      if (unit->data() == Vela::Common::CubicMillimetre)
        unit->trigger();
    }
    const auto* const value = panel.findChild<QLabel*>("model_volume_value_label");
    QCOMPARE(value->text(), "16");

    bench.controller().showMesh(Workbench::Test::square(1), "open");
    QTRY_VERIFY(!panel.IsBusy());
    QCOMPARE(value->text(), Vela::Resource::String::NOT_APPLICABLE_LABEL_TEXT());
  }
};

VELA_TEST_MAIN(PhotoPageTest)
#include "photo_page_test.moc"
