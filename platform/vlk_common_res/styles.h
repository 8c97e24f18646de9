// SPDX-License-Identifier: MIT
#pragma once

#include <vlk_common_res/palette.h>
#include <vlk_common_res/vlk_common_res_export.h>

#include <QColor>
#include <QFont>
#include <QHash>
#include <QObject>
#include <QPalette>
#include <QString>

namespace Vela::Resource {

/// How serious a message is that is shown in a notification colour.
enum ESeverity : int {
  SeverityInfo = 0,
  SeverityWarning = 1,
  SeverityError = 2,
};

/// The colours of a message bar of one severity. \c text is readable on \c background.
struct NotificationColors {
  QColor background;
  QColor text;
  QColor border;
};

/// The looks that all widgets share: style sheets, colours and fonts, in a light and a dark palette.
///
/// This library is the plain default. An application with its own looks may replace it with a library of the
/// same target and class names; the widgets ask for nothing but what is declared here.
///
/// Values are those of the current palette and are returned by value; whoever keeps one asks again on
/// changed(). All text colours have a contrast of at least 4.5 to the backgrounds they are meant for, except
/// for those of disabled elements. To be used on the main thread only.
///
/// \code
/// auto& styles = Vela::Resource::Styles::Instance();
/// const auto applyStyles = [button] {
///   button->setStyleSheet(Vela::Resource::Styles::Instance().ToolButtonOnToolPalette());
/// };
/// connect(&styles, &Vela::Resource::Styles::changed, button, applyStyles);
/// applyStyles();
///
/// connect(&styles, &Vela::Resource::Styles::widgetPaletteChanged, qApp,
///         [](const QPalette& palette) { QApplication::setPalette(palette); });
/// styles.setPalette(Vela::Resource::Dark);
/// \endcode
class COMMON_RES_EXPORT Styles : public QObject {
  Q_OBJECT

public:
  /// The one instance, made on first use; it lives until the program ends.
  static Styles& Instance();

  /// The palette in use; Light at first.
  EPalette palette() const;
  /// Switches the palette. Emits widgetPaletteChanged() and changed() when this is another palette than
  /// before.
  void setPalette(EPalette palette);
  /// The palette that suits other widgets drawn with \a widgetPalette: Dark where text is lighter than its
  /// background. Given the application's palette this tells what the desktop uses.
  static EPalette suitablePalette(const QPalette& widgetPalette);

  /// The current colours for widgets without a style sheet, to be handed to QApplication::setPalette() by the
  /// application; the library never sets it itself.
  QPalette widgetPalette() const;

  /// \name Style sheets
  /// @{

  /// Tool buttons on a toolbar or an action panel.
  QString ToolButtonOnToolPalette() const;
  /// Drop-down menus.
  QString MenuMain() const;
  /// Separators. A line for a QFrame of shape HLine or VLine; on a tool button, a dividing line on its right
  /// and before its menu arrow.
  QString Separator() const;
  /// Content of tooltips: back, text colour and font of the widget and its labels.
  QString DialogToolTip() const;
  /// Dialogs with the usual entry widgets and buttons.
  QString DialogGeneral() const;
  /// Small buttons in the title line of a window or a panel.
  QString ToolButtonSystem() const;
  /// The same for the button that closes it.
  QString ToolButtonSystemClose() const;
  /// The toolkit widgets: ":/qss/libuitoolkit.css" or its dark counterpart.
  QString UiToolkit() const;
  /// @}

  /// \name Colours
  /// @{

  /// Background of a toolbar over a view.
  QColor ColorToolPaletteMainBack() const;
  /// The lines between the buttons of a toolbar.
  QColor ColorToolPaletteButtonSeparator() const;
  /// Slightly transparent, so that the view below shines through.
  QColor ColorActionPanelGroupBack() const;
  /// Border of the action panel and its groups.
  QColor ColorActionPanelBorder() const;
  /// The arrow in the corner of a button with a menu.
  QColor ColorToolButtonArrow() const;
  /// Background of windows and dialogs.
  QColor ColorWindowBack() const;
  /// Text on ColorWindowBack().
  QColor ColorText() const;
  /// Titles and values.
  QColor ColorTextTitle() const;
  /// Names of values and secondary text.
  QColor ColorTextLabel() const;
  /// Error messages inside a dialog.
  QColor ColorTextError() const;
  /// Selections and keyboard focus; ColorAccentText() is readable on it.
  QColor ColorAccent() const;
  /// Text on the accent colour.
  QColor ColorAccentText() const;
  /// Background of tooltips.
  QColor ColorToolTipBack() const;
  /// Text on ColorToolTipBack().
  QColor ColorToolTipText() const;
  /// Icons that can be used.
  QColor ColorIcon() const;
  /// Icons of what is disabled.
  QColor ColorIconDisabled() const;
  /// What a notification of this severity is painted with.
  NotificationColors ColorsNotification(ESeverity severity) const;
  /// @}

  /// \name Fonts, sized in pixels
  /// @{

  /// 18 px, for titles of panels and dialogs.
  QFont FontTitle() const;
  /// 12 px, for labels, values, tooltips and menus.
  QFont FontLabel() const;
  /// 12 px bold, for names that stand out among labels.
  QFont FontLabelBold() const;
  /// @}

Q_SIGNALS:
  /// The colours for widgets without a style sheet have changed; comes before changed(), so that an
  /// application which hands them to QApplication::setPalette() does so before style sheets are set anew: a
  /// widget that has one passes the palette on to its children only then.
  void widgetPaletteChanged(const QPalette& palette);
  /// The palette is another one; everything returned before is out of date.
  void changed();

private:
  Styles() = default;
  ~Styles() override = default;

  QString sheet(const QString& path) const;

  EPalette m_palette = Light;
  mutable QHash<QString, QString> m_sheets; // of the current palette, by path
};

} // namespace Vela::Resource
