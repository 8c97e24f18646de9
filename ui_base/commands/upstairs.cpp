// SPDX-License-Identifier: MIT
#include "upstairs.h"

#include <ui_base/toolbars/tool_button.h>
#include <ui_base/views/base_view.h>
#include <ui_base/views/cmds_view_controller.h>
#include <ui_base/views/qt_ui_toolkit.h>

namespace Vela::UiBase::Upstairs {

QObject* asObject(CmdsViewController* controller) { return controller; }

CmdsViewController* asController(QObject* object) { return dynamic_cast<CmdsViewController*>(object); }

CmdMgr* managerOf(CmdsViewController* controller) { return controller; }

BaseView* viewOf(QObject* controller) {
  auto* const viewController = qobject_cast<BaseViewController*>(controller);
  return viewController ? viewController->getView() : nullptr;
}

void showError(QObject* controller, const QString& message) {
  if (auto* const viewController = qobject_cast<BaseViewController*>(controller))
    viewController->showNotification(message, NotificationError);
}

QWidget* asWidget(BaseView* view) { return view; }

BaseView* asView(QWidget* widget) { return qobject_cast<BaseView*>(widget); }

QAbstractButton* asButton(ToolButton* button) { return button; }

ToolButton* asToolButton(QAbstractButton* button) { return qobject_cast<ToolButton*>(button); }

QIcon icon(const QString& name) { return QtUiToolkit::Instance().CreateIcon(name); }

} // namespace Vela::UiBase::Upstairs
