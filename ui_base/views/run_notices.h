// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_run.h>

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <vector>

namespace Vela::UiBase {

class BaseViewController;
class ProgressContent;

/// Shows over a view how far the runs of its commands are, and offers to cancel them, in one notification
/// that has a row for each run that tells its progress or can be stopped.
///
/// What is done soon needs none: a run is shown when it has taken its time. Another message may take the
/// place of the notification; when that is gone, it comes back.
class RunNotices : public QObject {
  Q_OBJECT

public:
  explicit RunNotices(BaseViewController& controller);
  ~RunNotices() override;

  /// @param text  what is being done, for a user
  void began(const CommandRun& run, const QString& text);
  void ended(const CommandRun& run);

  /// How long a run takes before it is shown, in milliseconds.
  int delay() const { return m_delay; }
  void setDelay(int milliseconds) { m_delay = milliseconds; }

private:
  struct Entry {
    CommandRun run;
    QString text;
    QElapsedTimer age{};
    bool shown = false;
    QPointer<ProgressContent> row{}; // in the content
  };

  void refresh();
  bool isWorthShowing(const Entry& entry) const;
  void updateRow(Entry& entry);
  void describeContent();

  BaseViewController& m_controller;
  int m_delay = 250;
  QTimer m_timer;
  std::vector<Entry> m_entries;
  QPointer<QWidget> m_content; // of the notification, which deletes it
};

} // namespace Vela::UiBase
