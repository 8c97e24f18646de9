// SPDX-License-Identifier: MIT
#include "text_info_view.h"

#include "info_text_browser.h"

#include <QVBoxLayout>

namespace Vela::UiBase {

TextInfoView::TextInfoView(QWidget* parent) : InfoView(parent), m_browser(new InfoTextBrowser(this)) {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(m_browser);
  m_browser->setObjectName(QStringLiteral("info_text")); // which the shared styles know
  m_browser->viewport()->setAutoFillBackground(false);
  m_browser->document()->setDocumentMargin(0);
  setFocusProxy(m_browser);
  connect(m_browser, &QTextBrowser::anchorClicked, this, &TextInfoView::onAnchorClicked);
}

void TextInfoView::SetContent(const QString& html, const QUrl& baseUrl) {
  m_browser->setAccessibleName(accessibleName());
  m_browser->document()->setBaseUrl(baseUrl);
  m_browser->setHtml(html);
  Q_EMIT loaded(true);
}

void TextInfoView::onAnchorClicked(const QUrl& url) {
  const bool isInPage = url.isRelative() && url.path().isEmpty() && url.hasFragment();
  if (isInPage)
    m_browser->scrollToAnchor(url.fragment());
  else
    Q_EMIT linkActivated(m_browser->document()->baseUrl().resolved(url));
}

} // namespace Vela::UiBase
