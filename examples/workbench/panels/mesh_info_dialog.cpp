// SPDX-License-Identifier: MIT
#include "mesh_info_dialog.h"

#include <ui_base/popups/info_panel.h>
#include <vlk_common_res/styles.h>
#include <workbench/mesh_view.h>
#include <workbench/panels/mesh_report.h>

namespace Workbench {

namespace {

constexpr QSize PanelSize(430, 400); // px: all of the figures and the chart

} // namespace

using Vela::Resource::Styles;

MeshInfoDialog::MeshInfoDialog(MeshView& view, QWidget* parent)
    : InfoDialog(tr("Mesh Information"), parent), m_view(&view) {
  connect(&view.document(), &MeshDocument::meshChanged, this, &MeshInfoDialog::takeFigures);
  connect(&view.measurements(), &Measurements::unitChanged, this, &MeshInfoDialog::showFigures);
  connect(&Styles::Instance(), &Styles::changed, this, &MeshInfoDialog::showFigures);
  // Shortcuts of the window around the view work here too.
  setWindowFlags((windowFlags() & ~Qt::WindowType_Mask) | Qt::Tool);
  Panel()->setMinimumSize(PanelSize);
  takeFigures();
}

MeshInfoDialog::~MeshInfoDialog() = default;

void MeshInfoDialog::takeFigures() {
  if (!m_view)
    return;
  m_task.start([this, mesh = m_view->mesh()](const std::stop_token& stop) -> LatestTask::Deliver {
    const MeshStatistics figures = meshStatistics(mesh, Vela::UiBase::RunProgress(stop));
    return [this, figures] {
      m_figures = figures;
      showFigures();
    };
  });
}

void MeshInfoDialog::showFigures() {
  if (m_view)
    Panel()->SetHtml(MeshReport::html(m_figures, m_view->measurements().unit()));
}

} // namespace Workbench
