// SPDX-License-Identifier: MIT
#pragma once

#include "commands_fixture.h"

#include <tqm_mesh_kernel/stepped_dispatcher.h>
#include <ui_base/views/base_view.h>
#include <vlk_app_service/application_service.h>

#include <QThread>

inline Vela::Services::ApplicationService& service() {
  return Vela::Services::ApplicationService::GetInstance();
}

inline QString newestWaypoint() {
  const auto waypoints = service().Kernel().waypoints().waypoints();
  return waypoints.isEmpty() ? QString() : waypoints.last().name;
}

/// Logs a command's execution: what is told, its checked value and the newest waypoint.
class ExecutionLog {
public:
  explicit ExecutionLog(TestCommand& command) {
    observer->began = [this](Vela::UiBase::CommandBase*, bool checked) { note("began", checked); };
    observer->ended = [this](Vela::UiBase::CommandBase*, bool checked) { note("ended", checked); };
    command.work = [this](bool checked) {
      note("work", checked);
      return true;
    };
    command.addObserver(observer, false);
  }
  Q_DISABLE_COPY_MOVE(ExecutionLog)

  void note(const char* what, bool checked) {
    entries.append(QStringLiteral("%1 %2 | %3").arg(QLatin1String(what)).arg(checked).arg(newestWaypoint()));
    threads.append(QThread::currentThread());
  }

  const std::shared_ptr<TestObserver> observer = std::make_shared<TestObserver>();
  QStringList entries;
  QList<QThread*> threads;
};

inline constexpr QLatin1String beganLine("began 0 | CMD BEGIN TestCommand(false)");
inline constexpr QLatin1String workLine("work 0 | CMD BEGIN TestCommand(false)");
inline constexpr QLatin1String endedLine("ended 0 | CMD END   TestCommand(false)");

/// A controller with a command that works elsewhere, and another one that is disabled meanwhile. Tasks are
/// stepped by hand.
class AsyncFixture {
public:
  AsyncFixture() {
    command->setExecutionQoS(Taren::Core::NormalQoS);
    command->executionContext.overwrite(QStringLiteral("other"),
                                        {Vela::UiBase::State::Off, Vela::UiBase::State::Keep});
    controller->addCommand(command);
    controller->addCommand(other);
    dispatcher.runAll();
  }
  ~AsyncFixture() {
    deleteView();
    dispatcher.runAll();
  }
  Q_DISABLE_COPY_MOVE(AsyncFixture)

  /// Runs what waits for the main thread, and no work.
  void drain() {
    while (dispatcher.step(Taren::Core::MainThreadQoS)) {
    }
  }
  void deleteView() { delete std::exchange(view, nullptr).data(); }

  Taren::Core::SteppedDispatcher dispatcher;
  Taren::Core::ScopedDispatcher installed{dispatcher};
  QPointer<Vela::UiBase::BaseView> view{new Vela::UiBase::BaseView};
  Vela::UiBase::CmdsViewController* controller = new Vela::UiBase::CmdsViewController(view);
  TestCommand* command = new TestCommand(QStringLiteral("work"), controller);
  TestCommand* other = new TestCommand(QStringLiteral("other"));
  ExecutionLog log{*command};
};
