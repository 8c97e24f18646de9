// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/arrow_param.h>

#include <QColor>
#include <QMargins>
#include <QPoint>
#include <QSize>
#include <QString>

namespace Vela::UiBase {

/// Which corners of a toolbar, or of the panel of a button group, are round.
enum EToolBarRoundCorner : int {
  NoRoundCorner = 0,
  OuterRoundCorner = 1, ///< Those away from the edge at which the toolbar stands.
  AllRoundCorners = 2,
};

/// How a popup of a button is placed beside it; see WidgetPosCalculator.
struct ButtonPopupParams {
  /// Whether other arrows may be tried than this one; for menus only.
  bool autoDecide = true;
  SArrowParam arrow;
  EDirection direction = Bottom;
  int distance = 5; ///< In pixels.
  EWidgetsAlign alignment = AlignCenter;
  QPoint offset;

  friend bool operator==(const ButtonPopupParams&, const ButtonPopupParams&) = default;
};

/// The looks and the behaviour of a toolbar: all that ToolBar::CopyAllParametersFrom() copies. Sizes are in
/// pixels. An invalid colour is the one of the shared styles, and follows the palette.
struct ToolBarParams {
  QSize buttonSize = {32, 32}; ///< The least size of a button; empty: as its icon needs.
  QSize iconSize = {24, 24};   ///< Empty: as the icon says.
  int buttonSpacing = 2;
  int groupSpacing = 9;
  QMargins mainMargins = {4, 4, 4, 4};
  QMargins groupMargins;
  QColor backColor;
  QColor groupBackColor = Qt::transparent;
  int borderWidth = 0;
  QColor borderColor;
  bool borderAroundGroups = false;
  QColor separatorColor = Qt::transparent;
  EToolBarRoundCorner barCorners = NoRoundCorner;
  EToolBarRoundCorner groupCorners = NoRoundCorner;
  int cornerRadius = 4;
  Qt::ToolButtonStyle buttonStyle = Qt::ToolButtonIconOnly;
  QString buttonStyleSheet; ///< Empty: the one of the shared styles.
  ButtonPopupParams tooltip = {};
  ButtonPopupParams menu = {};
  QString tooltipGroup;
  QPoint offset;
  bool centered = false;
  bool autoPosition = true;
  bool shadow = true;
  bool hideOnClick = false;
  bool keepStateOnClickOutside = false;

  friend bool operator==(const ToolBarParams&, const ToolBarParams&) = default;
};

} // namespace Vela::UiBase
