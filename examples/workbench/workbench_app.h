// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/views/tabbed_app.h>
#include <workbench/options.h>

#include <memory>

namespace Workbench {

class MainWindow;
class ScreenshotRun;
class SessionRun;

/// The workbench as a service of the kernel: it makes the window when it starts and takes it away when it
/// ends. Its root view controller is that of the mesh view, which owns the controller too and dies with the
/// window.
///
/// @code
/// kernel.registerService(std::make_shared<WorkbenchApp>(Options::parse(QApplication::arguments())));
/// @endcode
class WorkbenchApp : public Vela::UiBase::TabbedApp {
public:
  explicit WorkbenchApp(Options options);
  ~WorkbenchApp() override;

  Taren::Core::ERcmStatus Initialize() override;
  void Terminate() override;
  QString ServiceName() const override;
  bool Init() override;

  /// Null before the start and after the end.
  MainWindow* window() const noexcept { return m_window.get(); }
  /// What the program ends with: 1 when it was to save a picture or to do a session again, and did not.
  int status() const;

private:
  void showWindow();
  void showForUser();

  Options m_options;
  std::unique_ptr<MainWindow> m_window;
  std::unique_ptr<ScreenshotRun> m_screenshot;
  std::unique_ptr<SessionRun> m_session;
};

} // namespace Workbench
