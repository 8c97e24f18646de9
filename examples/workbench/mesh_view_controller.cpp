// SPDX-License-Identifier: MIT
#include "mesh_view_controller.h"

#include <workbench/commands/mode_command.h>
#include <workbench/commands/open_mesh_command.h>
#include <workbench/commands/save_mesh_command.h>
#include <workbench/commands/set_pivot_command.h>
#include <workbench/context_menu.h>
#include <workbench/failure_notice.h>
#include <workbench/file_drag.h>
#include <workbench/mesh_loader.h>
#include <workbench/mesh_view.h>
#include <workbench/photos/photo_loader.h>
#include <workbench/recent_files.h>
#include <workbench/tools/mesh_tool.h>

#include <QDropEvent>
#include <QFileInfo>
#include <QMenu>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

bool isPhoto(const QString& file) { return !isMeshFileName(file) && isPhotoFileName(file); }

} // namespace

MeshViewController::MeshViewController(MeshView* view) : CmdsViewController(view), m_tools(view) {
  m_tools.pushOn(*this);
  if (view)
    follow(*view);
}

MeshViewController::~MeshViewController() { cancelWork(); }

void MeshViewController::follow(MeshView& view) {
  const auto refresh = [this] { refreshCommands(); };
  MeshDocument& document = view.document();
  QObject::connect(&document, &MeshDocument::meshChanged, &m_events, refresh);
  QObject::connect(&document, &MeshDocument::selectionChanged, &m_events, [this, &document] {
    m_selectionCommands.setInUse(!document.selection().isEmpty());
    refreshCommands();
  });
  QObject::connect(&document, &MeshDocument::opened, &m_events, [this] { cancelPivot(); });
  QObject::connect(document.undoStack(), &QUndoStack::indexChanged, &m_events, refresh);
  QObject::connect(&view.measurements(), &Measurements::distancesChanged, &m_events, refresh);
  QObject::connect(&view, &MeshView::menuRequested, &m_events,
                   [this](const QPoint& position) { openMenu(position); });
}

MeshView* MeshViewController::meshView() const { return qobject_cast<MeshView*>(getView()); }

QString MeshViewController::fileName() const {
  const MeshView* const view = meshView();
  return view ? view->document().fileName() : QString();
}

OpenMeshCommand* MeshViewController::openCommand() const { return findCommand<OpenMeshCommand>(); }

// What was named last is what is seen in the end.
void MeshViewController::openFiles(const QStringList& files) {
  QStringList meshes;
  QStringList photos;
  for (const QString& file : files)
    (isPhoto(file) ? photos : meshes) += file;
  const bool photosLast = !files.isEmpty() && isPhoto(files.constLast());
  if (photosLast)
    openMeshes(meshes);
  if (!photos.isEmpty())
    Q_EMIT m_events.photosAsked(photos);
  if (!photosLast)
    openMeshes(meshes);
}

void MeshViewController::openMeshes(const QStringList& files) {
  const auto open = [this, files] { openNow(files); };
  if (!files.isEmpty() && m_unsaved.mayLeave(LeaveToOpen, open))
    open();
}

void MeshViewController::openNow(const QStringList& files) {
  if (m_holder)
    m_holder->cancel();
  if (OpenMeshCommand* const command = openCommand())
    command->open(files);
}

void MeshViewController::showMesh(const Mesh& mesh, const QString& fileName) {
  MeshView* const view = meshView();
  if (!view)
    return;
  view->document().open(mesh, fileName);
  if (QFileInfo::exists(fileName))
    RecentFiles::add(fileName);
  Q_EMIT m_events.meshShown(fileName);
}

bool MeshViewController::isMeshLocked() const {
  const auto locks = [](const CommandBase* command) {
    const auto* const own = dynamic_cast<const MeshUser*>(command);
    return own && own->locksMesh();
  };
  return m_holder || std::any_of(m_executing.cbegin(), m_executing.cend(), locks);
}

bool MeshViewController::isMeshEdited() const {
  return std::any_of(m_executing.cbegin(), m_executing.cend(), [](const CommandBase* command) {
    const auto* const own = dynamic_cast<const MeshUser*>(command);
    return own && own->makesResult();
  });
}

bool MeshViewController::isSaving() const {
  return std::any_of(m_executing.cbegin(), m_executing.cend(), [](const CommandBase* command) {
    return dynamic_cast<const SaveMeshCommand*>(command) != nullptr;
  });
}

void MeshViewController::holdMesh(MeshUser& command) { m_holder = &command; }

void MeshViewController::releaseMesh(const MeshUser& command) {
  if (m_holder == &command)
    m_holder = nullptr;
}

bool MeshViewController::cancelWork() {
  const bool locked = isMeshLocked();
  MeshUser* const holder = m_holder;
  const auto executing = m_executing; // a copy: some end at once
  for (CommandBase* const command : executing) {
    if (auto* const own = dynamic_cast<MeshUser*>(command); own && own != holder)
      own->cancel();
  }
  if (m_holder)
    m_holder->cancel();
  return locked;
}

