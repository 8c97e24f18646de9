// SPDX-License-Identifier: MIT
#include "web_info_view.h"

#include "web_page.h"

#include <QMenu>
#include <QVBoxLayout>
#include <QWebEngineView>

namespace Vela::UiBase {

namespace {

constexpr qsizetype largestPage = 2 * 1024 * 1024; // bytes that the engine takes, encoded as an address

} // namespace

WebInfoView::WebInfoView(QWidget* parent)
    : InfoView(parent), m_view(new QWebEngineView(this)), m_page(new WebPage(m_view)) {
  m_view->setPage(m_page);
  m_view->setContextMenuPolicy(Qt::CustomContextMenu);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(m_view);
  setFocusProxy(m_view);
  connect(m_view, &QWidget::customContextMenuRequested, this, &WebInfoView::showMenu);
  connect(m_page, &WebPage::linkActivated, this, &InfoView::linkActivated);
  connect(m_page, &QWebEnginePage::loadFinished, this, &InfoView::loaded);
  connect(m_page, &QWebEnginePage::renderProcessTerminated, this, &InfoView::failed);
}

void WebInfoView::SetContent(const QString& html, const QUrl& baseUrl) {
  const QByteArray page = html.toUtf8();
  if (page.toPercentEncoding().size() > largestPage) {
    Q_EMIT failed();
    return;
  }
  m_view->setAccessibleName(accessibleName());
  // Else a white page flashes up before a dark one.
  m_page->setBackgroundColor(palette().color(QPalette::Window));
  m_page->setContent(page, QStringLiteral("text/html;charset=UTF-8"), baseUrl);
}

void WebInfoView::showMenu(const QPoint& position) {
  QMenu menu(this);
  menu.addAction(m_page->action(QWebEnginePage::Copy));
  menu.addAction(m_page->action(QWebEnginePage::SelectAll));
  menu.exec(m_view->mapToGlobal(position));
}

} // namespace Vela::UiBase
