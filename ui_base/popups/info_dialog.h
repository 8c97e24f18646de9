// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/m_dialog_base.h>

namespace Vela::UiBase {

class InfoPanel;

/// A dialog that shows rich content and can be closed: an about box, a help page, a report.
///
/// @code
/// auto* about = new InfoDialog(tr("About Workbench"), window);
/// about->setAttribute(Qt::WA_DeleteOnClose);
/// about->Panel()->SetSource(QUrl(QStringLiteral("qrc:/about.html")));
/// about->open();
/// @endcode
class UI_BASE_EXPORT InfoDialog : public MDialogBase {
  Q_OBJECT

public:
  /// Without title.
  explicit InfoDialog(QWidget* parent = nullptr);
  /// With a title, which is also its accessible name.
  explicit InfoDialog(const QString& title, QWidget* parent = nullptr);
  ~InfoDialog() override;

  /// The panel with the content; owned by the dialog.
  InfoPanel* Panel() const;

private:
  InfoPanel* const m_panel;
};

} // namespace Vela::UiBase
