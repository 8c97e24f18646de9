// SPDX-License-Identifier: MIT
#include <support/rows.h>
#include <support/test_case.h>
#include <vlk_common_res/icons.h>
#include <vlk_common_res/styles.h>

#include <QFile>
#include <QPainter>
#include <QRegularExpression>

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
  const double one = luminance(a);
  const double other = luminance(b);
  return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

QColor over(const QColor& top, const QColor& bottom) {
  QImage pixel(1, 1, QImage::Format_ARGB32);
  pixel.fill(bottom);
  QPainter(&pixel).fillRect(0, 0, 1, 1, top);
  return pixel.pixelColor(0, 0);
}

/// The most frequent fully opaque colour of a picture.
QColor mainColor(const QImage& image) {
  QHash<QRgb, int> counts;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (qAlpha(image.pixel(x, y)) == 255)
        ++counts[image.pixel(x, y)];
  const auto most = std::max_element(counts.cbegin(), counts.cend());
  return most == counts.cend() ? QColor() : QColor(most.key());
}

} // namespace

class CommonResTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void cleanup() { Styles::Instance().setPalette(Light); }

  void textIsReadable_data() {
    const Vela::Test::Rows<EPalette> row("palette");
    row("light", Light);
    row("dark", Dark);
  }
  void textIsReadable() {
    QFETCH(EPalette, palette);
    auto& styles = Styles::Instance();
    styles.setPalette(palette);
    QCOMPARE(Styles::suitablePalette(styles.widgetPalette()), palette);
    for (const QColor& text : {styles.ColorText(), styles.ColorTextTitle(), styles.ColorTextLabel(),
                               styles.ColorTextError(), styles.widgetPalette().color(QPalette::Link)})
      QVERIFY2(contrast(text, styles.ColorWindowBack()) >= READABLE, qPrintable(text.name()));
    // The action panel lets the view shine through.
    for (const QColor& view : {QColor(Qt::black), QColor(Qt::white)}) {
      const QColor panel = over(styles.ColorActionPanelGroupBack(), view);
      QVERIFY(contrast(styles.ColorText(), panel) >= READABLE);
      QVERIFY(contrast(styles.ColorIcon(), panel) >= DISCERNIBLE);
    }
    QVERIFY(contrast(styles.ColorIcon(), styles.ColorToolPaletteMainBack()) >= DISCERNIBLE);
    QVERIFY(contrast(styles.ColorToolButtonArrow(), styles.ColorToolPaletteMainBack()) >= DISCERNIBLE);
    using Role = QPalette::ColorRole;
    const QPalette widgets = styles.widgetPalette();
    for (const auto& [text, back] : {std::pair<Role, Role>{Role::WindowText, Role::Window},
                                     {Role::Text, Role::Base},
                                     {Role::Text, Role::AlternateBase},
                                     {Role::ButtonText, Role::Button},
                                     {Role::PlaceholderText, Role::Base},
                                     {Role::HighlightedText, Role::Highlight},
                                     {Role::ToolTipText, Role::ToolTipBase}})
      QVERIFY2(contrast(widgets.color(text), widgets.color(back)) >= READABLE,
               qPrintable(widgets.color(text).name() + widgets.color(back).name()));
  }

  void theFocusRingStandsOut_data() { textIsReadable_data(); }
  void theFocusRingStandsOut() {
    QFETCH(EPalette, palette);
    auto& styles = Styles::Instance();
    styles.setPalette(palette);
    static const QRegularExpression ring(
        QStringLiteral(":focus[^{]*\\{[^}]*border[^:]*:[^;]*(#\\w{6}|rgb\\([^)]*\\))"));
    for (const QString& sheet : {styles.ToolButtonOnToolPalette(), styles.Separator(), styles.DialogGeneral(),
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
    const auto drawn = [&icon](QIcon::Mode mode) {
      return mainColor(icon.pixmap({48, 48}, 1.0, mode).toImage());
    };
    QCOMPARE(drawn(QIcon::Normal), styles.ColorIcon());
    QCOMPARE(drawn(QIcon::Disabled), styles.ColorIconDisabled());
    QVERIFY(drawn(QIcon::Active) != styles.ColorIcon());
    styles.setPalette(Dark);
    QCOMPARE(drawn(QIcon::Normal), styles.ColorIcon());

    const QIcon fixed = Icons::icon("menu", Qt::magenta);
    QCOMPARE(mainColor(fixed.pixmap(48).toImage()), QColor(Qt::magenta));
    QVERIFY(Icons::icon("no_such_icon").isNull());
    QVERIFY(icon.pixmap(QSize(0, 0)).isNull());
  }

  void iconsAreSharpAtEveryRatio() {
    const QIcon icon = Icons::icon("zoom_in");
    for (const qreal ratio : {1.0, 1.5, 2.0}) {
      const QPixmap pixmap = icon.pixmap(QSize(24, 24), ratio);
      QCOMPARE(pixmap.devicePixelRatio(), ratio);
      QCOMPARE(pixmap.size(), QSize(24, 24) * ratio);
    }
  }
};

VELA_TEST_MAIN(CommonResTest)
#include "common_res_test.moc"
