// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/views/command_app.h>

namespace Vela::UiBase {

/// An application that is driven by the commands of one view controller. It owns nothing; how long the
/// controller lives is for the subclass to say, most often as long as its view.
///
/// @code
/// class ViewerApp : public VCCommandApp {
/// public:
///   QString ServiceName() const override { return QStringLiteral("viewer"); }
///   QList<CommandBase*> commandsFor(CmdsViewController* controller) override;
///   CmdsViewController* commandViewController() const override {
///     return dynamic_cast<CmdsViewController*>(m_controller.data());
///   }
///
/// private:
///   QPointer<BaseViewController> m_controller;
/// };
/// @endcode
class UI_BASE_EXPORT VCCommandApp : public CommandApp {
public:
  VCCommandApp();
  ~VCCommandApp() override;

  /// The controller whose commands drive the application; null when there is none.
  virtual CmdsViewController* commandViewController() const = 0;
};

} // namespace Vela::UiBase
