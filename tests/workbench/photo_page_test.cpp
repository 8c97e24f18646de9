// SPDX-License-Identifier: MIT
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <ui_toolkit/image_viewer_tool_bar.h>
#include <workbench/pages/page_strip.h>
#include <workbench/pages/workbench_pages.h>
#include <workbench/photos/photo_view.h>

using namespace Workbench;
using Workbench::Test::WorkbenchFixture;
using namespace Vela::Test;

namespace {

/// A workbench for looking at photographs.
class PhotoBench : public WorkbenchFixture {
public:
  PhotoView& photos() { return *window().photoView(); }
  PhotoDocument& document() { return photos().document(); }

  QString photo(const QString& name, const QSize& size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
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
  bool shows(const char* name) {
    return QTest::qWaitFor([this] { return photos().isSettled(); }) &&
           QFileInfo(document().fileName()).fileName() == QLatin1String(name);
  }
  QToolButton* button(const char* objectName) {
    return photos().toolBar()->findChild<QToolButton*>(QLatin1String(objectName));
  }
};

} // namespace

// Drives the page of the photographs, and the way to it and back, as a person does.
class PhotoPageTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void aStripShowsWhatIsOpenAndLeadsThere() {
    PhotoBench bench;
    QVERIFY(!bench.window().findChild<PageStrip*>()); // there is nothing to choose from
    QVERIFY(bench.show({bench.photo("a.png", {300, 200}), bench.photo("b.png", {50, 400})}));
    auto* const strip = bench.window().findChild<PageStrip*>();
    QVERIFY(strip && strip->isVisible() && strip->count() == 3 && strip->currentRow() == 1);
    const auto middle = [strip] {
      const QImage icon = strip->item(2)->icon().pixmap(strip->iconSize()).toImage();
      return icon.pixelColor(icon.rect().center());
    };
    QTRY_COMPARE(middle(), QColor(Qt::red));
    clickAt(*strip->viewport(), strip->visualItemRect(strip->item(0)).center());
    QTRY_VERIFY(bench.window().pages().current() == MeshPage && bench.view().hasFocus());
    for (int i = 0; i < 5 && !strip->hasFocus(); ++i)
      bench.press(Qt::Key_F6);
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Return})
      bench.press(key);
    QVERIFY(bench.isShown() && bench.shows("b.png") && bench.photos().hasFocus());
    for (int i = 0; i < 2; ++i)
      bench.press(Qt::Key_W, Qt::ControlModifier);
    QTRY_VERIFY(!strip->isVisible());
  }

  void goesAlongTheRowByButtonsAndKeys() {
    PhotoBench bench;
    QVERIFY(bench.show({bench.photo("a.png", {300, 200}), bench.photo("b.png", {50, 400}),
                        bench.photo("c.png", {300, 200})}));
    QVERIFY(bench.shows("a.png") && !bench.button("prev_button")->isEnabled());
    click(*bench.button("next_button"));
    QVERIFY(bench.shows("b.png"));
    bench.photos().setFocus();
    QTest::keyPress(bench.window().windowHandle(), Qt::Key_Greater, Qt::ShiftModifier);
    QTest::keyRelease(bench.window().windowHandle(), Qt::Key_Shift);
    QTest::keyRelease(bench.window().windowHandle(), Qt::Key_Less); // the same key on some keyboards
    QVERIFY(bench.shows("c.png") && !bench.button("next_button")->isEnabled());
    bench.button("prev_button")->setFocus();
    bench.press(Qt::Key_Less);
    QVERIFY(bench.shows("b.png")); // one step, though the view sees the key as well
    bench.press(Qt::Key_W, Qt::ControlModifier);
    QVERIFY(bench.shows("c.png"));
    QCOMPARE(bench.document().count(), 2);
  }

  void zoomsAtThePointerAndMovesUpToTheEdges() {
    PhotoBench bench;
    QVERIFY(bench.show({bench.photo("a.png", {3000, 2000})}));
    const PhotoViewport& viewport = bench.photos().viewport();
    QVERIFY(viewport.isFit() && !bench.button("zoom_out_button")->isEnabled());
    const QPointF pointer(200, 120);
    for (int i = 0; i < 3; ++i)
      bench.turnWheel(bench.photos(), pointer, 120);
    const QPointF held = viewport.photoPoint(pointer);
    bench.turnWheel(bench.photos(), pointer, 120);
    QVERIFY((viewport.photoPoint(pointer) - held).manhattanLength() < 1e-6);
    QWindow* const target = bench.window().windowHandle();
    const QPoint position = inWindow(bench.photos(), pointer.toPoint());
    QTest::mousePress(target, Qt::LeftButton, {}, position);
    QTest::mouseMove(target, position - QPoint(40, 30));
    QVERIFY((viewport.photoPoint(pointer - QPointF(40, 30)) - held).manhattanLength() < 1e-6);
    QTest::mouseMove(target, position - QPoint(5000, 5000)); // the edges stay at those of the view
    QTest::mouseRelease(target, Qt::LeftButton, {}, position - QPoint(5000, 5000));
    QVERIFY((viewport.photoRect().bottomRight() - 2 * viewport.middle()).manhattanLength() < 1);

    bench.photos().setFocus();
    bench.press(Qt::Key_F);
    QVERIFY(viewport.isFit());
  }

  void whatIsNoPictureLosesNothing() {
    PhotoBench bench;
    QVERIFY(bench.show({bench.photo("a.png", {300, 200})}));
    bench.drop({bench.write("letter.txt", "Dear Sir"), bench.path("missing.png")}, &bench.photos());
    QTRY_VERIFY(!bench.document().isLoading());
    QVERIFY(bench.shows("a.png"));
    QCOMPARE(bench.document().count(), 1);
    bench.drop({bench.write("b.jpg", "no picture"), bench.photo("c.png", {20, 10})}, &bench.photos());
    QTRY_VERIFY(bench.shows("c.png"));
  }

  void eachPageKeepsWhatItShows() {
    PhotoBench bench;
    const QString mesh = bench.write("cube.ply", Workbench::Test::storedFile("cube_text.ply"));
    QVERIFY(bench.show({mesh, bench.photo("a.png", {3000, 2000})}));
    QTRY_COMPARE(bench.triangles(), std::size_t(12));
    bench.press(Qt::Key_A, Qt::ControlModifier); // does nothing to a mesh that is not seen
    bench.photos().setFocus();
    bench.press(Qt::Key_Plus);
    const PhotoViewport viewport = bench.photos().viewport();
    bench.press(Qt::Key_1, Qt::AltModifier);
    QVERIFY(bench.view().isVisible() && !bench.photos().isVisible());
    QVERIFY(bench.view().document().selection().isEmpty());
    settle();
    bench.press(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(bench.view().document().selection().count(), std::size_t(12));
    bench.press(Qt::Key_2, Qt::AltModifier);
    QVERIFY(bench.isShown());
    QCOMPARE(bench.photos().viewport(), viewport);
    bench.drop({mesh}, &bench.photos());
    QTRY_VERIFY(bench.view().isVisible());
  }
};

VELA_TEST_MAIN(PhotoPageTest)
#include "photo_page_test.moc"
