// SPDX-License-Identifier: MIT
#include "mesh_operation_command.h"

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

MeshOperationCommand::MeshOperationCommand(MeshViewController* controller) : WorkbenchCommand(controller) {
  setExecutionQoS(Taren::Core::NormalQoS);
  m_patience.setSingleShot(true);
  m_patience.setInterval(Patience);
  connect(&m_patience, &QTimer::timeout, this, &MeshOperationCommand::showProgress);
}

bool MeshOperationCommand::isAvailable() const { return hasMesh() && !isMeshLocked(); }

bool MeshOperationCommand::locksMesh() const { return true; }

void MeshOperationCommand::cancel() {
  if (m_run)
    m_run->stop.request_stop();
}

bool MeshOperationCommand::onExecute(bool checked) {
  if (!isAvailable())
    return false;
  m_run = Run{document()->mesh(), document()->selection(), {}};
  m_patience.start();
  const bool started = CommandBase::onExecute(checked);
  if (!started)
    finish(std::nullopt, false);
  return started;
}

bool MeshOperationCommand::onExecuteAsync(bool) {
  const auto self = std::dynamic_pointer_cast<MeshOperationCommand>(shared_from_this());
  std::optional<Mesh> result;
  bool cancelled = false;
  // However the work ends; before the closing steps.
  const auto finishLater = qScopeGuard(
      [&] { dispatchAsync([self, result, cancelled] { self->finish(result, cancelled); }, MainThreadQoS); });
  const auto report = [self](double fraction) {
    dispatchAsync([self, fraction] { self->setProgress(fraction); }, MainThreadQoS);
  };
  try {
    result = work(m_run->mesh, m_run->selection, Progress(m_run->stop.get_token(), report));
  } catch (const OperationCancelled&) {
    cancelled = true;
  } catch (const std::bad_alloc&) {
    throw std::runtime_error(tr("There is not enough memory.").toLocal8Bit().toStdString());
  }
  return result.has_value();
}

CommandContext MeshOperationCommand::getExecutionCommandContext() {
  const MeshViewController* const controller = meshController();
  return controller ? controller->availability() : CommandContext();
}

void MeshOperationCommand::showProgress() {
  MeshViewController* const controller = meshController();
  if (!controller)
    return;
  m_progress = new ProgressContent(workingText());
  connect(m_progress, &ProgressContent::cancelled, this, &MeshOperationCommand::cancel);
  controller->showNotification(m_progress, FadeInAndOut, 0, false, nullptr, nullptr);
}

// Another message may have taken the place; when that is gone, this one comes back.
void MeshOperationCommand::setProgress(double fraction) {
  MeshViewController* const controller = meshController();
  if (!m_run || !controller || m_patience.isActive())
    return;
  if (!m_progress && !controller->isNotificationShowing())
    showProgress();
  if (m_progress)
    m_progress->setFraction(fraction);
}

void MeshOperationCommand::finish(const std::optional<Mesh>& result, bool cancelled) {
  const Run run = std::move(*std::exchange(m_run, std::nullopt));
  m_patience.stop();
  if (m_progress)
    m_progress->deleteLater();
  MeshDocument* const edited = document();
  if (!edited)
    return;
  if (result) {
    edited->edit(iconText(), *result);
    tell(doneText(run.mesh, *result));
  } else if (cancelled) {
    tell(tr("%1 cancelled. The mesh is as it was.").arg(workingText()));
  }
}

void MeshOperationCommand::tell(const QString& message) {
  if (MeshViewController* const controller = meshController())
    controller->showNotification(message, FadeInAndOut, ResultShown, false, nullptr, nullptr);
}

} // namespace Workbench
