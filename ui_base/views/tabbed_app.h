// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/views/i_vc_app.h>

#include <memory>

namespace Vela::UiBase {

class TabbedAppPrivate;

/// An application that owns a root view controller. It keeps no list of tabs: a subclass provides the pages,
/// for instance as controllers that the root controller presents.
///
/// The application deletes its root controller last of all, after the destructors of its subclasses, and with
/// it a root view that has no parent. A view may own the controller too: a controller that has died with its
/// view is gone for the application as well, and one that still lives is deleted although the view, or
/// somebody else, holds it. References that are left then dangle, so whoever holds the root controller lets
/// go of it in time. Main thread only.
///
/// @code
/// class PhotoApp : public TabbedApp {
/// public:
///   ERcmStatus Initialize() override { return Init() ? RcmSuccess : RcmFailure; }
///   QString ServiceName() const override { return QStringLiteral("photos"); }
///   bool Init() override {
///     setRootViewController(new PhotoController(new BaseView));
///     getVC()->show();
///     return true;
///   }
/// };
/// kernel.registerService(std::make_shared<PhotoApp>());
/// @endcode
class UI_BASE_EXPORT TabbedApp : public IVCApp {
public:
  TabbedApp();
  ~TabbedApp() override;

  /// The root view controller; null at first, and when it has died.
  BaseViewController* getVC() const override;

  /// A hook to build the application. @return whether it succeeded; true.
  virtual bool Init();
  /// A hook to bring the application up to date. @return whether there was anything to do; false.
  virtual bool Update();
  /// A hook to go back to how the application started. Does nothing.
  virtual void Reset();

protected:
  /// Hands the application its root view controller, which it owns from now on. The one before is deleted;
  /// the same one again changes nothing, null leaves the application without one.
  void setRootViewController(BaseViewController* controller);

private:
  const std::unique_ptr<TabbedAppPrivate> d;
};

} // namespace Vela::UiBase
