// SPDX-License-Identifier: MIT
#include "panel_session.h"

#include "hosting.h"
#include "tool_button_with_button_menu.h"
#include "tool_button_with_widget_menu.h"

#include <utility>

namespace Vela::UiBase {

void PanelSession::begin(ToolButtonWithWidgetMenu& button, const std::shared_ptr<Hosting>& hosting) {
  m_begun = true;
  m_button = &button;
  m_hosting = hosting;
  m_command = hosting->command();
  m_flyout = qobject_cast<FlyoutBase*>(button.GetMenu());
  m_toolBar = button.OwningToolBar();
  if (auto* const controller = qobject_cast<ToolButtonWithButtonMenu*>(button.ExtendController());
      controller && controller->IsInExtendMode())
    controller->RecordExtendedButton(&button);
  if (!m_toolBar)
    return;
  ToolButtonWithWidgetMenu* const active = m_toolBar->GetActiveButton();
  m_toolBar->SetActiveButton(&button);
  if (active && active != &button)
    active->HideMenu();
}

void PanelSession::end() {
  if (!m_begun)
    return;
  const PanelSession ended = std::exchange(*this, {}); // those who are told may delete the button
  ended.endCommand();
  ended.leaveToolBar();
  ended.leaveController();
}

void PanelSession::endCommand() const {
  if (m_flyout) {
    m_flyout->CloseMe(); // which tells the command
    return;
  }
  const auto hosting = m_hosting.lock();
  FlyoutCommand* const since = hosting ? hosting->command() : nullptr;
  FlyoutCommand* const command = m_command ? m_command.data() : since;
  if (command && command->isActive())
    command->onFinalize();
}

void PanelSession::leaveToolBar() const {
  if (m_toolBar && m_toolBar->GetActiveButton() == m_button)
    m_toolBar->SetActiveButton(nullptr);
}

void PanelSession::leaveController() const {
  // Another one may have been asked to stand in since; it tells the one before itself.
  QWidget* const now = m_button ? m_button->ExtendController() : nullptr;
  auto* const controller = qobject_cast<ToolButtonWithButtonMenu*>(now);
  if (controller && controller->ExtendedButton() == m_button)
    controller->OnExitExtendMode();
}

} // namespace Vela::UiBase
