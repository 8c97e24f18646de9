// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/toolbars/tool_bar_p.h>

#include <QColor>
#include <QSet>

namespace Vela::UiBase {

/// The state of an ActionPanel, for subclasses that add to it.
class UI_BASE_EXPORT ActionPanelPrivate : public ToolBarPrivate {
public:
  ActionPanelPrivate();
  ~ActionPanelPrivate() override;

  /// The panel and the sub-toolbars of its nest.
  QList<ToolBar*> bars() const;
  /// Locks the nest, or no longer.
  void applyLock();
  void panelCame(const ToolButtonWithMenu& opener) override;

  bool isDisabled = false;
  QSet<const QObject*> busy; // the flyouts that work
  QColor groupBackColor;     // the shared ones that the panel was given
  QColor borderColor;
};

} // namespace Vela::UiBase
