// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QObject>

#include <memory>

namespace Vela::UiBase {

class CmdMgr;
class SessionRecorderPrivate;
class SessionSubject;

/// Writes down what somebody does with an application, as a Session that SessionReplay does again: each
/// command that runs, with its inputs, what tools tell to the OperationLog, and what of the state of the
/// subject has changed when the application rests again.
///
/// Not recorded are runs that another one sets off, or that follow from contexts; what the user cancelled is
/// left out when it is replayed. The file is complete up to the last step at any time. Main thread only.
///
/// @code
/// auto* recorder = new SessionRecorder(subject, window);
/// recorder->addManager(controller);
/// if (!recorder->start(file))
///   complain(recorder->error());
/// @endcode
class UI_BASE_EXPORT SessionRecorder : public QObject {
  Q_OBJECT

public:
  /// @param subject outlives the recorder.
  explicit SessionRecorder(SessionSubject& subject, QObject* parent = nullptr);
  ~SessionRecorder() override;

  /// Its commands are recorded, those of two windows with where they belong. Held weakly; null is ignored.
  /// @throws std::bad_weak_ptr when the manager is not shared.
  void addManager(CmdMgr* manager);
  /// Begins with the state that the application rests in next; a file that is there is written over.
  /// @return false when it cannot be written, or a session is being recorded already.
  bool start(const QString& file);
  /// Ends the session. What happens afterwards is not recorded.
  void stop();
  /// From start() to stop().
  bool isRecording() const;
  /// Whether the state after the last step is written. What begins before that leaves it unknown.
  bool isUpToDate() const;
  /// Why the file was not written, or not begun.
  QString error() const;

Q_SIGNALS:
  /// A step was written.
  void stepRecorded(const QString& line);
  /// Something cannot be replayed as it was done: a command gives no inputs, or some that cannot be written,
  /// or began while another one ran.
  /// A sentence for the user, which also stands in the file.
  void warned(const QString& sentence);
  /// The file cannot be written any more; see error().
  void failed(const QString& error);

private:
  const std::unique_ptr<SessionRecorderPrivate> d;
};

} // namespace Vela::UiBase
