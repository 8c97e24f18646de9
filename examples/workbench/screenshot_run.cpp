// SPDX-License-Identifier: MIT
#include "screenshot_run.h"

#include <tqm_mesh_kernel/dispatch.h>
#include <workbench/console.h>
#include <workbench/main_window.h>
#include <workbench/mesh_loader.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/pages/workbench_pages.h>
#include <workbench/photos/photo_loader.h>
#include <workbench/photos/photo_view.h>

#include <QCoreApplication>
#include <QImageWriter>
#include <QPixmap>
#include <QPointer>
#include <QTimer>

#include <utility>

namespace Workbench {

ScreenshotRun::ScreenshotRun(MainWindow& window, QString image)
    : m_window(window), m_image(std::move(image)) {
  connect(m_window.view(), &MeshView::settled, this, &ScreenshotRun::saveWhenSettled);
  connect(m_window.photoView(), &PhotoView::settled, this, &ScreenshotRun::saveWhenSettled);
  connect(&m_window.photoView()->document(), &PhotoDocument::failed, this, [this] { m_allOpened = false; });
  connect(&m_window.controller()->events(), &MeshViewEvents::openFinished, this,
          &ScreenshotRun::openingFinished);
}

void ScreenshotRun::start(const QStringList& files) {
  const auto isMesh = [](const QString& file) { return isMeshFileName(file) || !isPhotoFileName(file); };
  m_opening = std::any_of(files.cbegin(), files.cend(), isMesh);
  m_window.controller()->openFiles(files);
  saveWhenSettled();
}

void ScreenshotRun::openingFinished(bool allOpened) {
  m_opening = false;
  if (allOpened)
    m_window.controller()->hideNotification(); // it would have gone before anybody looks closely
  else
    m_allOpened = false;
  saveWhenSettled();
}

bool ScreenshotRun::isSettled() const {
  return m_window.pages().current() == MeshPage ? m_window.view()->isSettled()
                                                : m_window.photoView()->isSettled();
}

void ScreenshotRun::saveWhenSettled() {
  if (m_opening || m_saved || !isSettled())
    return;
  m_saved = true;
  saveAfter(2);
}

// What was just shown over the view still has to find its place, and the commands to hear what they can do.
void ScreenshotRun::saveAfter(int turns) {
  if (turns == 0) {
    save();
    return;
  }
  const auto next = [run = QPointer(this), turns] {
    if (run)
      run->saveAfter(turns - 1);
  };
  QTimer::singleShot(0, this, [next] { Taren::Core::dispatchAsync(next, Taren::Core::MainThreadQoS); });
}

void ScreenshotRun::save() {
  if (!m_window.isVisible())
    return; // closed: what it shows is not what was asked for
  QImageWriter writer(m_image);
  if (!writer.write(m_window.grab().toImage()))
    printError(m_image, writer.errorString());
  else if (m_allOpened)
    m_status = 0;
  QCoreApplication::exit(m_status);
}

} // namespace Workbench
