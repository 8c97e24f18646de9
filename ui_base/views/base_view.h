// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>
#include <ui_base/views/presented_view.h>

#include <QList>
#include <QWidget>

#include <memory>

namespace Vela::UiBase {

class BaseViewController;
class BaseViewPrivate;
class ClosingView;
class Presentation;
class ViewResponder;

/// A screen area that shows a document or a page. It does no input handling of its own: it hands its mouse,
/// wheel, key, enter, leave and drag-and-drop events to its view controller, and lets QWidget have what the
/// controller declines. It also tells the controller of its life: load, appear, disappear, close, move,
/// resize.
///
/// A view owns its controller jointly with whoever else holds it; the controller only has a guarded pointer
/// back. A closed view deletes itself (Qt::WA_DeleteOnClose). A presented view fills its presenter's view, on
/// which it is installed as an event filter, and covers it: see presentation().
///
/// Tab and a click into it give it the focus; a click on a toolbar in it does not. It takes the focus when it
/// is shown, or gives it to that of its children which had it before; a window that is minimised and restored
/// keeps its focus.
///
/// Main thread only. The controller may delete the view in every handler of input and in viewWillClose().
/// While a view is shown, hidden, moved or resized, Qt still works with it after the handler: there it is
/// closed, or deleted with deleteLater().
///
/// @code
/// auto* view = new BaseView;
/// view->setViewController(new PhotoController);   // the view owns it now
/// view->show();                                   // the controller's viewDidLoad(), viewWillAppear()
/// @endcode
class UI_BASE_EXPORT BaseView : public QWidget {
  Q_OBJECT

public:
  /// Deletes itself when it is closed, unless WA_DeleteOnClose is taken away.
  explicit BaseView(QWidget* parent = nullptr, Qt::WindowFlags flags = {});
  ~BaseView() override;

  /// Takes the controller into shared ownership, or joins its ownership when it is shared, and becomes its
  /// view. The controller before forgets this view. Null leaves the view without a controller; a presented
  /// view is then hidden and presented no more.
  virtual void setViewController(BaseViewController* controller);
  /// The controller, or null.
  BaseViewController* getViewController() const;

  /// The presentation that this view belongs to, from the base view to the front: what is presented over a
  /// view, and over that. One view alone when nothing is presented.
  QList<PresentedView> presentation() const;

protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  /// Lets input pass by a covered view, to what lies behind the base view.
  bool event(QEvent* event) override;
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
  friend class ClosingView;
  friend class Presentation;

  template <class Event>
  bool handOn(bool (ViewResponder::*handler)(Event*), Event* event);
  void deleteSafely();
  void dropViewController(const BaseViewController* controller);
  std::shared_ptr<BaseViewController> ownController() const;
  bool handle(QEvent* event);
  bool loseMouse(const QEvent& event);
  void takeFocusOfPress();
  void passCoveredFocusOn(const QFocusEvent& event);
  void loadController();

  const std::unique_ptr<BaseViewPrivate> d;
};

} // namespace Vela::UiBase
