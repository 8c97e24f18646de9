// SPDX-License-Identifier: MIT
#include "action_panel.h"

#include "action_panel_p.h"
#include "tool_button_with_button_menu.h"
#include "tool_button_with_widget_menu.h"

#include <ui_base/popups/flyout_base.h>
#include <vlk_common_res/styles.h>

#include <QAction>
#include <QPointer>

#include <utility>

namespace Vela::UiBase {

using Resource::Styles;

namespace {

constexpr int gridMenuDistance = 7; // px
constexpr QPoint gridMenuOffset(0, -2);

/// The sub-toolbar of a button in a grid begins beside it.
void placeMenuBesideGrid(ToolButton* button, const ToolBar& bar) {
  if (auto* const menuButton = qobject_cast<ToolButtonWithButtonMenu*>(button))
    menuButton->SetMenuParameters(Right, gridMenuDistance, AlignStart, gridMenuOffset);
  if (auto* const menuButton = qobject_cast<ToolButtonWithWidgetMenu*>(button)) {
    const ButtonPopupParams& menu = bar.Params().menu;
    menuButton->SetMenuParameters(menu.autoDecide, menu.arrow, Right, gridMenuDistance, AlignStart,
                                  gridMenuOffset);
  }
}

void applyPanelBehaviour(ToolButton& button, const QString& name) {
  button.setCheckable(true);
  button.setChecked(false);
  button.setObjectName(name);
  button.SetExtendMode(true);
}

} // namespace

ActionPanelPrivate::ActionPanelPrivate() = default;

ActionPanelPrivate::~ActionPanelPrivate() = default;

void ActionPanelPrivate::applyLock() {
  const bool locked = isDisabled || !busy.isEmpty();
  const QList<ToolBar*> all = bars();
  const QList<QPointer<ToolBar>> guarded(all.cbegin(), all.cend());
  for (const QPointer<ToolBar>& bar : guarded) {
    if (bar)
      of(*bar).setLock(&busy, locked);
  }
}

// One that is being destroyed is no action panel any more.
void ActionPanelPrivate::panelCame(const ToolButtonWithMenu& opener) {
  if (auto* const panel = qobject_cast<ActionPanel*>(toolBar))
    panel->watchFlyouts(&opener);
}

QList<ToolBar*> ActionPanelPrivate::bars() const {
  QList<ToolBar*> all{toolBar};
  const QList<ToolButtonWithMenu*> openers = toolBar->MenuButtons(true);
  for (const ToolButtonWithMenu* const opener : openers) {
    if (auto* const bar = qobject_cast<ToolBar*>(opener->GetMenu()))
      all.append(bar);
  }
  return all;
}

const QString ActionPanel::OBJECT_NAME = QStringLiteral("action panel");

ActionPanel::ActionPanel(QWidget* parent) : ActionPanel(*new ActionPanelPrivate, parent) {}

ActionPanel::ActionPanel(ActionPanelPrivate& state, QWidget* parent)
    : ToolBar(state, parent, Qt::LeftToolBarArea) {
  setObjectName(OBJECT_NAME);
  ActionPanel::Initialize();
}

// Sub-toolbars that are the application's own live on.
ActionPanel::~ActionPanel() {
  own()->isDisabled = false;
  own()->busy.clear();
  own()->applyLock();
  // What becomes of the menus from here on is for the toolbar alone.
  disconnect(this, &ToolBar::ButtonMenuVisibilityChange, this, &ActionPanel::watchFlyouts);
  disconnect(this, &ToolBar::ButtonMenuVisibilityChange, this, &ActionPanel::OnButtonMenuVisibilityChange);
  const QList<ToolButtonWithMenu*> openers = MenuButtons(true);
  for (const ToolButtonWithMenu* const opener : openers) {
    if (const auto* const flyout = qobject_cast<FlyoutBase*>(opener->GetMenu()))
      disconnect(flyout, nullptr, this, nullptr);
  }
}

ActionPanelPrivate* ActionPanel::own() const { return static_cast<ActionPanelPrivate*>(d.get()); }

// --- looks

void ActionPanel::Initialize() { ActionPanel::InitializeToolBar(); }

void ActionPanel::InitializeToolBar() {
  EnableShadow(false);
  setObjectName(OBJECT_NAME);
  SetEnableAutoPosition(true);
  SetOffset({5, 0});
  SetCentered(true);
  SetGroupBackColor(Styles::Instance().ColorActionPanelGroupBack());
  SetGroupContentMargins({2, 2, 2, 2});
  SetRoundCorner(AllRoundCorners, AllRoundCorners, 4);
  SetBackColor(Qt::transparent);
  SetIconSize({32, 32});
  SetButtonSize({50, 50});
  SetButtonSpacing(1);
  SetButtonGroupSpacing(10);
  SetButtonDefaultTooltipParameters({ArrowLeft, 10, false, 0, 90, true, 0, {}}, Right, 5, AlignCenter, {});
  SetButtonDefaultMenuParameters(false, {ArrowTopLeft, 15, true, 180, 90, false, 20, {}}, Right, 7,
                                 AlignCenter, {});
  connect(this, &ToolBar::ButtonMenuVisibilityChange, this, &ActionPanel::OnButtonMenuVisibilityChange);
  SetBorder(1, Styles::Instance().ColorActionPanelBorder(), true);

  connect(this, &ToolBar::ButtonMenuVisibilityChange, this, &ActionPanel::watchFlyouts);
  connect(&Styles::Instance(), &Styles::changed, this, &ActionPanel::applyColors);
  own()->groupBackColor = GroupBackColor();
  own()->borderColor = BorderColor();
}

// Colours that were chosen for the panel, or for one of its sub-toolbars, stay.
void ActionPanel::applyColors() {
  const QColor groupBack = Styles::Instance().ColorActionPanelGroupBack();
  const QColor border = Styles::Instance().ColorActionPanelBorder();
  const QList<ToolBar*> all = own()->bars();
  const QList<QPointer<ToolBar>> bars(all.cbegin(), all.cend());
  for (const QPointer<ToolBar>& bar : bars) {
    if (!bar)
      continue;
    if (bar->GroupBackColor() == own()->groupBackColor)
      bar->SetGroupBackColor(groupBack);
    if (bar->BorderColor() == own()->borderColor)
      bar->SetBorder(bar->BorderWidth(), border, bar->BorderAroundGroups());
  }
  own()->groupBackColor = groupBack;
  own()->borderColor = border;
}

// --- buttons

ToolButton* ActionPanel::CreateToolButton(QWidget* parent, QAction* action, ActionPanel& panel,
                                          ToolBar* toolBar, const QString& name, const QString& group,
                                          int index) {
  if (!parent || !toolBar)
    return nullptr;
  ToolButton* const button = ToolBar::CreateToolButton(parent, action, *toolBar, group, index);
  if (!button)
    return nullptr;
  if (toolBar->GridColumns() > 0)
    placeMenuBesideGrid(button, *toolBar);
  applyPanelBehaviour(*button, name);
  panel.watchFlyouts(button);
  return button;
}

ToolButton* ActionPanel::CreateToolButton(QWidget* parent, QAction* action, ActionPanel& panel,
                                          ToolBar* toolBar, const QIcon& icon, ToolBar* menu,
                                          const QString& name, const QString& group, int index) {
  if (!parent || !toolBar)
    return nullptr;
  ToolButton* const button = toolBar->AddAction(action, icon, menu, true, name, group, index);
  if (toolBar->GridColumns() > 0)
    placeMenuBesideGrid(button, *toolBar);
  applyPanelBehaviour(*button, name);
  panel.watchFlyouts(button);
  return button;
}

ToolButton* ActionPanel::AddButton(ToolBar* bar, CommandGroup* group, int index) {
  ToolButton* const button = ToolBar::AddButton(bar, group, index);
  prepare(button);
  return button;
}

ToolButton* ActionPanel::AddSingleCommand(CommandBase* command, CommandGroup* group) {
  ToolButton* const button = ToolBar::AddSingleCommand(command, group);
  prepare(button);
  return button;
}

void ActionPanel::prepare(ToolButton* button) {
  if (!button)
    return;
  if (GridColumns() > 0)
    placeMenuBesideGrid(button, *this);
  const QAction* const action = button->Action();
  const bool checked = action && action->isChecked();
  applyPanelBehaviour(*button, button->objectName());
  if (checked)
    button->setChecked(true);
  watchFlyouts(button);
}

ToolBar* ActionPanel::CreateSubToolBar(CommandGroup* group) {
  auto* const panel = new ActionPanel(parentWidget());
  const bool across = d->menusByArea && Orientation() == Qt::Horizontal;
  const Qt::ToolBarArea side = isRightToLeft() ? Qt::RightToolBarArea : Qt::LeftToolBarArea;
  panel->SetArea(across ? side : Qt::TopToolBarArea);
  d->setUpSubToolBar(*panel, group);
  return panel;
}

void ActionPanel::PrepareActionPanel() {
  const QList<ToolButtonWithMenu*> buttons = MenuButtons(true);
  for (ToolButtonWithMenu* const button : buttons)
    button->SetNoHideMenuOnClick(false);
}

// --- flyouts

void ActionPanel::watchFlyout(const ToolButtonWithMenu& opener) {
  const auto* const flyout = qobject_cast<FlyoutBase*>(opener.GetMenu());
  if (!flyout)
    return;
  connect(flyout, &FlyoutBase::FlyoutBusy, this, &ActionPanel::OnFlyoutBusy, Qt::UniqueConnection);
  connect(flyout, &FlyoutBase::FlyoutIdle, this, &ActionPanel::OnFlyoutIdle, Qt::UniqueConnection);
  if (flyout->IsBusy())
    noteBusy(*flyout);
}

// What works anywhere in the nest locks all of it.
void ActionPanel::watchFlyouts(const ToolButton* button) {
  const auto* const opener = qobject_cast<const ToolButtonWithMenu*>(button);
  QWidget* const menu = opener ? opener->GetMenu() : nullptr;
  auto* const base = qobject_cast<ActionPanel*>(GetBaseToolBar());
  ActionPanel* const panel = base ? base : this;
  if (opener)
    panel->watchFlyout(*opener);
  if (const auto* const bar = qobject_cast<ToolBar*>(menu)) {
    const QList<ToolButtonWithMenu*> inner = bar->MenuButtons(true);
    for (const ToolButtonWithMenu* const each : inner)
      panel->watchFlyout(*each);
  }
  if (panel->IsLocked() || !panel->own()->busy.isEmpty())
    panel->own()->applyLock(); // also for what has come since
}

// Of several that work the last one frees the buttons; one that dies will not say that it is idle.
void ActionPanel::OnFlyoutBusy() {
  const auto* const flyout = qobject_cast<FlyoutBase*>(sender());
  if (!flyout) {
    SetEnabled(false);
    return;
  }
  noteBusy(*flyout);
  own()->applyLock();
}

void ActionPanel::noteBusy(const QObject& flyout) {
  own()->busy.insert(&flyout);
  connect(&flyout, &QObject::destroyed, this, &ActionPanel::flyoutDied, Qt::UniqueConnection);
}

void ActionPanel::OnFlyoutIdle() {
  const auto* const flyout = qobject_cast<FlyoutBase*>(sender());
  if (!flyout) {
    SetEnabled(true);
    return;
  }
  own()->busy.remove(flyout);
  own()->applyLock();
}

void ActionPanel::flyoutDied(const QObject* flyout) {
  if (own()->busy.remove(flyout))
    own()->applyLock();
}

void ActionPanel::SetEnabled(bool enabled) {
  own()->isDisabled = !enabled;
  own()->applyLock();
}

void ActionPanel::OnButtonMenuVisibilityChange(ToolButton*, bool) {}

void ActionPanel::OnDismissWidgetMenu(ToolButtonWithButtonMenu*, ToolButtonWithWidgetMenu* widgetMenu) {
  if (!widgetMenu)
    return;
  const bool isFlyout = qobject_cast<FlyoutBase*>(widgetMenu->GetMenu());
  const QPointer<ToolButtonWithWidgetMenu> button(widgetMenu);
  Q_EMIT widgetMenu->ESCKeyReleased();
  if (button && !isFlyout)
    button->HideMenu();
}

} // namespace Vela::UiBase
