// SPDX-License-Identifier: MIT
#include "photo_command.h"

#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/command_menus.h>
#include <workbench/photos/photo_view_controller.h>

namespace Workbench {

using namespace Vela::UiBase;

PhotoCommand::PhotoCommand(PhotoViewController* controller, EPhotoAction action)
    : CommandBase(controller), m_action(action) {
  // The key stands behind the tab: as a shortcut it would be taken from the view and the toolbar.
  const auto describe = [this](const char* text, const char* icon, const char* tip) {
    setText({staticMetaObject, text});
    setIcon(QtUiToolkit::Instance().CreateIcon(QString::fromLatin1(icon)));
    setStatusTip({staticMetaObject, tip});
  };
  setBaseGroupName(PhotoSection);
  switch (action) {
  case ZoomIntoPhoto:
    describe(QT_TR_NOOP("Zoom &In\t+"), "zoom_in", QT_TR_NOOP("Show the photograph larger"));
    break;
  case ZoomOutOfPhoto:
    describe(QT_TR_NOOP("Zoom &Out\t-"), "zoom_out", QT_TR_NOOP("Show the photograph smaller"));
    break;
  case OriginalPhotoSize:
    describe(QT_TR_NOOP("Original &Size\tO"), "original_size",
             QT_TR_NOOP("Show each pixel of the photograph on one of the screen"));
    break;
  case FitPhotoToView:
    describe(QT_TR_NOOP("&Fit in View\tF"), "fit_to_view", QT_TR_NOOP("Show all of the photograph"));
    break;
  case PreviousPhoto:
    describe(QT_TR_NOOP("&Previous Photograph\t<"), "previous",
             QT_TR_NOOP("Show the photograph before this one"));
    break;
  case NextPhoto:
    describe(QT_TR_NOOP("&Next Photograph\t>"), "next", QT_TR_NOOP("Show the photograph after this one"));
    break;
  default:
    describe(QT_TR_NOOP("&Close Photograph"), "close",
             QT_TR_NOOP("Take the photograph out of the row; its file stays"));
    setShortcut(Qt::CTRL | Qt::Key_W);
    break;
  }
}

QString PhotoCommand::idOf(EPhotoAction action) {
  return QString::fromLatin1(staticMetaObject.className()) + QString::number(action);
}

bool PhotoCommand::onExecuteAsync(bool) {
  auto* const controller = dynamic_cast<PhotoViewController*>(getViewController());
  return controller && controller->perform(m_action);
}

} // namespace Workbench
