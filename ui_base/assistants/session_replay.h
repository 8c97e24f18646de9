// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/assistants/session.h>

#include <QObject>

#include <memory>

namespace Vela::UiBase {

class CmdMgr;
class SessionReplayPrivate;
class SessionSubject;

/// Does again what a Session has, step by step: gives commands their inputs and triggers them, and asks
/// tools, else the subject, to perform operations. After each step it waits until the application rests, by
/// its runs and not by the clock, and compares the state. It stops at the first step that differs, and says
/// why.
///
/// Window, language and palette may be others than those of the recording. Main thread only.
///
/// @code
/// auto* replay = new SessionReplay(subject, window);
/// replay->addManager(controller);
/// connect(replay, &SessionReplay::finished, this, [](bool whole, const QString& why) { qInfo() << whole <<
/// why; }); replay->start(*Session::fromFile(file, &error));
/// @endcode
class UI_BASE_EXPORT SessionReplay : public QObject {
  Q_OBJECT

public:
  /// @param subject outlives the replay.
  explicit SessionReplay(SessionSubject& subject, QObject* parent = nullptr);
  ~SessionReplay() override;

  /// Its commands are found, and its tools where it is a ToolStack. Of several managers, in the order in
  /// which they were recorded. Held weakly; null is ignored.
  /// @throws std::bad_weak_ptr when the manager is not shared.
  void addManager(CmdMgr* manager);
  /// Begins once the application rests, and so not within a run that waits for it. What was being replayed
  /// ends without a word.
  void start(const Session& session);
  /// Ends it without a word.
  void stop();
  /// From start() until finished(), or stop().
  bool isReplaying() const;
  /// How many steps were done and found as they were.
  qsizetype stepsDone() const;

Q_SIGNALS:
  /// A step begins; the first one is 1.
  void stepBegan(int step, const QString& line);
  /// @p whole is whether all steps came out as they were recorded. Otherwise @p why is a sentence for the
  /// user, "step 17: …", and @p line that of its text.
  void finished(bool whole, const QString& why, int line);

private:
  const std::unique_ptr<SessionReplayPrivate> d;
};

} // namespace Vela::UiBase
