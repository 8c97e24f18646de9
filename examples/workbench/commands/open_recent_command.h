// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/commands/workbench_command.h>

namespace Workbench {

/// Opens a file that was opened before, by its place in the list of recent files; not seen while there is
/// none at its place. One command for each place.
class OpenRecentCommand : public WorkbenchCommand {
  Q_OBJECT

public:
  /// @param place  from 0, the newest
  OpenRecentCommand(MeshViewController* controller, int place);

  static QString idOf(int place);
  QString commandId() const override { return idOf(m_place); }
  QString obstacle() const override;
  bool needsMeshPage() const override;
  QStringList commandTags() override;
  bool onExecuteAsync(bool checked) override;

private:
  void follow();

  const int m_place;
  QString m_file;
};

} // namespace Workbench
