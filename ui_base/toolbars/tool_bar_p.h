// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/live_pointer.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/tool_bar_commands.h>
#include <ui_base/toolbars/tool_bar_content.h>
#include <ui_base/toolbars/tool_bar_keys.h>
#include <ui_base/toolbars/tool_bar_paths.h>
#include <ui_base/toolbars/tool_bar_slide.h>
#include <ui_base/toolbars/tool_button_with_button_menu.h>
#include <ui_base/toolbars/tool_button_with_widget_menu.h>

#include <QHash>
#include <QPointer>
#include <QPropertyAnimation>
#include <QSet>
#include <QTimer>

class QStateMachine;

namespace Vela::UiBase {

class CachedShadowEffect;
class ToolBarMenuWatch;
class ToolBarOverflow;

/// The state of a ToolBar, for subclasses that add to it.
class UI_BASE_EXPORT ToolBarPrivate {
public:
  using CallbackHandler = ToolButton::IToolButtonCallbackHandler;

  ToolBarPrivate();
  virtual ~ToolBarPrivate();
  Q_DISABLE_COPY_MOVE(ToolBarPrivate)

  /// \name Buttons
  /// @{
  void OnButtonCreated(ToolButton& button, const QString& group, bool applyTooltipParams,
                       bool applyMenuParams, int index);
  void InitializeButtonShowCallbackHandler(ToolButton& button);
  void applyTooltipParams(ToolButton& button) const;
  void applyMenuParams(ToolButton& button) const;
  void applySizes(ToolButton& button) const;
  void applyHandlers(ToolButton& button) const;
  template <class Change>
  void forEachButton(const Change& change) const {
    const QList<ToolButton*> all = content->buttons();
    for (ToolButton* const button : all)
      change(*button);
  }
  /// Takes a button out, closes its menu, and deletes both later.
  void removeButton(ToolButton& button);
  /// Makes the bar the owner of a sub-toolbar.
  void adopt(ToolBar* subToolBar);
  ToolBar* makeSubToolBar(QWidget* parent, Qt::ToolBarArea subArea) const;
  void OnButtonClickCheckExclusiveGroups(const ToolButton& button) const;
  /// What a button is told of its action, and of itself.
  bool filterButton(ToolButton& button, QEvent& event);
  void followVisibility(ToolButton& button);
  void scheduleEnableActions();
  /// @}

  /// \name Layout and place
  /// @{
  void applyLayout();
  /// The content has changed its size, or the order of what it shows.
  void contentChanged();
  void fitContent();
  QSize sizeFor(const QSize& content) const;
  /// The length that the bar may have in its parent.
  QSize limited(QSize size) const;
  bool isPlacedAutomatically() const;
  bool isLaidOutByParent() const;
  ToolBarPlace place() const;
  /// A bar that keeps its place and has slid out of its parent comes back to its edge.
  void comeBackIn();
  void followParent();
  void startTimers();
  void ensureVisible(const QAbstractButton& button);
  QRect unscrolledRect(const QAbstractButton& button) const;
  /// @}

  /// \name Looks
  /// @{
  void PrepareBackgroundPaths();
  void UpdateButtonSeparatorPaths();
  void pathsChanged();
  void paint(QPainter& painter);
  void updateShadow();
  void applyPopupDefaults();
  ButtonPopupParams subToolBarParams() const;
  static QString sharedStyleSheet();
  /// @}

  /// \name Showing and menus
  /// @{
  void InitializePosAnimation(bool show, const QPoint& from, const QPoint& to);
  void stopAnimation();
  void onMenuVisibilityChange(ToolButton* button, bool visible);
  bool dismissLeaf();
  void giveFocusBack();
  /// @}

  ToolBar* toolBar = nullptr;
  ToolBarParams params;
  Qt::ToolBarArea area = Qt::NoToolBarArea;
  ToolBarContent* content = nullptr;
  ToolBarOverflow* overflow = nullptr; // made when it is needed
  ToolBarCommands* commands = nullptr;
  ToolBarMenuWatch* menuWatch = nullptr; // made when it is needed
  ToolBarKeys keys;
  QTimer* autoPositionTimer = nullptr;
  QTimer* resizeTimer = nullptr;
  /// Runs, with one state of its own; subclasses may add theirs.
  QStateMachine* stateMachine = nullptr;
  QPointer<QPropertyAnimation> animation;
  int animationDuration = 300; // ms
  bool inShowMode = false;
  bool hiddenByRequest = false;
  bool locked = false;
  bool isSubToolBar = false;
  bool sizeOutOfDate = true;
  bool enablePending = false;
  bool enabling = false;
  QPointer<QWidget> followedParent;
  LivePointer<ToolButtonWithMenu> ownerButton;
  LivePointer<ToolButtonWithWidgetMenu> activeButton;
  QHash<QString, QList<QPointer<QToolButton>>> exclusiveGroups;
  QList<std::pair<QPointer<QAction>, CallbackHandler*>> callbackHandlers;
  QList<QPointer<ToolBar>> ownSubToolBars;
  QSet<const ToolButton*> hiddenWithAction;
  QPointer<CachedShadowEffect> shadow;
  ToolBarPaths paths;
  bool pathsOutOfDate = true;

private:
  void InitializeResizeTimer();
  void InitializeStateMachine();
  friend class ToolBar;
};

} // namespace Vela::UiBase