void MeshViewController::enterMode(EToolMode mode) {
  cancelPivot();
  m_mode = mode;
  m_tools.enter(mode, *this);
  refreshCommands();
}

void MeshViewController::leaveMode(EToolMode mode) {
  if (mode == m_mode)
    enterMode(PickMode);
}

bool MeshViewController::isDragging() const {
  const auto tool = std::dynamic_pointer_cast<MeshTool>(getOperatingTool());
  return tool && tool->isDragging();
}

void MeshViewController::setPageShown(bool shown) {
  m_pageShown = shown;
  refreshCommands();
}

// The window asks first whether the program may end, then its views whether they may close.
bool MeshViewController::viewWillClose() {
  const auto close = [view = QPointer<BaseView>(getView())] {
    if (view)
      view->close();
  };
  if (!m_shutDown && !m_unsaved.mayLeave(LeaveToQuit, close))
    return false;
  cancelWork();
  cancelPivot();
  m_selectionCommands.setInUse(false);
  return CmdsViewController::viewWillClose();
}

void MeshViewController::commandBegan(CommandBase* command) {
  CmdsViewController::commandBegan(command);
  refreshCommands();
}

void MeshViewController::commandEnded(CommandBase* command) {
  CmdsViewController::commandEnded(command);
  openWaitingFiles();
  refreshCommands();
}

void MeshViewController::commandBeganExecuting(CommandBase* command, bool checked) {
  m_executing.insert(command);
  CmdsViewController::commandBeganExecuting(command, checked);
  refreshCommands();
}

void MeshViewController::commandEndedExecuting(CommandBase* command, bool checked) {
  const QPointer<CommandBase> ended(command);
  m_executing.erase(command);
  CmdsViewController::commandEndedExecuting(command, checked);
  OpenMeshCommand* const open = openCommand();
  if (open && open == command)
    tellFailures(*open);
  else if (auto* const own = dynamic_cast<MeshUser*>(ended.data()))
    own->executionEnded();
  openWaitingFiles();
  refreshCommands();
}

void MeshViewController::openWaitingFiles() {
  OpenMeshCommand* const open = openCommand();
  if (open && !isMeshLocked())
    open->openWaiting();
}

void MeshViewController::commandForgotten(CommandBase& command) {
  m_executing.erase(&command);
  if (const auto* const user = dynamic_cast<const MeshUser*>(&command))
    releaseMesh(*user);
  CmdsViewController::commandForgotten(command);
}

void MeshViewController::tellFailures(OpenMeshCommand& command) {
  const QList<OpenMeshCommand::Failure> failures = command.takeFailures();
  for (const OpenMeshCommand::Failure& failure : failures) {
    if (MeshView* const view = meshView())
      showFailure(*view, failure.message, failure.details);
    Q_EMIT m_events.openFailed(failure.fileName, failure.reason, failure.message);
  }
  Q_EMIT m_events.openFinished(failures.isEmpty());
}

bool MeshViewController::mayShutDown() {
  m_shutDown = false;
  BaseView* const view = getView();
  return m_unsaved.mayLeave(LeaveToQuit, [window = QPointer<QWidget>(view ? view->window() : nullptr)] {
    if (window)
      window->close();
  });
}

void MeshViewController::onShutDown() {
  m_shutDown = true;
  cancelWork();
}

bool MeshViewController::rightClick(QMouseEvent* release) {
  openMenu(release->globalPosition().toPoint());
  return true;
}

void MeshViewController::openMenu(const QPoint& position) {
  if (m_menu && m_menu->isVisible())
    return;
  m_menu = makeContextMenu(*this, position);
  if (m_menu)
    m_menu->popup(position);
}

void MeshViewController::cancelPivot() {
  if (auto* const pivot = findCommand<SetPivotCommand>())
    pivot->cancel();
}

bool MeshViewController::mouseDragEnter(QDragEnterEvent* event) {
  if (CmdsViewController::mouseDragEnter(event))
    return true;
  if (!acceptFiles(*event))
    return false;
  if (MeshView* const view = meshView())
    view->setDropHighlight(true);
  return true;
}

bool MeshViewController::mouseDragLeave(QDragLeaveEvent* event) {
  if (MeshView* const view = meshView())
    view->setDropHighlight(false);
  return CmdsViewController::mouseDragLeave(event);
}

bool MeshViewController::mouseDragMove(QDragMoveEvent* event) {
  return CmdsViewController::mouseDragMove(event) || acceptFiles(*event);
}

bool MeshViewController::mouseDrop(QDropEvent* event) {
  if (MeshView* const view = meshView())
    view->setDropHighlight(false);
  if (CmdsViewController::mouseDrop(event))
    return true;
  if (!acceptFiles(*event))
    return false;
  openFiles(filesOf(*event->mimeData()));
  return true;
}

} // namespace Workbench
