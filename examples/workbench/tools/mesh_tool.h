// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tools/interactive_tool.h>
#include <workbench/camera.h>

#include <QPointF>

namespace Workbench {

class MeshView;

/// The base of the workbench's tools: knows its view as a MeshView, and tells a drag from a click.
class MeshTool : public Vela::UiBase::InteractiveTool {
public:
  explicit MeshTool(MeshView* view);

  /// During an operation: whether the mouse has left the place of the press so far that this is no click.
  bool isDragging() const noexcept { return m_dragging; }

  bool mouseMove(QMouseEvent* event) override;

protected:
  void startOperation() override;
  /// Tells where the camera has come to.
  void endOperation() override;

  /// The view, or null when it is gone.
  MeshView* meshView() const;
  /// Tells whoever records a session what was done with the mouse.
  /// @param command  the command that has brought the tool
  static void tell(const QString& command, const QString& action, Qt::KeyboardModifiers modifiers,
                   const QList<QVector3D>& positions, const QVariantMap& values = {});
  /// Where the drag began to count, in the view: a little way from the press, in the direction of the drag.
  const QPointF& dragOrigin() const noexcept { return m_origin; }

private:
  bool m_dragging = false;
  std::optional<Camera> m_before; // of the operation
  QPointF m_origin;
};

} // namespace Workbench
