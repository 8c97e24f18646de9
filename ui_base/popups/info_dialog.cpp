// SPDX-License-Identifier: MIT
#include "info_dialog.h"

#include "info_panel.h"

namespace Vela::UiBase {

InfoDialog::InfoDialog(QWidget* parent) : InfoDialog(QString(), parent) {}

InfoDialog::InfoDialog(const QString& title, QWidget* parent)
    : MDialogBase(title, nullptr, CloseButton, parent), m_panel(new InfoPanel) {
  m_panel->setAccessibleName(title);
  SetContent(m_panel);
}

InfoDialog::~InfoDialog() = default;

InfoPanel* InfoDialog::Panel() const { return m_panel; }

} // namespace Vela::UiBase
