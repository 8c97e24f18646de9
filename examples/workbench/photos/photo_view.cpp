// SPDX-License-Identifier: MIT
#include "photo_view.h"

#include <ui_base/core/language.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_toolkit/image_viewer_tool_bar.h>
#include <vlk_common_res/styles.h>
#include <workbench/photos/photo_footer.h>
#include <workbench/view_hint.h>

#include <QContextMenuEvent>
#include <QFileInfo>
#include <QLocale>
#include <QPainter>

#include <cmath>

namespace Workbench {

using Vela::Resource::Styles;

namespace {

constexpr int ProgressHeight = 3; // px

// Without a tint, which would change how the colours of the photograph are seen.
QColor backdrop(const QPalette& palette) {
  const bool dark = Styles::suitablePalette(palette) == Vela::Resource::Dark;
  return dark ? QColor(0x1a, 0x1a, 0x1a) : QColor(0xd6, 0xd6, 0xd6);
}

} // namespace

PhotoView::PhotoView(QWidget* parent) : BaseView(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(160, 120);
  connect(&m_document, &PhotoDocument::photoChanged, this, [this] {
    PhotoViewport viewport = m_viewport;
    viewport.setPhoto(m_document.photo().size());
    setViewport(viewport);
    invalidate();
  });
  connect(&m_document, &PhotoDocument::changed, this, [this] {
    updateTexts();
    invalidate();
  });
  Vela::UiBase::keepTranslated(this, [this] {
    setAccessibleName(tr("Photograph view"));
    updateTexts();
    update();
  });
}

void PhotoView::makeFooter() {
  m_footer = new PhotoFooter(this);
  Vela::UiBase::ToolBar::AddToFocusCycle(toolBar());
  updateTexts();
  updateCanvas();
  m_footer->show();
  Q_EMIT toolBarMade();
}

Vela::UiToolkit::ImageViewerToolBar* PhotoView::toolBar() const {
  return m_footer ? &m_footer->toolBar() : nullptr;
}

void PhotoView::setViewport(const PhotoViewport& viewport) {
  if (m_viewport == viewport)
    return;
  m_viewport = viewport;
  updateTexts();
  invalidate();
  Q_EMIT viewportChanged();
}

void PhotoView::setDropHighlight(bool on) {
  if (std::exchange(m_dropHighlight, on) != on)
    update();
}

QString PhotoView::nameText() const { return m_footer ? m_footer->name() : QString(); }

QString PhotoView::figuresText() const { return m_footer ? m_footer->figures() : QString(); }

QSize PhotoView::sizeHint() const { return {960, 640}; }

void PhotoView::updateTexts() {
  const QString separator = QStringLiteral("   ");
  QString name;
  if (m_document.count() > 0) {
    const QString file = QFileInfo(m_document.fileName()).fileName();
    name = m_document.isLoading()
               ? tr("Opening %1… %2 %").arg(file, QString::number(int(m_document.progress() * 100)))
               : file;
    name += separator + tr("%1 of %2").arg(m_document.position() + 1).arg(m_document.count());
  }
  QString figures;
  if (const QSize size = m_document.photo().size(); !size.isEmpty()) {
    figures = tr("%1 × %2 px").arg(size.width()).arg(size.height()) + separator +
              tr("%1 %", "zoom").arg(std::lround(m_viewport.zoom() * 100));
  }
  if (m_footer)
    m_footer->setTexts(name, figures);
  setAccessibleDescription(name.isEmpty() ? QString() : name + separator + figures);
}

void PhotoView::changeEvent(QEvent* event) {
  BaseView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange)
    invalidate();
}

// With the mouse the menu opens on release, after it is known that the press began no drag.
void PhotoView::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (event->reason() == QContextMenuEvent::Keyboard)
    Q_EMIT menuRequested(mapToGlobal(canvasRect().center()));
}

void PhotoView::resizeEvent(QResizeEvent* event) {
  BaseView::resizeEvent(event);
  updateCanvas();
}

void PhotoView::showEvent(QShowEvent* event) {
  if (!m_footer)
    makeFooter();
  BaseView::showEvent(event);
}

QRect PhotoView::canvasRect() const {
  return {0, 0, width(), m_footer ? std::max(0, m_footer->y()) : height()};
}

void PhotoView::updateCanvas() {
  if (!m_footer)
    return;
  const int footerHeight = m_footer->sizeHint().height();
  m_footer->setGeometry(0, height() - footerHeight, width(), footerHeight);
  PhotoViewport viewport = m_viewport;
  viewport.setCanvas(canvasRect().size(), devicePixelRatioF());
  setViewport(viewport);
}

void PhotoView::invalidate() {
  m_settled = false;
  update();
}

void PhotoView::paintEvent(QPaintEvent*) {
  if (m_viewport.devicePixelRatio() != devicePixelRatioF())
    updateCanvas(); // on another screen
  QPainter painter(this);
  const QRect canvas = canvasRect();
  painter.fillRect(canvas, backdrop(palette()));
  painter.setClipRect(canvas);
  if (!m_document.photo().isNull())
    m_document.photo().paint(painter, m_viewport);
  else if (!m_document.isLoading())
    paintHint(painter, *this, canvas,
              {QStringLiteral("open_file"), tr("Open photographs (Ctrl+O) or drop them here"),
               tr("JPEG, PNG and others")});
  if (m_document.isLoading())
    paintProgress(painter);
  if (m_dropHighlight)
    paintDropHighlight(painter, *this, canvas);
  if (!m_settled && !m_document.isLoading()) {
    m_settled = true;
    QMetaObject::invokeMethod(this, &PhotoView::tellSettled, Qt::QueuedConnection);
  }
}

void PhotoView::paintProgress(QPainter& painter) const {
  const QRect canvas = canvasRect();
  const int done = int(canvas.width() * m_document.progress());
  painter.fillRect(canvas.left(), canvas.bottom() + 1 - ProgressHeight, done, ProgressHeight,
                   palette().color(QPalette::Highlight));
}

void PhotoView::tellSettled() {
  if (m_settled)
    Q_EMIT settled();
}

} // namespace Workbench
