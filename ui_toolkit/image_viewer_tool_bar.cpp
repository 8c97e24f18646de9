// SPDX-License-Identifier: MIT
#include "image_viewer_tool_bar.h"

#include "toolkit_look.h"

#include <ui_base/core/language.h>
#include <vlk_common_res/icons.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QTextDocumentFragment>
#include <QToolButton>

namespace Vela::UiToolkit {

namespace {

constexpr int ICON_SIZE = 24; // px

void describe(QToolButton& button, const QString& name, const QString& toolTip) {
  button.setAccessibleName(name);
  button.setToolTip(toolTip);
  // Without one, screen readers would read the tags of the tooltip aloud.
  button.setAccessibleDescription(QTextDocumentFragment::fromHtml(toolTip).toPlainText());
}

} // namespace

ImageViewerToolBar::ImageViewerToolBar(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("ImageViewerToolBar"));
  auto* const grid = new QGridLayout(this);
  grid->setObjectName(QStringLiteral("gridLayout"));
  grid->setContentsMargins(4, 4, 4, 4);
  auto* const row = new QHBoxLayout;
  row->setObjectName(QStringLiteral("horizontalLayout"));
  row->setSpacing(4);
  grid->addLayout(row, 0, 0);

  m_zoomIn = addButton(*row, QStringLiteral("zoom_in_button"), QStringLiteral("zoom_in"));
  m_zoomOut = addButton(*row, QStringLiteral("zoom_out_button"), QStringLiteral("zoom_out"));
  m_original = addButton(*row, QStringLiteral("original_size_button"), QStringLiteral("original_size"));
  m_fit = addButton(*row, QStringLiteral("fit_to_view_button"), QStringLiteral("fit_to_view"));
  m_previous = addButton(*row, QStringLiteral("prev_button"), QStringLiteral("previous"));
  m_next = addButton(*row, QStringLiteral("next_button"), QStringLiteral("next"));
  UiBase::keepTranslated(this, [this] { retranslate(); });
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  QMetaObject::connectSlotsByName(this);
  applyToolkitLook(*this);
}

ImageViewerToolBar::~ImageViewerToolBar() = default;

void ImageViewerToolBar::retranslate() {
  setWindowTitle(tr("Image Viewer Tool Bar"));
  setAccessibleName(windowTitle());
  describe(*m_zoomIn, tr("Zoom in"), tr("<html><head/><body><p>Zoom in<br />Shortcut: +</p></body></html>"));
  describe(*m_zoomOut, tr("Zoom Out"),
           tr("<html><head/><body><p>Zoom Out<br />Shortcut: -</p></body></html>"));
  describe(*m_original, tr("Show image in its original size"),
           tr("<html><head/><body><p>Show image in its original size<br />Shortcut: O</p></body></html>"));
  describe(*m_fit, tr("Fit in the image"),
           tr("<html><head/><body><p>Fit in the image<br/>Shortcut: F</p></body></html>"));
  describe(*m_previous, tr("Previous image"),
           tr("<html><head/><body><p>Previous image<br/>Shortcut: &lt;</p></body></html>"));
  describe(*m_next, tr("Next image"),
           tr("<html><head/><body><p>Next image<br/>Shortcut: &gt;</p></body></html>"));
}

QToolButton* ImageViewerToolBar::addButton(QHBoxLayout& row, const QString& objectName,
                                           const QString& iconName) {
  auto* const button = new QToolButton(this);
  button->setObjectName(objectName);
  button->setIcon(Resource::Icons::icon(iconName));
  button->setIconSize({ICON_SIZE, ICON_SIZE});
  row.addWidget(button);
  return button;
}

void ImageViewerToolBar::EnableZoomInButton(bool enable) { m_zoomIn->setEnabled(enable); }

void ImageViewerToolBar::EnableZoomOutButton(bool enable) { m_zoomOut->setEnabled(enable); }

void ImageViewerToolBar::EnablePrevImageButton(bool enable) { m_previous->setEnabled(enable); }

void ImageViewerToolBar::EnableNextImageButton(bool enable) { m_next->setEnabled(enable); }

bool ImageViewerToolBar::IsZoomInButtonEnabled() const { return m_zoomIn->isEnabled(); }

bool ImageViewerToolBar::IsZoomOutButtonEnabled() const { return m_zoomOut->isEnabled(); }

bool ImageViewerToolBar::IsPrevImageButtonEnabled() const { return m_previous->isEnabled(); }

bool ImageViewerToolBar::IsNextImageButtonEnabled() const { return m_next->isEnabled(); }

void ImageViewerToolBar::keyReleaseEvent(QKeyEvent* event) {
  Q_EMIT KeyReleased(static_cast<Qt::Key>(event->key()));
}

void ImageViewerToolBar::on_zoom_in_button_clicked() { Q_EMIT ZoomIn(); }

void ImageViewerToolBar::on_zoom_out_button_clicked() { Q_EMIT ZoomOut(); }

void ImageViewerToolBar::on_original_size_button_clicked() { Q_EMIT OriginalSize(); }

void ImageViewerToolBar::on_fit_to_view_button_clicked() { Q_EMIT FitToView(); }

void ImageViewerToolBar::on_prev_button_clicked() { Q_EMIT PrevImage(); }

void ImageViewerToolBar::on_next_button_clicked() { Q_EMIT NextImage(); }

} // namespace Vela::UiToolkit
