// SPDX-License-Identifier: MIT
#include "mesh_view.h"

#include <ui_base/core/language.h>
#include <vgsdevices/annotation_device.h>
#include <vgsobjects/point_object.h>
#include <vgsobjects/rectangle_object.h>
#include <workbench/renderer.h>
#include <workbench/view_hint.h>

#include <QContextMenuEvent>
#include <QLocale>
#include <QPainter>
#include <QPainterPath>

namespace Workbench {
namespace {

constexpr int RestTime = 150; // ms without a change after which the edges are smoothed

} // namespace

MeshView::MeshView(QWidget* parent) : BaseView(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(160, 120);
  m_rest.setSingleShot(true);
  m_rest.setInterval(RestTime);
  connect(&m_rest, &QTimer::timeout, this, [this] { update(); });
  connect(&m_frames, &FrameDrawer::ready, this, [this] { update(); });
  followDocument();
  Vela::UiBase::keepTranslated(this, [this] {
    setAccessibleName(tr("Mesh view"));
    updateStatusText();
    update();
  });
}

void MeshView::followDocument() {
  const auto redraw = [this] {
    invalidate(Change::Once);
    updateStatusText();
  };
  connect(&m_document, &MeshDocument::meshChanged, this, [this, redraw] {
    m_measurements.setMesh(m_document.mesh());
    m_preview.reset();
    redraw();
  });
  connect(&m_document, &MeshDocument::selectionChanged, this, redraw);
  connect(&m_document, &MeshDocument::opened, this, [this] {
    m_measurements.clear();
    resetCamera();
  });
  connect(&m_measurements, &Measurements::changed, this, [this] {
    update();
    updateStatusText();
  });
}

void MeshView::updateStatusText() {
  const QString text = statusText();
  if (text == accessibleDescription())
    return;
  setAccessibleDescription(text);
  Q_EMIT statusTextChanged();
}

void MeshView::setCamera(const Camera& camera) {
  if (m_camera == camera)
    return;
  m_camera = camera;
  m_cameraFits = false;
  invalidate(Change::Ongoing);
}

void MeshView::resetCamera() {
  m_camera.resetAngles();
  fitCamera();
  invalidate(Change::Once);
}

void MeshView::fitCamera() {
  m_camera.fit(mesh(), size(), (size() - 2 * m_fitMargin).expandedTo(size() / 2));
  m_cameraFits = true;
}

void MeshView::setFitMargin(const QSize& margin) {
  if (m_fitMargin == margin)
    return;
  m_fitMargin = margin;
  if (!m_cameraFits)
    return;
  fitCamera();
  invalidate(Change::Once);
}

void MeshView::setPreview(const std::optional<Mesh>& preview) {
  if (!preview && !m_preview)
    return;
  m_preview = preview;
  invalidate(Change::Once);
}

void MeshView::setShading(EShading shading) {
  if (m_shading == shading)
    return;
  m_shading = shading;
  invalidate(Change::Once);
}

void MeshView::setRubberBand(const QRectF& rectangle) {
  m_rubberBand = rectangle;
  update();
}

void MeshView::setPivotShown(bool shown) {
  m_pivotShown = shown;
  update();
}

void MeshView::setDropHighlight(bool on) {
  if (m_dropHighlight == on)
    return;
  m_dropHighlight = on;
  update();
}

std::optional<Frame::Hit> MeshView::pick(const QPoint& position) const {
  if (mesh().isEmpty())
    return std::nullopt;
  const QPoint pixel = (QPointF(position) * devicePixelRatioF()).toPoint();
  if (isDrawn())
    return m_frames.frame().pick(pixel);
  return Renderer::find(request(1), QRect(pixel, QSize(1, 1))).pick(pixel);
}

TriangleSelection MeshView::trianglesIn(const QRectF& rectangle) const {
  const qreal ratio = devicePixelRatioF();
  const QRect pixels = QRectF(rectangle.topLeft() * ratio, rectangle.size() * ratio).toAlignedRect();
  if (mesh().isEmpty() || !isDrawn())
    return trianglesIn(pixels, m_camera, frameSize());
  return {mesh().triangles().size(), m_frames.frame().trianglesIn(pixels)};
}

MeshView::FrameSize MeshView::frameSize() const {
  return {deviceSize(), isDrawn() ? m_frames.shown().samples : 1};
}

TriangleSelection MeshView::trianglesIn(const QRect& pixels, const Camera& camera,
                                        const FrameSize& frame) const {
  if (mesh().isEmpty())
    return {};
  const FrameRequest request{shownMesh(), camera, frame.size, {}, frame.samples, {}};
  return {mesh().triangles().size(), Renderer::find(request, pixels).trianglesIn(pixels)};
}

QString MeshView::statusText() const {
  if (mesh().isEmpty())
    return {};
  const auto number = [](std::size_t count) { return QLocale().toString(qulonglong(count)); };
  QStringList parts;
  if (!m_measurements.isEmpty())
    parts += tr("Distance: %1").arg(m_measurements.text());
  if (!m_document.selection().isEmpty())
    parts += tr("Selected: %1").arg(number(m_document.selection().count()));
  parts += tr("Triangles: %1").arg(number(mesh().triangles().size()));
  parts += tr("Vertices: %1").arg(number(mesh().positions().size()));
  return parts.join(QStringLiteral("   "));
}

QSize MeshView::sizeHint() const { return {960, 640}; }

void MeshView::changeEvent(QEvent* event) {
  BaseView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange)
    invalidate(Change::Once);
}

