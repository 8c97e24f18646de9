// SPDX-License-Identifier: MIT
#include "workbench_pages.h"

#include <ui_base/tools/operation_log.h>
#include <workbench/failure_notice.h>
#include <workbench/mesh_loader.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/pages/show_page_command.h>
#include <workbench/photos/photo_view.h>
#include <workbench/photos/photo_view_controller.h>
#include <workbench/session/file_inputs.h>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

constexpr QLatin1String OpenAction("open");

} // namespace

WorkbenchPages::WorkbenchPages(MeshViewController& mesh, PhotoViewController& photos, QObject* parent)
    : QObject(parent), m_mesh(mesh), m_photos(photos) {
  const MeshViewEvents& events = mesh.events();
  connect(&events, &MeshViewEvents::pageAsked, this, [this](int page) { show(EPage(page)); });
  connect(&events, &MeshViewEvents::photosAsked, this, &WorkbenchPages::openPhotos);
  connect(&events, &MeshViewEvents::openStarted, this, [this] { show(MeshPage); });
  connect(&photos.events(), &PhotoViewEvents::filesDropped, this, &WorkbenchPages::openDropped);
  connect(&photos.events(), &PhotoViewEvents::shownChanged, this, &WorkbenchPages::updateCurrent);
}

void WorkbenchPages::show(EPage page) {
  if (page == m_current)
    return;
  if (page == PhotoPage)
    m_mesh.presentViewController(&m_photos, FromRight);
  else
    m_photos.dismissViewController();
}

// A page whose window is hidden or minimised stays the current one.
void WorkbenchPages::updateCurrent() {
  const PhotoView* const view = m_photos.photoView();
  if (!view)
    return;
  const EPage page = view->isHidden() ? MeshPage : PhotoPage;
  if (page == m_current)
    return;
  m_current = page;
  m_mesh.setPageShown(page == MeshPage);
  for (const EPage each : {MeshPage, PhotoPage}) {
    if (CommandBase* const command = m_mesh.findCommand(ShowPageCommand::idOf(each)))
      command->setChecked(each == page);
  }
  Q_EMIT currentChanged();
}

void WorkbenchPages::openPhotos(const QStringList& files) {
  OperationLog::Instance().tell(
      {PhotoDocument::operationName(), OpenAction, {}, {}, {}, FileInputs::of(files)});
  show(PhotoPage);
  PhotoView* const view = m_photos.photoView();
  if (!view)
    return;
  clearMessages(*view);
  view->document().open(files);
}

bool WorkbenchPages::perform(const ToolOperation& operation) {
  PhotoView* const view = m_photos.photoView();
  if (!view || operation.command != PhotoDocument::operationName())
    return false;
  const QStringList files = FileInputs::files(operation.values);
  if (operation.action != OpenAction || files.isEmpty())
    return view->document().perform(operation.action);
  openPhotos(files);
  return true;
}

// What is no mesh either is told of here, where it was dropped.
void WorkbenchPages::openDropped(const QStringList& files) {
  QStringList meshes;
  QStringList others;
  for (const QString& file : files)
    (isMeshFileName(file) ? meshes : others) += file;
  if (!others.isEmpty())
    openPhotos(others);
  if (!meshes.isEmpty())
    m_mesh.openFiles(meshes);
}

} // namespace Workbench
