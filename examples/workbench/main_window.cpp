// SPDX-License-Identifier: MIT
#include "main_window.h"

#include <ui_base/assistants/command_palette.h>
#include <ui_base/assistants/command_usage.h>
#include <ui_base/assistants/shortcut_scheme.h>
#include <ui_base/core/language.h>
#include <ui_base/menus/menu_builder.h>
#include <ui_base/views/qt_ui_toolkit.h>
#include <vlk_app_service/application_service.h>
#include <vlk_common_res/styles.h>
#include <workbench/command_menus.h>
#include <workbench/config.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/pages/page_stack.h>
#include <workbench/pages/page_strip.h>
#include <workbench/pages/workbench_pages.h>
#include <workbench/panels/plain_tooltips.h>
#include <workbench/panels/unit_button.h>
#include <workbench/photos/photo_view.h>
#include <workbench/photos/photo_view_controller.h>
#include <workbench/toolbars/mesh_tool_bars.h>

#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QLabel>
#include <QStatusBar>
#include <QVBoxLayout>

namespace Workbench {

using Vela::Resource::Styles;

namespace {

constexpr QSize LeastSize(400, 300); // px: bars with what scrolls in them, and something of the mesh
constexpr QLatin1String UsageKey("commands/usage");
constexpr QLatin1String ShortcutsKey("commands/shortcuts");

} // namespace

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent),
      m_view(new MeshView(this)),
      m_controller(new MeshViewController(m_view)),
      m_photoView(new PhotoView(this)),
      m_photos(new PhotoViewController(m_photoView)),
      m_pages(new WorkbenchPages(*m_controller, *m_photos, this)),
      m_toolBars(new MeshToolBars(*m_view, *m_controller, this)),
      m_numbers(new QLabel(this)),
      m_palette(new Vela::UiBase::CommandPalette(this)),
      m_shortcuts(new Vela::UiBase::ShortcutScheme(this)) {
  new PlainTooltips(this);
  setMinimumSize(LeastSize);
  makePages();
  connectCommands();
  makePalette();
  makeShortcuts();
  statusBar()->addPermanentWidget(m_numbers);
  statusBar()->addPermanentWidget(new UnitButton(*this, *m_controller));
  setWindowIcon(Vela::UiBase::QtUiToolkit::Instance().CreateIcon(QStringLiteral("smooth_shading")));
  connectEvents();
  Vela::UiBase::keepTranslated(this, [this] { showFileName(); });
  connect(&Styles::Instance(), &Styles::widgetPaletteChanged, this, &MainWindow::applyPalette);
  applyPalette();
}

MainWindow::~MainWindow() { config().setValue(UsageKey, m_palette->usage().values()); }

void MainWindow::makePages() {
  auto* const area = new QWidget(this);
  auto* const stack = new PageStack(area);
  auto* const layout = new QVBoxLayout(area);
  layout->setContentsMargins({});
  layout->setSpacing(0);
  layout->addWidget(stack);
  stack->addWidget(m_view);
  stack->addWidget(m_photoView);
  m_controller->setDelegate(static_cast<Vela::UiBase::PresentViewProtocol*>(stack));
  m_photos->setDelegate(static_cast<Vela::UiBase::PresentViewProtocol*>(stack));
  setCentralWidget(area);
  m_view->setFocus();
}

void MainWindow::makeStrip() {
  if (m_strip || m_photoView->document().count() == 0)
    return;
  m_strip = new PageStrip(*m_pages, *m_controller, *m_photoView, centralWidget());
  centralWidget()->layout()->addWidget(m_strip);
}

void MainWindow::makePalette() {
  m_palette->addManager(m_controller);
  m_palette->addManager(m_photos, Vela::UiBase::OfferInSight);
  m_palette->usage().restore(config().value(UsageKey).toMap());
}

void MainWindow::makeShortcuts() {
  using Vela::UiBase::ShortcutScheme;
  m_shortcuts->addManager(m_controller);
  m_shortcuts->addManager(m_photos);
  m_shortcuts->restore(config().value(ShortcutsKey).toMap());
  connect(m_shortcuts, &ShortcutScheme::changed, this,
          [this] { config().setValue(ShortcutsKey, m_shortcuts->values()); });
}

void MainWindow::connectCommands() {
  auto* const menus = new Vela::UiBase::MenuBuilder(QStringLiteral("menu_bar"), this, this);
  m_commands = std::make_shared<CommandMenus>(*menus);
  m_controller->setDelegate(m_commands, false);
  m_photos->setDelegate(m_commands, false);
  menus->Start();
}

void MainWindow::connectEvents() {
  const MeshViewEvents& events = m_controller->events();
  connect(&events, &MeshViewEvents::meshShown, this, &MainWindow::showFileName);
  connect(&m_view->document(), &MeshDocument::savedStateChanged, this, &MainWindow::showFileName);
  connect(&m_photoView->document(), &PhotoDocument::changed, this, &MainWindow::showFileName);
  connect(&m_photoView->document(), &PhotoDocument::changed, this, &MainWindow::makeStrip);
  connect(m_pages, &WorkbenchPages::currentChanged, this, &MainWindow::showPage);
  connect(m_view, &MeshView::statusTextChanged, m_numbers,
          [this] { m_numbers->setText(m_view->statusText()); });
  const auto showMessage = [this](const QString& message) { statusBar()->showMessage(message); };
  connect(&events, &MeshViewEvents::openStarted, this, showMessage);
  connect(&events, &MeshViewEvents::openFailed, this,
          [showMessage](const QString&, const QString&, const QString& message) { showMessage(message); });
  connect(&events, &MeshViewEvents::openFinished, this, [this](bool allOpened) {
    if (allOpened)
      statusBar()->clearMessage();
  });
}

void MainWindow::showPage() {
  // The photographs have their figures on their page.
  statusBar()->setVisible(m_pages->current() == MeshPage);
  m_commands->showPage(m_pages->current());
  showFileName();
}

void MainWindow::showFileName() {
  const bool isMesh = m_pages->current() == MeshPage;
  const QString file = isMesh ? m_controller->fileName() : m_photoView->document().fileName();
  QString name = QFileInfo(file).fileName();
  name.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")); // else the mark would stand there
  setWindowFilePath(file);
  setWindowTitle(file.isEmpty() ? tr("Workbench") : tr("%1[*] – Workbench").arg(name));
  setWindowModified(isMesh && m_view->document().isModified());
}

void MainWindow::applyPalette() { QApplication::setPalette(Styles::Instance().widgetPalette()); }

void MainWindow::closeEvent(QCloseEvent* event) {
  if (Vela::Services::ApplicationService::GetInstance().requestShutdown())
    QMainWindow::closeEvent(event);
  else
    event->ignore();
}

} // namespace Workbench
