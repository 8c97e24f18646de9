// SPDX-License-Identifier: MIT
#include "test_meshes.h"

#include <support/input.h>
#include <support/rows.h>
#include <workbench/mesh_view.h>
#include <workbench/renderer.h>

using namespace Workbench;
using Change = std::function<void(MeshView&)>;

class FrameDrawerTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void followsWhatHappensWhileAFrameIsDrawn_data() {
    const Vela::Test::Rows<Change> row("change");
    row("the view is deleted", [](MeshView& view) { delete &view; });
    row("the view is closed", [](MeshView& view) { view.close(); });
    row("another size", [](MeshView& view) { view.resize(430, 250); });
    row("another mesh", [](MeshView& view) { view.document().open(Test::cube(1), "cube"); });
    row("no mesh", [](MeshView& view) { view.document().open(Mesh(), {}); });
    row("one more, and one that gives it up", [](MeshView& view) {
      view.document().setSelection(TriangleSelection::all(view.mesh().triangles().size()));
      view.repaint();
      view.setShading(FlatShading);
    });
    row("another palette", [](MeshView& view) { view.setPalette(QPalette(Qt::black)); });
  }
  void followsWhatHappensWhileAFrameIsDrawn() {
    QFETCH(Change, change);
    const QPointer<MeshView> view = new MeshView;
    view->resize(300, 200);
    Vela::Test::showActive(*view);
    view->document().open(Test::blob(200), "blob");
    view->repaint();
    QVERIFY(!view->isSettled());
    change(*view);
    if (view && !view->mesh().isEmpty()) { // the place under the mouse is known before the picture
      const auto hit = view->pick(view->rect().center());
      QVERIFY(hit && (hit->point - view->camera().eye()).length() < float(view->camera().distance()));
    }
    QTRY_VERIFY(!view || view->isSettled());
    QTRY_VERIFY(!view || view->mesh().isEmpty() || view->grab().toImage() == imageOf(view->picture()));
    QThreadPool::globalInstance()->waitForDone();
    delete view;
  }
};

VELA_TEST_MAIN(FrameDrawerTest)
#include "frame_drawer_test.moc"
