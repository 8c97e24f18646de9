// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/live_pointer.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/tool_button_with_button_menu.h>
#include <ui_base/toolbars/tool_button_with_widget_menu.h>

#include <QHash>
#include <QPointer>
#include <QSet>
#include <QTimer>

class QStateMachine;

namespace Vela::UiBase {

class CachedShadowEffect;
class ToolBarCommands;
class ToolBarContent;
class ToolBarKeys;
class ToolBarMenuWatch;
class ToolBarOverflow;
class ToolBarPlacer;
struct ToolBarPaths;

/// The state of a ToolBar, for subclasses that add to it.
class UI_BASE_EXPORT ToolBarPrivate {
public:
  using CallbackHandler = ToolButton::IToolButtonCallbackHandler;

  /// What the shadow had when it was switched off.
  struct ShadowLooks {
    qreal blurRadius = 15;
    QPointF offset = {0, 1};
    QColor color = {0, 0, 0, 90};
  };

  ToolBarPrivate();
  virtual ~ToolBarPrivate();
  Q_DISABLE_COPY_MOVE(ToolBarPrivate)

  static ToolBarPrivate& of(const ToolBar& toolBar) { return *toolBar.d; }

  /// \name Buttons
  /// @{
  void OnButtonCreated(ToolButton& button, const QString& group, bool applyTooltipParams,
                       bool applyMenuParams, int index);
  void InitializeButtonShowCallbackHandler(ToolButton& button);
  void applyTooltipParams(ToolButton& button) const;
  void applyTooltipGroup(const ToolButton& button) const;
  void applyMenuParams(ToolButton& button) const;
  void applySizes(ToolButton& button) const;
  void applyStyleSheet(ToolButton& button) const;
  void applyHandlers(ToolButton& button) const;
  /// Does something to each button that is there, as long as the bar is.
  template <class Change>
  void forEachButton(const Change& change) const {
    const QPointer<ToolBar> self(toolBar);
    const QList<ToolButton*> all = toolBar->Buttons();
    const QList<QPointer<ToolButton>> guarded(all.cbegin(), all.cend());
    for (const QPointer<ToolButton>& button : guarded) {
      if (self && button)
        change(*button);
    }
  }
  /// Takes a button out, closes its menu, and deletes both later.
  void removeButton(ToolButton& button);
  /// A button of the nest has got a panel.
  virtual void panelCame(const ToolButtonWithMenu& opener);
  /// Makes the bar the owner of a sub-toolbar.
  void adopt(ToolBar& subToolBar);
  /// Makes a fresh toolbar fit as the menu of a button of this one, with the looks of this one.
  /// @param group which it is to show, or null.
  void setUpSubToolBar(ToolBar& menu, const CommandGroup* group) const;
  void OnButtonClickCheckExclusiveGroups(const ToolButton& button) const;
  /// What a button is told of its action, and of itself.
  bool filterButton(ToolButton& button, QEvent& event);
  void followAction(ToolButton& button) const;
  void followVisibility(ToolButton& button);
  void scheduleEnableActions();
  /// @}

  /// \name Layout and place
  /// @{
  void applyLayout();
  /// The content has changed its size, or the order of what it shows.
  void contentChanged();
  void fitContent();
  QSize sizeFor(const QSize& needed) const;
  /// The length that the bar may have in its parent.
  QSize limited(QSize size) const;
  void followParent();
  void followParentSize();
  void ensureVisible(const QAbstractButton& button);
  /// The menus that are open follow their buttons.
  void placeMenus() const;
  QRect unscrolledRect(const QAbstractButton& button) const;
  /// @}

  /// \name Looks
  /// @{
  void applyParams(const ToolBarParams& before);
  void applyShadow();
  void PrepareBackgroundPaths();
  void UpdateButtonSeparatorPaths();
  void pathsChanged();
  void paint(QPainter& painter);
  void updateShadow();
  void applyPopupDefaults();
  ButtonPopupParams subToolBarParams() const;
  /// @}

  /// \name Showing and menus
  /// @{

  /// Locks the bar until each holder has let go of it.
  void setLock(const void* holder, bool locked);
  /// Makes the bar the menu of another button, or of none; the flyout that is open in it goes along.
  void changeNest(ToolButtonWithMenu* owner);
  void onMenuVisibilityChange(bool visible);
  bool dismissLeaf();
  void dismiss(ToolButtonWithWidgetMenu& button) const;
  /// @param onClick leaves those open that a click is to leave open.
  void hideMenusExcept(bool saveState, const ToolButton* except, bool onClick);
  void giveFocusBack();
  /// @}

  /// \name What subclasses override
  /// @{
  void autoPosition() { toolBar->AutoPosition(); }
  ToolButton* addButton(CommandGroup* group, int index) { return toolBar->AddButton(toolBar, group, index); }
  void addCommandGroup(CommandGroup* group, CommandGroup* parent) { toolBar->AddCommandGroup(group, parent); }
  ToolButton* addSingleCommand(CommandBase* command, CommandGroup* group) {
    return toolBar->AddSingleCommand(command, group);
  }
  /// @}

  ToolBar* toolBar = nullptr;
  ToolBarParams params;
  Qt::ToolBarArea area = Qt::NoToolBarArea;
  ToolBarContent* content = nullptr;
  ToolBarOverflow* overflow = nullptr; // made when it is needed
  ToolBarCommands* commands = nullptr;
  ToolBarMenuWatch* menuWatch = nullptr; // made when it is needed
  std::unique_ptr<ToolBarKeys> keys;
  std::unique_ptr<ToolBarPlacer> placer;
  std::unique_ptr<ToolBarPaths> paths;
  bool pathsOutOfDate = true;
  QTimer* autoPositionTimer = nullptr;
  QTimer* resizeTimer = nullptr;
  /// Runs, with one state of its own; subclasses may add theirs.
  QStateMachine* stateMachine = nullptr;
  QSet<const void*> lockHolders;
  bool inShowMode = false;
  bool hiddenByRequest = false;
  bool sizeOutOfDate = true;
  bool enablePending = false;
  bool enabling = false;
  QPointer<QWidget> followedParent;
  LivePointer<ToolButtonWithMenu> ownerButton;
  LivePointer<ToolButtonWithWidgetMenu> activeButton;
  QHash<QString, QList<QPointer<QToolButton>>> exclusiveGroups;
  QList<std::pair<QPointer<QAction>, CallbackHandler*>> callbackHandlers;
  QList<QPointer<ToolBar>> ownSubToolBars;
  bool menusByArea = false; // and not by the defaults for menus
  QPointer<CachedShadowEffect> shadow;
  ShadowLooks shadowLooks;

private:
  void InitializeResizeTimer();
  void InitializeStateMachine();
  friend class ToolBar;
};

} // namespace Vela::UiBase
