// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/commands/workbench_command.h>
#include <workbench/render/frame.h>

#include <optional>

namespace Workbench {

/// Saves the view's picture to an image file. Asks for the file, and draws and writes the picture of then on
/// a thread of the dispatcher; it is disabled meanwhile.
class SaveScreenshotCommand : public WorkbenchCommand {
  Q_OBJECT
  COMMAND_ID(SaveScreenshotCommand)

public:
  explicit SaveScreenshotCommand(MeshViewController* controller);

  /// The file.
  QVariantMap inputs() const override;
  bool setInputs(const QVariantMap& inputs) override;
  bool needsInputs() const override;

  QString obstacle() const override;
  void executionEnded() override;
  bool onExecuteAsync(bool checked) override;

public Q_SLOTS:
  bool onExecute(bool checked = false) override;

protected:
  Vela::UiBase::CommandContext getExecutionCommandContext() override;

private:
  struct Shot {
    QString file;
    FrameRequest picture;
    QString failure;

    QString name() const;
  };

  void askForFile();
  void tellSaved();
  bool prepare(const QString& file);
  void save(const QString& file);
  QString suggestedFile() const;

  std::optional<Shot> m_next; // what the run that is about to start works on
  std::optional<Shot> m_run;  // what the run works on; left alone while it lasts
};

} // namespace Workbench
