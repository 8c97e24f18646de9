// SPDX-License-Identifier: MIT
#include "tool_button_p.h"

#include <ui_base/commands/flyout_command.h>
#include <ui_base/popups/flyout_base.h>
#include <vlk_common_res/styles.h>
#include <vlk_license/license_service.h>

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
void ToolButtonPrivate::endUnopenedFlyout() const {
  auto* const command = qobject_cast<FlyoutCommand*>(action.data());
  const FlyoutBase* const flyout = command ? command->flyout() : nullptr;
  if (flyout && !flyout->isVisible())
    command->onFinalize();
}

void ToolButtonPrivate::standBack(bool back) {
  standsBack = back;
  button->SetLocked(back);
}

void ToolButtonPrivate::dress() {
  if (button->styleSheet() != styleSheet)
    return; // it was given another one
  styleSheet = Styles::Instance().ToolButtonOnToolPalette();
  button->setStyleSheet(styleSheet);
}

void ToolButtonPrivate::adoptIcon() {
  const qint64 key = button->icon().cacheKey();
  const bool ours = !normalPixmap.isNull() && (key == activeIcon.cacheKey() || key == normalIcon.cacheKey());
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

void ToolButtonPrivate::mirror() { mirrored = {action->isCheckable(), action->isEnabled()}; }

} // namespace Vela::UiBase
