// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/notification_types.h>
#include <ui_base/core/present_view_protocol.h>
#include <ui_base/core/shared_object.h>
#include <ui_base/ui_base_export.h>
#include <ui_base/views/view_responder.h>
#include <vlk_app_service/shutdown_protocol.h>

#include <QObject>

#include <memory>

class QMoveEvent;
class QResizeEvent;
class QWidget;

namespace Vela::UiBase {

class BaseView;
class BaseViewController;
class BaseViewControllerPrivate;

} // namespace Vela::UiBase

extern template class UI_BASE_EXPORT Taren::Objects::SharedObject<Vela::UiBase::BaseViewController>;

namespace Vela::UiBase {

/// Owns the behaviour of one view: answers its input, hears its life, shows notifications over it, and
/// presents the views of other controllers on top of it.
///
/// A shared object. Handing it to a view, in the constructor or with BaseView::setViewController(), makes the
/// view an owner; it dies with its view unless somebody else holds it. Deleting it by hand is allowed and
/// takes a view without a parent along. While its view is loaded the controller is a shutdown delegate of the
/// application service. Main thread only.
///
/// @code
/// class PhotoController : public BaseViewController {
///   Q_OBJECT
/// public:
///   using BaseViewController::BaseViewController;
///   bool mouseDoubleClick(QMouseEvent*) override { return toggleFullSize(); }
///   bool viewWillClose() override { return saveChanges() && BaseViewController::viewWillClose(); }
/// };
/// auto* view = new BaseView;
/// new PhotoController(view);         // owned by the view
/// view->show();
/// @endcode
class UI_BASE_EXPORT BaseViewController : public QObject,
                                          public ViewResponder,
                                          public Services::ShutdownProtocol,
                                          public Taren::Core::Delegator<PresentViewProtocol>,
                                          public virtual Taren::Objects::SharedObject<BaseViewController> {
  Q_OBJECT

public:
  BaseViewController();
  /// Attaches the controller to the view, which becomes its owner.
  explicit BaseViewController(BaseView* view);
  ~BaseViewController() override;

  /// Attaches the controller to a view; null detaches it, which ends a controller that only its view held.
  virtual void setView(BaseView* view);
  /// The view is shown for the first time. Overriders call the base.
  virtual void viewDidLoad();
  virtual void viewWillAppear();
  virtual void viewWillDisappear();
  /// Whether the view may close; true. A subclass that answers false, before it calls the base, keeps it
  /// open.
  virtual bool viewWillClose();
  virtual void viewDidResize(QResizeEvent* event);
  virtual void viewDidMove(QMoveEvent* event);
  /// Shows another controller's view on top of this one's, as large as it, unless the delegate presents it
  /// its own way. The view presented becomes a child of this controller's view. @p direction is only kept.
  /// @return false for null, for this controller itself, and when one of them has no view.
  virtual bool presentViewController(BaseViewController* controller, ETransitionDirection direction);
  /// Ends the presentation of this controller and closes its view, unless the delegate dismisses it its own
  /// way.
  /// @return true.
  virtual bool dismissViewController();

  BaseView* getView() const;
  bool isLoaded() const;
  /// The controller that presented this one, or null.
  BaseViewController* presenter() const;
  /// The direction given when presented; NoTransition when not presented.
  ETransitionDirection transitionDirection() const;

  void show();
  void hide();
  /// Closes the view. @return whether it closed.
  bool close();

  /// Shows a message over the view.
  /// @param durationMs how long, in milliseconds; 0 or less until it is closed or replaced.
  /// @param closable whether the user gets a button to close it.
  /// @param receiver,member what an action button calls, as SLOT() or SIGNAL(); null for no button.
  void showNotification(const QString& message, ENotificationFadeOption fade, int durationMs, bool closable,
                        QObject* receiver, const char* member);
  /// @overload Shows a widget, which the notification bar owns from now on.
  void showNotification(QWidget* content, ENotificationFadeOption fade, int durationMs, bool closable,
                        QObject* receiver, const char* member);
  /// @overload A message of some severity, for the time that such a message needs.
  void showNotification(const QString& message, ENotificationSeverity severity);
  void hideNotification();
  bool isNotificationShowing() const;

protected:
  /// The view died, or got another controller, while it was loaded and without having been closed. Overriders
  /// undo what viewDidLoad() did and call the base.
  virtual void viewWasLost();

private:
  friend class BaseView;

  void takeView(BaseView* view);
  void letGoOfView(BaseView* view);
  void leaveShutdown();
  void endPresentation();
  bool initializeNotificationBar();
  void dropNotifications();

  const std::unique_ptr<BaseViewControllerPrivate> d;
};

} // namespace Vela::UiBase
