// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QWidget>

#include <memory>

namespace Vela::UiBase {

class BaseViewController;
class BaseViewPrivate;
class ViewResponder;

/// A screen area that shows a document or a page. It does no input handling of its own: it hands its mouse,
/// wheel, key, enter, leave and drag-and-drop events to its view controller, and lets QWidget have what the
/// controller declines. It also tells the controller of its life: load, appear, disappear, close, move,
/// resize.
///
/// A view owns its controller jointly with whoever else holds it; the controller only has a guarded pointer
/// back. A closed view deletes itself (Qt::WA_DeleteOnClose). A presented view fills its presenter's view, on
/// which it is installed as an event filter.
///
/// @code
/// auto* view = new BaseView;
/// view->setViewController(new PhotoController);   // the view owns it now
/// view->show();                                   // the controller's viewDidLoad(), viewWillAppear()
/// @endcode
class UI_BASE_EXPORT BaseView : public QWidget {
  Q_OBJECT

public:
  explicit BaseView(QWidget* parent = nullptr, Qt::WindowFlags flags = {});
  ~BaseView() override;

  /// Takes the controller into shared ownership, or joins its ownership when it is shared, and becomes its
  /// view. The controller before forgets this view. Null leaves the view without a controller.
  virtual void setViewController(BaseViewController* controller);
  /// The controller, or null.
  BaseViewController* getViewController() const;

protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

private:
  friend class ApplicationEventRelay;
  friend class BaseViewController;

  template <class Event>
  bool handOn(bool (ViewResponder::*handler)(Event*), Event* event);
  void dropViewController(const BaseViewController* controller);

  const std::unique_ptr<BaseViewPrivate> d;
};

} // namespace Vela::UiBase
