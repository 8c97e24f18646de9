// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/toolbars/tool_bar_params.h>
#include <ui_base/ui_base_export.h>

namespace Vela::UiBase {

/// What can be chosen about a toolbar, one by one: each setter changes one of ToolBarParams, for the buttons
/// that are there and for those to come. A base of ToolBar.
class UI_BASE_EXPORT ToolBarLooks {
public:
  /// All looks at once.
  virtual const ToolBarParams& Params() const = 0;
  /// Takes all of them over. What does not differ is left alone.
  virtual void SetParams(const ToolBarParams& params) = 0;

  /// \name Buttons
  /// @{

  /// Of one button, in pixels.
  void SetButtonSize(const QSize& size) { Set(&ToolBarParams::buttonSize, size); }
  /// See SetButtonSize().
  QSize ButtonSize() const { return Params().buttonSize; }
  /// Of the icon on a button, in pixels.
  void SetIconSize(const QSize& size) { Set(&ToolBarParams::iconSize, size); }
  /// See SetIconSize().
  QSize IconSize() const { return Params().iconSize; }
  /// Between two buttons of a group, in pixels.
  void SetButtonSpacing(int spacing) { Set(&ToolBarParams::buttonSpacing, spacing); }
  /// See SetButtonSpacing().
  int ButtonSpacing() const { return Params().buttonSpacing; }
  /// Between two groups, in pixels.
  void SetButtonGroupSpacing(int spacing) { Set(&ToolBarParams::groupSpacing, spacing); }
  /// See SetButtonGroupSpacing().
  int ButtonGroupSpacing() const { return Params().groupSpacing; }
  /// Whether buttons show icon, text or both.
  void SetToolButtonStyle(Qt::ToolButtonStyle style) { Set(&ToolBarParams::buttonStyle, style); }
  /// See SetToolButtonStyle().
  Qt::ToolButtonStyle ToolButtonStyle() const { return Params().buttonStyle; }
  /// What is laid over the style of the buttons; empty for none.
  QString ButtonStyleSheet() const { return Params().buttonStyleSheet; }
  /// @}

  /// \name Background
  /// An invalid colour is the one of the shared styles.
  /// @{

  /// Around all groups, in pixels.
  void SetMainContentMargins(const QMargins& margins) { Set(&ToolBarParams::mainMargins, margins); }
  /// See SetMainContentMargins().
  QMargins MainContentMargins() const { return Params().mainMargins; }
  /// Within a group, in pixels.
  void SetGroupContentMargins(const QMargins& margins) { Set(&ToolBarParams::groupMargins, margins); }
  /// See SetGroupContentMargins().
  QMargins GroupContentMargins() const { return Params().groupMargins; }
  /// Of the whole bar.
  void SetBackColor(const QColor& color) { Set(&ToolBarParams::backColor, color); }
  /// See SetBackColor().
  QColor BackColor() const { return Params().backColor; }
  /// Of each group.
  void SetGroupBackColor(const QColor& color) { Set(&ToolBarParams::groupBackColor, color); }
  /// See SetGroupBackColor().
  QColor GroupBackColor() const { return Params().groupBackColor; }
  /// @param aroundGroups around each group of buttons, otherwise around the bar.
  void SetBorder(int width, const QColor& color, bool aroundGroups);
  /// In pixels; 0 for none.
  int BorderWidth() const { return Params().borderWidth; }
  /// The colour SetBorder() has set.
  QColor BorderColor() const { return Params().borderColor; }
  /// Whether each group has the border, not the bar.
  bool BorderAroundGroups() const { return Params().borderAroundGroups; }
  /// The lines between the buttons of a group.
  void SetButtonSeparatorColor(const QColor& color) { Set(&ToolBarParams::separatorColor, color); }
  /// See SetButtonSeparatorColor().
  QColor ButtonSeparatorColor() const { return Params().separatorColor; }
  /// Which corners of the bar and of its groups are round, and how much, in pixels.
  void SetRoundCorner(EToolBarRoundCorner bar, EToolBarRoundCorner groups, int radius);
  /// What was set on the shadow itself comes back with it.
  void EnableShadow(bool enable) { Set(&ToolBarParams::shadow, enable); }
  /// Whether the bar throws a shadow.
  bool IsShadowEnabled() const { return Params().shadow; }
  /// @}

  /// \name Popups of the buttons
  /// @{

  /// For the tooltips of buttons added from now on.
  void SetButtonDefaultTooltipParameters(const SArrowParam& arrow, EDirection direction, int distance,
                                         EWidgetsAlign alignment, const QPoint& offset = {});
  /// @param autoDecide whether a flyout may use other arrows where this one does not fit.
  void SetButtonDefaultMenuParameters(bool autoDecide, const SArrowParam& arrow, EDirection direction,
                                      int distance, EWidgetsAlign alignment, const QPoint& offset = {});
  /// The group of the buttons' tooltips, of which one is shown at a time.
  void SetTooltipGroup(const QString& name) { Set(&ToolBarParams::tooltipGroup, name); }
  /// See SetTooltipGroup().
  QString TooltipGroup() const { return Params().tooltipGroup; }
  /// @}

  /// \name Place
  /// @{

  /// Whether the bar follows its edge of the parent.
  void SetEnableAutoPosition(bool enable) { Set(&ToolBarParams::autoPosition, enable); }
  /// Whether the bar places itself when its parent changes.
  bool IsAutoPositionEnabled() const { return Params().autoPosition; }
  /// In the middle of the edge; otherwise at the start of it.
  void SetCentered(bool centered) { Set(&ToolBarParams::centered, centered); }
  /// See SetCentered().
  bool IsCentered() const { return Params().centered; }
  /// The distance from the edge, and from the start of the edge unless centred.
  void SetOffset(const QPoint& offset) { Set(&ToolBarParams::offset, offset); }
  /// See SetOffset().
  QPoint Offset() const { return Params().offset; }
  /// @}

  /// \name Clicks
  /// @{

  /// Whether a click on a plain button closes the bar, or the menu that it is.
  void SetHideOnClick(bool hide) { Set(&ToolBarParams::hideOnClick, hide); }
  /// See SetHideOnClick().
  bool HideOnClick() const { return Params().hideOnClick; }
  /// Whether the bar, as the menu of a button, stays open when the user clicks elsewhere.
  void SetKeepStateOnClickOutside(bool keep) { Set(&ToolBarParams::keepStateOnClickOutside, keep); }
  /// See SetKeepStateOnClickOutside().
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
