// SPDX-License-Identifier: MIT
#include "photo_document.h"

#include <tqm_mesh_kernel/dispatch.h>
#include <ui_base/tools/operation_log.h>
#include <workbench/photos/photo_loader.h>

#include <QFileInfo>
#include <QPointer>

namespace Workbench {

namespace {

constexpr QLatin1String NextAction("next");
constexpr QLatin1String PreviousAction("previous");
constexpr QLatin1String CloseAction("close");

void tell(QLatin1String action) {
  Vela::UiBase::OperationLog::Instance().tell({PhotoDocument::operationName(), action, {}, {}, {}, {}});
}

} // namespace

PhotoDocument::PhotoDocument(QObject* parent) : QObject(parent) {}

PhotoDocument::~PhotoDocument() = default;

void PhotoDocument::open(const QStringList& files) {
  qsizetype first = -1;
  for (const QString& file : files) {
    const QString path = QFileInfo(file).absoluteFilePath();
    if (!m_files.contains(path))
      m_files.append(path);
    if (first < 0)
      first = m_files.indexOf(path);
  }
  if (first >= 0)
    goTo(first, Direction::Forwards);
}

void PhotoDocument::showNext() {
  if (!hasNext())
    return;
  tell(NextAction);
  goTo(m_wanted + 1, Direction::Forwards);
}

void PhotoDocument::showPrevious() {
  if (!hasPrevious())
    return;
  tell(PreviousAction);
  goTo(m_wanted - 1, Direction::Backwards);
}

bool PhotoDocument::perform(const QString& action) {
  if (action == NextAction && hasNext())
    showNext();
  else if (action == PreviousAction && hasPrevious())
    showPrevious();
  else if (action == CloseAction && count() > 0)
    closeCurrent();
  else
    return false;
  return true;
}

void PhotoDocument::closeCurrent() {
  if (m_wanted < 0)
    return;
  tell(CloseAction);
  m_task.cancel();
  m_files.removeAt(m_wanted);
  m_shown = m_shown == m_wanted ? -1 : m_shown - (m_shown > m_wanted ? 1 : 0);
  m_wanted = std::min(m_wanted, m_files.size() - 1);
  goTo(m_wanted, Direction::Forwards);
}

void PhotoDocument::goTo(qsizetype position, Direction direction) {
  m_wanted = position;
  m_direction = direction;
  m_task.cancel();
  if (m_files.isEmpty() && !m_photo.isNull()) {
    m_photo = {};
    Q_EMIT photoChanged();
  }
  if (isLoading())
    load();
  else
    settle();
}

void PhotoDocument::load() {
  m_progress = 0;
  if (!m_paused)
    m_task.start(loading());
  Q_EMIT changed();
}

LatestTask::Work PhotoDocument::loading() {
  const QPointer<PhotoDocument> self(this);
  return [this, self, file = fileName()](const std::stop_token& stop) -> LatestTask::Deliver {
    const auto tell = [self, stop](double fraction) {
      Taren::Core::dispatchAsync(
          [self, stop, fraction] {
            if (!self || stop.stop_requested())
              return;
            self->m_progress = fraction;
            Q_EMIT self->changed();
          },
          Taren::Core::MainThreadQoS);
    };
    try {
      return [this, photo = loadPhoto(file, Vela::UiBase::RunProgress(stop, tell))] { show(photo); };
    } catch (const PhotoLoadError& error) {
      return [this, failure = Failure{error.reason(), error.message()}] { dropCurrent(failure); };
    } catch (const std::bad_alloc&) {
      const PhotoLoadError error(file, tr("It does not fit into memory."));
      return [this, failure = Failure{error.reason(), error.message()}] { dropCurrent(failure); };
    }
  };
}

void PhotoDocument::show(const PhotoImage& photo) {
  m_photo = photo;
  m_shown = m_wanted;
  Q_EMIT photoChanged();
  settle();
}

void PhotoDocument::dropCurrent(const Failure& failure) {
  const QString file = m_files.takeAt(m_wanted);
  if (m_shown > m_wanted)
    --m_shown;
  Q_EMIT failed(file, failure.reason, failure.message);
  const qsizetype next = m_wanted - (m_direction == Direction::Forwards ? 0 : 1);
  if (next >= 0 && next < m_files.size())
    goTo(next, m_direction);
  else
    goTo(m_shown >= 0 ? m_shown : m_files.size() - 1, m_direction);
}

void PhotoDocument::settle() {
  Q_EMIT changed();
  Q_EMIT settled();
}

void PhotoDocument::pause() {
  m_paused = true;
  m_task.cancel();
}

void PhotoDocument::resume() {
  if (std::exchange(m_paused, false) && isLoading())
    load();
}

} // namespace Workbench
