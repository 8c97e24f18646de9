// SPDX-License-Identifier: MIT
#include "color_scheme.h"

#include <QFile>

#include <algorithm>
#include <array>

namespace Vela::Resource {

namespace {

ColorScheme lightScheme() {
  return {
      .window = {244, 245, 247},
      .base = {255, 255, 255},
      .button = {252, 252, 253},
      .text = {40, 44, 50},
      .textTitle = {64, 64, 64},
      .textLabel = {96, 96, 96},
      .textDisabled = {150, 155, 161},
      .border = {190, 196, 203},
      .separator = {208, 212, 217},
      .accent = {31, 106, 184},
      .accentText = {255, 255, 255},
      .focus = {31, 106, 184},
      .link = {24, 92, 166},
      .hover = {225, 233, 242},
      .pressed = {200, 215, 231},
      .checked = {208, 224, 241},
      .textError = {176, 32, 32},
      .danger = {196, 43, 43},
      .dangerText = {255, 255, 255},
      .toolTipBack = {255, 255, 255},
      .toolTipText = {64, 64, 64},
      .toolPaletteBack = {240, 242, 244},
      .actionPanelGroupBack = {236, 240, 244, 235},
      .actionPanelBorder = {190, 198, 206},
      .toolButtonArrow = {96, 96, 96},
      .icon = {76, 84, 94},
      .iconDisabled = {172, 178, 185},
      .info = {{226, 239, 252}, {20, 60, 104}, {122, 174, 224}},
      .warning = {{255, 244, 214}, {92, 62, 4}, {226, 180, 74}},
      .error = {{253, 228, 226}, {120, 24, 20}, {226, 130, 124}},
  };
}

ColorScheme darkScheme() {
  return {
      .window = {43, 45, 48},
      .base = {34, 36, 39},
      .button = {58, 61, 66},
      .text = {226, 229, 233},
      .textTitle = {232, 234, 237},
      .textLabel = {181, 187, 194},
      .textDisabled = {122, 128, 135},
      .border = {86, 91, 98},
      .separator = {72, 76, 82},
      .accent = {46, 111, 181},
      .accentText = {255, 255, 255},
      .focus = {122, 182, 245},
      .link = {122, 182, 245},
      .hover = {64, 70, 78},
      .pressed = {48, 66, 88},
      .checked = {52, 76, 104},
      .textError = {255, 150, 144},
      .danger = {196, 54, 50},
      .dangerText = {255, 255, 255},
      .toolTipBack = {54, 57, 62},
      .toolTipText = {226, 229, 233},
      .toolPaletteBack = {48, 51, 55},
      .actionPanelGroupBack = {56, 60, 65, 235},
      .actionPanelBorder = {88, 94, 102},
      .toolButtonArrow = {181, 187, 194},
      .icon = {200, 206, 213},
      .iconDisabled = {104, 110, 117},
      .info = {{31, 52, 76}, {208, 228, 250}, {66, 112, 162}},
      .warning = {{70, 55, 18}, {252, 230, 176}, {150, 116, 38}},
      .error = {{80, 32, 32}, {255, 214, 210}, {164, 70, 66}},
  };
}

struct Token {
  const char* name;
  QColor ColorScheme::*color;
};

constexpr std::array TOKENS{
    Token{"window", &ColorScheme::window},
    Token{"base", &ColorScheme::base},
    Token{"button", &ColorScheme::button},
    Token{"text", &ColorScheme::text},
    Token{"textLabel", &ColorScheme::textLabel},
    Token{"textTitle", &ColorScheme::textTitle},
    Token{"textDisabled", &ColorScheme::textDisabled},
    Token{"border", &ColorScheme::border},
    Token{"separator", &ColorScheme::separator},
    Token{"accent", &ColorScheme::accent},
    Token{"accentText", &ColorScheme::accentText},
    Token{"focus", &ColorScheme::focus},
    Token{"hover", &ColorScheme::hover},
    Token{"pressed", &ColorScheme::pressed},
    Token{"checked", &ColorScheme::checked},
    Token{"danger", &ColorScheme::danger},
    Token{"dangerText", &ColorScheme::dangerText},
    Token{"toolTipBack", &ColorScheme::toolTipBack},
    Token{"toolTipText", &ColorScheme::toolTipText},
};

QString colorOfToken(QStringView name, const ColorScheme& scheme) {
  const auto* const found = std::find_if(
      TOKENS.begin(), TOKENS.end(), [name](const Token& token) { return name == QLatin1String(token.name); });
  return found == TOKENS.end() ? u'@' + name.toString() : (scheme.*found->color).name();
}

} // namespace

const ColorScheme& colorScheme(EPalette palette) {
  static const ColorScheme light = lightScheme();
  static const ColorScheme dark = darkScheme();
  return palette == Dark ? dark : light;
}

QString expandStyleSheet(const QString& path, const ColorScheme& scheme) {
  QFile file(path);
  const bool opened = file.open(QIODevice::ReadOnly | QIODevice::Text);
  Q_ASSERT(opened);
  if (!opened)
    return {};
  const QString source = QString::fromUtf8(file.readAll());

  const auto isOfToken = [](QChar c) { return c.isLetterOrNumber(); };
  QString result;
  qsizetype copied = 0;
  for (auto at = source.indexOf(u'@'); at >= 0; at = source.indexOf(u'@', copied)) {
    const auto name = source.cbegin() + at + 1;
    const auto end = std::find_if_not(name, source.cend(), isOfToken);
    result += QStringView(source).mid(copied, at - copied);
    result += colorOfToken(QStringView(name, end), scheme);
    copied = end - source.cbegin();
  }
  result += QStringView(source).mid(copied);
  return result;
}

} // namespace Vela::Resource
