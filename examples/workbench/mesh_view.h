// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/views/base_view.h>
#include <workbench/camera.h>
#include <workbench/mesh.h>
#include <workbench/renderer.h>

#include <QTimer>

#include <optional>

namespace Workbench {

/// Shows a mesh, or while there is none how to open one.
///
/// Draws in device pixels, in the colours of its palette, and only when something changed: quickly while the
/// camera or the size is changing, with smooth edges once they rest. Positions are in logical pixels.
///
/// @code
/// auto* view = new MeshView(window);
/// new MeshViewController(view);
/// view->setMesh(mesh);
/// @endcode
class MeshView : public Vela::UiBase::BaseView {
  Q_OBJECT

public:
  explicit MeshView(QWidget* parent = nullptr);

  const Mesh& mesh() const noexcept { return m_mesh; }
  /// Shows a mesh as a whole, from the first angles.
  void setMesh(const Mesh& mesh);

  const Camera& camera() const noexcept { return m_camera; }
  void setCamera(const Camera& camera);
  /// Shows all of the mesh from the first angles again.
  void resetCamera();

  bool isFlatShaded() const noexcept { return m_flatShaded; }
  void setFlatShaded(bool flat);

  /// Marks the view as the place where what is being dragged can be dropped.
  void setDropHighlight(bool on);

  /// What is seen at a position; nothing on the background.
  std::optional<Renderer::Hit> pick(const QPoint& position);
  /// The view's picture in device pixels, without what lies over it.
  QImage picture();
  /// The numbers of the mesh, for a status bar; empty without a mesh.
  QString statusText() const;
  /// Whether the mesh and the camera as they are now were painted, with smooth edges.
  bool isSettled() const noexcept { return m_settled; }

  QSize sizeHint() const override;

Q_SIGNALS:
  void meshChanged();
  /// The view was painted as it will stay until something changes.
  void settled();

protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

private:
  enum class Change { Once, Ongoing };

  void invalidate(Change change);
  void fitCamera();
  QSize deviceSize() const;
  void renderMesh(int oversampling);
  void renderIfNeeded();
  void paintHint(QPainter& painter) const;
  void paintDropHighlight(QPainter& painter) const;
  void tellSettled();

  Mesh m_mesh;
  Camera m_camera;
  bool m_cameraFits = true; // all of the mesh is shown, also after a change of the size
  bool m_flatShaded = false;
  bool m_dropHighlight = false;

  Renderer m_renderer;
  RenderStyle m_style; // of the frame in the renderer
  bool m_outdated = true;
  bool m_settled = false;
  QTimer m_rest; // runs while changes are going on
};

} // namespace Workbench
