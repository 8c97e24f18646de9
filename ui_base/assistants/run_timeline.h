// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/run_record.h>

#include <QWidget>

namespace Vela::UiBase {

/// The newest runs over time, a row for each thread: how long each waited, thin, and worked, thick. Those
/// that kept the main thread busy stand out.
class RunTimeline : public QWidget {
  Q_OBJECT

public:
  explicit RunTimeline(QWidget* parent = nullptr);

  void setRecords(const QList<RunRecord>& records);

  QSize sizeHint() const override;

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  struct Bar {
    QRectF waited;
    QRectF worked;
  };

  int rowHeight() const;
  Bar barOf(const RunRecord& record) const;
  QString textAt(const QPoint& at) const;
  const RunRecord* recordAt(const QPointF& at) const;

  QList<RunRecord> m_records;
  QList<quint64> m_threads; // of the rows
};

} // namespace Vela::UiBase
