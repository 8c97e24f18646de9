// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QList>
#include <QPointer>
#include <QWidget>

namespace Vela::UiBase {

class CmdMgr;

/// What is painted together: a window, a menu, a flyout, a page. Children that are hidden are not part of it.
struct AuditSurface {
  QWidget& root;
  QImage image;
};

/// A window, the menus, flyouts and dialogs that it has open, and those of its menus, flyouts, toolbars and
/// pages that are hidden.
QList<QPointer<QWidget>> auditedRoots(const CmdMgr& manager, QWidget& window);

/// Gives a hidden one the size that it would have, and paints it as it would look.
AuditSurface surfaceOf(QWidget& root);

} // namespace Vela::UiBase
