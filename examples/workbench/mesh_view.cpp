// SPDX-License-Identifier: MIT
#include "mesh_view.h"

#include <ui_base/core/language.h>
#include <vgsdevices/annotation_device.h>
#include <vgsobjects/point_object.h>
#include <vgsobjects/rectangle_object.h>
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
  connect(&m_rest, &QTimer::timeout, this, [this] { invalidate(Change::Once); });
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

std::optional<Renderer::Hit> MeshView::pick(const QPoint& position) {
  if (mesh().isEmpty())
    return std::nullopt;
  renderIfNeeded();
  return m_renderer.pick((QPointF(position) * devicePixelRatioF()).toPoint());
}

TriangleSelection MeshView::trianglesIn(const QRectF& rectangle) {
  if (mesh().isEmpty())
    return {};
  renderIfNeeded();
  const qreal ratio = devicePixelRatioF();
  const QRectF pixels(rectangle.topLeft() * ratio, rectangle.size() * ratio);
  return {mesh().triangles().size(), m_renderer.trianglesIn(pixels.toAlignedRect())};
}

MeshView::Frame MeshView::frame() {
  if (!mesh().isEmpty())
    renderIfNeeded();
  return {deviceSize(), m_samples};
}

TriangleSelection MeshView::trianglesIn(const QRect& pixels, const Camera& camera, const Frame& frame) const {
  if (mesh().isEmpty())
    return {};
  Renderer renderer;
  renderer.render(shownMesh(), camera, frame.size, RenderStyle::forPalette(palette()), frame.samples);
  return {mesh().triangles().size(), renderer.trianglesIn(pixels)};
}

QImage MeshView::picture() {
  renderMesh(2);
  return m_renderer.image();
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

void MeshView::invalidate(Change change) {
  m_outdated = true;
  m_settled = false;
  if (change == Change::Ongoing)
    m_rest.start();
  else
    m_rest.stop();
  update();
}

QSize MeshView::deviceSize() const { return (QSizeF(size()) * devicePixelRatioF()).toSize(); }

void MeshView::renderMesh(int oversampling) {
  m_style = RenderStyle::forPalette(palette());
  m_style.shading = m_shading;
  m_renderer.render(shownMesh(), m_camera, deviceSize(), m_style, oversampling, m_document.selection());
  m_samples = oversampling;
  m_outdated = false;
}

void MeshView::renderIfNeeded() {
  if (!m_outdated && m_renderer.image().size() == deviceSize())
    return;
  // At a high resolution the steps at the edges are too small to be seen.
  const bool quick = m_rest.isActive() || devicePixelRatioF() > 1.5;
  renderMesh(quick ? 1 : 2);
}

void MeshView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (mesh().isEmpty()) {
    paintHint(painter);
  } else {
    renderIfNeeded();
    painter.drawImage(QRectF(QPointF(), QSizeF(m_renderer.image().size()) / devicePixelRatioF()),
                      m_renderer.image());
    paintAnnotations(painter);
  }
  if (m_dropHighlight)
    paintDropHighlight(painter, *this, rect());
  if (!m_settled && !m_rest.isActive()) {
    m_settled = true;
    QMetaObject::invokeMethod(this, &MeshView::tellSettled, Qt::QueuedConnection);
  }
}

void MeshView::paintAnnotations(QPainter& painter) const {
  using namespace Vela::Graphics;
  const AnnotationDevice device(painter, palette(),
                                [this](const QVector3D& point) { return m_camera.project(point, size()); });
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

// Without the renderer: an empty workbench starts without its threads and buffers.
void MeshView::paintHint(QPainter& painter) const {
  const RenderStyle style = RenderStyle::forPalette(palette());
  QLinearGradient gradient(0, 0, 0, height());
  gradient.setColorAt(0, style.backgroundTop);
  gradient.setColorAt(1, style.backgroundBottom);
  painter.fillRect(rect(), gradient);
  Workbench::paintHint(painter, *this, rect(),
                       {QStringLiteral("open_file"), tr("Open a mesh (Ctrl+O) or drop a file here"),
                        tr("OBJ, PLY, STL, OFF, glTF")});
}

} // namespace Workbench
