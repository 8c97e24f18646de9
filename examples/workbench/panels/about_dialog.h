// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/m_dialog_base.h>

namespace Workbench {

/// Tells what the program is, its version and its licence.
class AboutDialog : public Vela::UiBase::MDialogBase {
  Q_OBJECT

public:
  explicit AboutDialog(QWidget* parent = nullptr);
};

} // namespace Workbench
