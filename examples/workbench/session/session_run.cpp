// SPDX-License-Identifier: MIT
#include "session_run.h"

#include <vlk_app_service/application_service.h>
#include <vlk_app_service/config_manager.h>
#include <workbench/console.h>
#include <workbench/main_window.h>
#include <workbench/mesh_view_controller.h>

#include <QCoreApplication>
#include <QTemporaryDir>

namespace Workbench {

using namespace Vela::UiBase;
using Vela::Services::ApplicationService;
using Vela::Services::ConfigManager;

void SessionRun::useOwnSettings() {
  static const QTemporaryDir folder;
  auto& service = ApplicationService::GetInstance();
  auto own = std::make_unique<ConfigManager>(folder.filePath(QStringLiteral("settings.ini")));
  for (const QString& key : {QStringLiteral("look/language"), QStringLiteral("look/dark")}) {
    if (service.GetConfigManager().contains(key))
      own->setValue(key, service.GetConfigManager().value(key));
  }
  service.setConfigManager(std::move(own));
}

SessionRun::SessionRun(MainWindow& window) : m_subject(window), m_recorder(m_subject), m_replay(m_subject) {
  m_recorder.addManager(window.controller());
  m_replay.addManager(window.controller());
  connect(&m_recorder, &SessionRecorder::warned, this,
          [this](const QString& sentence) { printError(m_file, sentence); });
  connect(&m_recorder, &SessionRecorder::failed, this, [this, &window](const QString& error) {
    printError(m_file, error);
    window.controller()->showNotification(tr("The session is recorded no more: %1").arg(error),
                                          NotificationWarning);
  });
  connect(&m_replay, &SessionReplay::finished, this, &SessionRun::finished);
}

SessionRun::~SessionRun() {
  if (m_replay.isReplaying())
    printError(m_file, tr("The program ended before the session did."));
}

void SessionRun::record(const QString& file) {
  m_file = file;
  if (m_recorder.start(file))
    return;
  m_status = 1;
  printError(file, m_recorder.error());
  endProgram();
}

void SessionRun::replay(const QString& file) {
  m_file = file;
  m_status = 1;
  QString error;
  if (const auto session = Session::fromFile(file, &error)) {
    m_replay.start(*session);
    return;
  }
  printError(file, error);
  endProgram();
}

void SessionRun::endProgram() {
  QMetaObject::invokeMethod(
      this, [] { QCoreApplication::exit(1); }, Qt::QueuedConnection);
}

void SessionRun::finished(bool isWhole, const QString& why, int line) {
  if (isWhole) {
    m_status = 0;
    print(tr("%n step(s) replayed\n", nullptr, int(m_replay.stepsDone())));
  } else {
    printError(tr("%1, line %2").arg(m_file, QString::number(line)), why);
  }
  QCoreApplication::exit(m_status);
}

} // namespace Workbench
