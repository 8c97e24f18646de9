// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>

#include <memory>

class QLabel;
class QToolBar;

namespace Vela::UiBase {
class CmdMgrProtocol;
}

namespace Workbench {

class MeshView;
class MeshViewController;

/// The window of the workbench: a mesh view with a menu bar and a tool bar of its commands, and a status bar.
///
/// Needs the application manager to be set before it is shown.
class MainWindow : public QMainWindow {
  Q_OBJECT

public:
  explicit MainWindow(QWidget* parent = nullptr);
  ~MainWindow() override;

  MeshView* view() const noexcept { return m_view; }
  MeshViewController* controller() const noexcept { return m_controller; }

protected:
  void closeEvent(QCloseEvent* event) override;

private:
  void connectEvents();
  void connectCommands();
  void showFileName();
  void applyPalette();

  MeshView* m_view;
  MeshViewController* m_controller; // owned by the view
  QToolBar* m_bar;
  std::shared_ptr<Vela::UiBase::CmdMgrProtocol> m_commands;
  QLabel* m_numbers;
};

} // namespace Workbench
