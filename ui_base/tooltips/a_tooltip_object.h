// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/arrow_param.h>
#include <ui_base/tooltips/tooltip_types.h>
#include <ui_base/ui_base_export.h>

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

class QWidget;

namespace Vela::UiBase {

class ArrowedWindow;
class ATooltipObjectPrivate;
class WidgetPosCalculator;

/// Gives something a rich tooltip: decides when it appears and goes, wraps its content in an ArrowedWindow
/// where an arrow is wanted, places it, and keeps to one tooltip of a group at a time. TooltipObject does it
/// for a widget, TooltipWrapper on demand.
///
/// The tooltip is shown as a child of a layer, by default the window of its widget. What it consists of is
/// made when it is needed first, so that an object that is never shown costs little. The content belongs to
/// the object; like the tooltip's window it dies earlier with the layer it was shown on, and so may widget,
/// layer and object be deleted in any order.
///
/// All times are in milliseconds and start with those of TooltipManager::Times(). Main thread only.
class UI_BASE_EXPORT ATooltipObject : public QObject {
  Q_OBJECT

public:
  /// Is told that the mouse has come or gone. Not owned; must live as long as it is set.
  class IHoverCallbackHandler {
  public:
    virtual ~IHoverCallbackHandler() = default;
    /// Called on the main thread; it may delete the tooltip.
    virtual void operator()() = 0;
  };

  ~ATooltipObject() override;

  /// \name Showing
  /// @{

  /// Shows the tooltip and hides the others of its group. Without a layer or a content nothing is shown.
  virtual void ShowTooltip();
  /// Hides it now; nothing when it is hidden.
  virtual void HideTooltip();
  /// Whether it is enabled and there is something to show.
  virtual bool CanTooltipBeShown();
  /// Whether the cursor is over the tooltip.
  virtual bool CheckMouseHover() const;
  /// The tooltip itself was pressed.
  virtual void OnTooltipClicked();

  /// What eventFilter() makes of the events of the watched widgets while the tooltip is enabled.
  virtual void EventFilterOnEnter(QObject* object);
  /// The mouse has left a watched widget.
  virtual void EventFilterOnLeave(QObject* object);
  /// The mouse has moved over a watched widget.
  virtual void EventFilterOnMouseMove(QObject* object, QEvent* event);
  /// A button was pressed on a watched widget.
  virtual void EventFilterOnMouseButtonPress(QObject* object, QEvent* event);
  /// A watched widget was hidden.
  virtual void EventFilterOnHide(QObject* object);
  /// The widget on which the tooltip is shown; null asks the manager with the next showing. Not owned.
  virtual void SetTooltipLayer(QWidget* layer);
  /// Whether the handlers are called and the tooltip stays while the mouse is over it; off at first.
  virtual void SetEnableHoverEvents(bool enable);

  /// The group, of which one tooltip is shown at a time. Moves the tooltip from one to another.
  QString TooltipGroup() const;
  /// See TooltipGroup().
  void SetTooltipGroup(const QString& group);

  /// Whether it is shown now.
  bool IsVisible() const;
  /// Hides it at once, and keeps one from appearing whose time is running.
  void ForceHideTooltip();
  /// Whether it may be shown.
  bool IsTooltipEnabled() const;
  /// A disabled tooltip is hidden and not shown; the plain tooltip of the widget is not shown either.
  void SetEnableTooltip(bool enable);
  /// @}

  /// \name Content
  /// @{

  /// A text in the looks of tooltips, without a parent; the caller owns it. Null for a null text.
  static QWidget* CreateTooltipControl(const QString& text);