// With the mouse the menu opens on release, after it is known that the press began no drag.
void MeshView::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (event->reason() == QContextMenuEvent::Keyboard)
    Q_EMIT menuRequested(mapToGlobal(rect().center()));
}

void MeshView::resizeEvent(QResizeEvent* event) {
  BaseView::resizeEvent(event);
  if (m_cameraFits)
    fitCamera();
  invalidate(m_settled ? Change::Ongoing : Change::Once);
}

// Changes that come quicker than frames with smooth edges are drawn go on, too.
void MeshView::invalidate(Change change) {
  m_settled = false;
  if (change == Change::Ongoing || m_frames.isDrawing())
    m_rest.start();
  else
    m_rest.stop();
  update();
}

QSize MeshView::deviceSize() const { return (QSizeF(size()) * devicePixelRatioF()).toSize(); }

FrameRequest MeshView::request(int samples) const {
  RenderStyle style = RenderStyle::forPalette(palette());
  style.shading = m_shading;
  return {shownMesh(), m_camera, deviceSize(), style, samples, m_document.selection()};
}

// The last frame shows each triangle where it is now.
bool MeshView::isDrawn() const {
  const FrameRequest& shown = m_frames.shown();
  return shown.mesh.isCopyOf(shownMesh()) && shown.camera == m_camera && shown.size == deviceSize();
}

void MeshView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  // At a high resolution the steps at the edges are too small to be seen.
  const bool quick = m_rest.isActive() || devicePixelRatioF() > 1.5;
  const bool current = mesh().isEmpty() || m_frames.draw(request(quick ? 1 : 2));
  if (mesh().isEmpty() || m_frames.frame().image().isNull()) {
    paintHint(painter);
  } else {
    paintFrame(painter);
    paintAnnotations(painter);
  }
  if (m_dropHighlight)
    paintDropHighlight(painter, *this, rect());
  if (current && !m_settled && !m_rest.isActive()) {
    m_settled = true;
    QMetaObject::invokeMethod(this, &MeshView::tellSettled, Qt::QueuedConnection);
  }
}

// A frame of another size stands in the middle, as large as what is seen in it will be.
void MeshView::paintFrame(QPainter& painter) const {
  const QImage& image = m_frames.frame().image();
  QRectF place(QPointF(), QSizeF(image.size()) / devicePixelRatioF());
  if (image.size() != deviceSize()) {
    paintBackground(painter);
    place.setSize(place.size() * (Camera::focalLength(size()) / Camera::focalLength(place.size())));
    place.moveCenter(QRectF(rect()).center());
  }
  painter.drawImage(place, image);
}

void MeshView::paintAnnotations(QPainter& painter) const {
  using namespace Vela::Graphics;
  // By the camera of the frame, which may be behind: what was measured keeps to the mesh that is seen.
  const AnnotationDevice device(painter, palette(), [this](const QVector3D& point) {
    return m_frames.shown().camera.project(point, size());
  });
  m_measurements.draw(device);
  if (m_pivotShown)
    PointObject(m_camera.target()).draw(device);
  if (m_rubberBand.isNull())
    return;
  RectangleObject band(m_rubberBand);
  band.setColor(palette().color(QPalette::Highlight));
  band.draw(device);
}

void MeshView::tellSettled() {
  if (m_settled)
    Q_EMIT settled();
}

void MeshView::paintBackground(QPainter& painter) const {
  const RenderStyle style = RenderStyle::forPalette(palette());
  QLinearGradient gradient(0, 0, 0, height());
  gradient.setColorAt(0, style.backgroundTop);
  gradient.setColorAt(1, style.backgroundBottom);
  painter.fillRect(rect(), gradient);
}

// Without the renderer: an empty workbench starts without its threads and buffers.
void MeshView::paintHint(QPainter& painter) const {
  paintBackground(painter);
  Workbench::paintHint(painter, *this, rect(),
                       {QStringLiteral("open_file"), tr("Open a mesh (Ctrl+O) or drop a file here"),
                        tr("OBJ, PLY, STL, OFF, glTF")});
}

} // namespace Workbench
