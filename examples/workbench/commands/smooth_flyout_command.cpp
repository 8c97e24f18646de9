// SPDX-License-Identifier: MIT
#include "smooth_flyout_command.h"

#include <ui_base/popups/flyout_base.h>
#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/command_menus.h>
#include <workbench/commands/command_help.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/panels/smooth_panel.h>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

constexpr int PreviewDelay = 120; // ms without another value
constexpr QLatin1String IterationsKey("iterations");
constexpr QLatin1String InwardsKey("inwards");
constexpr QLatin1String OutwardsKey("outwards");

} // namespace

SmoothFlyoutCommand::SmoothFlyoutCommand(MeshViewController* controller)
    : FlyoutCommand([this] { return makeFlyout(); }, controller),
      MeshUser(static_cast<const CommandBase&>(*this)),
      m_edit(*this, *this) {
  setText({staticMetaObject, QT_TR_NOOP("Smooth &with Options…")});
  setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("smooth_options")));
  setShortcut(Qt::CTRL | Qt::ALT | Qt::Key_M);
  setStatusTip({staticMetaObject, QT_TR_NOOP("Choose how much to smooth, and see it at once")});
  setBaseGroupName(MeshSection);
  setCommandHelp(*this,
                 {{staticMetaObject,
                   QT_TR_NOOP("The mesh changes only when the values are applied. With triangles selected, "
                              "the others stay exactly as they are.")},
                  QStringLiteral("smooth_mesh")});
  m_preview.setDelay(PreviewDelay);
  connect(&m_edit, &MeshEdit::finished, this, [this](bool applied) { m_applied = applied; });
  if (MeshDocument* const edited = document()) {
    connect(edited, &MeshDocument::meshChanged, this, &SmoothFlyoutCommand::onMeshChanged);
    connect(edited, &MeshDocument::selectionChanged, this, &SmoothFlyoutCommand::updatePreview);
  }
}

SmoothFlyoutCommand::~SmoothFlyoutCommand() { beginDestruction(); }

FlyoutBase* SmoothFlyoutCommand::makeFlyout() {
  FlyoutBase* const flyout = makeSmoothFlyout(meshView());
  m_panel = qobject_cast<SmoothPanel*>(flyout->MainPanel());
  connect(m_panel, &SmoothPanel::changed, this, &SmoothFlyoutCommand::updatePreview);
  connect(flyout, &FlyoutBase::FlyoutIdle, this, [this, flyout] {
    if (std::exchange(m_applied, false))
      flyout->CloseMe();
  });
  return flyout;
}

QString SmoothFlyoutCommand::obstacle() const { return isActive() ? QString() : needFreeMesh(); }

bool SmoothFlyoutCommand::locksMesh() const { return true; }

void SmoothFlyoutCommand::cancel() {
  if (m_edit.isRunning())
    requestStop();
  else if (FlyoutBase* const panel = isActive() ? flyout() : nullptr)
    panel->Cancel();
}

// The controller knows of the command before it puts the others into its context.
void SmoothFlyoutCommand::onBegin() {
  MeshViewController* const controller = meshController();
  if (isActive() || !isAvailable() || !controller)
    return;
  controller->holdMesh(*this);
  FlyoutCommand::onBegin();
  updatePreview();
}

void SmoothFlyoutCommand::onFinalize() {
  requestStop();
  clearPreview();
  if (MeshViewController* const controller = meshController())
    controller->releaseMesh(*this);
  FlyoutCommand::onFinalize();
}

void SmoothFlyoutCommand::onESCKeyReleased() { requestStop(); }

QVariantMap SmoothFlyoutCommand::inputs() const {
  return {{IterationsKey, m_applying.iterations},
          {InwardsKey, m_applying.inwards},
          {OutwardsKey, m_applying.outwards}};
}

bool SmoothFlyoutCommand::setInputs(const QVariantMap& inputs) {
  SmoothOptions given;
  given.iterations = inputs.value(IterationsKey, given.iterations).toInt();
  given.inwards = inputs.value(InwardsKey, given.inwards).toDouble();
  given.outwards = inputs.value(OutwardsKey, given.outwards).toDouble();
  const auto isStep = [](double step) { return step > 0 && step <= 1; };
  const bool good =
      given.iterations > 0 && given.iterations <= 1000 && isStep(given.inwards) && isStep(given.outwards);
  if (good)
    m_given = given;
  return good;
}

bool SmoothFlyoutCommand::needsInputs() const { return true; }

bool SmoothFlyoutCommand::onExecute(bool checked) {
  const bool isGiven = m_given && isAvailable();
  if (!(isActive() || isGiven) || !hasMesh() || m_edit.isRunning())
    return false;
  m_preview.cancel();
  m_applying = options();
  m_given.reset();
  m_edit.begin(
      {{staticMetaObject, QT_TR_NOOP("Smooth")},
       tr("Smoothing"),
       [options = m_applying](const Mesh& mesh, const TriangleSelection&, const RunProgress& progress) {
         return smoothed(mesh, options, progress);
       },
       [](const Mesh&, const Mesh&) { return tr("Smoothed the mesh"); }});
  const bool started = FlyoutCommand::onExecute(checked);
  if (!started)
    m_edit.abandon();
  return started;
}

bool SmoothFlyoutCommand::onExecuteAsync(bool) { return m_edit.run(shared_from_this()); }

CommandContext SmoothFlyoutCommand::getBeginCommandContext() {
  const MeshViewController* const controller = meshController();
  return controller ? controller->availability() : CommandContext();
}

CommandContext SmoothFlyoutCommand::getExecutionCommandContext() { return getBeginCommandContext(); }

SmoothOptions SmoothFlyoutCommand::options() const {
  SmoothOptions options = m_given ? *m_given : m_panel ? m_panel->options() : SmoothOptions();
  const MeshDocument* const edited = document();
  if (edited && !edited->selection().isEmpty())
    options.selection = edited->selection();
  return options;
}

void SmoothFlyoutCommand::updatePreview() {
  if (!isActive() || m_edit.isRunning())
    return;
  if (!m_panel || !m_panel->isPreviewWanted() || !hasMesh()) {
    clearPreview();
    return;
  }
  m_preview.start([this, mesh = document()->mesh(),
                   options = options()](const std::stop_token& stop) -> LatestTask::Deliver {
    const Mesh result = smoothed(mesh, options, RunProgress(stop));
    return [this, result] {
      if (MeshView* const view = meshView())
        view->setPreview(result);
    };
  });
}

void SmoothFlyoutCommand::clearPreview() {
  m_preview.cancel();
  if (MeshView* const view = meshView())
    view->setPreview(std::nullopt);
}

// Another mesh than the one that the flyout was opened for.
void SmoothFlyoutCommand::onMeshChanged() {
  if (isActive() && !m_edit.isRunning())
    cancel();
}

} // namespace Workbench
