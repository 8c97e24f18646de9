// SPDX-License-Identifier: MIT
#include "tool_button_p.h"

#include "tool_button_with_button_menu.h"

#include <ui_base/commands/flyout_command.h>
#include <ui_base/popups/flyout_base.h>
#include <vlk_common_res/styles.h>
#include <vlk_license/license_service.h>

#include <utility>

namespace Vela::UiBase {

using License::LicenseService;
using Resource::Styles;

ToolButtonPrivate::ToolButtonPrivate() = default;

ToolButtonPrivate::~ToolButtonPrivate() = default;

ToolBar* ToolButtonPrivate::liveToolBar() const { return toolBar; }

void ToolButtonPrivate::leaveDyingToolBar() {
  if (!toolBar.remains() || toolBar)
    return;
  button->disconnect(toolBar.remains());
  toolBar.clear();
}

void ToolButtonPrivate::beginDestruction() {
  dying = true;
  leaveDyingToolBar();
}

bool ToolButtonPrivate::isUnlicensed() const {
  const auto* const command = dynamic_cast<const CommandBase*>(action.data());
  return command && command->isPaidFeature() && !LicenseService::Instance().isUsable();
}

// Begun by a shortcut, it would wait for a panel that does not open.
void ToolButtonPrivate::endUnopenedFlyout() { endUnopened(qobject_cast<FlyoutCommand*>(action.data())); }

void ToolButtonPrivate::endUnopened(FlyoutCommand* command) {
  const QWidget* const panel = command && command->isActive() ? command->simpleFlyout() : nullptr;
  if (panel && !panel->isVisible())
    command->onFinalize();
}

void ToolButtonPrivate::forgetClick() {}

void ToolButtonPrivate::lockForExtendMode(bool lock) {
  lockedForExtendMode = lock;
  button->SetLocked(lock);
}

void ToolButtonPrivate::leaveExtendModes() const {
  const ToolBar* const bar = lockedForExtendMode ? liveToolBar() : nullptr;
  const QList<ToolButtonWithMenu*> menus = bar ? bar->MenuButtons(false) : QList<ToolButtonWithMenu*>();
  const QList<QPointer<ToolButtonWithMenu>> buttons(menus.cbegin(), menus.cend());
  for (const QPointer<ToolButtonWithMenu>& each : buttons) {
    auto* const extended = qobject_cast<ToolButtonWithButtonMenu*>(each.data());
    if (extended && extended->IsInExtendMode())
      extended->OnExitExtendMode();
  }
}

void ToolButtonPrivate::applySharedStyle() {
  const QString before = std::exchange(styleSheet, Styles::Instance().ToolButtonOnToolPalette());
  if (button->styleSheet() == before)
    button->setStyleSheet(styleSheet);
}

bool ToolButtonPrivate::looksDisabled() const { return locked && !lockLabel; }

void ToolButtonPrivate::adoptIcon() {
  const qint64 key = button->icon().cacheKey();
  const bool ours = !swapIcon.isNull() && key == swapIcon.cacheKey();
  const bool otherScreen =
      picturesFor != button->iconSize() || !qFuzzyCompare(picturesRatio, button->devicePixelRatioF());
  if (!ours && key != source.cacheKey())
    source = button->icon();
  else if (!otherScreen)
    return;
  normalPixmap = activePixmap = QPixmap();
}

void ToolButtonPrivate::renewPictures() {
  if (normalPixmap.isNull())
    return;
  adoptIcon();
  normalPixmap = activePixmap = QPixmap();
  button->setIcon(source);
  button->IconState(iconActive);
}

void ToolButtonPrivate::takeName(const QAction& from) {
  if (button->accessibleName() != takenName)
    return;
  takenName = from.text().isEmpty() ? from.toolTip() : QString();
  button->setAccessibleName(takenName);
}

void ToolButtonPrivate::mirror() { mirrored = {action->isCheckable(), action->isEnabled()}; }

} // namespace Vela::UiBase