  /// Makes this the content and takes it over; the one before is deleted later. With `arrowed` it is shown in
  /// the arrowed window, else as it is. Null takes the content away.
  void SetTooltipControl(QWidget* control, bool arrowed);
  /// Shows this text. Its widget is made when it is needed; a content that is there gets the text. A null
  /// text takes the content away.
  void SetTooltipText(const QString& text);
  /// The text set last, or the description of what a factory makes; null for other contents.
  QString Text() const;
  /// Has the content made when it is needed. `description` is what assistive technology says of it.
  void SetTooltipFactory(std::function<QWidget*()> make, const QString& description, bool arrowed);
  /// The content; made now where it has not been yet. Null when there is none.
  QWidget* TooltipControl() const;

  /// The page of the help that tells more, handed on to the content.
  void SetTooltipIndex(int index);
  /// The word HelpRequested() tells.
  void SetTooltipKeyword(const QString& keyword);
  /// @}

  /// \name Looks and place
  /// @{

  /// Sets looks and place, the times, and how the tooltip reacts to the mouse; see ETooltipType.
  void SetTooltipType(ETooltipType type);
  /// See SetTooltipType().
  ETooltipType TooltipType() const;
  /// Makes this the only arrow, and places the tooltip so. Applied when the tooltip is made, if it is not
  /// there yet.
  /// @param distance between tooltip and widget, in pixels.
  void SetTooltipPlacement(const SArrowParam& arrow, EDirection direction, int distance,
                           EWidgetsAlign alignment, const QPoint& offset);
  /// For changes to looks and place. Owned by the object; the window is made anew when its layer has died.
  ArrowedWindow* GetArrowedWindow() const;
  /// Where it is placed by; owned by the tooltip.
  WidgetPosCalculator* GetPosCalculator() const;
  /// @}

  /// \name Times and reactions
  /// @{

  /// Each applies at once, also while the time is running.
  void SetCustomTooltipShowUpTime(int milliseconds);
  /// How long it stays after the mouse has left, in milliseconds.
  void SetCustomTooltipDismissTime(int milliseconds);
  /// After how much time it is checked whether it may stay, in milliseconds.
  void SetCustomTooltipCheckTime(int milliseconds);
  /// Whether the show-up time is used; on at first. Otherwise Qt's own tooltip events show the tooltip.
  void SetUseCustomTooltipSettings(bool use);
  /// Whether a tooltip is hidden after the check time; on at first.
  void SetEnableCheckTimer(bool enable);
  /// Whether the dismiss time begins when the mouse leaves; on at first.
  void SetOverrideTooltipDismissTimer(bool enable);
  /// Whether a press on the tooltip closes it; on at first.
  void SetClickToDismissTooltip(bool dismiss);
  /// Whether the mouse may go over to the tooltip.
  bool IsHoverEventsEnabled() const;
  /// Called when the mouse goes over to the tooltip; not owned.
  void SetHoveredStateCallbackHandler(IHoverCallbackHandler* handler);
  /// Called when the mouse leaves the tooltip again; not owned.
  void SetNormalStateCallbackHandler(IHoverCallbackHandler* handler);
  /// @}

  /// Swallows tooltip events, and nothing else.
  bool eventFilter(QObject* watched, QEvent* event) override;

public Q_SLOTS:
  /// As SetEnableTooltip(), for connections.
  void OnEnableTooltip(bool enable);

Q_SIGNALS:
  /// The user asked for the help from this tooltip.
  void HelpRequested(int index, const QString& keyword);

protected Q_SLOTS:
  /// The mouse has rested long enough.
  void OnTooltipTimerTimeOut();
  /// The mouse has been away long enough.
  void OnTooltipDismissTimerTimeOut();
  /// Looks whether the tooltip may stay.
  void OnTooltipCheckTimerTimeOut();

protected:
  /// For subclasses; a parent owns it.
  ATooltipObject(const QString& group, QObject* parent);
  /// Takes the private object over.
  ATooltipObject(ATooltipObjectPrivate& state, const QString& group, QObject* parent);

  const std::unique_ptr<ATooltipObjectPrivate> d;

private:
  friend class ATooltipObjectPrivate;
  friend class TooltipManager;
};

} // namespace Vela::UiBase
