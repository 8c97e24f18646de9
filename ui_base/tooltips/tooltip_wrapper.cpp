// SPDX-License-Identifier: MIT
#include "tooltip_wrapper.h"

#include "tooltip_wrapper_p.h"

#include <ui_base/tooltips/tooltip_manager.h>

namespace Vela::UiBase {

TooltipWrapperPrivate::TooltipWrapperPrivate()
    : showDuration(TooltipManager::GetInstance().Times().showDuration) {}

TooltipWrapper::TooltipWrapper(const QString& group, QObject* parent)
    : TooltipWrapper(*new TooltipWrapperPrivate, group, parent) {}

TooltipWrapper::TooltipWrapper(TooltipWrapperPrivate& state, const QString& group, QObject* parent)
    : ATooltipObject(state, group, parent) {}

TooltipWrapper::~TooltipWrapper() { d->end(); }

TooltipWrapperPrivate* TooltipWrapper::own() const { return static_cast<TooltipWrapperPrivate*>(d.get()); }

void TooltipWrapper::Show(const QPoint& point, bool usePoint, ETooltipShowUpType type) {
  if (usePoint)
    d->calculator().SetRefPoint(point);
  const QPointer<TooltipWrapper> self(this);
  if (!d->ensureContent())
    return;
  if (d->tooltipWindow)
    ShowTooltip();
  if (!self)
    return;
  // What is left of an earlier showing's time does not count.
  d->stop(d->dismissTimer);
  if (type == ShowForDuration)
    d->dismiss().start(own()->showDuration);
}

void TooltipWrapper::DelayHide() { d->dismiss().start(d->dismissTime); }

void TooltipWrapper::UpdateText(const QString& text) { SetTooltipText(text); }

void TooltipWrapper::EventFilterOnHide(QObject*) { HideTooltip(); }

} // namespace Vela::UiBase
