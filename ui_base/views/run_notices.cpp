// SPDX-License-Identifier: MIT
#include "run_notices.h"

#include "base_view_controller.h"

#include <ui_base/notifications/progress_content.h>

#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

namespace {

constexpr int refreshIntervalMs = 50;
constexpr int rowSpacing = 4;

QWidget* makeContent() {
  auto* const content = new QWidget;
  auto* const rows = new QVBoxLayout(content);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(rowSpacing);
  return content;
}

} // namespace

RunNotices::RunNotices(BaseViewController& controller) : m_controller(controller) {
  m_timer.setInterval(refreshIntervalMs);
  connect(&m_timer, &QTimer::timeout, this, &RunNotices::refresh);
}

RunNotices::~RunNotices() = default;

void RunNotices::began(const CommandRun& run, const QString& text) {
  const auto isRun = [&run](const Entry& entry) { return entry.run == run; };
  if (run.isNull() || std::ranges::any_of(m_entries, isRun))
    return;
  m_entries.push_back({run, text});
  m_entries.back().age.start();
  m_timer.start();
}

void RunNotices::ended(const CommandRun& run) {
  for (const Entry& entry : m_entries) {
    if (entry.run == run && entry.row)
      entry.row->deleteLater(); // it may be its own button that led here
  }
  std::erase_if(m_entries, [&run](const Entry& entry) { return entry.run == run; });
  if (!m_entries.empty())
    return;
  m_timer.stop();
  if (m_content)
    m_content->deleteLater();
}

bool RunNotices::isWorthShowing(const Entry& entry) const {
  return entry.age.hasExpired(m_delay) && (entry.run.canBeStopped() || entry.run.progress() >= 0);
}

// Showing comes last: it calls out, and this object may die of it.
void RunNotices::refresh() {
  const auto entries = m_entries;
  for (const Entry& entry : entries) {
    if (!entry.run.isUnderway()) // its command was removed, so nobody told
      ended(entry.run);
  }
  bool any = false;
  bool fresh = false;
  for (Entry& entry : m_entries) {
    if (!isWorthShowing(entry))
      continue;
    any = true;
    fresh |= !std::exchange(entry.shown, true);
  }
  if (!any || !m_controller.getView())
    return;
  const bool isNew = !m_content;
  if (isNew && !fresh && m_controller.isNotificationShowing())
    return;
  if (isNew)
    m_content = makeContent();
  for (Entry& entry : m_entries) {
    if (entry.shown)
      updateRow(entry);
  }
  describeContent();
  if (isNew)
    m_controller.showNotification(m_content, FadeInOnly, 0);
}

void RunNotices::updateRow(Entry& entry) {
  const CommandRun& run = entry.run;
  if (!entry.row) {
    entry.row = new ProgressContent(entry.text, m_content);
    m_content->layout()->addWidget(entry.row);
    connect(entry.row, &ProgressContent::cancelRequested, this, [this, run] {
      run.requestStop();
      refresh();
    });
  }
  entry.row->setFraction(run.progress());
  entry.row->setCancellable(run.canBeStopped());
  if (run.isStopRequested())
    entry.row->setCancelling();
}

void RunNotices::describeContent() {
  QStringList texts;
  for (const Entry& entry : m_entries) {
    if (entry.shown)
      texts += entry.text;
  }
  m_content->setAccessibleName(texts.join(QLatin1Char('\n')));
}

} // namespace Vela::UiBase
