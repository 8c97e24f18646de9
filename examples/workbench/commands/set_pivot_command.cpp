// SPDX-License-Identifier: MIT
#include "set_pivot_command.h"

#include <ui_base/tools/operation_log.h>
#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/command_menus.h>
#include <workbench/commands/command_help.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/tools/mesh_tool.h>
#include <workbench/tools/tool_cursors.h>

#include <QKeyEvent>

#include <functional>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

constexpr QLatin1String ClickAction("click");
constexpr QLatin1String GiveUpAction("give_up");

// Gets no input, as the command takes it all.
class PivotCursor : public MeshTool {
public:
  using Perform = std::function<bool(const ToolOperation&)>;

  PivotCursor(MeshView* view, Perform perform) : MeshTool(view), m_perform(std::move(perform)) {
    setIdleCursor(crosshairCursor(QStringLiteral("rotation_center")));
  }

  bool perform(const ToolOperation& operation) override { return m_perform(operation); }

private:
  const Perform m_perform;
};

void tell(QLatin1String action, const QList<QVector3D>& positions) {
  OperationLog::Instance().tell({SetPivotCommand::className(), action, Qt::LeftButton, {}, positions, {}});
}

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
  m_cursor = std::make_shared<PivotCursor>(
      meshView(), [this](const ToolOperation& operation) { return perform(operation); });
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
  tell(ClickAction, {hit->point});
  lookAt(hit->point);
  return true;
}

void SetPivotCommand::lookAt(const QVector3D& point) {
  if (MeshView* const view = meshView()) {
    Camera camera = view->camera();
    camera.lookAt(point);
    view->setCamera(camera);
  }
  end();
}

void SetPivotCommand::giveUp() {
  tell(GiveUpAction, {});
  end();
}

// It is the cursor that is asked, and which then goes.
bool SetPivotCommand::perform(const ToolOperation& operation) {
  const bool isClick = operation.action == ClickAction && operation.positions.size() == 1;
  if (!isExecuting() || operation.command != className() || (!isClick && operation.action != GiveUpAction))
    return false;
  if (isClick)
    lookAt(operation.positions.constFirst());
  else
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
  giveUp();
  return true;
}

bool SetPivotCommand::mouseDoubleClick(QMouseEvent*) { return isExecuting(); }

bool SetPivotCommand::keyPress(QKeyEvent* event) {
  if (!isExecuting() || event->key() != Qt::Key_Escape)
    return false;
  giveUp();
  return true;
}

} // namespace Workbench
