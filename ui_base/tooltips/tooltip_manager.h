// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QObject>

namespace Vela::UiBase {

/// The one place that knows when views come and go, for everything that is shown as a tool tip over them. A
/// tool tip that is up when a view disappears is taken down; who shows tool tips of another kind listens to
/// viewVisibilityChanged().
///
/// Lives from its first use to the end of the process; main thread only.
///
/// @code
/// connect(&Vela::UiBase::TooltipManager::GetInstance(),
///         &Vela::UiBase::TooltipManager::viewVisibilityChanged, this,
///         [this](bool visible) { if (!visible) hidePreview(); });
/// @endcode
class UI_BASE_EXPORT TooltipManager : public QObject {
  Q_OBJECT

public:
  static TooltipManager& GetInstance();

public Q_SLOTS:
  /// Told by view controllers: a view has appeared, or is about to disappear.
  void onViewVisibilityChange(bool visible);

Q_SIGNALS:
  void viewVisibilityChanged(bool visible);

private:
  TooltipManager() = default;
};

} // namespace Vela::UiBase
