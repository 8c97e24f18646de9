// SPDX-License-Identifier: MIT
#include "tool_bar_commands.h"
#include "tool_bar_content.h"
#include "tool_bar_keys.h"
#include "tool_bar_p.h"
#include "tool_button_p.h"
#include "tool_button_with_button_menu_p.h"

#include <ui_base/commands/command_group.h>
#include <ui_base/core/language.h>
#include <ui_base/tooltips/tooltip_object.h>
#include <vlk_common_res/styles.h>

#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

namespace {

constexpr QSize iconLookUpSize(256, 256); // px

/// A letter of a text would be taken from the menu bar.
QString literally(QString text) { return text.replace(QLatin1Char('&'), QLatin1String("&&")); }

/// A button shows while its action does.
class ShownWithAction : public ToolButton::IToolButtonShowCallbackHandler {
public:
  bool operator()(ToolButton* button) override {
    const QAction* const action = actionOf(*button);
    return !action || action->isVisible();
  }
};

} // namespace

void ToolBarPrivate::OnButtonCreated(ToolButton& button, const QString& group, bool applyTooltip,
                                     bool applyMenu, int index) {
  QObject::connect(&button, &ToolButton::ToolButtonClicked, toolBar, &ToolBar::OnToolButtonClicked);
  button.setToolButtonStyle(params.buttonStyle);
  if (!params.buttonStyleSheet.isEmpty())
    applyStyleSheet(button);
  button.installEventFilter(toolBar);
  if (applyTooltip) {
    applyTooltipParams(button);
    applyTooltipGroup(button);
  }
  if (applyMenu)
    applyMenuParams(button);
  applySizes(button);
  // A button that is bound to its command has the property already.
  const QList<QAction*> actions = button.actions();
  if (actions.size() == 1 && !button.Action()) {
    if (const auto* const command = dynamic_cast<CommandBase*>(actions[0]))
      button.setProperty(CMDID_PROP, command->commandId());
  }
  followAction(button);
  const QList<ToolButtonWithMenu*> openers = toolBar->MenuButtons(false);
  const auto locksOthers = [](const ToolButtonWithMenu* each) {
    const auto* const opener = qobject_cast<const ToolButtonWithButtonMenu*>(each);
    return opener && opener->own()->locksOthers();
  };
  if (std::any_of(openers.cbegin(), openers.cend(), locksOthers))
    button.d->lockForExtendMode(true);
  content->insert(button, group, index);
  InitializeButtonShowCallbackHandler(button);
  applyHandlers(button);
}

void ToolBarPrivate::InitializeButtonShowCallbackHandler(ToolButton& button) {
  static ShownWithAction shownWithAction;
  button.SetShowCallbackHandler(&shownWithAction);
  const QAction* const action = actionOf(button);
  button.d->hiddenWithAction = action && !action->isVisible();
  if (!button.d->hiddenWithAction && content->isVisible())
    button.show();
}

void ToolBarPrivate::applyTooltipParams(ToolButton& button) const {
  const ButtonPopupParams& tooltip = params.tooltip;
  button.SetTooltipParameters(tooltip.arrow, tooltip.direction, tooltip.distance, tooltip.alignment,
                              tooltip.offset);
}

void ToolBarPrivate::applyTooltipGroup(const ToolButton& button) const {
  if (TooltipObject* const object = button.GetTooltipObject();
      object && object->TooltipGroup() != params.tooltipGroup)
    object->SetTooltipGroup(params.tooltipGroup);
}

void ToolBarPrivate::applyMenuParams(ToolButton& button) const {
  auto* const opening = qobject_cast<ToolButtonWithButtonMenu*>(&button);
  const ButtonPopupParams menu = opening && menusByArea ? subToolBarParams() : params.menu;
  if (auto* const hosting = qobject_cast<ToolButtonWithWidgetMenu*>(&button))
    hosting->SetMenuParameters(menu.autoDecide, menu.arrow, menu.direction, menu.distance, menu.alignment,
                               menu.offset);
  else if (opening)
    opening->SetMenuParameters(menu.direction, menu.distance, menu.alignment, menu.offset);
}

void ToolBarPrivate::applySizes(ToolButton& button) const {
  QSize size = params.buttonSize;
  QSize iconSize = params.iconSize;
  const QAction* const action = actionOf(button);
  if (action && (size.isEmpty() || iconSize.isEmpty())) {
    const QSize actual = action->icon().actualSize(iconLookUpSize);
    size = size.isEmpty() ? actual : size;
    iconSize = iconSize.isEmpty() ? actual : iconSize;
  }
  if (size == QSize(0, 0))
    size += QSize(2, 2);
  if (!iconSize.isEmpty())
    button.setIconSize(iconSize);
  button.setMinimumSize(size.expandedTo({0, 0}));
}

void ToolBarPrivate::applyStyleSheet(ToolButton& button) const {
  QString sheet = params.buttonStyleSheet;
  if (sheet.isEmpty()) // the shared one, which it follows from now on
    button.d->styleSheet = sheet = Resource::Styles::Instance().ToolButtonOnToolPalette();
  if (button.styleSheet() != sheet)
    button.setStyleSheet(sheet);
}

