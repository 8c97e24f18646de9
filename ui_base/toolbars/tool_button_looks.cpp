// SPDX-License-Identifier: MIT
#include "tool_button.h"
#include "tool_button_p.h"

#include <ui_base/commands/command_base.h>
#include <ui_base/popups/arrowed_window.h>
#include <ui_base/popups/widget_pos_calculator.h>
#include <vlk_license/license_service.h>
#include <vlk_license/lock_badge.h>

#include <QEvent>

namespace Vela::UiBase {

using License::LicenseService;

namespace {

constexpr QSize pictureSize(32, 32); // px; of the pictures that are swapped under the mouse

} // namespace

// --- icons

void ToolButton::SetKeepIcon(bool keep) { d->keepIcon = keep; }

bool ToolButton::KeepIcon() const { return d->keepIcon; }

void ToolButton::InitIcons() {
  d->adoptIcon();
  if (d->source.isNull() || !d->normalPixmap.isNull())
    return;
  d->picturesFor = iconSize();
  d->picturesRatio = devicePixelRatioF();
  const auto render = [this](const QSize& size, QIcon::Mode mode) {
    return d->source.pixmap(size, d->picturesRatio, mode, QIcon::On);
  };
  d->normalPixmap = render(pictureSize, QIcon::Normal);
  d->activePixmap = render(pictureSize, QIcon::Active);
  if (d->activePixmap.isNull())
    d->activePixmap = d->normalPixmap;
  d->normalIcon = QIcon(d->normalPixmap);
  d->activeIcon = QIcon(d->activePixmap);
  for (const QSize& size : {pictureSize, d->picturesFor}) {
    // Scaled pictures are not sharp.
    if (size != pictureSize) {
      d->normalIcon.addPixmap(render(size, QIcon::Normal));
      d->activeIcon.addPixmap(render(size, QIcon::Active));
    }
    d->normalIcon.addPixmap(render(size, QIcon::Disabled), QIcon::Disabled);
  }
}

void ToolButton::IconState(bool hovered) {
  d->iconActive = hovered;
  InitIcons();
  if (!d->keepIcon && !d->normalPixmap.isNull() && !d->activePixmap.isNull())
    setIcon(hovered && isEnabled() ? d->activeIcon : d->normalIcon);
}

bool ToolButton::Hovered() const { return rect().contains(mapFromGlobal(QCursor::pos())); }

void ToolButton::changeEvent(QEvent* event) {
  QToolButton::changeEvent(event);
  // Pictures of icons that follow the palette do not follow it themselves.
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
    d->renewPictures();
}

bool ToolButton::event(QEvent* event) {
  const bool handled = QToolButton::event(event);
  if (event->type() == QEvent::ScreenChangeInternal)
    d->renewPictures();
  return handled;
}

// --- the lock

void ToolButton::SetLocked(bool locked) {
  d->locked = locked;
  if (locked)
    setDown(false);
  EnableTooltip(d->tooltipEnabled);
}

bool ToolButton::IsLocked() const { return d->locked; }

void ToolButton::UpdateLicenseLock() {
  const auto* const command = dynamic_cast<const CommandBase*>(d->action.data());
  if (!command || !command->isPaidFeature())
    return;
  connect(&LicenseService::Instance(), &LicenseService::stateChanged, this, &ToolButton::UpdateLicenseLock,
          Qt::UniqueConnection);
  if (d->isUnlicensed()) {
    SetLocked(true);
    AddLockIcon();
  } else if (d->lockLabel) {
    RemoveLockIcon();
    SetLocked(d->standsBack);
  }
}

void ToolButton::AddLockIcon() {
  if (d->lockLabel)
    return;
  // A disabled rich tooltip would keep the badge's tooltip from being shown.
  if (d->tooltipObject)
    d->tooltipObject->Detach();
  d->lockLabel = License::attachLockBadge(
      this, QStringLiteral(":/resources/images/lock_normal.png"), QPoint(0, 0),
      tr("This is a paid feature. \nPlease purchase or activate your license first."));
}

void ToolButton::RemoveLockIcon() {
  if (!d->lockLabel)
    return;
  License::removeLockBadge(this);
  if (d->tooltipObject)
    d->tooltipObject->AttachTo(this);
}

// --- tooltips

void ToolButton::EnableTooltip(bool enable) {
  d->tooltipEnabled = enable;
  if (d->tooltipObject)
    d->tooltipObject->SetEnableTooltip(enable && !d->locked);
}

void ToolButton::RefreshTooltip() {
  if (d->action)
    d->tooltipText = d->action->toolTip();
  if (d->tooltipObject)
    d->tooltipObject->SetTooltipText(d->tooltipText.isEmpty() ? QString() : d->tooltipText);
}

void ToolButton::RaiseTooltip() {
  if (d->tooltipObject && d->tooltipObject->IsVisible())
    d->tooltipObject->GetArrowedWindow()->raise();
}

void ToolButton::SetTooltipParameters(const SArrowParam& arrow, EDirection direction, int distance,
                                      EWidgetsAlign alignment, const QPoint& offset) {
  if (d->tooltipObject)
    d->tooltipObject->SetTooltipPlacement(arrow, direction, distance, alignment, offset);
}

void ToolButton::SetPosParameters(WidgetPosCalculator& calculator, EDirection direction, int distance,
                                  EWidgetsAlign alignment, const QPoint& offset) {
  calculator.SetDirection(direction);
  calculator.SetBaseOffset(distance);
  calculator.SetAlignment(alignment);
  calculator.SetAdditionalOffset(offset);
}

} // namespace Vela::UiBase
