// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/run_record.h>

#include <QObject>

namespace Vela::UiBase {

/// Tells what kind of input the main thread is busy with, so that a run knows what set it off.
///
/// The kind is known from the delivery of an input event until the event loop turns again, also one that is
/// nested in the handler: what a timer of an open dialog does is not what the click did that opened it.
class InputWatch : public QObject {
  Q_OBJECT

public:
  /// Begins to watch, when there is an application object; called as soon as there is a command to trigger.
  static void start();
  /// The kind of input that the calling thread is busy with.
  static ERunSource source();

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  explicit InputWatch(QObject* application);

  ERunSource m_source = RunByProgram;
};

} // namespace Vela::UiBase
