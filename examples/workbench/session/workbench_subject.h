// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/assistants/session_subject.h>

namespace Workbench {

class MainWindow;

/// The workbench as it is recorded and replayed. Compared are page, mesh, selection, distances, steps that
/// can be undone, photographs, and the states of the commands; not the camera and what else depends on the
/// size of the window, nor what follows from the settings of the user.
class WorkbenchSubject : public Vela::UiBase::SessionSubject {
public:
  /// @param window  outlives the subject
  explicit WorkbenchSubject(MainWindow& window) : m_window(window) {}

  QVariantMap state() const override;
  bool isRecorded(const Vela::UiBase::CommandBase& command) const override;
  bool perform(const Vela::UiBase::ToolOperation& operation) override;
  bool isBusy() const override;

private:
  MainWindow& m_window;
};

} // namespace Workbench
