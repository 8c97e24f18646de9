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
  const auto describe = [this](const QString& text, const char* icon, const QString& tip) {
    setText(text);
    setIcon(QtUiToolkit::Instance().CreateIcon(QString::fromLatin1(icon)));
    setStatusTip(tip);
  };
  setBaseGroupName(PhotoSection);
  switch (action) {
  case ZoomIntoPhoto:
    describe(tr("Zoom &In\t+"), "zoom_in", tr("Show the photograph larger"));
    break;
  case ZoomOutOfPhoto:
    describe(tr("Zoom &Out\t-"), "zoom_out", tr("Show the photograph smaller"));
    break;
  case OriginalPhotoSize:
    describe(tr("Original &Size\tO"), "original_size",
             tr("Show each pixel of the photograph on one of the screen"));
    break;
  case FitPhotoToView:
    describe(tr("&Fit in View\tF"), "fit_to_view", tr("Show all of the photograph"));
    break;
  case PreviousPhoto:
    describe(tr("&Previous Photograph\t<"), "previous", tr("Show the photograph before this one"));
    break;
  case NextPhoto:
    describe(tr("&Next Photograph\t>"), "next", tr("Show the photograph after this one"));
    break;
  default:
    describe(tr("&Close Photograph"), "close", tr("Take the photograph out of the row; its file stays"));
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
