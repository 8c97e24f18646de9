// SPDX-License-Identifier: MIT
#include "volume_panel.h"

#include <ui_base/core/language.h>
#include <ui_toolkit/print_material_info_panel.h>
#include <vlk_common_res/styles.h>
#include <workbench/config.h>
#include <workbench/mesh_ops/support_volume.h>
#include <workbench/mesh_view.h>

#include <QPainter>
#include <QVBoxLayout>

#include <cmath>

namespace Workbench {

using Vela::Resource::Styles;
using Vela::UiToolkit::PrintMaterialInfoPanel;

namespace {

constexpr QLatin1String UnitKey("volume/unit");
constexpr int PanelWidth = 210; // px
constexpr double Corner = 6;    // px

// What keeps the panel readable over the mesh.
class Card : public QWidget {
public:
  explicit Card(QWidget* content) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->addWidget(content);
    setFixedWidth(PanelWidth);
    connect(&Styles::Instance(), &Styles::changed, this, qOverload<>(&QWidget::update));
  }

protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Styles::Instance().ColorActionPanelBorder());
    painter.setBrush(Styles::Instance().ColorActionPanelGroupBack());
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Corner, Corner);
  }
};

} // namespace

VolumePanel::VolumePanel(MeshView& view)
    : FloatingWidget(&view), m_view(view), m_panel(new PrintMaterialInfoPanel) {
  setAlignment(Qt::AlignBottom | Qt::AlignRight); // away from the toolbars and the notifications
  Vela::UiBase::keepTranslated(m_panel, [this] { m_panel->setToolTip(tr("Right click for other units")); });
  const int unit = config().value(UnitKey, m_panel->VolumeUnit()).toInt();
  m_panel->SetVolumeUnit(Vela::Common::EVolumeUnit(unit));
  connect(m_panel, &PrintMaterialInfoPanel::VolumeUnitChanged, this,
          [](int chosen) { config().setValue(UnitKey, chosen); });
  addWidget(new Card(m_panel));
  connect(&view.document(), &MeshDocument::meshChanged, this, [this] {
    m_outdated = true;
    if (isVisible())
      compute();
  });
}

void VolumePanel::showEvent(QShowEvent* event) {
  FloatingWidget::showEvent(event);
  if (m_outdated)
    compute();
}

void VolumePanel::hideEvent(QHideEvent* event) {
  FloatingWidget::hideEvent(event);
  m_outdated = m_outdated || m_task.isPending();
  m_task.cancel();
}

void VolumePanel::compute() {
  m_outdated = false;
  m_panel->SetVolumes({}, {});
  m_panel->SetBusy(!m_view.mesh().isEmpty());
  m_task.start([this, mesh = m_view.mesh()](const std::stop_token& stop) -> LatestTask::Deliver {
    std::optional<double> volume = mesh.volume();
    if (volume)
      volume = std::abs(*volume); // also of a mesh that is inside out
    const std::optional<double> supports = supportVolume(mesh, {}, Vela::UiBase::RunProgress(stop));
    return [this, volume, supports] {
      m_panel->SetVolumes(volume, supports);
      m_panel->SetBusy(false);
    };
  });
}

} // namespace Workbench
