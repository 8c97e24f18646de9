// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/tools/mesh_tool.h>

namespace Workbench {

class Measurements;

/// Measures the distance of two points of the surface: by a drag from one to the other, or by a click on
/// each.
///
/// A double click counts as one click. A drag that ends beside the surface, or loses the mouse, takes its
/// first point back.
class MeasureTool : public MeshTool {
public:
  explicit MeasureTool(MeshView* view);

  bool mousePress(QMouseEvent* event) override;
  bool mouseMove(QMouseEvent* event) override;
  bool mouseRelease(QMouseEvent* event) override;
  bool mouseDoubleClick(QMouseEvent* event) override;
  /// Measures from the first position to the second.
  bool perform(const Vela::UiBase::ToolOperation& operation) override;
  /// Escape takes back the first point.
  bool keyPress(QKeyEvent* event) override;

  void activate() override;
  /// Takes back the first point.
  void deactivate() override;

protected:
  void endOperation() override;

private:
  static void finish(MeshView& view, const QVector3D& point, Qt::KeyboardModifiers modifiers);
  bool takeBack();

  bool m_beganHere = false; // the press of this operation set the first point
  bool m_keepsPoint = false;
};

} // namespace Workbench
