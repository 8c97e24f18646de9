// SPDX-License-Identifier: MIT
#include "fake_info_view.h"

void FakeInfoView::SetContent(const QString& html, const QUrl&) {
  setProperty("content", html);
  if (html.contains(QLatin1String("too much")))
    Q_EMIT failed();
  else
    Q_EMIT loaded(true);
}
