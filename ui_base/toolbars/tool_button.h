// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/arrow_param.h>
#include <ui_base/popups/flyout_host.h>
#include <ui_base/ui_base_export.h>

#include <QIcon>
#include <QPoint>
#include <QString>
#include <QToolButton>

#include <memory>

class QAction;

namespace Vela::UiBase {

class ToolBar;
class ToolButtonPrivate;
class TooltipObject;
class WidgetPosCalculator;

/// The on-screen face of one command on a toolbar. It mirrors its action: icon, text, checkable and checked,
/// enabled, and the tooltip, which is a rich one. What was set on the button itself, such as being checkable
/// over an action that is not, lasts. It takes no focus from the mouse.
///
/// The button of a command that is a paid feature is locked, and shows it, while there is no licence. A
/// locked button takes neither mouse nor keyboard nor click(); without the badge of a paid feature it looks
/// disabled. All mouse events also reach the toolbar, as fresh events, those of a disabled button too.
///
/// A click toggles and triggers the action first; then the button announces ToolButtonClicked() and calls
/// ClickedHandler(). When something else runs the command, such as a shortcut, OnClicked() may be called to
/// have the button do its part.
///
/// Owned by its parent. Action and toolbar are not owned and may die first; the button then stays, and does
/// nothing. Main thread only.
///
/// @code
/// auto* button = bar->AddAction(manager->findCommand(GridCommand::className()), "View");
/// button->property(CMDID_PROP).toString();   // the identifier of the command
/// button->GetTooltipObject()->SetTooltipFactory(makeGridTooltip, tr("Shows the grid"), true);
/// @endcode
class UI_BASE_EXPORT ToolButton : public QToolButton, public FlyoutHost {
  Q_OBJECT

public:
  /// Answers whether an action may be enabled now. See ToolBar::AddCallbackHandler().
  class IToolButtonCallbackHandler {
  public:
    virtual ~IToolButtonCallbackHandler() = default;
    /// @return whether the action may be enabled.
    virtual bool operator()(QAction* action) = 0;
  };

  /// Is asked before a button is shown whether it may be.
  class IToolButtonShowCallbackHandler {
  public:
    virtual ~IToolButtonShowCallbackHandler() = default;
    /// @return whether the button may be shown.
    virtual bool operator()(ToolButton* button) = 0;
  };

  /// The dynamic property that carries the identifier of the button's command: CMDID_PROP.
  static const QString COMMANDID_PROPERTY;

  /// A button without action, toolbar and rich tooltip.
  explicit ToolButton(QWidget* parent = nullptr);
  /// A button of a toolbar, bound to an action. It is bound only if both are given.
  ToolButton(QAction* action, ToolBar* toolBar, QWidget* parent);
  ~ToolButton() override;

  /// The action the button was bound to; null when there is none or it has died.
  QAction* Action() const;
  /// The toolbar the button belongs to; null when there is none or it has died.
  ToolBar* OwningToolBar() const;
  /// The rich tooltip, owned by the button; null for a button without a toolbar.
  TooltipObject* GetTooltipObject() const;

  /// Whether the button opens something in its extend mode; for buttons that have one.
  virtual void SetExtendMode(bool extend);

  /// A locked button takes no input and shows no rich tooltip.
  void SetLocked(bool locked);
  /// See SetLocked().
  bool IsLocked() const;
  /// Whether the menu of a checkable button is hidden when the button is unchecked.
  void SetHideMenuWhenUnchecked(bool hide);
  /// Whether the icon stays the same under the mouse.
  void SetKeepIcon(bool keep);
  /// See SetKeepIcon().
  bool KeepIcon() const;
  /// Keeps the next click from ClickedHandler(); for that one only.
  void SuppressClickedHandler(bool suppress);
  /// Whether a click on the button is being handled: between the moment it changes the action's state and
  /// OnClicked(). What the action starts meanwhile leaves it to the click to go on.
  bool ClickedHandlerRequested() const override;
  void RequestClick() override;
  QWidget* CurrentHost() override;

  /// Writes the action's tooltip text into the tooltip, whatever it shows.
  void RefreshTooltip();
  /// How the tooltip stands beside the button.
  /// @param distance between button and tooltip, in pixels.
  void SetTooltipParameters(const SArrowParam& arrow, EDirection direction, int distance,
                            EWidgetsAlign alignment, const QPoint& offset = {});

