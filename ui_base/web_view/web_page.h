// SPDX-License-Identifier: MIT
#pragma once

#include <QWebEnginePage>
#include <QWebEngineProfile>

namespace Vela::UiBase {

/// A page that shows what it was given and goes nowhere: links are announced, nothing comes from the network,
/// scripts do not run and nothing is kept on disk.
class WebPage : public QWebEnginePage {
  Q_OBJECT

public:
  explicit WebPage(QObject* parent);

Q_SIGNALS:
  void linkActivated(const QUrl& url);

protected:
  bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
};

} // namespace Vela::UiBase
