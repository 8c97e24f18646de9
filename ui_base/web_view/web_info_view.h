// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/info_view.h>

class QWebEngineView;

namespace Vela::UiBase {

class WebPage;

/// A view drawn by Qt WebEngine.
class WebInfoView : public InfoView {
  Q_OBJECT

public:
  explicit WebInfoView(QWidget* parent);

  void SetContent(const QString& html, const QUrl& baseUrl) override;

private:
  void showMenu(const QPoint& position);

  QWebEngineView* const m_view;
  WebPage* const m_page;
};

} // namespace Vela::UiBase
