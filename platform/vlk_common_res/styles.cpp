// SPDX-License-Identifier: MIT
#include "styles.h"

#include "color_scheme.h"

#include <QFontDatabase>
#include <QGuiApplication>

#include <algorithm>

namespace Vela::Resource {

namespace {

// One family only: with more, Qt has the system sort all its fonts by likeness to each as soon as the font is
// used, instead of when a character is missing.
QString arialLikeFamily() {
  const QStringList wanted{QStringLiteral("Arial"), QStringLiteral("Liberation Sans"),
                           QStringLiteral("Helvetica")};
  const QStringList installed = QFontDatabase::families();
  const auto found = std::find_if(wanted.begin(), wanted.end(),
                                  [&](const QString& family) { return installed.contains(family); });
  return found == wanted.end() ? wanted.constFirst() : *found;
}

QFont arial(int pixelSize, QFont::Weight weight = QFont::Normal) {
  static QString family;
  if (family.isEmpty() && qGuiApp) // which the fonts of the system need
    family = arialLikeFamily();
  QFont font;
  font.setFamilies({family.isEmpty() ? QStringLiteral("Arial") : family});
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(pixelSize);
  font.setWeight(weight);
  return font;
}

} // namespace

Styles& Styles::Instance() {
  static Styles instance;
  return instance;
}

EPalette Styles::palette() const { return m_palette; }

void Styles::setPalette(EPalette palette) {
  if (palette == m_palette)
    return;
  m_palette = palette;
  m_sheets.clear();
  Q_EMIT widgetPaletteChanged(widgetPalette());
  if (m_palette != palette) // one who heard of it has switched again, and others heard of that before
    Q_EMIT widgetPaletteChanged(widgetPalette());
  Q_EMIT changed();
}

EPalette Styles::suitablePalette(const QPalette& widgetPalette) {
  const auto lightness = [&](QPalette::ColorRole role) { return widgetPalette.color(role).lightness(); };
  return lightness(QPalette::WindowText) > lightness(QPalette::Window) ? Dark : Light;
}

QPalette Styles::widgetPalette() const {
  const ColorScheme& colors = colorScheme(m_palette);
  // The constructor derives the shades that frames are drawn with.
  QPalette result(colors.button, colors.window);
  result.setColor(QPalette::Window, colors.window);
  result.setColor(QPalette::Base, colors.base);
  result.setColor(QPalette::AlternateBase, colors.window);
  result.setColor(QPalette::Button, colors.button);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    result.setColor(role, colors.text);
  result.setColor(QPalette::PlaceholderText, colors.textLabel);
  result.setColor(QPalette::Highlight, colors.accent);
  result.setColor(QPalette::HighlightedText, colors.accentText);
  result.setColor(QPalette::ToolTipBase, colors.toolTipBack);
  result.setColor(QPalette::ToolTipText, colors.toolTipText);
  result.setColor(QPalette::Link, colors.link);
  result.setColor(QPalette::LinkVisited, colors.link);
  for (const auto role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText})
    result.setColor(QPalette::Disabled, role, colors.textDisabled);
  result.setColor(QPalette::Disabled, QPalette::Base, colors.window);
  result.setColor(QPalette::Disabled, QPalette::Highlight, colors.separator);
  result.setColor(QPalette::Disabled, QPalette::HighlightedText, colors.text);
  return result;
}

QString Styles::sheet(const QString& path) const {
  QString& text = m_sheets[path];
  if (text.isNull())
    text = expandStyleSheet(path, colorScheme(m_palette));
  return text;
}

QString Styles::ToolButtonOnToolPalette() const {
  return sheet(QStringLiteral(":/qss/tool_button_on_tool_palette.qss"));
}

QString Styles::MenuMain() const { return sheet(QStringLiteral(":/qss/menu_main.qss")); }

QString Styles::Separator() const { return sheet(QStringLiteral(":/qss/separator.qss")); }

QString Styles::DialogToolTip() const { return sheet(QStringLiteral(":/qss/dialog_tool_tip.qss")); }

QString Styles::DialogGeneral() const { return sheet(QStringLiteral(":/qss/dialog_general.qss")); }

QString Styles::ToolButtonSystem() const { return sheet(QStringLiteral(":/qss/tool_button_system.qss")); }

QString Styles::ToolButtonSystemClose() const {
  return sheet(QStringLiteral(":/qss/tool_button_system_close.qss"));
}

QString Styles::UiToolkit() const {
  return sheet(m_palette == Dark ? QStringLiteral(":/qss/libuitoolkit_dark.css")
                                 : QStringLiteral(":/qss/libuitoolkit.css"));
}

QColor Styles::ColorToolPaletteMainBack() const { return colorScheme(m_palette).toolPaletteBack; }

QColor Styles::ColorToolPaletteButtonSeparator() const { return colorScheme(m_palette).separator; }

QColor Styles::ColorActionPanelGroupBack() const { return colorScheme(m_palette).actionPanelGroupBack; }

QColor Styles::ColorActionPanelBorder() const { return colorScheme(m_palette).actionPanelBorder; }

QColor Styles::ColorToolButtonArrow() const { return colorScheme(m_palette).toolButtonArrow; }

QColor Styles::ColorWindowBack() const { return colorScheme(m_palette).window; }

QColor Styles::ColorText() const { return colorScheme(m_palette).text; }

QColor Styles::ColorTextTitle() const { return colorScheme(m_palette).textTitle; }

QColor Styles::ColorTextLabel() const { return colorScheme(m_palette).textLabel; }

QColor Styles::ColorTextError() const { return colorScheme(m_palette).textError; }

QColor Styles::ColorAccent() const { return colorScheme(m_palette).accent; }

QColor Styles::ColorAccentText() const { return colorScheme(m_palette).accentText; }

QColor Styles::ColorToolTipBack() const { return colorScheme(m_palette).toolTipBack; }

QColor Styles::ColorToolTipText() const { return colorScheme(m_palette).toolTipText; }

QColor Styles::ColorIcon() const { return colorScheme(m_palette).icon; }

QColor Styles::ColorIconDisabled() const { return colorScheme(m_palette).iconDisabled; }

NotificationColors Styles::ColorsNotification(ESeverity severity) const {
  const ColorScheme& colors = colorScheme(m_palette);
  switch (severity) {
  case SeverityWarning:
    return colors.warning;
  case SeverityError:
    return colors.error;
  case SeverityInfo:
    break;
  }
  return colors.info;
}

QFont Styles::FontTitle() const { return arial(18); }

QFont Styles::FontLabel() const { return arial(12); }

QFont Styles::FontLabelBold() const { return arial(12, QFont::Bold); }

} // namespace Vela::Resource
