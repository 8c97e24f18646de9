// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QString>

class QAbstractButton;
class QObject;
class QWidget;

namespace Vela::UiBase {

class BaseView;
class CmdMgr;
class CmdsViewController;
class ToolButton;

/// The one door through which commands and tools reach what stands above them: the views with their
/// controllers, the buttons, the icons of the toolkit. What they keep of these are plain objects and widgets.
/// Null gives null everywhere.
namespace Upstairs {

QObject* asObject(CmdsViewController* controller);
/// The controller that an object is; null for another object, and while it is being destroyed.
CmdsViewController* asController(QObject* object);
/// The command manager that a controller is.
CmdMgr* managerOf(CmdsViewController* controller);
/// The view of a controller, which may be one without commands.
BaseView* viewOf(QObject* controller);
/// Shows a message over the view of a controller.
void showError(QObject* controller, const QString& message);

QWidget* asWidget(BaseView* view);
BaseView* asView(QWidget* widget);

QAbstractButton* asButton(ToolButton* button);
ToolButton* asToolButton(QAbstractButton* button);

/// The icon that the provider of the toolkit has for a name.
QIcon icon(const QString& name);

} // namespace Upstairs
} // namespace Vela::UiBase
