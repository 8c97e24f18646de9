// SPDX-License-Identifier: MIT
#include "workbench_app.h"

#include <ui_base/notifications/notification_bar.h>
#include <ui_base/popups/widget_pos_calculator.h>
#include <ui_base/tooltips/tooltip_manager.h>
#include <ui_base/views/qt_ui_toolkit.h>
#include <vlk_app_service/application_service.h>
#include <vlk_common_res/styles.h>
#include <workbench/commands/dark_palette_command.h>
#include <workbench/console.h>
#include <workbench/language.h>
#include <workbench/main_window.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/panels/command_tooltip.h>
#include <workbench/photos/photo_view.h>
#include <workbench/screenshot_run.h>
#include <workbench/session/session_run.h>
#include <workbench/toolbars/mesh_tool_bars.h>
#include <workbench/window_layout.h>
#include <workbench/workbench_app_manager.h>
#include <workbench/workbench_icon_provider.h>

#include <QApplication>

namespace Workbench {

using namespace Vela;
using Taren::Core::ERcmStatus;

WorkbenchApp::WorkbenchApp(Options options) : m_options(std::move(options)) {}

WorkbenchApp::~WorkbenchApp() = default;

ERcmStatus WorkbenchApp::Initialize() { return Init() ? Taren::Core::RcmSuccess : Taren::Core::RcmFailure; }

QString WorkbenchApp::ServiceName() const { return QStringLiteral("workbench"); }

bool WorkbenchApp::Init() {
  UiBase::QtUiToolkit::Instance().IconProvider(new WorkbenchIconProvider);
  Services::ApplicationService::GetInstance().setAppManager(std::make_unique<WorkbenchAppManager>());
  UiBase::WidgetPosCalculator::SetVerifySlidArrowByDefault(true);
  UiBase::TooltipManager::GetInstance().SetShowNextAtOnce(CommandTooltips, true);
  if (!m_options.replay.isEmpty())
    SessionRun::useOwnSettings();
  Language::restore();
  DarkPaletteCommand::restorePalette();
  QApplication::setFont(Resource::Styles::Instance().FontLabel());
  m_window = std::make_unique<MainWindow>();
  setRootViewController(m_window->controller());
  QObject::connect(&m_window->controller()->events(), &MeshViewEvents::openFailed, m_window.get(),
                   &printError);
  QObject::connect(&m_window->photoView()->document(), &PhotoDocument::failed, m_window.get(), &printError);
  showWindow();
  return true;
}

void WorkbenchApp::showWindow() {
  m_window->resize(m_options.size);
  if (m_options.screenshot.isEmpty()) {
    showForUser();
    return;
  }
  UiBase::NotificationBar::setDefaultFadeDuration(0);
  m_window->toolBars().setAnimationDuration(0);
  m_window->show();
  m_screenshot = std::make_unique<ScreenshotRun>(*m_window, m_options.screenshot);
  m_screenshot->start(m_options.files);
}

void WorkbenchApp::showForUser() {
  if (m_options.size == Options().size)
    WindowLayout::restorePlace(*m_window);
  m_window->show();
  WindowLayout::restoreContent(*m_window);
  QObject::connect(&m_window->controller()->events(), &MeshViewEvents::layoutResetAsked, m_window.get(),
                   [window = m_window.get()] { WindowLayout::reset(*window, Options().size); });
  if (!m_options.record.isEmpty() || !m_options.replay.isEmpty())
    m_session = std::make_unique<SessionRun>(*m_window);
  if (!m_options.record.isEmpty())
    m_session->record(m_options.record);
  m_window->controller()->openFiles(m_options.files);
  if (!m_options.replay.isEmpty())
    m_session->replay(m_options.replay);
}

int WorkbenchApp::status() const {
  return m_screenshot ? m_screenshot->status() : m_session ? m_session->status() : 0;
}

void WorkbenchApp::Terminate() {
  if (m_window && getVC() && !m_screenshot)
    WindowLayout::save(*m_window);
  m_screenshot.reset();
  m_session.reset();
  m_window.reset();
}

} // namespace Workbench
