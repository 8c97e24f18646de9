// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/views/i_app.h>

#include <QList>

namespace Vela::UiBase {

class CmdsViewController;
class CommandBase;

/// An application that is driven by commands: what it can do is what its commands do. Starting it succeeds at
/// once and ending it does nothing; a subclass that has more to do overrides both.
///
/// @code
/// class ConverterApp : public CommandApp {
/// public:
///   QString ServiceName() const override { return QStringLiteral("converter"); }
///   QList<CommandBase*> commandsFor(CmdsViewController* controller) override {
///     return {new OpenCommand(controller), new ConvertCommand(controller)};
///   }
/// };
/// // The application manager, which gives views their commands, asks the application for them.
/// class ConverterManager : public Services::IAppManager {
/// public:
///   explicit ConverterManager(ConverterApp& app) : m_app(app) {}
///   QList<CommandBase*> commandsFor(CmdsViewController* controller) override {
///     return m_app.commandsFor(controller);
///   }
///
/// private:
///   ConverterApp& m_app;
/// };
/// @endcode
class UI_BASE_EXPORT CommandApp : public IApp {
public:
  ~CommandApp() override;

  /// Makes the commands of a controller (null: those that need none), in the order in which they shall stand.
  /// The caller adopts them.
  virtual QList<CommandBase*> commandsFor(CmdsViewController* controller) = 0;

protected:
  CommandApp();

  Taren::Core::ERcmStatus Initialize() override;
  void Terminate() override;
};

} // namespace Vela::UiBase
