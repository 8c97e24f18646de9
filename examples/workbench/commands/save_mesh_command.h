// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/commands/workbench_command.h>
#include <workbench/mesh.h>

#include <optional>

namespace Workbench {

/// Which file gets the mesh.
enum ESaving : int {
  SaveMesh = 0,   ///< The one that it came from, or was saved as last.
  SaveMeshAs = 1, ///< One that is asked for; from then on the mesh is that file's.
  ExportMesh = 2, ///< One that is asked for; the mesh stays that of its file.
};

/// Saves the mesh on a thread of the dispatcher. One command for each ESaving. A file of a format that can
/// only be read is not written over: saving then asks for another.
///
/// MeshViewEvents::savingFinished() tells what came of it, also when the user gave up in the file dialog.
class SaveMeshCommand : public WorkbenchCommand {
  Q_OBJECT

public:
  SaveMeshCommand(MeshViewController* controller, ESaving saving);

  static QString idOf(ESaving saving);
  QString commandId() const override { return idOf(m_saving); }

  /// Saves, or asks for the file first, also when the command is disabled. Does nothing while it saves.
  void save();

  /// The file.
  QVariantMap inputs() const override;
  bool setInputs(const QVariantMap& inputs) override;
  bool needsInputs() const override;

  QString obstacle() const override;
  bool locksMesh() const override;
  bool makesResult() const override;
  void executionEnded() override;
  bool onExecuteAsync(bool checked) override;

public Q_SLOTS:
  bool onExecute(bool checked = false) override;

protected:
  Vela::UiBase::CommandContext getExecutionCommandContext() override;

private:
  struct Job {
    QString file;
    Mesh mesh;
    bool saved = false;
    QString failure;
  };

  void describe();
  void askForFile();
  bool prepare(const QString& file);
  void saveTo(const QString& file);
  void finish();
  QString suggestedFile() const;
  void tellFinished(bool saved);

  const ESaving m_saving;
  std::optional<Job> m_next; // what the run that is about to start works on
  std::optional<Job> m_run;  // what the run works on; left alone while it lasts
};

} // namespace Workbench
