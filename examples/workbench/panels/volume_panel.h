// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/notifications/floating_widget.h>
#include <workbench/latest_task.h>

namespace Vela::UiToolkit {
class PrintMaterialInfoPanel;
}

namespace Workbench {

class MeshView;

/// Tells in a corner of a mesh view how much material it takes to print the mesh standing as it is, with the
/// supports it needs. One unit of the mesh is a millimetre; the unit shown is the user's, and remembered.
///
/// The volumes are computed on a thread of the dispatcher, and only while the panel is to be seen. They are
/// not known for a mesh that is not closed. Owned by the view.
class VolumePanel : public Vela::UiBase::FloatingWidget {
  Q_OBJECT

public:
  explicit VolumePanel(MeshView& view);

  Vela::UiToolkit::PrintMaterialInfoPanel& panel() const { return *m_panel; }

protected:
  void hideEvent(QHideEvent* event) override;
  void showEvent(QShowEvent* event) override;

private:
  void compute();

  MeshView& m_view;
  Vela::UiToolkit::PrintMaterialInfoPanel* m_panel;
  LatestTask m_task;
  bool m_outdated = true;
};

} // namespace Workbench
