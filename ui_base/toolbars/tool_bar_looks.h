// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/toolbars/tool_bar_params.h>
#include <ui_base/ui_base_export.h>

namespace Vela::UiBase {

/// What can be chosen about a toolbar, one by one: each setter changes one of ToolBarParams, for the buttons
/// that are there and for those to come. A base of ToolBar.
class UI_BASE_EXPORT ToolBarLooks {
public:
  virtual const ToolBarParams& Params() const = 0;
  /// Takes all of them over. What does not differ is left alone.
  virtual void SetParams(const ToolBarParams& params) = 0;

  /// \name Buttons
  /// @{
  void SetButtonSize(const QSize& size) { Set(&ToolBarParams::buttonSize, size); }
  QSize ButtonSize() const { return Params().buttonSize; }
  void SetIconSize(const QSize& size) { Set(&ToolBarParams::iconSize, size); }
  QSize IconSize() const { return Params().iconSize; }
  void SetButtonSpacing(int spacing) { Set(&ToolBarParams::buttonSpacing, spacing); }
  int ButtonSpacing() const { return Params().buttonSpacing; }
  void SetButtonGroupSpacing(int spacing) { Set(&ToolBarParams::groupSpacing, spacing); }
  int ButtonGroupSpacing() const { return Params().groupSpacing; }
  void SetToolButtonStyle(Qt::ToolButtonStyle style) { Set(&ToolBarParams::buttonStyle, style); }
  Qt::ToolButtonStyle ToolButtonStyle() const { return Params().buttonStyle; }
  QString ButtonStyleSheet() const { return Params().buttonStyleSheet; }
  /// @}

  /// \name Background
  /// An invalid colour is the one of the shared styles.
  /// @{
  void SetMainContentMargins(const QMargins& margins) { Set(&ToolBarParams::mainMargins, margins); }
  QMargins MainContentMargins() const { return Params().mainMargins; }
  void SetGroupContentMargins(const QMargins& margins) { Set(&ToolBarParams::groupMargins, margins); }
  QMargins GroupContentMargins() const { return Params().groupMargins; }
  void SetBackColor(const QColor& color) { Set(&ToolBarParams::backColor, color); }
  QColor BackColor() const { return Params().backColor; }
  void SetGroupBackColor(const QColor& color) { Set(&ToolBarParams::groupBackColor, color); }
  QColor GroupBackColor() const { return Params().groupBackColor; }
  /// @param aroundGroups around each group of buttons, otherwise around the bar.
  void SetBorder(int width, const QColor& color, bool aroundGroups);
  int BorderWidth() const { return Params().borderWidth; }
  QColor BorderColor() const { return Params().borderColor; }
  bool BorderAroundGroups() const { return Params().borderAroundGroups; }
  /// The lines between the buttons of a group.
  void SetButtonSeparatorColor(const QColor& color) { Set(&ToolBarParams::separatorColor, color); }
  QColor ButtonSeparatorColor() const { return Params().separatorColor; }
  void SetRoundCorner(EToolBarRoundCorner bar, EToolBarRoundCorner groups, int radius);
  /// What was set on the shadow itself comes back with it.
  void EnableShadow(bool enable) { Set(&ToolBarParams::shadow, enable); }
  bool IsShadowEnabled() const { return Params().shadow; }
  /// @}

  /// \name Popups of the buttons
  /// @{
  void SetButtonDefaultTooltipParameters(const SArrowParam& arrow, EDirection direction, int distance,
                                         EWidgetsAlign alignment, const QPoint& offset = {});
  /// @param autoDecide whether a flyout may use other arrows where this one does not fit.
  void SetButtonDefaultMenuParameters(bool autoDecide, const SArrowParam& arrow, EDirection direction,
                                      int distance, EWidgetsAlign alignment, const QPoint& offset = {});
  /// The group of the buttons' tooltips, of which one is shown at a time.
  void SetTooltipGroup(const QString& name) { Set(&ToolBarParams::tooltipGroup, name); }
  QString TooltipGroup() const { return Params().tooltipGroup; }
  /// @}

  /// \name Place
  /// @{

  /// Whether the bar follows its edge of the parent.
  void SetEnableAutoPosition(bool enable) { Set(&ToolBarParams::autoPosition, enable); }
  bool IsAutoPositionEnabled() const { return Params().autoPosition; }
  /// In the middle of the edge; otherwise at the start of it.
  void SetCentered(bool centered) { Set(&ToolBarParams::centered, centered); }
  bool IsCentered() const { return Params().centered; }
  /// The distance from the edge, and from the start of the edge unless centred.
  void SetOffset(const QPoint& offset) { Set(&ToolBarParams::offset, offset); }
  QPoint Offset() const { return Params().offset; }
  /// @}

  /// \name Clicks
  /// @{

  /// Whether a click on a plain button closes the bar, or the menu that it is.
  void SetHideOnClick(bool hide) { Set(&ToolBarParams::hideOnClick, hide); }
  bool HideOnClick() const { return Params().hideOnClick; }
  /// Whether the bar, as the menu of a button, stays open when the user clicks elsewhere.
  void SetKeepStateOnClickOutside(bool keep) { Set(&ToolBarParams::keepStateOnClickOutside, keep); }
  bool KeepStateOnClickOutside() const { return Params().keepStateOnClickOutside; }
  /// @}

protected:
  ToolBarLooks() = default;
  ~ToolBarLooks() = default;
  Q_DISABLE_COPY_MOVE(ToolBarLooks)

private:
  template <class Value>
  void Set(Value ToolBarParams::*param, const Value& value) {
    ToolBarParams changed = Params();
    changed.*param = value;
    SetParams(changed);
  }
};

} // namespace Vela::UiBase
