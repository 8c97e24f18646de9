// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_base.h>
#include <workbench/pages/workbench_pages.h>

namespace Workbench {

/// Goes to a page of the workbench; checked while that is seen. One command for each page.
///
/// The page belongs to the window: contexts of a view do not switch it.
class ShowPageCommand : public Vela::UiBase::CommandBase {
  Q_OBJECT

public:
  ShowPageCommand(MeshViewController* controller, EPage page);

  static QString idOf(EPage page);
  QString commandId() const override { return idOf(m_page); }
  void setCommandState(const Vela::UiBase::CommandState& state) override;
  bool onExecuteAsync(bool checked) override;

private:
  const EPage m_page;
};

} // namespace Workbench
