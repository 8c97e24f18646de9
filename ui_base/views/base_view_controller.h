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
class NotificationBar;

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
  /// The view is shown, or no longer covered by a presented one. Never called twice in a row, nor while the
  /// view is covered.
  virtual void viewWillAppear();
  /// The view is hidden, or covered by a presented one. Never called twice in a row.
  virtual void viewWillDisappear();
  /// Whether the view may close; true. A subclass that answers false, before it calls the base, keeps it
  /// open. A view in a window that closes, and a view presented over one that closes, are asked too; when
  /// another one refuses after this one agreed, viewDidLoad() is called again.
  virtual bool viewWillClose();
  /// The view has another size.
  virtual void viewDidResize(QResizeEvent* event);
  /// The view has another place.
  virtual void viewDidMove(QMoveEvent* event);
  /// Shows another controller's view in front of this one's, as large as it, unless the delegate presents it
  /// its own way. The view presented becomes a child of this controller's view and covers it: no input,
  /// shortcut or focus reaches what is behind. A view that is presented already comes to the front, elsewhere
  /// its presentation ends. @p direction is only kept.
  /// @return whether the view is presented: false for null, for this controller itself, when one of them has
  /// no view, when the other's view holds this one's or is closing, and when a callback dismissed it at once.
  virtual bool presentViewController(BaseViewController* controller, ETransitionDirection direction);
  /// Ends the presentation of this controller and closes its view, unless the delegate dismisses it its own
  /// way. The presenter hears viewWillAppear() first, unless another view still covers its view. When the
  /// view refuses to close all is as before, and the presenter hears viewWillDisappear().
  /// @return false when the view stays: it refused, it is being asked already whether it may close, or a
  /// callback presented it anew.
  virtual bool dismissViewController();

  /// The view; null before it is set and after its death.
  BaseView* getView() const;
  /// Whether viewDidLoad() has run.
  bool isLoaded() const;
  /// The controller of the view over which this one's was presented, or null.
  BaseViewController* presenter() const;
  /// The direction given when presented; NoTransition when not presented.
  ETransitionDirection transitionDirection() const;

  /// Shows the view.
  void show();
  /// Hides the view.
  void hide();
  /// Closes the view. @return whether it closed.
  bool close();

  /// Shows a message over the view.
  /// @param durationMs how long, in milliseconds; 0 or less until it is closed or replaced.
  /// @param closable whether the user gets a button to close it.
  /// @param receiver,member what an action button calls, as SLOT() or SIGNAL(); null for no button.
  void showNotification(const QString& message, ENotificationFadeOption fade, int durationMs,
                        bool closable = false, QObject* receiver = nullptr, const char* member = nullptr);
  /// Shows a widget, which the notification bar owns from now on. Without a view it is deleted.
  void showNotification(QWidget* content, ENotificationFadeOption fade, int durationMs, bool closable = false,
                        QObject* receiver = nullptr, const char* member = nullptr);
  /// A message of some severity, for the time that such a message needs.
  void showNotification(const QString& message, ENotificationSeverity severity);
  /// Takes back the message that is shown.
  void hideNotification();
  /// Whether a message is shown.
  bool isNotificationShowing() const;

protected:
  /// The view died, or got another controller, while it was loaded and without having been closed. There is
  /// no view any more, and of one that died no viewWillDisappear(). Overriders undo what viewDidLoad() did
  /// and call the base.
  virtual void viewWasLost();

private:
  friend class BaseView;
  friend class Presentation;

  enum class Told : signed char { Nothing, Appeared, Disappeared };

  /// The view is another one now, or none, and not yet anybody else's; or it was told that it appears or
  /// disappears.
  virtual void viewChanged(bool inReach);
  /// The view will not hear of the release of a button that may be held: the focus or the activation of its
  /// window goes elsewhere, a dialog blocks it, or it is disabled. A view that is hidden or closes
  /// disappears.
  virtual void mouseWasLost();

  bool isInReach() const { return m_told != Told::Disappeared; }
  void reachChanged();
  void takeView(BaseView* view);
  void forgetView(BaseView* view);
  void tellIfViewIsLost();
  void leaveShutdown();
  NotificationBar* initializeNotificationBar();

  const std::unique_ptr<BaseViewControllerPrivate> d;
  Told m_told = Told::Nothing; // last of a view, by the presentation that this is in
};

} // namespace Vela::UiBase
