// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/info_dialog.h>
#include <workbench/latest_task.h>
#include <workbench/mesh_ops/mesh_statistics.h>

#include <QPointer>

namespace Workbench {

class MeshView;

/// Shows the figures of a view's mesh and follows the mesh, the unit and the palette while it is open. The
/// figures are taken in the background.
class MeshInfoDialog : public Vela::UiBase::InfoDialog {
  Q_OBJECT

public:
  explicit MeshInfoDialog(MeshView& view, QWidget* parent = nullptr);
  ~MeshInfoDialog() override;

private:
  void takeFigures();
  void copyFigures();
  void showFigures();

  const QPointer<MeshView> m_view;
  MeshStatistics m_figures;
  LatestTask m_task;
};

} // namespace Workbench
