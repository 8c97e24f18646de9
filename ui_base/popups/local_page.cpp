// SPDX-License-Identifier: MIT
#include "local_page.h"

#include <vlk_common_res/styles.h>

#include <QFile>
#include <QPalette>
#include <QRegularExpression>

namespace Vela::UiBase {

namespace {

/// Written in what both views understand.
QString pageStyle() {
  const auto& styles = Resource::Styles::Instance();
  const QPalette palette = styles.widgetPalette();
  return QStringLiteral(
             "body { background-color: %1; color: %2; font-family: Arial, 'Liberation Sans', sans-serif;"
             " font-size: 12px; margin: 0; }\n"
             "h1, h2, h3 { color: %3; font-weight: normal; margin: 12px 0 6px 0; }\n"
             "p { margin: 0 0 8px 0; }\n"
             "a { color: %4; }\n"
             "table { border-collapse: collapse; margin: 4px 0 10px 0; }\n"
             "th, td { padding: 3px 16px 3px 0; text-align: left; vertical-align: top; }\n"
             "th { color: %5; font-weight: normal; }\n"
             "hr { background-color: %6; border: none; height: 1px; }\n"
             "code, pre { font-family: monospace; }\n")
      .arg(styles.ColorWindowBack().name(), styles.ColorText().name(), styles.ColorTextTitle().name(),
           palette.color(QPalette::Link).name(), styles.ColorTextLabel().name(),
           styles.ColorToolPaletteButtonSeparator().name());
}

QString pathOf(const QUrl& url) {
  if (url.scheme() == QLatin1String("qrc"))
    return QLatin1Char(':') + url.path();
  return url.isLocalFile() ? url.toLocalFile() : QString();
}

} // namespace

std::optional<QByteArray> readLocal(const QUrl& url) {
  const QString path = pathOf(url);
  QFile file(path);
  if (path.isEmpty() || !file.open(QIODevice::ReadOnly))
    return std::nullopt;
  return file.readAll();
}

QString styledPage(const QString& html) {
  static const QRegularExpression head(QStringLiteral("<head[^>]*>"),
                                       QRegularExpression::CaseInsensitiveOption);
  const QString style = QLatin1String("<style>\n") + pageStyle() + QLatin1String("</style>\n");
  const QRegularExpressionMatch match = head.match(html);
  if (!match.hasMatch())
    return QLatin1String("<!DOCTYPE html>\n<meta charset=\"utf-8\">\n") + style + html;
  return QString(html).insert(match.capturedEnd(), style);
}

} // namespace Vela::UiBase