void ToolBarPrivate::applyHandlers(ToolButton& button) const {
  const auto* const opener = qobject_cast<ToolButtonWithMenu*>(&button);
  auto* const menu = opener ? qobject_cast<ToolBar*>(opener->GetMenu()) : nullptr;
  for (const auto& [action, handler] : callbackHandlers) {
    if (action && actionOf(button) == action)
      button.SetCallbackHandler(action, handler);
    if (action && menu)
      menu->AddCallbackHandler(handler, action);
  }
}

void ToolBarPrivate::removeButton(ToolButton& button) {
  const QPointer<ToolButton> guarded(&button);
  button.removeEventFilter(toolBar);
  content->take(&button);
  QPointer<QWidget> menu;
  if (auto* const opener = qobject_cast<ToolButtonWithMenu*>(&button)) {
    menu = opener->GetMenu();
    opener->HideMenu();
  }
  if (!guarded)
    return;
  button.hide();
  button.deleteLater();
  auto* const subToolBar = qobject_cast<ToolBar*>(menu.data());
  if (subToolBar && ownSubToolBars.removeAll(subToolBar) > 0)
    subToolBar->deleteLater();
}

void ToolBarPrivate::adopt(ToolBar& subToolBar) {
  ownSubToolBars.removeAll(nullptr);
  ownSubToolBars.append(&subToolBar);
}

void ToolBarPrivate::setUpSubToolBar(ToolBar& menu, const CommandGroup* group) const {
  menu.hide();
  of(menu).applyPopupDefaults();
  ToolBarParams looks = params;
  looks.tooltip = menu.Params().tooltip;
  looks.autoPosition = false;
  looks.centered = false;
  looks.offset = {};
  looks.hideOnClick = true;
  menu.CopyAllParametersFrom(toolBar);
  menu.SetParams(looks);
  // Toolbars inside of toolbars take turns across and along.
  of(menu).menusByArea = true;
  if (!menu.parentWidget())
    menu.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
  if (!group)
    return;
  menu.setObjectName(group->objectName());
  const auto nameMenu = [&menu, group] {
    menu.setAccessibleName(group->text().isEmpty() ? group->toolTip() : withoutMnemonic(group->text()));
  };
  QObject::connect(group, &QAction::changed, &menu, nameMenu);
  nameMenu();
  if (group->isGrid())
    menu.SetGridLayout(group->gridSize());
}

void ToolBarPrivate::OnButtonClickCheckExclusiveGroups(const ToolButton& button) const {
  QList<QPointer<QToolButton>> rivals; // who hears of one may change the groups
  for (const QList<QPointer<QToolButton>>& members : exclusiveGroups) {
    if (std::any_of(members.cbegin(), members.cend(),
                    [&button](const auto& member) { return member == &button; }))
      rivals += members;
  }
  rivals.removeIf([&button](const auto& rival) { return rival == &button; });
  for (const QPointer<QToolButton>& rival : std::as_const(rivals)) {
    if (!rival || !rival->isChecked())
      continue;
    QAction* const action = rival->defaultAction();
    if (action && action->isCheckable())
      action->setChecked(false);
    else
      rival->setChecked(false);
  }
}

bool ToolBarPrivate::filterButton(ToolButton& button, QEvent& event) {
  switch (event.type()) {
  case QEvent::KeyPress:
    return keys->press(button, static_cast<QKeyEvent&>(event));
  case QEvent::ActionChanged:
    followAction(button);
    followVisibility(button);
    scheduleEnableActions();
    break;
  case QEvent::ActionRemoved:
    if (button.actions().isEmpty()) {
      button.setDefaultAction(nullptr); // which may be dying, and is not to be unchecked with the button
      removeButton(button);
    }
    break;
  case QEvent::ShowToParent:
  case QEvent::HideToParent:
    content->updatePanels();
    resizeTimer->start(); // a menu stands beside what of its openers can be seen
    break;
  default:
    break;
  }
  return false;
}

void ToolBarPrivate::followVisibility(ToolButton& button) {
  const QAction* const action = actionOf(button);
  if (!action || action->isVisible() == !button.d->hiddenWithAction)
    return;
  button.d->hiddenWithAction = !action->isVisible();
  button.setVisible(action->isVisible());
}

// A button that opens the toolbar of a group is not bound to it, as its click runs nothing.
void ToolBarPrivate::followAction(ToolButton& button) const {
  QAction* const action = button.Action() ? nullptr : actionOf(button);
  if (!action)
    return;
  const QPointer<ToolButton> guarded(&button);
  const QPointer<QAction> followed(action);
  if (!action->text().isEmpty())
    button.setText(literally(action->iconText()));
  button.d->takeName(*action); // the text without one of its own is an object name
  if (!button.d->hasOwnIcon && button.d->source.cacheKey() != action->icon().cacheKey())
    button.setIcon(action->icon());
  if (button.toolTip() != action->toolTip()) {
    button.setToolTip(action->toolTip());
    if (TooltipObject* const tooltip = button.GetTooltipObject())
      tooltip->SetTooltipText(action->toolTip());
  }
  if (guarded && followed)
    button.setEnabled(followed->isEnabled());
}

void ToolBarPrivate::scheduleEnableActions() {
  if (enabling || std::exchange(enablePending, true))
    return;
  QMetaObject::invokeMethod(
      toolBar,
      [this] {
        enablePending = false;
        toolBar->EnableActions();
      },
      Qt::QueuedConnection);
}

} // namespace Vela::UiBase
