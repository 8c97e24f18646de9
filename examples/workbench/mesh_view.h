// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/views/base_view.h>
#include <workbench/camera.h>
#include <workbench/frame_drawer.h>
#include <workbench/measurements.h>
#include <workbench/mesh_document.h>

#include <QTimer>

#include <optional>

namespace Workbench {

/// Shows the mesh of a document, or while there is none how to open one: what is selected of it, and over it
/// what was measured.
///
/// Draws in device pixels, in the colours of its palette, and only when something changed: quickly while the
/// camera or the size is changing, with smooth edges once they rest. What takes longer than a moment is drawn
/// on another thread, and the picture before stays until then. Positions are in logical pixels.
///
/// @code
/// auto* view = new MeshView(window);
/// new MeshViewController(view);
/// view->document().open(mesh, fileName);
/// @endcode
class MeshView : public Vela::UiBase::BaseView {
  Q_OBJECT

public:
  explicit MeshView(QWidget* parent = nullptr);

  /// What the view shows. A mesh that is opened in it is shown as a whole, from the first angles.
  MeshDocument& document() noexcept { return m_document; }
  const MeshDocument& document() const noexcept { return m_document; }
  const Mesh& mesh() const noexcept { return m_document.mesh(); }
  /// Shows another mesh in the place of the document's, which knows nothing of it: how it would become. It
  /// has the triangles of the document's mesh, with other positions. Nothing shows the document's mesh again,
  /// as does every change of that.
  void setPreview(const std::optional<Mesh>& preview);
  /// The mesh that is seen: the preview, if there is one.
  const Mesh& shownMesh() const noexcept { return m_preview ? *m_preview : mesh(); }
  /// Cleared when another mesh is opened.
  Measurements& measurements() noexcept { return m_measurements; }

  const Camera& camera() const noexcept { return m_camera; }
  void setCamera(const Camera& camera);
  /// Shows all of the mesh from the first angles again.
  void resetCamera();
  /// How much stays clear at the left and right, and at the top and bottom, when all of the mesh is shown:
  /// for what floats over the view. At most half of the view.
  void setFitMargin(const QSize& margin);

  EShading shading() const noexcept { return m_shading; }
  void setShading(EShading shading);

  /// Draws a frame over the view, as while something is being selected; a null rectangle for none.
  void setRubberBand(const QRectF& rectangle);
  const QRectF& rubberBand() const noexcept { return m_rubberBand; }
  /// Marks the point that the camera turns around.
  void setPivotShown(bool shown);
  /// Asks for the menu of the view at a position of the screen.
  void requestMenu(const QPoint& position) { Q_EMIT menuRequested(position); }
  /// Marks the view as the place where what is being dragged can be dropped.
  void setDropHighlight(bool on);

  /// What is seen at a position by the camera as it is now, whether or not that was drawn already; nothing on
  /// the background.
  std::optional<Frame::Hit> pick(const QPoint& position) const;
  /// The triangles that are seen within a rectangle.
  TriangleSelection trianglesIn(const QRectF& rectangle) const;
  /// The frame that trianglesIn() looks at, for finding the same triangles in a view of another size.
  struct FrameSize {
    QSize size; ///< Device pixels.
    int samples = 1;
  };
  FrameSize frameSize() const;
  /// What trianglesIn() finds for a rectangle in device pixels of such a frame, seen by such a camera.
  TriangleSelection trianglesIn(const QRect& pixels, const Camera& camera, const FrameSize& frame) const;
  /// The view's picture with smooth edges in device pixels, without what lies over it: imageOf() draws it, on
  /// any thread.
  FrameRequest picture() const { return request(2); }
  /// The numbers of the mesh, for a status bar; empty without a mesh.
  QString statusText() const;
  /// Whether the mesh and the camera as they are now were painted, with smooth edges.
  bool isSettled() const noexcept { return m_settled; }

  QSize sizeHint() const override;

Q_SIGNALS:
  /// statusText() is another.
  void statusTextChanged();
  /// The user asks for the menu of the view. @p position is on the screen.
  void menuRequested(const QPoint& position);
  /// The view was painted as it will stay until something changes.
  void settled();

protected:
  void changeEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

private:
  enum class Change { Once, Ongoing };

  void followDocument();
  void updateStatusText();
  void invalidate(Change change);
  void fitCamera();
  QSize deviceSize() const;
  FrameRequest request(int samples) const;
  bool isDrawn() const;
  void paintBackground(QPainter& painter) const;
  void paintFrame(QPainter& painter) const;
  void paintAnnotations(QPainter& painter) const;
  void paintHint(QPainter& painter) const;
  void tellSettled();

  MeshDocument m_document;
  std::optional<Mesh> m_preview;
  Measurements m_measurements;
  QRectF m_rubberBand;
  bool m_pivotShown = false;
  Camera m_camera;
  bool m_cameraFits = true; // all of the mesh is shown, also after a change of the size
  QSize m_fitMargin;
  EShading m_shading = SmoothShading;
  bool m_dropHighlight = false;

  FrameDrawer m_frames;
  bool m_settled = false;
  QTimer m_rest; // runs while changes are going on
};

} // namespace Workbench
