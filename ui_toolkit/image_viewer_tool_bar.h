// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QWidget>

class QHBoxLayout;
class QToolButton;

namespace Vela::UiToolkit {

/// The toolbar of an image viewer: zoom in and out, original size, fit to view, previous and next image. It
/// only says what the user asks for; what shows the images acts on it and keeps the buttons enabled or not.
/// The tooltips name shortcut keys: whoever receives KeyReleased() acts on them.
///
/// Owned by its parent. It follows the palette of the styles.
///
/// @code
/// auto* bar = new Vela::UiToolkit::ImageViewerToolBar(viewer);
/// connect(bar, &ImageViewerToolBar::ZoomIn, viewer, &Viewer::zoomIn);
/// connect(bar, &ImageViewerToolBar::KeyReleased, viewer, &Viewer::handleKey);
/// bar->EnablePrevImageButton(false); // the first image is shown
/// @endcode
class UI_BASE_EXPORT ImageViewerToolBar : public QWidget {
  Q_OBJECT

public:
  /// With all buttons enabled.
  explicit ImageViewerToolBar(QWidget* parent = nullptr);
  ~ImageViewerToolBar() override;

  /// For the limit of zooming in.
  void EnableZoomInButton(bool enable);
  /// For the limit of zooming out.
  void EnableZoomOutButton(bool enable);
  /// For the first image.
  void EnablePrevImageButton(bool enable);
  /// For the last image.
  void EnableNextImageButton(bool enable);

  /// Whether the button takes clicks now: not while the toolbar itself is disabled.
  bool IsZoomInButtonEnabled() const;
  /// See IsZoomInButtonEnabled().
  bool IsZoomOutButtonEnabled() const;
  /// See IsZoomInButtonEnabled().
  bool IsPrevImageButtonEnabled() const;
  /// See IsZoomInButtonEnabled().
  bool IsNextImageButtonEnabled() const;

Q_SIGNALS:
  /// Show the whole image.
  void FitToView();
  /// Show a pixel of the image as one of the screen.
  void OriginalSize();
  /// Zoom in by a step.
  void ZoomIn();
  /// Zoom out by a step.
  void ZoomOut();
  /// Show the image before.
  void PrevImage();
  /// Show the image after.
  void NextImage();
  /// A key was released while the toolbar or one of its buttons had the focus.
  void KeyReleased(Qt::Key key);

protected:
  /// Emits KeyReleased() and nothing else.
  void keyReleaseEvent(QKeyEvent* event) override;

private Q_SLOTS:
  // Connected by their names.
  void on_zoom_in_button_clicked();
  void on_zoom_out_button_clicked();
  void on_original_size_button_clicked();
  void on_fit_to_view_button_clicked();
  void on_prev_button_clicked();
  void on_next_button_clicked();

private:
  QToolButton* addButton(QHBoxLayout& row, const QString& objectName, const QString& iconName);
  void retranslate();

  QToolButton* m_zoomIn = nullptr;
  QToolButton* m_zoomOut = nullptr;
  QToolButton* m_original = nullptr;
  QToolButton* m_fit = nullptr;
  QToolButton* m_previous = nullptr;
  QToolButton* m_next = nullptr;
};

} // namespace Vela::UiToolkit
