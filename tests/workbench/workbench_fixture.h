// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_base.h>
#include <workbench/main_window.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>

#include <QTemporaryDir>

class QFileDialog;

namespace Workbench::Test {

/// The main window as the program makes it, with settings and files of its own, driven through its windows.
class WorkbenchFixture {
public:
  WorkbenchFixture();
  ~WorkbenchFixture();
  Q_DISABLE_COPY_MOVE(WorkbenchFixture)

  /// Shows the window and gives it the keyboard. @return false when that fails.
  bool start();

  MainWindow& window() { return *m_window; }
  MeshView& view() { return *m_window->view(); }
  MeshViewController& controller() { return *m_window->controller(); }
  void closeWindow() { m_window.reset(); }

  /// Writes a mesh file. @return its path.
  QString write(const QString& name, const QByteArray& content);
  QString path(const QString& name) const { return m_folder.filePath(name); }

  template <typename Command>
  Command* command() {
    return dynamic_cast<Command*>(controller().findCommand(Command::className()));
  }

  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  /// The file dialog that is open, waited for.
  QFileDialog* fileDialog();
  /// Types a path into the file dialog and accepts it.
  bool chooseFile(const QString& path);
  void drop(const QStringList& files);

  /// What the notification over the view says; empty when there is none.
  QString notification() const;
  std::size_t triangles() const { return m_window->view()->mesh().triangles().size(); }

private:
  QTemporaryDir m_folder;
  std::unique_ptr<MainWindow> m_window;
};

/// How many pixels show something else than the background at their height, which the left edge shows.
int meshPixels(const QImage& image);

} // namespace Workbench::Test
