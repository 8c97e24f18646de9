// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/flyout_command.h>
#include <ui_base/core/live_pointer.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/toolbars/tool_bar.h>

#include <QPointer>

#include <memory>

namespace Vela::UiBase {

class Hosting;
class ToolButtonWithButtonMenu;
class ToolButtonWithWidgetMenu;

/// One showing of a panel by a button, from begin to end. It remembers who was told that it began, and tells
/// these that it has ended, whoever ended it: command, panel, toolbar and the button that stands in for the
/// one that shows it. Each may be gone by then.
class UI_BASE_EXPORT PanelSession {
public:
  PanelSession() = default;

  /// Makes the button the active one of its toolbar, in place of another one, whose menu closes, and the one
  /// that its controller stands in for.
  void begin(ToolButtonWithWidgetMenu& button, const std::shared_ptr<Hosting>& hosting);
  /// Whether begin() was called and end() not since.
  bool hasBegun() const { return m_begun; }
  /// Once for each begin; nothing otherwise, also when one of those who are told calls it again.
  void end();

private:
  void endCommand() const;
  void leaveToolBar() const;
  void leaveController() const;

  bool m_begun = false;
  QPointer<ToolButtonWithWidgetMenu> m_button;
  LivePointer<FlyoutBase> m_flyout;
  std::weak_ptr<Hosting> m_hosting;
  QPointer<FlyoutCommand> m_command; // of a panel that is no flyout; may get one only later
  LivePointer<ToolBar> m_toolBar;
};

} // namespace Vela::UiBase
