// SPDX-License-Identifier: MIT
#include "photo_view_controller.h"

#include <ui_base/commands/command_base.h>
#include <ui_toolkit/image_viewer_tool_bar.h>
#include <vlk_common_res/styles.h>
#include <workbench/file_drag.h>
#include <workbench/photos/photo_command.h>
#include <workbench/photos/photo_tools.h>
#include <workbench/photos/photo_view.h>

#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>

namespace Workbench {

using namespace Vela::UiBase;
using Vela::UiToolkit::ImageViewerToolBar;

namespace {

constexpr double PanStep = 48; // px

// The keys that the toolbar's tooltips name, and where they need Shift on some keyboards, the same key
// without it.
EPhotoAction actionOf(Qt::Key key) {
  switch (key) {
  case Qt::Key_Plus:
  case Qt::Key_Equal:
    return ZoomIntoPhoto;
  case Qt::Key_Minus:
    return ZoomOutOfPhoto;
  case Qt::Key_O:
    return OriginalPhotoSize;
  case Qt::Key_F:
    return FitPhotoToView;
  case Qt::Key_Less:
  case Qt::Key_Comma:
  case Qt::Key_PageUp:
    return PreviousPhoto;
  case Qt::Key_Greater:
  case Qt::Key_Period:
  case Qt::Key_PageDown:
    return NextPhoto;
  default:
    return NoPhotoAction;
  }
}

bool isModifier(Qt::Key key) {
  return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_Meta ||
         key == Qt::Key_AltGr;
}

QPointF shiftOf(int key) {
  switch (key) {
  case Qt::Key_Left:
    return {PanStep, 0};
  case Qt::Key_Right:
    return {-PanStep, 0};
  case Qt::Key_Up:
    return {0, PanStep};
  case Qt::Key_Down:
    return {0, -PanStep};
  default:
    return {};
  }
}

} // namespace

PhotoViewController::PhotoViewController(PhotoView* view)
    : CmdsViewController(view), m_hand(std::make_shared<PhotoPanTool>(view)) {
  pushTool(MiddleButton, std::make_shared<PhotoPanTool>(view));
  pushTool(NoButton, std::make_shared<PhotoZoomTool>(view));
  if (view)
    follow(*view);
}

PhotoViewController::~PhotoViewController() = default;

PhotoView* PhotoViewController::photoView() const { return qobject_cast<PhotoView*>(getView()); }

void PhotoViewController::follow(PhotoView& view) {
  const auto refreshAll = [this] { refresh(); };
  QObject::connect(&view.document(), &PhotoDocument::changed, &m_events, refreshAll);
  QObject::connect(&view, &PhotoView::viewportChanged, &m_events, refreshAll);
  QObject::connect(&view, &PhotoView::menuRequested, &m_events,
                   [this](const QPoint& position) { openMenu(position); });
  QObject::connect(&view.document(), &PhotoDocument::failed, &m_events,
                   [this](const QString&, const QString&, const QString& message) {
                     showNotification(message, NotificationError);
                   });
  QObject::connect(&view, &PhotoView::toolBarMade, &m_events, [this, &view] { followToolBar(view); });
  refresh();
}

void PhotoViewController::followToolBar(PhotoView& view) {
  const ImageViewerToolBar* const bar = view.toolBar();
  QObject::connect(bar, &ImageViewerToolBar::ZoomIn, &m_events, [this] { perform(ZoomIntoPhoto); });
  QObject::connect(bar, &ImageViewerToolBar::ZoomOut, &m_events, [this] { perform(ZoomOutOfPhoto); });
  QObject::connect(bar, &ImageViewerToolBar::OriginalSize, &m_events, [this] { perform(OriginalPhotoSize); });
  QObject::connect(bar, &ImageViewerToolBar::FitToView, &m_events, [this] { perform(FitPhotoToView); });
  QObject::connect(bar, &ImageViewerToolBar::PrevImage, &m_events, [this] { perform(PreviousPhoto); });
  QObject::connect(bar, &ImageViewerToolBar::NextImage, &m_events, [this] { perform(NextPhoto); });
  QObject::connect(bar, &ImageViewerToolBar::KeyReleased, &m_events,
                   [this](Qt::Key key) { keyReleased(key); });
}

bool PhotoViewController::canPerform(EPhotoAction action) const {
  const PhotoView* const view = photoView();
  if (!view)
    return false;
  const PhotoDocument& document = view->document();
  const PhotoViewport& viewport = view->viewport();
  switch (action) {
  case ZoomIntoPhoto:
    return viewport.canZoomIn();
  case ZoomOutOfPhoto:
    return viewport.canZoomOut();
  case OriginalPhotoSize:
  case FitPhotoToView:
    return !viewport.isEmpty();
  case PreviousPhoto:
    return document.hasPrevious();
  case NextPhoto:
    return document.hasNext();
  case ClosePhoto:
    return document.count() > 0;
  default:
    return false;
  }
}

QString PhotoViewController::obstacle(EPhotoAction action) const {
  if (!m_shown)
    return tr("The page of the photographs is not shown.");
  if (canPerform(action))
    return {};
  if (!photoView() || photoView()->document().count() == 0)
    return tr("No photograph is open.");
  if (action == PreviousPhoto || action == NextPhoto)
    return action == NextPhoto ? tr("This is the last photograph.") : tr("This is the first photograph.");
  return tr("The photograph cannot be zoomed further.");
}

bool PhotoViewController::perform(EPhotoAction action) {
  if (!canPerform(action))
    return false;
  PhotoView* const view = photoView();
  PhotoDocument& document = view->document();
  PhotoViewport viewport = view->viewport();
  switch (action) {
  case ZoomIntoPhoto:
    viewport.zoomAt(PhotoViewport::ZoomStep, viewport.middle());
    break;
  case ZoomOutOfPhoto:
    viewport.zoomAt(1 / PhotoViewport::ZoomStep, viewport.middle());
    break;
  case OriginalPhotoSize:
    viewport.showOriginalSize(viewport.middle());
    break;
  case FitPhotoToView:
    viewport.fit();
    break;
  case PreviousPhoto:
    document.showPrevious();
    return true;
  case NextPhoto:
    document.showNext();
    return true;
  default:
    document.closeCurrent();
    return true;
  }
  view->setViewport(viewport);
  return true;
}

void PhotoViewController::refresh() {
  PhotoView* const view = photoView();
  if (!view)
    return;
  if (ImageViewerToolBar* const bar = view->toolBar()) {
    bar->setEnabled(view->document().count() > 0);
    bar->EnableZoomInButton(canPerform(ZoomIntoPhoto));
    bar->EnableZoomOutButton(canPerform(ZoomOutOfPhoto));
    bar->EnablePrevImageButton(canPerform(PreviousPhoto));
    bar->EnableNextImageButton(canPerform(NextPhoto));
  }
  for (const EPhotoAction action : PhotoActions) {
    if (CommandBase* const command = findCommand(PhotoCommand::idOf(action)))
      refreshCommand(*command, obstacle(action));
  }
  refreshHand();
}

// At once, for the next key; and as the state that lasts, with the reason for the tooltip.
void PhotoViewController::refreshCommand(CommandBase& command, const QString& obstacle) {
  command.setEnabled(obstacle.isEmpty());
  if (groundReason(command.commandId()) != obstacle)
    setGroundState(command.commandId(), {State(obstacle.isEmpty()), State::Keep}, obstacle);
}

// The cursor shows whether there is something to shift.
void PhotoViewController::refreshHand() {
  const bool hasHand = getTool(LeftButton) != nullptr;
  const bool canPan = photoView()->viewport().canPan();
  if (canPan && !hasHand)
    pushTool(LeftButton, m_hand);
  else if (!canPan && hasHand)
    popTool(LeftButton);
}

void PhotoViewController::viewDidLoad() {
  CmdsViewController::viewDidLoad();
  refresh();
}

void PhotoViewController::viewWillAppear() {
  CmdsViewController::viewWillAppear();
  m_shown = true;
  if (PhotoView* const view = photoView())
    view->document().resume();
  refresh();
  Q_EMIT m_events.shownChanged(true);
}

void PhotoViewController::viewWillDisappear() {
  CmdsViewController::viewWillDisappear();
  m_shown = false;
  m_pressed = Qt::Key_unknown;
  if (PhotoView* const view = photoView())
    view->document().pause();
  refresh();
  Q_EMIT m_events.shownChanged(false);
}

// The toolbar tells of keys when they are released, so the view acts then too; but on the key that was
// pressed, as Shift may be released first. The keys that are pressed on the toolbar arrive here as well.
bool PhotoViewController::keyPress(QKeyEvent* event) {
  if (CmdsViewController::keyPress(event))
    return true;
  if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
    return false;
  const auto key = Qt::Key(event->key());
  if (key == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier && photoView()) {
    openMenu(photoView()->mapToGlobal(photoView()->rect().center()));
    return true;
  }
  if (actionOf(key) == NoPhotoAction)
    return pan(key);
  m_pressed = key;
  return true;
}

bool PhotoViewController::keyRelease(QKeyEvent* event) {
  return CmdsViewController::keyRelease(event) || keyReleased(Qt::Key(event->key()));
}

bool PhotoViewController::keyReleased(Qt::Key key) {
  if (isModifier(key))
    return false;
  const Qt::Key pressed = std::exchange(m_pressed, Qt::Key_unknown);
  const EPhotoAction action = actionOf(pressed == Qt::Key_unknown ? key : pressed);
  perform(action);
  return action != NoPhotoAction;
}

bool PhotoViewController::pan(int key) {
  PhotoView* const view = photoView();
  const QPointF shift = shiftOf(key);
  if (!view || shift.isNull() || !view->viewport().canPan() || getOperatingTool())
    return false;
  PhotoViewport viewport = view->viewport();
  viewport.pan(shift);
  view->setViewport(viewport);
  return true;
}

bool PhotoViewController::mouseDoubleClick(QMouseEvent* event) {
  if (CmdsViewController::mouseDoubleClick(event))
    return true;
  PhotoView* const view = photoView();
  if (!view || event->button() != Qt::LeftButton || view->viewport().isEmpty())
    return false;
  PhotoViewport viewport = view->viewport();
  if (viewport.isFit())
    viewport.showOriginalSize(event->position());
  else
    viewport.fit();
  view->setViewport(viewport);
  return true;
}

bool PhotoViewController::rightClick(QMouseEvent* release) {
  openMenu(release->globalPosition().toPoint());
  return true;
}

void PhotoViewController::openMenu(const QPoint& position) {
  PhotoView* const view = photoView();
  if (!view || (m_menu && m_menu->isVisible()))
    return;
  m_menu = new QMenu(view);
  m_menu->setAttribute(Qt::WA_DeleteOnClose);
  m_menu->setStyleSheet(Vela::Resource::Styles::Instance().MenuMain());
  for (const EPhotoAction action : PhotoActions) {
    if (CommandBase* const command = findCommand(PhotoCommand::idOf(action)))
      m_menu->addAction(command);
  }
  m_menu->popup(position);
}

bool PhotoViewController::mouseDragEnter(QDragEnterEvent* event) {
  if (CmdsViewController::mouseDragEnter(event))
    return true;
  if (!acceptFiles(*event))
    return false;
  if (PhotoView* const view = photoView())
    view->setDropHighlight(true);
  return true;
}

bool PhotoViewController::mouseDragLeave(QDragLeaveEvent* event) {
  if (PhotoView* const view = photoView())
    view->setDropHighlight(false);
  return CmdsViewController::mouseDragLeave(event);
}

bool PhotoViewController::mouseDragMove(QDragMoveEvent* event) {
  return CmdsViewController::mouseDragMove(event) || acceptFiles(*event);
}

bool PhotoViewController::mouseDrop(QDropEvent* event) {
  if (PhotoView* const view = photoView())
    view->setDropHighlight(false);
  if (CmdsViewController::mouseDrop(event))
    return true;
  if (!acceptFiles(*event))
    return false;
  Q_EMIT m_events.filesDropped(filesOf(*event->mimeData()));
  return true;
}

} // namespace Workbench
