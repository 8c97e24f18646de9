// SPDX-License-Identifier: MIT
#include "screen_record.h"

#include "test_case.h"

#include <vlk_common_res/styles.h>

#include <QAccessible>
#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QMetaEnum>
#include <QPainter>
#include <QPixmap>
#include <QRegularExpression>
#include <QTranslator>
#include <QWidget>

#include <algorithm>
#include <tuple>
#include <utility>

namespace Vela::Test {

namespace {

constexpr int AnimationFrameMs = 20;

QString pathOf(QString name, const char* suffix) {
  static const QRegularExpression notInFileNames(QStringLiteral("[^a-z0-9]+"));
  return QStringLiteral(VELA_SCREENS "/") + name.replace(notInFileNames, QStringLiteral("_")) +
         QLatin1String(suffix);
}

/// Those at the back first; Qt's own order is by address.
QWidgetList visibleWindows() {
  QWidgetList windows;
  for (QWidget* const each : QApplication::topLevelWidgets()) {
    if (each->isVisible())
      windows += each;
  }
  const auto rank = [](const QWidget* window) {
    const QRect place = window->geometry();
    return std::tuple(window->windowType() != Qt::Window, -place.width() * place.height(), place.y(),
                      place.x(), QByteArray(window->metaObject()->className()));
  };
  std::sort(windows.begin(), windows.end(),
            [&rank](const QWidget* one, const QWidget* other) { return rank(one) < rank(other); });
  return windows;
}

QString placeOf(const QRect& place) {
  return QStringLiteral("%1,%2 %3x%4").arg(place.x()).arg(place.y()).arg(place.width()).arg(place.height());
}

template <typename Enum>
QString nameOf(Enum value) {
  return QLatin1String(QMetaEnum::fromType<Enum>().valueToKey(value));
}

QStringList forReaders(const QAccessibleInterface& reader) {
  const QAccessible::State state = reader.state();
  const std::pair<bool, const char*> flags[] = {
      {state.disabled, "disabled"},   {state.focusable, "focusable"}, {state.focused, "focused"},
      {state.checkable, "checkable"}, {state.checked, "checked"},     {state.pressed, "pressed"},
      {state.hasPopup, "has popup"},  {state.expanded, "expanded"},   {state.readOnly, "read only"},
      {state.invisible, "invisible"}, {state.modal, "modal"},         {state.defaultButton, "default"}};
  QStringList facts{nameOf(reader.role())};
  for (const auto& [isSet, name] : flags) {
    if (isSet)
      facts += QLatin1String(name);
  }
  for (const QAccessible::Text kind : {QAccessible::Name, QAccessible::Description, QAccessible::Value}) {
    const QString text = reader.text(kind).left(100).replace(QLatin1Char('\n'), QLatin1Char('/'));
    if (!text.isEmpty())
      facts += QLatin1Char('"') + text + QLatin1Char('"');
  }
  return facts;
}

QStringList forMouseAndKeys(const QWidget& widget) {
  const std::pair<Qt::WidgetAttribute, const char*> attributes[] = {
      {Qt::WA_TransparentForMouseEvents, "lets the mouse through"},
      {Qt::WA_NoMousePropagation, "keeps the mouse"},
      {Qt::WA_Hover, "hovers"},
      {Qt::WA_TranslucentBackground, "translucent"},
      {Qt::WA_ShowWithoutActivating, "does not activate"},
      {Qt::WA_RightToLeft, "mirrored"},
      {Qt::WA_DeleteOnClose, "dies when closed"}};
  QStringList facts{nameOf(widget.focusPolicy())};
  if (widget.testAttribute(Qt::WA_SetCursor))
    facts += nameOf(widget.cursor().shape());
  for (const auto& [attribute, name] : attributes) {
    if (widget.testAttribute(attribute))
      facts += QLatin1String(name);
  }
  return facts;
}

void list(QWidget& widget, const QPoint& origin, const QString& indent, QStringList& lines) {
  const QRect place(widget.isWindow() ? widget.pos() - origin : widget.pos(), widget.size());
  QAccessibleInterface* const reader = QAccessible::queryAccessibleInterface(&widget);
  QStringList facts{QLatin1String(widget.metaObject()->className()), placeOf(place)};
  facts += forMouseAndKeys(widget);
  if (reader)
    facts += forReaders(*reader);
  lines += indent + facts.join(QLatin1String("; "));
  for (int i = 0; reader && i < reader->childCount(); ++i) {
    const QAccessibleInterface* const child = reader->child(i);
    if (child && !qobject_cast<QWidget*>(child->object()))
      lines += indent + QStringLiteral("  - ") + forReaders(*child).join(QLatin1String("; "));
  }
  for (QObject* const each : widget.children()) {
    auto* const child = qobject_cast<QWidget*>(each);
    if (child && child->isVisible() && !child->isWindow())
      list(*child, origin, indent + QStringLiteral("  "), lines);
  }
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

QString firstDifference(const QStringList& now, const QStringList& then) {
  const auto [one, other] = std::mismatch(now.begin(), now.end(), then.begin(), then.end());
  if (one == now.end() && other == then.end())
    return {};
  return QStringLiteral("now  %1\nthen %2")
      .arg(one == now.end() ? QString() : one->trimmed(), other == then.end() ? QString() : other->trimmed());
}

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
  const QWidgetList windows = visibleWindows();
  QStringList lines;
  for (QWidget* const each : windows)
    list(*each, windows.first()->pos(), {}, lines);
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
