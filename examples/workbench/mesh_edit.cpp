// SPDX-License-Identifier: MIT
#include "mesh_edit.h"

#include <tqm_mesh_kernel/dispatch.h>
#include <ui_base/commands/command_base.h>
#include <workbench/commands/mesh_user.h>
#include <workbench/mesh_document.h>

#include <QScopeGuard>

#include <utility>

namespace Workbench {

using namespace Vela::UiBase;
using Taren::Core::dispatchAsync;
using Taren::Core::MainThreadQoS;

MeshEdit::MeshEdit(CommandBase& command, const MeshUser& user) : m_command(command), m_user(user) {
  m_command.enableExecutionNotification(true);
}

MeshEdit::~MeshEdit() = default;

void MeshEdit::begin(Plan plan) {
  m_command.setExecutionNotificationMessage(StartNotification, tr("%1…").arg(plan.working));
  m_command.setExecutionNotificationMessage(EndNotification, {});
  const MeshDocument& edited = *m_user.document();
  m_run = Run{std::move(plan), edited.mesh(), edited.selection()};
}

bool MeshEdit::run(std::shared_ptr<const void> owner) {
  const CommandRun run = CommandRun::current();
  std::optional<Mesh> result;
  // However the work ends; before the closing steps of the command.
  const auto finishLater = qScopeGuard([&] {
    dispatchAsync([this, owner, run, result] { finish(result, run.isStopRequested()); }, MainThreadQoS);
  });
  result = m_run->plan.work(m_run->mesh, m_run->selection, run.reporter());
  return true;
}

void MeshEdit::abandon() {
  if (m_run)
    finish(std::nullopt, false);
}

// A result that came after all is dropped when it was cancelled.
void MeshEdit::finish(const std::optional<Mesh>& result, bool cancelled) {
  MeshDocument* const edited = m_user.document();
  const bool applied = result && edited && !cancelled;
  if (applied)
    edited->edit(m_run->plan.step, *result);
  const Run run = std::move(*std::exchange(m_run, std::nullopt));
  if (applied)
    m_command.setExecutionNotificationMessage(EndNotification, run.plan.done(run.mesh, *result));
  Q_EMIT finished(applied);
}

} // namespace Workbench
