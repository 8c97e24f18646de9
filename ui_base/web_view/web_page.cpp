// SPDX-License-Identifier: MIT
#include "web_page.h"

#include <QCoreApplication>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInfo>
#include <QWebEngineUrlRequestInterceptor>

namespace Vela::UiBase {

namespace {

class LocalOnly : public QWebEngineUrlRequestInterceptor {
public:
  using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

  void interceptRequest(QWebEngineUrlRequestInfo& info) override {
    const QString scheme = info.requestUrl().scheme();
    const bool isLocal =
        scheme == QLatin1String("data") || scheme == QLatin1String("qrc") || scheme == QLatin1String("file");
    info.block(!isLocal);
  }
};

/// One for all pages, with nothing on disk; made with the first page and gone with the application.
QWebEngineProfile* sharedProfile() {
  static const QPointer<QWebEngineProfile> profile = [] {
    auto* const made = new QWebEngineProfile(QCoreApplication::instance());
    made->setUrlRequestInterceptor(new LocalOnly(made));
    return made;
  }();
  return profile;
}

} // namespace

WebPage::WebPage(QObject* parent) : QWebEnginePage(sharedProfile(), parent) {
  for (const auto attribute : {QWebEngineSettings::JavascriptEnabled, QWebEngineSettings::PluginsEnabled,
                               QWebEngineSettings::ErrorPageEnabled, QWebEngineSettings::LocalStorageEnabled,
                               QWebEngineSettings::LocalContentCanAccessRemoteUrls})
    settings()->setAttribute(attribute, false);
  connect(this, &QWebEnginePage::newWindowRequested, this, [this](const QWebEngineNewWindowRequest& request) {
    Q_EMIT linkActivated(request.requestedUrl());
  });
}

bool WebPage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) {
  if (type == NavigationTypeTyped || !isMainFrame)
    return true;
  constexpr auto page = QUrl::RemoveFragment;
  if (url.hasFragment() && url.adjusted(page) == this->url().adjusted(page))
    return true;
  if (type == NavigationTypeLinkClicked)
    Q_EMIT linkActivated(url);
  return false;
}

} // namespace Vela::UiBase
