// SPDX-License-Identifier: MIT
#include "mesh_info_dialog.h"

#include <ui_base/core/language.h>
#include <ui_base/popups/info_panel.h>
#include <vlk_common_res/styles.h>
#include <workbench/mesh_view.h>
#include <workbench/panels/mesh_report.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QPushButton>

namespace Workbench {

namespace {

constexpr QSize PanelSize(430, 400); // px: all of the figures and the chart

} // namespace

using Vela::Resource::Styles;

MeshInfoDialog::MeshInfoDialog(MeshView& view, QWidget* parent)
    : InfoDialog(QString(), parent), m_view(&view) {
  connect(&view.document(), &MeshDocument::meshChanged, this, &MeshInfoDialog::takeFigures);
  connect(&view.measurements(), &Measurements::unitChanged, this, &MeshInfoDialog::showFigures);
  connect(&Styles::Instance(), &Styles::changed, this, &MeshInfoDialog::showFigures);
  // Shortcuts of the window around the view work here too.
  setWindowFlags((windowFlags() & ~Qt::WindowType_Mask) | Qt::Tool);
  Panel()->setMinimumSize(PanelSize);
  auto* const copy = new QPushButton;
  copy->setObjectName(QStringLiteral("copy_button"));
  copy->setAutoDefault(false);
  connect(copy, &QPushButton::clicked, this, &MeshInfoDialog::copyFigures);
  AddFooter(copy);
  Vela::UiBase::keepTranslated(this, [this, copy] {
    SetTitle(tr("Mesh Information"));
    copy->setText(tr("C&opy"));
    Panel()->setAccessibleName(Title());
    showFigures();
  });
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

void MeshInfoDialog::copyFigures() {
  if (m_view)
    QGuiApplication::clipboard()->setText(MeshReport::text(m_figures, m_view->measurements().unit()));
}

void MeshInfoDialog::showFigures() {
  if (m_view)
    Panel()->SetHtml(MeshReport::html(m_figures, m_view->measurements().unit()));
}

} // namespace Workbench
