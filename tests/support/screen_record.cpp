// SPDX-License-Identifier: MIT
#include "screen_record.h"

#include "test_case.h"
#include "widget_list.h"

#include <vlk_common_res/styles.h>

#include <algorithm>
#include <utility>

namespace Vela::Test {

namespace {

constexpr int AnimationFrameMs = 20;

QString pathOf(QString name, const char* suffix) {
  static const QRegularExpression notInFileNames(QStringLiteral("[^a-z0-9]+"));
  return QStringLiteral(VELA_SCREENS "/") + name.replace(notInFileNames, QStringLiteral("_")) +
         QLatin1String(suffix);
}

QImage picture(const QWidgetList& windows) {
  QRect area;
  for (const QWidget* const each : windows)
    area |= each->geometry();
  QImage image(area.size(), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::magenta);
  QPainter painter(&image);
  for (QWidget* const each : windows)
    painter.drawPixmap(each->geometry().topLeft() - area.topLeft(), each->grab());
  return image;
}

/// Once nothing moves any more.
QImage stillPicture() {
  QImage image;
  const bool isStill = QTest::qWaitFor([&image] {
    settle();
    const QImage before = std::exchange(image, picture(visibleWindows()));
    QTest::qWait(AnimationFrameMs);
    return image == before;
  });
  return isStill ? image : QImage();
}

bool isMirrored() {
  const QWidgetList windows = visibleWindows();
  return std::any_of(windows.begin(), windows.end(),
                     [](const QWidget* each) { return each->isRightToLeft(); });
}

/// In the resolution of the screen, which an image would not ask for.
QImage letters() {
  QPixmap pixmap(160, 40);
  pixmap.fill(Qt::white);
  QPainter painter(&pixmap);
  painter.drawText(pixmap.rect(), Qt::AlignCenter, QStringLiteral("Quick Hamburgefonts"));
  painter.end();
  return pixmap.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

bool isRecording() { return qEnvironmentVariableIsSet("VELA_RECORD_SCREENS"); }

/// Beside the program, under the name of the file that it is compared with.
QString saved(const QImage& image, const QString& file) {
  QString here = QDir::current().filePath(QFileInfo(file).fileName());
  image.save(here);
  return here;
}

/// Records what is seen, or compares it; the list of widgets is the first one's only.
QString pictureDifference(const QImage& now, const QString& name, const char* variant = "") {
  const QString file = pathOf(name, variant) + QLatin1String(".png");
  if (isRecording())
    return now.save(file, "PNG", 0) ? QString() : QStringLiteral("cannot be written");
  if (now == QImage(file).convertToFormat(now.format()))
    return {};
  return QStringLiteral("not the picture %1; now: %2").arg(file, saved(now, file));
}

QString listDifference(const QString& name) {
  const QStringList lines = visibleWidgets();
  QFile file(pathOf(name, ".txt"));
  if (isRecording()) {
    const QByteArray text = lines.join(QLatin1Char('\n')).toUtf8() + '\n';
    return file.open(QIODevice::WriteOnly) && file.write(text) > 0 ? QString()
                                                                   : QStringLiteral("cannot be written");
  }
  if (!file.open(QIODevice::ReadOnly))
    return QStringLiteral("not recorded");
  return firstDifference(lines, QString::fromUtf8(file.readAll()).trimmed().split(QLatin1Char('\n')));
}

void makeDark(bool dark) { Resource::Styles::Instance().setPalette(dark ? Resource::Dark : Resource::Light); }

class Capitals : public QTranslator {
public:
  bool isEmpty() const override { return false; }
  QString translate(const char*, const char* text, const char*, int) const override {
    return QString::fromUtf8(text).toUpper();
  }
};

void translate(bool translated) {
  static Capitals language;
  translated ? QCoreApplication::installTranslator(&language) : QCoreApplication::removeTranslator(&language);
}

void enlarge(bool large) {
  static const QFont before = QApplication::font();
  QFont font = before;
  font.setPixelSize(QFontInfo(before).pixelSize() + (large ? 4 : 0));
  QApplication::setFont(large ? font : before);
}

void mirror(bool mirrored) { QApplication::setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight); }

} // namespace

bool drawsAsRecorded() {
  static const bool result = [] {
    if (QGuiApplication::platformName() != QLatin1String("offscreen") || qApp->devicePixelRatio() != 1)
      return false;
    const QImage now = letters();
    if (isRecording())
      now.save(pathOf(QStringLiteral("letters"), ".png"));
    const QImage then(pathOf(QStringLiteral("letters"), ".png"));
    const bool same = QLatin1String(qVersion()).startsWith(QLatin1String("6.4.")) &&
                      now == then.convertToFormat(now.format());
    if (!same)
      qInfo("Letters are drawn otherwise than when the screens were recorded: none is compared.");
    return same;
  }();
  return result;
}

QString differenceFromScreen(const QString& name, EVariants variants) {
  if (!drawsAsRecorded())
    return {};
  const QImage image = stillPicture();
  QString difference = listDifference(name);
  if (difference.isEmpty())
    difference = pictureDifference(image, name);
  for (const auto& [change, variant] : {std::pair(&makeDark, "-dark"), std::pair(&translate, "-translated"),
                                        std::pair(&enlarge, "-large"), std::pair(&mirror, "-mirrored")}) {
    if (!difference.isEmpty() || variants == OnlyAsItIs || (variants == AlsoDark && change != &makeDark) ||
        (change == &mirror && isMirrored()))
      break;
    change(true);
    difference = pictureDifference(stillPicture(), name, variant);
    change(false);
    if (const QImage after = stillPicture(); difference.isEmpty() && after != image)
      difference = QStringLiteral("it does not come back from %1: %2")
                       .arg(QLatin1String(variant), saved(after, pathOf(name, "-after.png")));
  }
  return difference;
}

} // namespace Vela::Test
