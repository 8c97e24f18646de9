// SPDX-License-Identifier: MIT
#include "tool_bar.h"
#include "tool_bar_p.h"

#include <ui_base/popups/cached_shadow_effect.h>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

const ToolBarParams& ToolBar::Params() const { return d->params; }

Qt::ToolBarArea ToolBar::Area() const { return d->area; }

Qt::Orientation ToolBar::Orientation() const {
  const bool vertical = d->area == Qt::LeftToolBarArea || d->area == Qt::RightToolBarArea;
  return vertical ? Qt::Vertical : Qt::Horizontal;
}

void ToolBar::SetArea(Qt::ToolBarArea area) {
  if (std::exchange(d->area, area) == area)
    return;
  d->applyLayout();
  d->contentChanged();
}

void ToolBar::SetGridLayout(int columns) {
  d->content->setColumns(columns);
  d->contentChanged();
}

int ToolBar::GridColumns() const { return d->content->columns(); }

void ToolBar::SetButtonSize(const QSize& size) {
  d->params.buttonSize = size;
  d->forEachButton([this](ToolButton& button) { d->applySizes(button); });
}

void ToolBar::SetIconSize(const QSize& size) {
  d->params.iconSize = size;
  d->forEachButton([this](ToolButton& button) { d->applySizes(button); });
}

void ToolBar::SetButtonSpacing(int spacing) {
  d->params.buttonSpacing = spacing;
  d->applyLayout();
}

void ToolBar::SetButtonGroupSpacing(int spacing) {
  d->params.groupSpacing = spacing;
  d->applyLayout();
}

void ToolBar::SetMainContentMargins(const QMargins& margins) {
  d->params.mainMargins = margins;
  d->contentChanged();
}

void ToolBar::SetGroupContentMargins(const QMargins& margins) {
  d->params.groupMargins = margins;
  d->applyLayout();
}

void ToolBar::SetBackColor(const QColor& color) {
  d->params.backColor = color;
  d->pathsChanged();
}

void ToolBar::SetGroupBackColor(const QColor& color) {
  d->params.groupBackColor = color;
  d->pathsChanged();
}

void ToolBar::SetBorder(int width, const QColor& color, bool aroundGroups) {
  d->params.borderWidth = std::max(0, width);
  d->params.borderColor = color;
  d->params.borderAroundGroups = aroundGroups;
  d->pathsChanged();
}

void ToolBar::SetButtonSeparatorColor(const QColor& color) {
  d->params.separatorColor = color;
  update();
}

void ToolBar::SetRoundCorner(EToolBarRoundCorner bar, EToolBarRoundCorner groups, int radius) {
  d->params.barCorners = bar;
  d->params.groupCorners = groups;
  d->params.cornerRadius = radius;
  d->pathsChanged();
}

void ToolBar::SetToolButtonStyle(Qt::ToolButtonStyle style) {
  d->params.buttonStyle = style;
  d->forEachButton([style](ToolButton& button) { button.setToolButtonStyle(style); });
}

void ToolBar::SetButtonStyleSheet(const QString& styleSheet, bool nested) {
  d->params.buttonStyleSheet = styleSheet;
  d->forEachButton([&](ToolButton& button) {
    button.setStyleSheet(styleSheet.isEmpty() ? d->sharedStyleSheet() : styleSheet);
    const auto* const opener = nested ? qobject_cast<ToolButtonWithMenu*>(&button) : nullptr;
    if (auto* const menu = opener ? qobject_cast<ToolBar*>(opener->GetMenu()) : nullptr)
      menu->SetButtonStyleSheet(styleSheet, true);
  });
}

void ToolBar::EnableShadow(bool enable) {
  d->params.shadow = enable;
  if (enable == !d->shadow.isNull())
    return;
  if (enable) {
    d->shadow = new CachedShadowEffect(*this);
    d->shadow->setBlurRadius(15);
    d->shadow->setOffset(0, 1);
    d->shadow->setColor(QColor(0, 0, 0, 90));
  }
  setGraphicsEffect(enable ? d->shadow.data() : nullptr);
  d->pathsChanged();
}

QGraphicsDropShadowEffect* ToolBar::GetShadow() const { return d->shadow; }

void ToolBar::SetButtonDefaultTooltipParameters(const SArrowParam& arrow, EDirection direction, int distance,
                                                EWidgetsAlign alignment, const QPoint& offset) {
  d->params.tooltip = {d->params.tooltip.autoDecide, arrow, direction, distance, alignment, offset};
  d->forEachButton([this](ToolButton& button) { d->applyTooltipParams(button); });
}

void ToolBar::SetButtonDefaultMenuParameters(bool autoDecide, const SArrowParam& arrow, EDirection direction,
                                             int distance, EWidgetsAlign alignment, const QPoint& offset) {
  d->params.menu = {autoDecide, arrow, direction, distance, alignment, offset};
  d->forEachButton([this](ToolButton& button) { d->applyMenuParams(button); });
}

void ToolBar::SetTooltipGroup(const QString& name) {
  d->params.tooltipGroup = name;
  d->forEachButton([this](ToolButton& button) { d->applyTooltipParams(button); });
}

void ToolBar::CopyAllParametersFrom(const ToolBar* other) {
  if (!other || other == this)
    return;
  const ToolBarParams params = other->Params();
  d->params = params;
  if (const QGraphicsDropShadowEffect* const looks = other->GetShadow(); looks && params.shadow) {
    EnableShadow(true);
    d->shadow->setLooks(*looks);
  }
  EnableShadow(params.shadow);
  const QString sheet = params.buttonStyleSheet.isEmpty() ? d->sharedStyleSheet() : params.buttonStyleSheet;
  d->forEachButton([&](ToolButton& button) {
    d->applySizes(button);
    d->applyTooltipParams(button);
    d->applyMenuParams(button);
    button.setToolButtonStyle(params.buttonStyle);
    if (button.styleSheet() != sheet)
      button.setStyleSheet(sheet);
  });
  d->applyLayout();
  d->contentChanged();
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

} // namespace Vela::UiBase
