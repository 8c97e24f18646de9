// SPDX-License-Identifier: MIT
#include "info_text_browser.h"

#include "local_page.h"

#include <QBuffer>
#include <QImageReader>

namespace Vela::UiBase {

namespace {

QByteArray dataOf(const QUrl& url) {
  // The head is the type of the data, and says whether they are in base 64.
  const QByteArray address = url.toEncoded(QUrl::RemoveScheme);
  const qsizetype comma = address.indexOf(',');
  const QByteArray data = QByteArray::fromPercentEncoding(address.mid(comma + 1));
  return address.left(comma).endsWith(";base64") ? QByteArray::fromBase64(data) : data;
}

QImage pictureOf(QByteArray data, qreal ratio) {
  QBuffer buffer(&data);
  QImageReader reader(&buffer);
  const bool isVector = reader.format().startsWith("svg");
  if (!isVector)
    return reader.read();
  reader.setScaledSize(reader.size() * ratio);
  QImage image = reader.read();
  image.setDevicePixelRatio(ratio);
  return image;
}

} // namespace

InfoTextBrowser::InfoTextBrowser(QWidget* parent) : QTextBrowser(parent) {
  setOpenLinks(false);
  setFrameShape(QFrame::NoFrame);
  setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
}

QVariant InfoTextBrowser::loadResource(int type, const QUrl& name) {
  const QUrl url = document()->baseUrl().resolved(name);
  const QByteArray bytes =
      url.scheme() == QLatin1String("data") ? dataOf(url) : readLocal(url).value_or(QByteArray());
  return type == QTextDocument::ImageResource ? QVariant(pictureOf(bytes, devicePixelRatioF()))
                                              : QVariant(bytes);
}

} // namespace Vela::UiBase
