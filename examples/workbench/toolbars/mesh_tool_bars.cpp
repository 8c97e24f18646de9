// SPDX-License-Identifier: MIT
#include "mesh_tool_bars.h"

#include <ui_base/commands/command_group.h>
#include <ui_base/core/language.h>
#include <ui_base/notifications/floating_widget.h>
#include <ui_base/toolbars/action_panel.h>
#include <ui_base/toolbars/tool_button_with_button_menu.h>
#include <ui_base/toolbars/toolbar_manager.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/panels/command_tooltip.h>

#include <QChildEvent>
#include <QKeyEvent>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

constexpr int Gap = 8; // px

} // namespace

MeshToolBars::MeshToolBars(MeshView& view, MeshViewController& controller, QObject* parent)
    : QObject(parent), m_view(view), m_controller(controller) {
  connect(&controller.events(), &MeshViewEvents::meshShown, this, &MeshToolBars::show);
  view.installEventFilter(this);
}

MeshToolBars::~MeshToolBars() = default;

void MeshToolBars::make() {
  m_main = new ToolBar(&m_view, Qt::TopToolBarArea);
  m_panel = new ActionPanel(&m_view);
  m_dynamic = new ToolbarManager(m_main);
  styleMainBar();
  keepTranslated(m_panel, [this] { m_panel->setAccessibleName(tr("Actions")); });
  if (m_view.isRightToLeft())
    m_panel->SetArea(Qt::RightToolBarArea);
  m_panel->SetTooltipGroup(CommandTooltips);
  for (ToolBar* const bar : {m_main, static_cast<ToolBar*>(m_panel)}) {
    bar->hide();
    connect(bar, &ToolBar::LayoutChanged, this, &MeshToolBars::styleButtons);
  }
  applyAnimationDuration();
  m_main->AddCommandGroup(m_controller.ToolPanelGroup());
  m_panel->AddCommandGroup(m_controller.ActionPanelGroup());
  m_dynamic->addDynamicCommandGroup(m_controller.DynamicToolPanelGroup());
  m_controller.selectionCommands().setDelegate(m_dynamic);
}

void MeshToolBars::styleMainBar() {
  keepTranslated(m_main, [this] { m_main->setAccessibleName(tr("Main toolbar")); });
  ToolBar::ApplyDefaultToolbarParams(m_main, QStringLiteral("main_tool_bar"));
  m_main->SetCentered(true);
  m_main->SetOffset({0, Gap});
  m_main->SetRoundCorner(AllRoundCorners, NoRoundCorner, 6);
  m_main->SetBorder(1, QColor(), false);
  m_main->SetTooltipGroup(CommandTooltips);
}

void MeshToolBars::setAnimationDuration(int milliseconds) {
  m_animationDuration = milliseconds;
  if (m_main)
    applyAnimationDuration();
}

void MeshToolBars::applyAnimationDuration() {
  if (!m_animationDuration)
    return;
  m_main->SetAnimationDuration(*m_animationDuration);
  m_panel->SetAnimationDuration(*m_animationDuration);
  if (*m_animationDuration == 0)
    m_dynamic->setGatheringTime(0);
}

void MeshToolBars::show() {
  if (m_main)
    return;
  make();
  m_panel->PrepareActionPanel();
  styleButtons();
  placePanel();
  m_view.setFitMargin({clearSide(), clearTop()});
  m_main->ShowAnimated();
  m_panel->ShowAnimated();
  const auto floating = m_view.findChildren<FloatingWidget*>(QString(), Qt::FindDirectChildrenOnly);
  for (FloatingWidget* const widget : floating)
    keepClear(*widget);
}

// All bars of the view, those behind buttons included.
void MeshToolBars::styleButtons() {
  const auto bars = m_view.findChildren<ToolBar*>(QString(), Qt::FindDirectChildrenOnly);
  for (ToolBar* const bar : bars) {
    connect(bar, &ToolBar::LayoutChanged, this, &MeshToolBars::styleButtons, Qt::UniqueConnection);
    const QList<ToolButton*> buttons = bar->Buttons();
    for (ToolButton* const button : buttons)
      giveCommandTooltip(*button);
  }
  // What is no switch does not stay pressed.
  const QList<ToolButton*> buttons = m_panel->Buttons();
  for (ToolButton* const button : buttons) {
    if (button->Action() && !button->Action()->isCheckable() && button->isCheckable())
      button->setCheckable(false);
  }
}

// In the middle of its edge; where it would stand beside the main toolbar there, below that.
void MeshToolBars::placePanel() {
  const bool fits = m_panel->sizeHint().height() <= m_view.height() - 2 * clearTop();
  m_panel->SetCentered(fits);
  m_panel->SetOffset({m_panel->Offset().x(), fits ? 0 : clearTop()});
}

int MeshToolBars::clearSide() const { return m_panel->Offset().x() + m_panel->sizeHint().width() + Gap; }

int MeshToolBars::clearTop() const { return m_main->Offset().y() + m_main->sizeHint().height() + Gap; }

void MeshToolBars::keepClear(FloatingWidget& widget) const {
  const int side = clearSide();
  const bool centered = widget.alignment().testFlag(Qt::AlignHCenter);
  const int far = centered ? side : Gap;
  const bool mirrored = m_view.isRightToLeft();
  widget.setMargins({mirrored ? far : side, clearTop(), mirrored ? side : far, Gap});
}

// A menu that was opened with the mouse leaves the focus with the view.
bool MeshToolBars::closeMenu() {
  if (!m_main)
    return false;
  QList<ToolButton*> buttons = m_main->Buttons();
  buttons += m_panel->Buttons();
  for (ToolButton* const each : std::as_const(buttons)) {
    auto* const button = qobject_cast<ToolButtonWithButtonMenu*>(each);
    if (button && button->IsMenuShowing()) {
      button->HideMenu();
      return true;
    }
  }
  return false;
}

// What comes is no more than a widget yet.
bool MeshToolBars::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &m_view && event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape && closeMenu())
    return true;
  if (watched == &m_view && event->type() == QEvent::Resize && m_main)
    placePanel();
  if (watched == &m_view && event->type() == QEvent::ChildAdded && m_main) {
    const auto keepChildClear = [this, child = QPointer(static_cast<QChildEvent*>(event)->child())] {
      if (auto* const widget = qobject_cast<FloatingWidget*>(child.data()))
        keepClear(*widget);
    };
    QMetaObject::invokeMethod(this, keepChildClear, Qt::QueuedConnection);
  }
  return QObject::eventFilter(watched, event);
}

} // namespace Workbench
