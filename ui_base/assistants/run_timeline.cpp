// SPDX-License-Identifier: MIT
#include "run_timeline.h"

#include "point_tips.h"

#include <QPainter>

#include <algorithm>

namespace Vela::UiBase {

namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr qsizetype most = 100;  // runs
constexpr double leastWidth = 2; // px, of what was over at once
constexpr int leastRows = 2;

Milliseconds endOf(const RunRecord& record) {
  const auto now = std::chrono::steady_clock::now();
  const auto end = record.outcome == RunUnderway ? now : record.begin + record.wait + record.duration;
  return end.time_since_epoch();
}

} // namespace

RunTimeline::RunTimeline(QWidget* parent) : QWidget(parent) {
  setAccessibleName(tr("Runs over time"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  new PointTips(*this, [this](const QPoint& at) { return textAt(at); });
}

void RunTimeline::setRecords(const QList<RunRecord>& records) {
  m_records = records.mid(std::max<qsizetype>(0, records.size() - most));
  m_threads.clear();
  for (const RunRecord& record : std::as_const(m_records)) {
    if (!m_threads.contains(record.thread))
      m_threads.append(record.thread);
  }
  std::ranges::sort(m_threads);
  setAccessibleDescription(tr("%n run(s)", nullptr, int(m_records.size())));
  updateGeometry();
  update();
}

int RunTimeline::rowHeight() const { return fontMetrics().height() + 4; }

QSize RunTimeline::sizeHint() const {
  return {200, rowHeight() * std::max(leastRows, int(m_threads.size()))};
}

RunTimeline::Bar RunTimeline::barOf(const RunRecord& record) const {
  const Milliseconds first = m_records.constFirst().begin.time_since_epoch();
  Milliseconds last = first;
  for (const RunRecord& each : m_records)
    last = std::max(last, endOf(each));
  const double scale = width() / std::max(1.0, (last - first).count());
  const double from = (Milliseconds(record.begin.time_since_epoch()) - first).count() * scale;
  const double begin = std::min(from + Milliseconds(record.wait).count() * scale, width() - leastWidth);
  const double end = std::max(begin + leastWidth, (endOf(record) - first).count() * scale);
  const double height = rowHeight();
  const double y = double(m_threads.indexOf(record.thread)) * height;
  return {QRectF(from, y + height / 2 - 1, begin - from, 2), QRectF(begin, y + 2, end - begin, height - 4)};
}

void RunTimeline::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().base());
  for (const RunRecord& record : std::as_const(m_records)) {
    const Bar bar = barOf(record);
    painter.fillRect(bar.waited, palette().color(QPalette::Mid));
    painter.fillRect(bar.worked, record.blockedMainThread ? QColor(0xC0, 0x30, 0x20)
                                                          : palette().color(QPalette::Highlight));
  }
}

const RunRecord* RunTimeline::recordAt(const QPointF& at) const {
  const auto found = std::find_if(m_records.crbegin(), m_records.crend(), [&](const RunRecord& record) {
    const Bar bar = barOf(record);
    return bar.worked.united(bar.waited).contains(at); // the thin part is hard to hit
  });
  return found == m_records.crend() ? nullptr : &*found;
}

QString RunTimeline::textAt(const QPoint& at) const {
  const RunRecord* const record = recordAt(at);
  const auto text = [](std::chrono::nanoseconds time) {
    return QString::number(Milliseconds(time).count(), 'f', 1);
  };
  return record ? tr("%1: waited %2 ms, took %3 ms, %4")
                      .arg(record->commandId, text(record->wait), text(record->duration),
                           runOutcomeText(record->outcome))
                : QString();
}

} // namespace Vela::UiBase
