// SPDX-License-Identifier: MIT
#include "tool_bar_looks.h"

#include "tool_bar.h"
#include "tool_bar_content.h"
#include "tool_bar_p.h"
#include "tool_bar_placer.h"

#include <ui_base/popups/cached_shadow_effect.h>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

// --- several parameters at once

void ToolBarLooks::SetBorder(int width, const QColor& color, bool aroundGroups) {
  ToolBarParams changed = Params();
  changed.borderWidth = std::max(0, width);
  changed.borderColor = color;
  changed.borderAroundGroups = aroundGroups;
  SetParams(changed);
}

void ToolBarLooks::SetRoundCorner(EToolBarRoundCorner bar, EToolBarRoundCorner groups, int radius) {
  ToolBarParams changed = Params();
  changed.barCorners = bar;
  changed.groupCorners = groups;
  changed.cornerRadius = radius;
  SetParams(changed);
}

void ToolBarLooks::SetButtonDefaultTooltipParameters(const SArrowParam& arrow, EDirection direction,
                                                     int distance, EWidgetsAlign alignment,
                                                     const QPoint& offset) {
  Set(&ToolBarParams::tooltip,
      ButtonPopupParams{Params().tooltip.autoDecide, arrow, direction, distance, alignment, offset});
}

void ToolBarLooks::SetButtonDefaultMenuParameters(bool autoDecide, const SArrowParam& arrow,
                                                  EDirection direction, int distance, EWidgetsAlign alignment,
                                                  const QPoint& offset) {
  Set(&ToolBarParams::menu, ButtonPopupParams{autoDecide, arrow, direction, distance, alignment, offset});
}

// --- the toolbar's part

const ToolBarParams& ToolBar::Params() const { return d->params; }

void ToolBar::SetParams(const ToolBarParams& params) {
  const ToolBarParams before = std::exchange(d->params, params);
  if (params != before)
    d->applyParams(before);
}

void ToolBar::SetButtonStyleSheet(const QString& styleSheet, bool nested) {
  ToolBarParams changed = d->params;
  changed.buttonStyleSheet = styleSheet;
  const QPointer<ToolBar> self(this);
  SetParams(changed);
  if (!self || !nested)
    return;
  d->forEachButton([&styleSheet](ToolButton& button) {
    const auto* const opener = qobject_cast<ToolButtonWithMenu*>(&button);
    if (auto* const menu = opener ? qobject_cast<ToolBar*>(opener->GetMenu()) : nullptr)
      menu->SetButtonStyleSheet(styleSheet, true);
  });
}

QGraphicsDropShadowEffect* ToolBar::GetShadow() const { return d->shadow; }

void ToolBar::CopyAllParametersFrom(const ToolBar* other) {
  if (!other || other == this)
    return;
  if (const QGraphicsDropShadowEffect* const looks = other->GetShadow()) {
    d->shadowLooks = {looks->blurRadius(), looks->offset(), looks->color()};
    if (d->shadow)
      d->shadow->setLooks(*looks);
  }
  SetParams(ToolBarParams(other->Params()));
}

void ToolBar::ApplyDefaultToolbarParams(ToolBar* toolBar, const QString& name) {
  if (!toolBar)
    return;
  toolBar->setObjectName(name);
  if (toolBar->accessibleName().isEmpty())
    toolBar->setAccessibleName(name);
  const ToolBar looks(nullptr, toolBar->Area());
  toolBar->CopyAllParametersFrom(&looks);
}

Qt::ToolBarArea ToolBar::Area() const { return d->area; }

Qt::Orientation ToolBar::Orientation() const {
  const bool vertical = d->area == Qt::LeftToolBarArea || d->area == Qt::RightToolBarArea;
  return vertical ? Qt::Vertical : Qt::Horizontal;
}

void ToolBar::SetArea(Qt::ToolBarArea area) {
  if (std::exchange(d->area, area) == area)
    return;
  const QPointer<ToolBar> self(this);
  d->applyLayout();
  d->contentChanged();
  if (self)
    d->placer->update();
}

void ToolBar::SetGridLayout(int columns) {
  d->content->setColumns(columns);
  d->contentChanged();
}

int ToolBar::GridColumns() const { return d->content->columns(); }

// --- what has changed

void ToolBarPrivate::applyParams(const ToolBarParams& before) {
  const ToolBarParams now = params;
  const QPointer<ToolBar> self(toolBar);
  const auto differ = [&](auto... param) { return ((now.*param != before.*param) || ...); };
  using P = ToolBarParams;
  if (differ(&P::menu))
    menusByArea = false;
  const bool sizes = differ(&P::buttonSize, &P::iconSize);
  const bool tooltips = differ(&P::tooltip);
  const bool tooltipGroups = differ(&P::tooltipGroup);
  const bool menus = differ(&P::menu);
  const bool styles = differ(&P::buttonStyle);
  const bool sheets = differ(&P::buttonStyleSheet);
  if (sizes || tooltips || tooltipGroups || menus || styles || sheets) {
    forEachButton([&](ToolButton& button) {
      if (sizes)
        applySizes(button);
      if (tooltips)
        applyTooltipParams(button);
      if (tooltipGroups)
        applyTooltipGroup(button);
      if (menus)
        applyMenuParams(button);
      if (styles)
        button.setToolButtonStyle(now.buttonStyle);
      if (sheets)
        applyStyleSheet(button);
    });
  }
  if (self && differ(&P::shadow))
    applyShadow();
  if (self && differ(&P::buttonSpacing, &P::groupSpacing, &P::groupMargins, &P::mainMargins)) {
    applyLayout();
    contentChanged();
  }
  if (self)
    pathsChanged();
  if (self && now.autoPosition && !before.autoPosition)
    placer->unpin();
  if (self && now.autoPosition && differ(&P::autoPosition))
    autoPositionTimer->start();
  else if (self && differ(&P::centered, &P::offset))
    toolBar->OnAutoPosition();
  if (self)
    placer->update();
}

void ToolBarPrivate::applyShadow() {
  if (params.shadow == !shadow.isNull())
    return;
  if (params.shadow) {
    shadow = new CachedShadowEffect(*toolBar);
    shadow->setBlurRadius(shadowLooks.blurRadius);
    shadow->setOffset(shadowLooks.offset);
    shadow->setColor(shadowLooks.color);
  } else {
    shadowLooks = {shadow->blurRadius(), shadow->offset(), shadow->color()};
  }
  toolBar->setGraphicsEffect(params.shadow ? shadow.data() : nullptr);
  pathsChanged();
}

} // namespace Vela::UiBase
