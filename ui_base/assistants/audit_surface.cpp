// SPDX-License-Identifier: MIT
#include "audit_surface.h"

#include <ui_base/commands/cmd_mgr.h>
#include <ui_base/commands/command_walk.h>
#include <ui_base/commands/flyout_command.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/views/base_view.h>

#include <QLayout>
#include <QMenu>
#include <QStackedLayout>

namespace Vela::UiBase {

namespace {

/// The widget that shows a page among others; null for what is no page.
const QWidget* stackAround(const QWidget& page) {
  const QWidget* const parent = page.parentWidget();
  const auto* const stack = parent ? qobject_cast<const QStackedLayout*>(parent->layout()) : nullptr;
  return stack && stack->indexOf(&page) >= 0 ? parent : nullptr;
}

/// What is painted by itself: a window that is open, or what is hidden at present.
bool isSurface(const QWidget& widget) {
  if (widget.isVisible())
    return widget.isWindow() && widget.windowType() != Qt::ToolTip;
  if (!widget.isHidden())
    return false;
  if (const auto* const menu = qobject_cast<const QMenu*>(&widget))
    return !menu->isEmpty();
  if (const auto* const bar = qobject_cast<const ToolBar*>(&widget))
    return !bar->Buttons().isEmpty();
  return qobject_cast<const FlyoutBase*>(&widget) || stackAround(widget);
}

void giveSize(QWidget& root) {
  if (root.isVisible())
    return;
  root.ensurePolished();
  if (const QWidget* const stack = stackAround(root))
    root.resize(stack->contentsRect().size().expandedTo(root.minimumSizeHint()));
  else
    root.resize(root.sizeHint().expandedTo(root.minimumSize()).boundedTo(root.maximumSize()));
}

} // namespace

QList<QPointer<QWidget>> auditedRoots(const CmdMgr& manager, QWidget& window) {
  QList<QPointer<QWidget>> roots{&window};
  const auto widgets = window.findChildren<QWidget*>();
  for (QWidget* const widget : widgets) {
    if (isSurface(*widget))
      roots.append(widget);
  }
  visitCommands(manager.commandBag(), [&roots](CommandBase& command) {
    const auto* const flyout = dynamic_cast<FlyoutCommand*>(&command);
    QWidget* const panel = flyout ? flyout->simpleFlyout() : nullptr;
    if (panel && (panel->isHidden() || panel->isWindow()) && !roots.contains(panel))
      roots.append(panel);
  });
  return roots;
}

AuditSurface surfaceOf(QWidget& root) {
  giveSize(root);
  if (!root.isVisible())
    root.grab({0, 0, 1, 1}); // lays it out, and tells its children of their sizes
  QImage image(root.size(), QImage::Format_RGB32);
  image.fill(root.window()->palette().color(QPalette::Window));
  root.render(&image);
  return {root, image};
}

} // namespace Vela::UiBase
