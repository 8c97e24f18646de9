// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/commands/workbench_command.h>

#include <QStringList>

namespace Workbench {

/// Opens mesh files. Reads them on a thread of the dispatcher and hands each mesh to the controller on the
/// main thread; a file that cannot be read leaves the mesh before in its place.
///
/// Triggered it first asks which files; open() is told. While it, or another command, works on the mesh it is
/// disabled, and files that are asked for meanwhile wait.
class OpenMeshCommand : public WorkbenchCommand {
  Q_OBJECT
  COMMAND_ID(OpenMeshCommand)

public:
  /// A file that was not opened, in words for the user.
  struct Failure {
    QString fileName;
    QString reason;
    QString message; ///< Names the file and the reason.
    QString details; ///< For who wants to know more; often empty.
  };

  explicit OpenMeshCommand(MeshViewController* controller);

  /// Opens files, the last one last.
  void open(const QStringList& files);
  /// Opens what was asked for while the mesh was locked.
  void openWaiting();
  /// Ends the reading early and forgets the files that wait.
  void cancel() override;
  /// The failures of the last run, handed out once.
  QList<Failure> takeFailures();

  /// The files.
  QVariantMap inputs() const override;
  bool setInputs(const QVariantMap& inputs) override;
  bool needsInputs() const override;

  QString obstacle() const override;
  bool needsMeshPage() const override;
  bool locksMesh() const override;
  bool makesResult() const override;
  bool onExecuteAsync(bool checked) override;

public Q_SLOTS:
  bool onExecute(bool checked = false) override;

protected:
  Vela::UiBase::CommandContext getExecutionCommandContext() override;

private:
  struct Outcome {
    qsizetype opened = 0;
    QList<Failure> failures;
  };

  void askForFiles();
  void finishRun(const Outcome& outcome);

  QStringList m_waiting;
  QStringList m_files; // of the run; left alone while it lasts
  bool m_running = false;
  QList<Failure> m_failures;
};

} // namespace Workbench
