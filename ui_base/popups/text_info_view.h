// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/info_view.h>

namespace Vela::UiBase {

class InfoTextBrowser;

/// The view that is always there: a QTextBrowser. It shows what Qt's rich text knows, scripts and inline SVG
/// are left out.
class TextInfoView : public InfoView {
  Q_OBJECT

public:
  explicit TextInfoView(QWidget* parent = nullptr);

  void SetContent(const QString& html, const QUrl& baseUrl) override;

private:
  void onAnchorClicked(const QUrl& url);

  InfoTextBrowser* const m_browser;
};

} // namespace Vela::UiBase
