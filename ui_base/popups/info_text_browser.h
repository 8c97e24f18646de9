// SPDX-License-Identifier: MIT
#pragma once

#include <QTextBrowser>

namespace Vela::UiBase {

/// A text browser that stays where it is: it loads pictures from resources, local files and data: addresses
/// only, vector pictures as sharp as the screen, and follows no links.
class InfoTextBrowser : public QTextBrowser {
  Q_OBJECT

public:
  explicit InfoTextBrowser(QWidget* parent = nullptr);

  QVariant loadResource(int type, const QUrl& name) override;
};

} // namespace Vela::UiBase
