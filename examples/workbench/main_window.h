// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>

#include <memory>

class QLabel;

namespace Vela::UiBase {
class CommandPalette;
class ShortcutScheme;
} // namespace Vela::UiBase

namespace Workbench {

class CommandMenus;
class MeshToolBars;
class MeshView;
class MeshViewController;
class PageStrip;
class PhotoView;
class PhotoViewController;
class WorkbenchPages;

/// The window of the workbench: the pages of the mesh and of the photographs, with a menu bar of their
/// commands, a strip of what is open once that is more than the mesh, and a status bar. Over the mesh there
/// are toolbars.
///
/// Needs the application manager to be set before it is shown.
class MainWindow : public QMainWindow {
  Q_OBJECT

public:
  explicit MainWindow(QWidget* parent = nullptr);
  ~MainWindow() override;

  MeshView* view() const noexcept { return m_view; }
  MeshViewController* controller() const noexcept { return m_controller; }
  PhotoView* photoView() const noexcept { return m_photoView; }
  MeshToolBars& toolBars() const noexcept { return *m_toolBars; }
  WorkbenchPages& pages() const noexcept { return *m_pages; }

protected:
  void closeEvent(QCloseEvent* event) override;

private:
  void makePages();
  void makeStrip();
  void makePalette();
  void makeShortcuts();
  void connectEvents();
  void connectCommands();
  void showPage();
  void showFileName();
  void applyPalette();

  MeshView* m_view;
  MeshViewController* m_controller; // owned by the view
  PhotoView* m_photoView;
  PhotoViewController* m_photos; // owned by its view
  WorkbenchPages* m_pages;
  PageStrip* m_strip = nullptr; // until a photograph is open
  MeshToolBars* m_toolBars;
  std::shared_ptr<CommandMenus> m_commands;
  QLabel* m_numbers;
  Vela::UiBase::CommandPalette* m_palette;
  Vela::UiBase::ShortcutScheme* m_shortcuts;
};

} // namespace Workbench
