// SPDX-License-Identifier: MIT
#include "set_pivot_command.h"

#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/command_menus.h>
#include <workbench/commands/command_help.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/tools/mesh_tool.h>
#include <workbench/tools/tool_cursors.h>

#include <QKeyEvent>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

// Gets no input, as the command takes it all.
class PivotCursor : public MeshTool {
public:
  explicit PivotCursor(MeshView* view) : MeshTool(view) {
    setIdleCursor(crosshairCursor(QStringLiteral("rotation_center")));
  }
};

} // namespace

SetPivotCommand::SetPivotCommand(MeshViewController* controller) : WorkbenchCommand(controller) {
  setText({staticMetaObject, QT_TR_NOOP("Set Rotation &Centre")});
  setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("rotation_center")));
  setShortcut(Qt::CTRL | Qt::Key_R);
  setStatusTip({staticMetaObject, QT_TR_NOOP("Click the point of the mesh that the view shall turn around")});
  setBaseGroupName(ViewSection);
  setCommandHelp(
      *this, {{staticMetaObject,
               QT_TR_NOOP("The camera then turns around that point, which comes to the middle of the view. "
                          "Drags with the right button turn the view meanwhile.")},
              QStringLiteral("rotation_center")});
}

SetPivotCommand::~SetPivotCommand() = default;

QString SetPivotCommand::obstacle() const { return needMesh(); }

bool SetPivotCommand::onExecuteAsync(bool) {
  MeshViewController* const controller = meshController();
  if (!controller || !hasMesh())
    return false;
  if (isExecuting())
    cancel();
  else
    begin(*controller);
  return true;
}

void SetPivotCommand::begin(MeshViewController& controller) {
  broadcast([this](CommandStateProtocol* observer) { observer->commandBegan(this); });
  m_cursor = std::make_shared<PivotCursor>(meshView());
  controller.pushTool(LeftButton, m_cursor);
  controller.showNotification(tr("Click the point to turn around. Escape cancels."), FadeInAndOut, 0);
}

void SetPivotCommand::cancel() {
  if (isExecuting())
    end();
}

void SetPivotCommand::end() {
  const auto cursor = std::exchange(m_cursor, nullptr);
  if (MeshViewController* const controller = meshController()) {
    if (controller->getTool(LeftButton) == cursor)
      controller->popTool(LeftButton);
    controller->hideNotification();
  }
  broadcast([this](CommandStateProtocol* observer) { observer->commandEnded(this); });
}

bool SetPivotCommand::mousePress(QMouseEvent* event) {
  if (!isExecuting() || event->button() != Qt::LeftButton)
    return false;
  MeshView* const view = meshView();
  const auto hit = view ? view->pick(event->position().toPoint()) : std::nullopt;
  if (!hit)
    return true;
  Camera camera = view->camera();
  camera.lookAt(hit->point);
  view->setCamera(camera);
  end();
  return true;
}

bool SetPivotCommand::mouseMove(QMouseEvent* event) {
  return isExecuting() && event->buttons() == Qt::LeftButton;
}

// A right drag has given its press to a tool by now.
bool SetPivotCommand::mouseRelease(QMouseEvent* event) {
  MeshViewController* const controller = meshController();
  if (!isExecuting() || !controller || event->button() != Qt::RightButton || controller->isDragging())
    return false;
  controller->endRunningOperation();
  end();
  return true;
}

bool SetPivotCommand::mouseDoubleClick(QMouseEvent*) { return isExecuting(); }

bool SetPivotCommand::keyPress(QKeyEvent* event) {
  if (!isExecuting() || event->key() != Qt::Key_Escape)
    return false;
  end();
  return true;
}

} // namespace Workbench
