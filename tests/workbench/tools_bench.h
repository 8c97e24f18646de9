// SPDX-License-Identifier: MIT
#pragma once

#include "test_meshes.h"
#include "workbench_fixture.h"

#include <ui_base/tools/interactive_tool.h>
#include <workbench/commands/mode_command.h>

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
    return moved(square(1, 2), [x](const QVector3D& p) { return p + QVector3D(x, 0, 0); });
  }
};

} // namespace Workbench::Test
