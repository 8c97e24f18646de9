// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/live_pointer.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/tool_button.h>
#include <ui_base/tooltips/tooltip_object.h>

#include <QAction>
#include <QLabel>
#include <QMap>
#include <QPixmap>
#include <QPointer>

#include <memory>

namespace Vela::UiBase {

class FlyoutCommand;
struct SwapPictures;

/// The state of a ToolButton, for subclasses that add to it.
class UI_BASE_EXPORT ToolButtonPrivate {
public:
  ToolButtonPrivate();
  virtual ~ToolButtonPrivate();
  Q_DISABLE_COPY_MOVE(ToolButtonPrivate)

  /// The toolbar, but not one that is being destroyed and hides or deletes its buttons.
  ToolBar* liveToolBar() const;
  void leaveDyingToolBar();
  /// First in the destructors of subclasses: no change of the button's state is for anybody any more.
  void beginDestruction();
  /// Whether the command is a paid feature that cannot be used now.
  bool isUnlicensed() const;
  /// Ends the command that waits for the panel of the button, which does not open.
  virtual void endUnopenedFlyout();
  static void endUnopened(FlyoutCommand* command);
  /// The click that is being handled is not to do anything any more.
  virtual void forgetClick();
  /// Locks the button while another one of its toolbar stands in for a sub-button, whatever the licence says.
  void lockForExtendMode(bool lock);
  /// Ends what the button was locked for, as something else has to open now.
  void leaveExtendModes() const;
  /// Gives the button the shared style sheet, unless it was given another one.
  void applySharedStyle();
  /// Locked, and nothing else shows it.
  bool looksDisabled() const;

  /// Takes over the icon that was set on the button since, if another one was.
  void adoptIcon();
  /// Shows the icon through one whose picture can be swapped without asking for a layout.
  void wrapIcon();
  void makeSwapIcon();
  /// Makes the pictures anew when they are needed next; shows them at once if they are shown.
  void renewPictures();

  /// What the button had from its action last; what it has otherwise was set on the button itself.
  struct Mirrored {
    bool checkable = false;
    bool enabled = true;
  };
  void mirror();
  /// Calls the button by the tooltip of an action without a text, unless somebody gave it a name of its own.
  void takeName(const QAction& from);

  ToolButton* button = nullptr;
  QPointer<QAction> action;
  QString tooltipText;
  QString takenName; // from the action
  LivePointer<ToolBar> toolBar;
  QMap<const QAction*, QList<ToolButton::IToolButtonCallbackHandler*>> callbackHandlers;
  ToolButton::IToolButtonShowCallbackHandler* showCallbackHandler = nullptr;
  bool locked = false;
  bool lockedForExtendMode = false;
  std::unique_ptr<TooltipObject> tooltipObject;
  QPixmap activePixmap;
  QPixmap normalPixmap;
  bool keepIcon = false;
  bool hideMenuWhenUnchecked = false;
  bool suppressClickedHandler = false;
  bool clickedHandlerRequested = false;
  int pendingClicks = 0; // that were requested
  QPointer<QLabel> lockLabel;

  QString styleSheet; // the shared one that the button was given
  QIcon source;       // what the pictures are made from
  QIcon swapIcon;     // shows one of the two pictures
  std::shared_ptr<SwapPictures> pictures;
  QSize picturesFor; // the icon size they were made for
  qreal picturesRatio = 0;
  bool iconActive = false;
  bool tooltipEnabled = true;
  Mirrored mirrored;
  bool heldDisabled = false;
  bool hiddenWithAction = false; // by the toolbar
  bool hasOwnIcon = false;       // which is not to follow the action's
  bool dying = false;
};

} // namespace Vela::UiBase
