// SPDX-License-Identifier: MIT
#pragma once

#include <tqm_mesh_kernel/kernel.h>
#include <ui_base/commands/command_base.h>
#include <workbench/main_window.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/toolbars/mesh_tool_bars.h>
#include <workbench/workbench_app.h>

#include <QTemporaryDir>

class QFileDialog;

namespace Workbench::Test {

/// The workbench as the program starts it, with settings and files of its own, driven through its windows.
class WorkbenchFixture {
public:
  WorkbenchFixture();
  ~WorkbenchFixture();
  Q_DISABLE_COPY_MOVE(WorkbenchFixture)

  /// Starts it and gives its window the keyboard. @return false when that fails.
  bool start();

  WorkbenchApp& app() { return *m_app; }
  MainWindow& window() { return *m_app->window(); }
  MeshToolBars& bars() { return window().toolBars(); }
  MeshView& view() { return *window().view(); }
  MeshViewController& controller() { return *window().controller(); }
  void end() { m_kernel.stop(); }

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
  /// On the mesh view unless told.
  void drop(const QStringList& files, QWidget* target = nullptr);

  /// What the notification over the view says; empty when there is none.
  QString notification();
  std::size_t triangles() { return view().mesh().triangles().size(); }

private:
  QTemporaryDir m_folder;
  Taren::Core::Kernel m_kernel;
  std::shared_ptr<WorkbenchApp> m_app;
};

/// How many pixels show something else than the background at their height, which the left edge shows.
int meshPixels(const QImage& image);

} // namespace Workbench::Test