  /// Makes an action for a button. The icon is made by CreateToolButtonIcon().
  /// @param parent owns the action.
  /// @param toolTip empty for the text.
  /// @param receiver,member what its triggered() signal is connected to, the member as SLOT() or SIGNAL()
  /// give
  ///   it; nothing is connected without a receiver.
  /// @param checked only for a checkable action.
  static QAction* CreateToolButtonAction(QWidget* parent, const QString& normalIcon,
                                         const QString& activeIcon, const QString& text,
                                         const QString& toolTip, QObject* receiver = nullptr,
                                         const char* member = nullptr, bool checkable = false,
                                         bool checked = false);
  /// An action as a button wants it, owned by @p parent.
  static QAction* CreateToolButtonAction(QWidget* parent, const QIcon& icon, const QString& text,
                                         const QString& toolTip, QObject* receiver = nullptr,
                                         const char* member = nullptr, bool checkable = false,
                                         bool checked = false);
  /// An icon of two pictures: the usual one, and the one under the mouse. Empty names are left out.
  static QIcon CreateToolButtonIcon(const QString& normalIcon, const QString& activeIcon);

  void setVisible(bool visible) override;

public Q_SLOTS:
  /// The button was clicked, or shall act as if it was, without its action: announces it, then calls
  /// ClickedHandler(). Does nothing while the button is locked.
  void OnClicked(bool isChecked);
  /// The button was checked or unchecked; overrides call this one.
  void OnToggled(bool checked);

Q_SIGNALS:
  /// It was clicked with the mouse or the keyboard.
  void ToolButtonClicked();

protected:
  /// Takes the private object over.
  ToolButton(ToolButtonPrivate& state, QWidget* parent);

  /// Sets the button up; called once by each constructor. Action and toolbar may be null.
  void Initialize(QAction* action, ToolBar* toolBar);
  /// Makes the tooltip when it is first needed.
  void InitializeTooltipObject();

  /// What a subclass does on a click, beside the action; nothing by default.
  virtual void ClickedHandler();
  /// Asks the handlers of the action, in the order in which they were added, and enables action and button if
  /// none refuses. Without handlers nothing changes.
  virtual void EnableActions();
  /// Whether the button stands for the action in another way than being bound to it.
  virtual bool IsActionAssociated(QAction* action) const;

  /// Adds a handler for an action. Not owned; it must live as long as the button or until it is removed.
  void SetCallbackHandler(QAction* action, IToolButtonCallbackHandler* handler);
  /// The handler is not called any more; it is not deleted.
  void RemoveCallbackHandler(IToolButtonCallbackHandler* handler);
  /// Not owned. Null shows the button whenever asked to.
  void SetShowCallbackHandler(IToolButtonShowCallbackHandler* handler);
  /// Asks the handler anew and shows or hides the button accordingly. Nothing without a handler.
  void UpdateVisibility();

  /// Renders the pictures for hovering, once for each icon.
  void InitIcons();
  /// Shows the picture for a button that the mouse is over, or for one that it is not over.
  void IconState(bool hovered);
  /// Whether the mouse is over it.
  bool Hovered() const;

  /// Locks or unlocks the button as the licence says; nothing for a command that is no paid feature.
  void UpdateLicenseLock();
  /// Shows the lock of a paid feature.
  void AddLockIcon();
  /// Takes the lock away.
  void RemoveLockIcon();
  /// Brings an open tooltip to the front.
  void RaiseTooltip();
  /// Enables or disables the rich tooltip. That of a locked button stays disabled.
  void EnableTooltip(bool enable);

  /// Where popups of buttons stand.
  static void SetPosParameters(WidgetPosCalculator& calculator, EDirection direction, int distance,
                               EWidgetsAlign alignment, const QPoint& offset = {});

  bool event(QEvent* event) override;
  void actionEvent(QActionEvent* event) override;
  void changeEvent(QEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void initStyleOption(QStyleOptionToolButton* option) const override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void nextCheckState() override;
  void showEvent(QShowEvent* event) override;

  const std::unique_ptr<ToolButtonPrivate> d;

private:
  friend class ToolBar;
  friend class ToolBarPrivate;
  friend class ToolButtonPrivate;
  friend class ToolButtonWithButtonMenu;
  friend class ToolButtonWithButtonMenuPrivate;
  friend class ToolButtonWithWidgetMenu;
};

} // namespace Vela::UiBase
