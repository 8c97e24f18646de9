// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>

#include <functional>

namespace Vela::UiBase {
class DialogEx;
}

namespace Workbench {

class MeshViewController;

/// What is about to put an end to the mesh that is shown.
enum ELeaving : int {
  LeaveToQuit = 0,
  LeaveToOpen = 1, ///< Another mesh takes its place.
};

/// Sees to it that changes of the mesh, and work on it, are not lost without a question.
///
/// @code
/// if (m_unsaved.mayLeave(LeaveToOpen, [this] { open(); }))
///   open();
/// @endcode
///
/// Part of the controller. Main thread only.
class UnsavedChanges : public QObject {
  Q_OBJECT

public:
  explicit UnsavedChanges(MeshViewController& controller);

  /// Whether nothing is lost. Otherwise asks, without waiting for the answer, and calls @p then when the user
  /// has saved or does without; in it everything may be left. While the mesh is being saved there is no
  /// question before that has ended. What is asked for last counts.
  bool mayLeave(ELeaving leaving, const std::function<void()>& then);

private:
  bool isSafe() const;
  void ask();
  void answered(const QString& answer);
  void onSavingFinished(bool saved);
  void leave();

  MeshViewController& m_controller;
  ELeaving m_leaving = LeaveToQuit;
  std::function<void()> m_then;
  bool m_agreed = false; // within m_then
  QPointer<Vela::UiBase::DialogEx> m_dialog;
};

} // namespace Workbench
