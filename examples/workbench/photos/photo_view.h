// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/views/base_view.h>
#include <workbench/photos/photo_document.h>
#include <workbench/photos/photo_viewport.h>

namespace Vela::UiToolkit {
class ImageViewerToolBar;
}

namespace Workbench {

class PhotoFooter;

/// Shows the current photograph of a document, or while there is none how to open some; below it the toolbar
/// and a line that tells its name, its place in the row, its size and the zoom.
///
/// Draws in device pixels. Positions are in logical pixels; the photograph has the part of the view above
/// the footer, whose corner is that of the view.
///
/// @code
/// auto* view = new PhotoView(window);
/// new PhotoViewController(view);
/// view->document().open(files);
/// @endcode
class PhotoView : public Vela::UiBase::BaseView {
  Q_OBJECT

public:
  explicit PhotoView(QWidget* parent = nullptr);

  PhotoDocument& document() noexcept { return m_document; }
  const PhotoDocument& document() const noexcept { return m_document; }
  /// Made when the view is first shown; null before.
  Vela::UiToolkit::ImageViewerToolBar* toolBar() const;

  /// Which part of the photograph is seen. Another photograph is shown as a whole.
  const PhotoViewport& viewport() const noexcept { return m_viewport; }
  void setViewport(const PhotoViewport& viewport);

  /// Marks the view as the place where what is being dragged can be dropped.
  void setDropHighlight(bool on);
  /// What the line below the photograph says.
  QString nameText() const;
  QString figuresText() const;
  /// Whether what the document shall show was painted.
  bool isSettled() const noexcept { return m_settled; }

  QSize sizeHint() const override;

Q_SIGNALS:
  /// toolBar() is there.
  void toolBarMade();
  /// The viewport is another.
  void viewportChanged();
  /// The user asks for the menu of the view, with the keyboard. @p position is on the screen.
  void menuRequested(const QPoint& position);
  /// The view was painted as it will stay until something changes.
  void settled();

protected:
  void changeEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

private:
  void makeFooter();
  QRect canvasRect() const;
  void updateCanvas();
  void updateTexts();
  void invalidate();
  void paintProgress(QPainter& painter) const;
  void tellSettled();

  PhotoDocument m_document;
  PhotoViewport m_viewport;
  PhotoFooter* m_footer = nullptr; // until it is shown
  bool m_dropHighlight = false;
  bool m_settled = false;
};

} // namespace Workbench
