// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>

namespace Vela::UiBase {
class ActionPanel;
class FloatingWidget;
class ToolBar;
class ToolbarManager;
} // namespace Vela::UiBase

namespace Workbench {

class MeshView;
class MeshViewController;

/// The bars over the view of the mesh: the main toolbar at the top, after it the toolbars of what is
/// selected, and the action panel at the left. They slide in when the view shows its first mesh.
///
/// The bars belong to the view; what else floats over it keeps clear of them. See fillToolBarGroups() for
/// what stands in them.
///
/// @code
/// auto* bars = new MeshToolBars(*view, *controller, window);
/// @endcode
class MeshToolBars : public QObject {
  Q_OBJECT

public:
  MeshToolBars(MeshView& view, MeshViewController& controller, QObject* parent = nullptr);
  ~MeshToolBars() override;

  Vela::UiBase::ToolBar& mainBar() const { return *m_main; }
  Vela::UiBase::ActionPanel& panel() const { return *m_panel; }
  Vela::UiBase::ToolbarManager& dynamicBars() const { return *m_dynamic; }
  /// How long the bars slide, in ms; 0 shows them at once.
  void setAnimationDuration(int milliseconds);
  /// Has the bars slide in, unless they are there.
  void show();

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void styleMainBar();
  void styleButtons();
  void placePanel();
  bool closeMenu();
  // What the bars take of the view, in px, with a gap.
  int clearSide() const;
  int clearTop() const;
  void keepClear(Vela::UiBase::FloatingWidget& widget) const;

  MeshView& m_view;
  MeshViewController& m_controller;
  Vela::UiBase::ToolBar* m_main;
  Vela::UiBase::ActionPanel* m_panel;
  Vela::UiBase::ToolbarManager* m_dynamic;
  bool m_shown = false;
};

} // namespace Workbench
