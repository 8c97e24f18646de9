// SPDX-License-Identifier: MIT
#include "mesh_edit.h"

#include <tqm_mesh_kernel/dispatch.h>
#include <workbench/commands/mesh_user.h>
#include <workbench/mesh_document.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/progress_content.h>

#include <QScopeGuard>

namespace Workbench {

using namespace Vela::UiBase;
using Taren::Core::dispatchAsync;
using Taren::Core::MainThreadQoS;

namespace {

constexpr int ResultShown = 3000; // ms
constexpr int Patience = 250;     // ms

} // namespace

MeshEdit::MeshEdit(const MeshUser& user) : m_user(user) {
  m_patience.setSingleShot(true);
  m_patience.setInterval(Patience);
  connect(&m_patience, &QTimer::timeout, this, &MeshEdit::showProgress);
}

MeshEdit::~MeshEdit() = default;

void MeshEdit::begin(Plan plan) {
  const MeshDocument& edited = *m_user.document();
  m_run = Run{std::move(plan), edited.mesh(), edited.selection(), {}};
  m_patience.start();
}

bool MeshEdit::run(std::shared_ptr<const void> owner) {
  std::optional<Mesh> result;
  // However the work ends; before the closing steps of the command.
  const auto finishLater =
      qScopeGuard([&] { dispatchAsync([this, owner, result] { finish(result); }, MainThreadQoS); });
  const auto report = [this, owner](double fraction) {
    dispatchAsync([this, owner, fraction] { setProgress(fraction); }, MainThreadQoS);
  };
  try {
    result = m_run->plan.work(m_run->mesh, m_run->selection, Progress(m_run->stop.get_token(), report));
  } catch (const OperationCancelled&) {
    return false;
  } catch (const std::bad_alloc&) {
    throw std::runtime_error(tr("There is not enough memory.").toLocal8Bit().toStdString());
  }
  return true;
}

void MeshEdit::abandon() {
  if (m_run)
    finish(std::nullopt);
}

void MeshEdit::cancel() {
  if (m_run)
    m_run->stop.request_stop();
}

void MeshEdit::showProgress() {
  MeshViewController* const controller = m_user.meshController();
  if (!controller)
    return;
  m_progress = new ProgressContent(m_run->plan.working);
  connect(m_progress, &ProgressContent::cancelled, this, &MeshEdit::cancel);
  controller->showNotification(m_progress, FadeInAndOut, 0, false, nullptr, nullptr);
}

// Another message may have taken the place; when that is gone, this one comes back.
void MeshEdit::setProgress(double fraction) {
  MeshViewController* const controller = m_user.meshController();
  if (!m_run || !controller || m_patience.isActive())
    return;
  if (!m_progress && !controller->isNotificationShowing())
    showProgress();
  if (m_progress)
    m_progress->setFraction(fraction);
}

// A result that came after all is dropped when it was cancelled.
void MeshEdit::finish(const std::optional<Mesh>& result) {
  const bool cancelled = m_run->stop.stop_requested();
  m_patience.stop();
  if (m_progress)
    m_progress->deleteLater();
  MeshDocument* const edited = m_user.document();
  const bool applied = result && edited && !cancelled;
  if (applied)
    edited->edit(m_run->plan.step, *result);
  const Run run = std::move(*std::exchange(m_run, std::nullopt));
  if (applied)
    tell(run.plan.done(run.mesh, *result));
  else if (cancelled && edited)
    tell(tr("%1 cancelled. The mesh is as it was.").arg(run.plan.working));
  Q_EMIT finished(applied);
}

void MeshEdit::tell(const QString& message) {
  if (MeshViewController* const controller = m_user.meshController())
    controller->showNotification(message, FadeInAndOut, ResultShown, false, nullptr, nullptr);
}

} // namespace Workbench
