// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <vlk_common_res/icons.h>
#include <vlk_common_res/strings.h>
#include <vlk_common_res/styles.h>

#include <QFile>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMovie>
#include <QPainter>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QToolButton>
#include <QTranslator>

#include <cmath>

using namespace Vela::Resource;

Q_DECLARE_METATYPE(Vela::Resource::EPalette)

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

/// The colour of a declaration such as "color: #123456;" in the body of a rule; invalid when there is none.
QColor declared(const QString& body, const char* property) {
  const QRegularExpression pattern(
      QStringLiteral("(?:^|[;\\s])%1:\\s*(#[0-9a-f]{6}|\\w+|rgb\\((\\d+), (\\d+), (\\d+)\\));")
          .arg(QLatin1String(property)));
  const QRegularExpressionMatch match = pattern.match(body);
  if (!match.hasMatch())
    return {};
  if (!match.captured(2).isEmpty())
    return {match.captured(2).toInt(), match.captured(3).toInt(), match.captured(4).toInt()};
  return QColor(match.captured(1));
}

QString readAll(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
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

class PrefixTranslator : public QTranslator {
public:
  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* text, const char* /*disambiguation*/,
                    int /*n*/) const override {
    return QLatin1String(context) + QLatin1Char('/') + QLatin1String(text);
  }
};

} // namespace

class CommonResTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void cleanup() { Styles::Instance().setPalette(Light); }

  void changedIsEmittedOnlyOnChange() {
    auto& styles = Styles::Instance();
    QSignalSpy changed(&styles, &Styles::changed);
    const QColor light = styles.ColorText();
    const QString lightMenu = styles.MenuMain();
    styles.setPalette(Light);
    QCOMPARE(changed.count(), 0);
    styles.setPalette(Dark);
    QCOMPARE(changed.count(), 1);
    QVERIFY(styles.ColorText() != light && styles.MenuMain() != lightMenu);
    styles.setPalette(Light);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(styles.ColorText(), light);
    QCOMPARE(styles.MenuMain(), lightMenu);
  }

  void textIsReadable_data() { paletteRows(); }

  void textIsReadable() {
    QFETCH(EPalette, palette);
    auto& styles = Styles::Instance();
    styles.setPalette(palette);
    QCOMPARE(Styles::suitablePalette(styles.widgetPalette()), palette);
    for (const QColor& text : {styles.ColorText(), styles.ColorTextTitle(), styles.ColorTextLabel(),
                               styles.ColorTextError(), styles.widgetPalette().color(QPalette::Link)})
      for (const QColor& back : {styles.ColorWindowBack(), styles.widgetPalette().color(QPalette::Base)})
        QVERIFY2(contrast(text, back) >= READABLE, qPrintable(text.name() + back.name()));

    QVERIFY(contrast(styles.ColorAccentText(), styles.ColorAccent()) >= READABLE);
    QVERIFY(contrast(styles.ColorToolTipText(), styles.ColorToolTipBack()) >= READABLE);
    for (const auto severity : {SeverityInfo, SeverityWarning, SeverityError}) {
      const NotificationColors colors = styles.ColorsNotification(severity);
      QVERIFY(contrast(colors.text, colors.background) >= READABLE);
    }
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

  void styleSheetsAreWholeAndReadable_data() { paletteRows(); }

  void styleSheetsAreWholeAndReadable() {
    QFETCH(EPalette, palette);
    auto& styles = Styles::Instance();
    styles.setPalette(palette);
    const QRegularExpression rule(QStringLiteral("([^{}]+)\\{([^{}]*)\\}"));
    for (const QString& sheet : {styles.ToolButtonOnToolPalette(), styles.MenuMain(), styles.Separator(),
                                 styles.DialogToolTip(), styles.DialogGeneral(), styles.ToolButtonSystem(),
                                 styles.ToolButtonSystemClose(), styles.UiToolkit()}) {
      QVERIFY(!sheet.isEmpty() && !sheet.contains(QLatin1Char('@')));
      QWidget parsed; // an invalid sheet is reported as a warning
      parsed.setStyleSheet(sheet);
      parsed.ensurePolished();
      for (auto it = rule.globalMatch(sheet); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        QColor back = declared(match.captured(2), "background-color");
        const QColor text = declared(match.captured(2), "color");
        if (!text.isValid() || match.captured(1).contains(QLatin1String(":disabled")))
          continue;
        if (!back.isValid() || back.alpha() == 0)
          back = styles.ColorWindowBack();
        QVERIFY2(contrast(text, back) >= READABLE, qPrintable(match.captured(0)));
      }
      for (auto it = QRegularExpression(QStringLiteral("url\\(([^)]*)\\)")).globalMatch(sheet);
           it.hasNext();) {
        const QString path = it.next().captured(1);
        QVERIFY2(QFile::exists(path), qPrintable(path));
      }
    }
  }

  void separatorSheetDrawsOneLine_data() {
    QTest::addColumn<int>("shape");
    QTest::newRow("horizontal") << int(QFrame::HLine);
    QTest::newRow("vertical") << int(QFrame::VLine);
  }

  void separatorSheetDrawsOneLine() {
    QFETCH(int, shape);
    QFrame line;
    line.setFrameShape(static_cast<QFrame::Shape>(shape));
    line.setStyleSheet(Styles::Instance().Separator());
    line.resize(40, 40);
    line.ensurePolished();
    QCOMPARE(shape == QFrame::HLine ? line.maximumHeight() : line.maximumWidth(), 1);
    QCOMPARE(mainColor(line.grab().toImage()), Styles::Instance().ColorToolPaletteButtonSeparator());
  }

  void checkedToolButtonStandsOut() {
    QToolButton button;
    button.setStyleSheet(Styles::Instance().ToolButtonOnToolPalette());
    button.setCheckable(true);
    button.resize(50, 50);
    const QColor unchecked = mainColor(button.grab().toImage());
    button.setChecked(true);
    QVERIFY(mainColor(button.grab().toImage()) != unchecked);
    button.setChecked(false);
    QCOMPARE(mainColor(button.grab().toImage()), unchecked);
  }

  void toolkitSheetsHaveTheSameRules() {
    const QString light = readAll(QStringLiteral(":/qss/libuitoolkit.css"));
    const QString dark = readAll(QStringLiteral(":/qss/libuitoolkit_dark.css"));
    const QRegularExpression colorValue(QStringLiteral("(rgb\\([^)]*\\)|white)"));
    QCOMPARE(QString(dark).remove(colorValue), QString(light).remove(colorValue));
  }

  void iconsAreDrawnInThePalette() {
    auto& styles = Styles::Instance();
    const QIcon icon = Icons::icon(QStringLiteral("menu"));
    const auto drawn = [&icon](QIcon::Mode mode) {
      return mainColor(icon.pixmap({48, 48}, 1.0, mode).toImage());
    };
    QCOMPARE(drawn(QIcon::Normal), styles.ColorIcon());
    QCOMPARE(drawn(QIcon::Disabled), styles.ColorIconDisabled());
    QVERIFY(drawn(QIcon::Active) != styles.ColorIcon());
    styles.setPalette(Dark);
    QCOMPARE(drawn(QIcon::Normal), styles.ColorIcon());

    const QIcon fixed = Icons::icon(QStringLiteral("menu"), Qt::magenta);
    QCOMPARE(mainColor(fixed.pixmap(48).toImage()), QColor(Qt::magenta));
    QVERIFY(Icons::icon(QStringLiteral("no_such_icon")).isNull());
    QVERIFY(icon.pixmap(QSize(0, 0)).isNull());
  }

  void iconFilesAreLegibleOnBothPalettes() {
    QVERIFY(Icons::names().size() >= 22);
    for (const QString& name : Icons::names()) {
      const QImage image = QIcon(QStringLiteral(":/resources/images/%1.svg").arg(name)).pixmap(96).toImage();
      for (const auto palette : {Light, Dark}) {
        Styles::Instance().setPalette(palette);
        QVERIFY2(contrast(mainColor(image), Styles::Instance().ColorWindowBack()) >= DISCERNIBLE,
                 qPrintable(name));
      }
      QVERIFY2(!Icons::icon(name).pixmap(24).toImage().isNull(), qPrintable(name));
    }
  }

  void iconsAreSharpAtEveryRatio() {
    const QIcon icon = Icons::icon(QStringLiteral("zoom_in"));
    for (const qreal ratio : {1.0, 1.5, 2.0}) {
      const QPixmap pixmap = icon.pixmap(QSize(24, 24), ratio);
      QCOMPARE(pixmap.devicePixelRatio(), ratio);
      QCOMPARE(pixmap.size(), QSize(24, 24) * ratio);

      QImage canvas(QSize(40, 24) * ratio, QImage::Format_ARGB32_Premultiplied);
      canvas.setDevicePixelRatio(ratio);
      canvas.fill(Qt::transparent);
      QPainter painter(&canvas);
      icon.paint(&painter, QRect(0, 0, 40, 24));
      painter.end();
      const QRect middle(QPoint(8, 0) * ratio, QSize(24, 24) * ratio);
      QCOMPARE(canvas.copy(middle), pixmap.toImage().convertToFormat(canvas.format()));
    }
  }

  void picturesComeInTwoSizes() {
    const QString folder = QStringLiteral(":/resources/images/");
    for (const char* name :
         {"lock_normal.png", "sys_hseparator.png", "sys_vseparator.png", "sys_sample.png"}) {
      const QString path = folder + QLatin1String(name);
      const QImage single(path);
      QVERIFY2(!single.isNull(), name);
      const QString larger = Icons::pathForRatio(path, 2.0);
      QVERIFY(larger != path);
      QCOMPARE(QImage(larger).size(), single.size() * 2);
      for (const qreal ratio : {1.0, 2.0}) {
        const QPixmap shown = Icons::picture(path, ratio);
        QCOMPARE(shown.devicePixelRatio(), ratio);
        QCOMPARE(shown.deviceIndependentSize(), QSizeF(single.size()));
      }
    }
    QCOMPARE(Icons::pathForRatio(folder + QLatin1String("menu.svg"), 2.0),
             folder + QLatin1String("menu.svg"));
    QCOMPARE(Icons::pathForRatio(QStringLiteral("../a.b/c"), 2.0), QStringLiteral("../a.b/c"));
  }

  void loaderIsAnEndlessAnimation() {
    const QString path = QStringLiteral(":/resources/images/sys_loader-16x16.gif");
    for (const qreal ratio : {1.0, 2.0}) {
      QMovie movie(Icons::pathForRatio(path, ratio));
      QVERIFY(movie.isValid() && movie.frameCount() > 1);
      QCOMPARE(movie.loopCount(), -1);
      QVERIFY(movie.jumpToNextFrame() && movie.nextFrameDelay() > 0);
      QCOMPARE(movie.currentImage().size(), QSize(16, 16) * ratio);
    }
  }

  void identifiersStayTextsAreTranslated() {
    const auto identifiers = [] {
      return QStringList{String::COMMAND_DEFAULT_GROUP(),
                         String::COMMAND_TOOLPANEL_GROUP_ID(),
                         String::COMMAND_DYNAMIC_TOOLPANEL_GROUP_ID(),
                         String::COMMAND_ACTIONPANEL_GROUP_ID(),
                         String::TAG_FLYOUT(),
                         QLatin1String(String::WIDGET_PROPERTY_ISFLYOUT())};
    };
    const auto texts = [] {
      return QStringList{String::ACTIONS_GROUP_TEXT(), String::TOOLS_GROUP_TEXT(),
                         String::DYNAMIC_TOOLS_GROUP_TEXT(), String::NOT_APPLICABLE_LABEL_TEXT()};
    };
    const QStringList before = identifiers();
    QCOMPARE(QSet<QString>(before.cbegin(), before.cend()).size(), before.size());
    QVERIFY(!before.contains(QString()));

    PrefixTranslator translator;
    QCoreApplication::installTranslator(&translator);
    QCOMPARE(identifiers(), before);
    for (const QString& text : texts())
      QVERIFY2(text.startsWith(QLatin1String("Vela::Resource::String/")), qPrintable(text));
    QCoreApplication::removeTranslator(&translator);

    QWidget widget;
    widget.setProperty(String::WIDGET_PROPERTY_ISFLYOUT(), true);
    QVERIFY(widget.property("is_flyout").toBool());
  }

private:
  static void paletteRows() {
    QTest::addColumn<EPalette>("palette");
    QTest::newRow("light") << Light;
    QTest::newRow("dark") << Dark;
  }
};

VELA_TEST_MAIN(CommonResTest)
#include "common_res_test.moc"
