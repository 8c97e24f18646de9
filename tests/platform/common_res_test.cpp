// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <vlk_common_res/icons.h>
#include <vlk_common_res/styles.h>

#include <cmath>

using namespace Vela::Resource;

namespace {

constexpr double READABLE = 4.5;
constexpr double DISCERNIBLE = 3.0; // of marks that are not text

double luminance(const QColor& color) {
  const auto linear = [](double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b) {
  const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
  return (light + 0.05) / (dark + 0.05);
}

} // namespace

class CommonResTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void cleanup() { Styles::Instance().setPalette(Light); }

  void textIsReadable() {
    using Role = QPalette::ColorRole;
    auto& styles = Styles::Instance();
    for (const EPalette palette : {Light, Dark}) {
      styles.setPalette(palette);
      for (const QColor& text :
           {styles.ColorText(), styles.ColorTextTitle(), styles.ColorTextLabel(), styles.ColorTextError()})
        QVERIFY2(contrast(text, styles.ColorWindowBack()) >= READABLE, qPrintable(text.name()));
      const QPalette widgets = styles.widgetPalette();
      for (const auto& [text, back] : {std::pair<Role, Role>{Role::WindowText, Role::Window},
                                       {Role::Text, Role::Base},
                                       {Role::ButtonText, Role::Button},
                                       {Role::PlaceholderText, Role::Base},
                                       {Role::HighlightedText, Role::Highlight},
                                       {Role::ToolTipText, Role::ToolTipBase}})
        QVERIFY2(contrast(widgets.color(text), widgets.color(back)) >= READABLE,
                 qPrintable(widgets.color(text).name() + widgets.color(back).name()));
    }
  }

  void theFocusRingStandsOut() {
    auto& styles = Styles::Instance();
    static const QRegularExpression ring(
        QStringLiteral(":focus[^{]*\\{[^}]*border[^:]*:[^;]*(#\\w{6}|rgb\\([^)]*\\))"));
    for (const EPalette palette : {Light, Dark}) {
      styles.setPalette(palette);
      for (const QString& sheet :
           {styles.ToolButtonOnToolPalette(), styles.Separator(), styles.DialogGeneral(),
            styles.ToolButtonSystem(), styles.ToolButtonSystemClose()}) {
        auto found = ring.globalMatch(sheet);
        QVERIFY(found.hasNext());
        while (found.hasNext()) {
          const QColor color(found.next().captured(1));
          for (const QColor& back : {styles.ColorWindowBack(), styles.ColorToolPaletteMainBack(),
                                     styles.widgetPalette().color(QPalette::Base)})
            QVERIFY2(contrast(color, back) >= DISCERNIBLE, qPrintable(sheet));
        }
      }
    }
  }

  void styleSheetsAreWhole() {
    auto& styles = Styles::Instance();
    for (const QString& sheet : {styles.ToolButtonOnToolPalette(), styles.MenuMain(), styles.Separator(),
                                 styles.DialogToolTip(), styles.DialogGeneral(), styles.ToolButtonSystem(),
                                 styles.ToolButtonSystemClose(), styles.UiToolkit()}) {
      QVERIFY(!sheet.isEmpty() && !sheet.contains(QLatin1Char('@')));
      QWidget parsed; // an invalid sheet is reported as a warning
      parsed.setStyleSheet(sheet);
      parsed.ensurePolished();
      for (auto it = QRegularExpression(QStringLiteral("url\\(([^)]*)\\)")).globalMatch(sheet);
           it.hasNext();) {
        const QString path = it.next().captured(1);
        QVERIFY2(QFile::exists(path), qPrintable(path));
      }
    }
  }

  void iconsAreDrawnInThePalette() {
    auto& styles = Styles::Instance();
    const QIcon icon = Icons::icon("menu");
    for (const EPalette palette : {Light, Dark}) {
      styles.setPalette(palette);
      const QImage image = icon.pixmap({24, 24}, 1.5).toImage();
      QCOMPARE(image.size(), QSize(36, 36));
      QCOMPARE(image.pixelColor(18, 18), styles.ColorIcon()); // of the bar in the middle
    }
    QVERIFY(Icons::icon("no_such_icon").isNull() && icon.pixmap(QSize(0, 0)).isNull());
  }
};

VELA_TEST_MAIN(CommonResTest)
#include "common_res_test.moc"
