// SPDX-License-Identifier: MIT
#pragma once

#include "test_folder.h"

#include <support/input.h>
#include <tqm_mesh_kernel/kernel.h>
#include <tqm_mesh_kernel/stepped_dispatcher.h>
#include <ui_base/commands/command_base.h>
#include <workbench/main_window.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/toolbars/mesh_tool_bars.h>
#include <workbench/workbench_app.h>

class QFileDialog;

namespace Workbench::Test {

/// The workbench as the program starts it, with settings and files of its own, driven through its windows.
class WorkbenchFixture : public TestFolder {
public:
  /// Starts it in a window of this size, and gives that the keyboard.
  explicit WorkbenchFixture(const QSize& size = {400, 300});
  ~WorkbenchFixture();
  Q_DISABLE_COPY_MOVE(WorkbenchFixture)

  MainWindow& window() { return *m_app->window(); }
  const MeshToolBars& bars() { return window().toolBars(); }
  MeshView& view() { return *window().view(); }
  MeshViewController& controller() { return *window().controller(); }
  void end() { m_kernel.stop(); }

  template <typename Command>
  Command* command() {
    return controller().findCommand<Command>();
  }

  bool isEnabled(const QString& id) { return controller().findCommand(id)->isEnabled(); }

  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  /// The mouse, on the mesh view.
  void click(Qt::MouseButton button, const QPoint& at, Qt::KeyboardModifiers modifiers = {}) {
    Vela::Test::clickAt(view(), at, button, modifiers);
  }
  /// Holds the button at the end.
  void pull(Qt::MouseButton button, const QPoint& from, const QPoint& to,
            Qt::KeyboardModifiers modifiers = {}) {
    QTest::mousePress(window().windowHandle(), button, modifiers, Vela::Test::inWindow(view(), from));
    Vela::Test::moveMouse(view(), (from + to) / 2);
    Vela::Test::moveMouse(view(), to);
  }
  void drag(Qt::MouseButton button, const QPoint& from, const QPoint& to,
            Qt::KeyboardModifiers modifiers = {}) {
    pull(button, from, to, modifiers);
    release(button, to, modifiers);
  }
  void release(Qt::MouseButton button, const QPoint& at, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseRelease(window().windowHandle(), button, modifiers, Vela::Test::inWindow(view(), at));
  }
  void turnWheel(QWidget& widget, const QPointF& at, int delta);
  /// The file dialog that is open, waited for.
  QFileDialog* fileDialog();
  /// Types a path into the file dialog and accepts it.
  bool chooseFile(const QString& path);
  /// On the mesh view unless told.
  void drop(const QStringList& files, QWidget* target = nullptr);

  /// Opens a file the short way and waits for the end.
  void open(const QString& file);
  /// Shows a mesh and waits until it is drawn.
  void show(const Mesh& mesh);

  /// What the notification over the view says; empty when there is none.
  QString notification();
  std::size_t triangles() { return view().mesh().triangles().size(); }

private:
  Taren::Core::Kernel m_kernel;
  std::shared_ptr<WorkbenchApp> m_app;
};

/// As long as it lives, work is done only when told.
class HeldWork {
public:
  void runMain() {
    while (dispatcher.step(Taren::Core::MainThreadQoS)) {
    }
  }
  void runAll() { dispatcher.runAll(); }

  Taren::Core::SteppedDispatcher dispatcher;

private:
  const Taren::Core::ScopedDispatcher m_installed{dispatcher};
};

/// How many pixels show something else than the background at their height, which the left edge shows.
int meshPixels(const QImage& image);

} // namespace Workbench::Test
