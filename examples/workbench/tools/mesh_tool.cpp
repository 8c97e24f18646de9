// SPDX-License-Identifier: MIT
#include "mesh_tool.h"

#include <ui_base/tools/operation_log.h>
#include <workbench/mesh_view.h>
#include <workbench/session/camera_values.h>

#include <QApplication>
#include <QLineF>

namespace Workbench {

using namespace Vela::UiBase;

MeshTool::MeshTool(MeshView* view) : InteractiveTool(view) {}

MeshView* MeshTool::meshView() const { return qobject_cast<MeshView*>(getView()); }

void MeshTool::tell(const QString& command, const QString& action, Qt::KeyboardModifiers modifiers,
                    const QList<QVector3D>& positions, const QVariantMap& values) {
  OperationLog::Instance().tell({command, action, Qt::LeftButton, modifiers, positions, values});
}

void MeshTool::startOperation() {
  m_dragging = false;
  if (const MeshView* const view = meshView())
    m_before = view->camera();
  InteractiveTool::startOperation();
}

void MeshTool::endOperation() {
  const MeshView* const view = meshView();
  if (const auto before = std::exchange(m_before, std::nullopt); view && before && *before != view->camera())
    tellLook(*view);
  InteractiveTool::endOperation();
}

bool MeshTool::mouseMove(QMouseEvent* event) {
  if (!InteractiveTool::mouseMove(event))
    return false;
  QLineF way(pressEvent().position(), event->position());
  if (!m_dragging && way.length() >= QApplication::startDragDistance()) {
    m_dragging = true;
    way.setLength(QApplication::startDragDistance());
    m_origin = way.p2();
  }
  return true;
}

} // namespace Workbench
