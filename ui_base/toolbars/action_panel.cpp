// SPDX-License-Identifier: MIT
#include "action_panel.h"

#include "action_panel_p.h"
#include "tool_button_with_button_menu.h"
#include "tool_button_with_widget_menu.h"

#include <ui_base/popups/flyout_base.h>
#include <vlk_common_res/styles.h>

#include <QAction>
#include <QEvent>
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

/// Disables again what is enabled while it filters it.
class Disabler : public QObject {
public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* const widget = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::EnabledChange && widget && widget->isEnabled())
      widget->setEnabled(false);
    return false;
  }
};

void dressAsPanelButton(ToolButton* button, const QString& name) {
  button->setCheckable(true);
  button->setChecked(false);
  button->setObjectName(name);
  button->SetExtendMode(true);
}

} // namespace

ActionPanelPrivate::ActionPanelPrivate() : disabler(std::make_unique<Disabler>()) {}

ActionPanelPrivate::~ActionPanelPrivate() = default;

void ActionPanelPrivate::enable(ToolButton& button, bool enabled) const {
  if (enabled)
    button.removeEventFilter(disabler.get());
  else
    button.installEventFilter(disabler.get());
  button.setEnabled(enabled && (!button.Action() || button.Action()->isEnabled()));
}

const QString ActionPanel::OBJECT_NAME = QStringLiteral("action panel");

ActionPanel::ActionPanel(QWidget* parent) : ActionPanel(*new ActionPanelPrivate, parent) {}

ActionPanel::ActionPanel(ActionPanelPrivate& state, QWidget* parent)
    : ToolBar(state, parent, Qt::LeftToolBarArea) {
  setObjectName(OBJECT_NAME);
  ActionPanel::Initialize();
}

ActionPanel::~ActionPanel() { disconnect(own()->busyDeath); }

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
  QList<ToolBar*> bars{this};
  const QList<ToolButtonWithMenu*> openers = MenuButtons(true);
  for (const ToolButtonWithMenu* const opener : openers) {
    if (auto* const bar = qobject_cast<ToolBar*>(opener->GetMenu()))
      bars.append(bar);
  }
  for (ToolBar* const bar : std::as_const(bars)) {
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
  dressAsPanelButton(button, name);
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
  dressAsPanelButton(button, name);
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
  dressAsPanelButton(button, button->objectName());
  if (checked)
    button->setChecked(true);
  if (!own()->buttonsEnabled)
    own()->enable(*button, false);
  watchFlyouts(button);
}

ToolBar* ActionPanel::CreateSubToolBar(CommandGroup* group) {
  ToolBar* const bar = ToolBar::CreateSubToolBar(group);
  if (bar && bar->Orientation() != Qt::Horizontal)
    bar->SetArea(Qt::TopToolBarArea);
  return bar;
}

void ActionPanel::PrepareActionPanel() {
  const QList<ToolButtonWithMenu*> buttons = MenuButtons(true);
  for (ToolButtonWithMenu* const button : buttons)
    button->SetNoHideMenuOnClick(false);
}

// --- flyouts

QList<ToolButton*> ActionPanel::allButtons() const {
  QList<ToolButton*> all = Buttons();
  const QList<ToolButtonWithMenu*> menuButtons = MenuButtons(true);
  for (const ToolButtonWithMenu* const button : menuButtons) {
    if (const auto* const bar = qobject_cast<ToolBar*>(button->GetMenu()))
      all += bar->Buttons();
  }
  return all;
}

void ActionPanel::watchFlyouts(const ToolButton* button) {
  const auto* const opener = qobject_cast<const ToolButtonWithMenu*>(button);
  QWidget* const menu = opener ? opener->GetMenu() : nullptr;
  if (const auto* const flyout = qobject_cast<FlyoutBase*>(menu)) {
    connect(flyout, &FlyoutBase::FlyoutBusy, this, &ActionPanel::OnFlyoutBusy, Qt::UniqueConnection);
    connect(flyout, &FlyoutBase::FlyoutIdle, this, &ActionPanel::OnFlyoutIdle, Qt::UniqueConnection);
  } else if (const auto* const bar = qobject_cast<ToolBar*>(menu)) {
    const QList<ToolButtonWithMenu*> inner = bar->MenuButtons(false);
    for (const ToolButtonWithMenu* const each : inner)
      watchFlyouts(each);
  }
}

// One that dies while it works will not say that it is idle.
void ActionPanel::OnFlyoutBusy() {
  disconnect(own()->busyDeath);
  if (const QObject* const flyout = sender())
    own()->busyDeath =
        connect(flyout, &QObject::destroyed, own()->disabler.get(), [this] { SetEnabled(true); });
  SetEnabled(false);
}

void ActionPanel::OnFlyoutIdle() {
  disconnect(own()->busyDeath);
  SetEnabled(true);
}

void ActionPanel::SetEnabled(bool enabled) {
  own()->buttonsEnabled = enabled;
  const QList<ToolButton*> buttons = allButtons();
  for (ToolButton* const button : buttons)
    own()->enable(*button, enabled);
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
