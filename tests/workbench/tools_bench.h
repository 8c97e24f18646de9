// SPDX-License-Identifier: MIT
#pragma once

#include "test_meshes.h"
#include "workbench_fixture.h"

#include <support/input.h>
#include <ui_base/tools/interactive_tool.h>
#include <workbench/commands/mode_command.h>

#include <QWheelEvent>

namespace Workbench::Test {

/// A workbench that shows two squares side by side, of 8 triangles each, from the front.
class ToolsBench : public WorkbenchFixture {
public:
  ToolsBench() : WorkbenchFixture({800, 600}) {
    WorkbenchFixture::show(merged(squareAt(-1.5F), squareAt(1.5F)));
    Camera camera = view().camera();
    camera.orbit(-camera.yaw(), -camera.pitch());
    view().setCamera(camera);
    QTRY_VERIFY(view().isSettled());
  }

  void click(Qt::MouseButton button, const QPoint& at, Qt::KeyboardModifiers modifiers = {}) {
    Vela::Test::clickAt(view(), at, button, modifiers);
  }
  void doubleClick(const QPoint& at) {
    QTest::mouseDClick(window().windowHandle(), Qt::LeftButton, {}, Vela::Test::inWindow(view(), at));
  }
  // Holds the button at the end.
  void pull(Qt::MouseButton button, const QPoint& from, const QPoint& to,
            Qt::KeyboardModifiers modifiers = {}) {
    QTest::mousePress(window().windowHandle(), button, modifiers, Vela::Test::inWindow(view(), from));
    Vela::Test::moveMouse(view(), (from + to) / 2);
    Vela::Test::moveMouse(view(), to);
  }
  void drag(Qt::MouseButton button, const QPoint& from, const QPoint& to,
            Qt::KeyboardModifiers modifiers = {}) {
    pull(button, from, to, modifiers);
    release(button, to, modifiers);
  }
  void release(Qt::MouseButton button, const QPoint& at, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseRelease(window().windowHandle(), button, modifiers, Vela::Test::inWindow(view(), at));
  }
  void wheel(const QPoint& at, int delta) {
    QWheelEvent event(at, view().mapToGlobal(at), {}, {0, delta}, {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&view(), &event);
  }

  /// Where a point of the scene is seen.
  QPoint seen(float x, float y) {
    return view().camera().project({x, y, 0}, view().size()).value_or(QPointF()).toPoint();
  }
  QPoint left() { return seen(-1.6F, 0.1F); } // on the left square
  QPoint right() { return seen(1.4F, 0.1F); }
  QPoint background() { return {5, 5}; }

  Vela::UiBase::CommandBase& mode(EToolMode which) {
    return *controller().findCommand(ModeCommand::idOf(which));
  }
  std::size_t selected() { return view().document().selection().count(); }
  /// The view shows the cursor of the tool that picks, and no other tool lies over it.
  bool isAtRest() {
    const auto tool = controller().getTool(Vela::UiBase::LeftButton);
    return tool->isActive() && controller().mode() == PickMode &&
           view().cursor().shape() == Qt::ArrowCursor && !controller().getOperatingTool() &&
           tool->getOperatingCursor().shape() == Qt::PointingHandCursor;
  }

private:
  static Mesh squareAt(float x) {
    const Mesh middle = square(1, 2);
    std::vector<QVector3D> positions = middle.positions();
    for (QVector3D& position : positions)
      position.setX(position.x() + x);
    return {positions, middle.triangles()};
  }
};

} // namespace Workbench::Test
