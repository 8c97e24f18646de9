// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <optional>

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
/// selected, and the action panel at the left. They are made, and slide in, when the view shows its first
/// mesh.
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

  /// Null before the first mesh.
  Vela::UiBase::ToolBar* mainBar() const { return m_main; }
  /// Null before the first mesh.
  Vela::UiBase::ActionPanel* panel() const { return m_panel; }
  /// How long the bars slide, in ms, from the first time on; with 0 they show at once, also those of what is
  /// selected.
  void setAnimationDuration(int milliseconds);
  /// Has the bars slide in, unless they are there.
  void show();

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void make();
  void styleMainBar();
  void applyAnimationDuration();
  void styleButtons();
  void placePanel();
  bool closeMenu();
  // What the bars take of the view, in px, with a gap.
  int clearSide() const;
  int clearTop() const;
  void keepClear(Vela::UiBase::FloatingWidget& widget) const;

  MeshView& m_view;
  MeshViewController& m_controller;
  Vela::UiBase::ToolBar* m_main = nullptr; // the view's, like the next two
  Vela::UiBase::ActionPanel* m_panel = nullptr;
  Vela::UiBase::ToolbarManager* m_dynamic = nullptr;
  std::optional<int> m_animationDuration;
};

} // namespace Workbench
