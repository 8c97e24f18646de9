// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/arrowed_window.h>
#include <ui_base/popups/widget_pos_calculator.h>
#include <ui_base/tooltips/a_tooltip_object.h>
#include <ui_base/ui_base_export.h>

#include <QPointer>
#include <QTimer>

namespace Vela::UiBase {

/// What ATooltipObject::SetTooltipPlacement() was given.
struct TooltipPlacement {
  SArrowParam arrow;
  EDirection direction = Top;
  int distance = 0;
  EWidgetsAlign alignment = AlignCenter;
  QPoint offset;
};

/// The state of an ATooltipObject, for subclasses that add to it. Timers, calculator and window are made by
/// the functions of their name when they are asked for first.
class UI_BASE_EXPORT ATooltipObjectPrivate {
public:
  ATooltipObjectPrivate();
  virtual ~ATooltipObjectPrivate();
  Q_DISABLE_COPY_MOVE(ATooltipObjectPrivate)

  /// The widget that the tooltip belongs to; null when there is none.
  virtual QWidget* reference() const;
  /// What it stands beside: that widget, or the one the calculator was given; null for a point.
  const QWidget* owner() const;
  /// It was attached or enabled: the mouse may be resting there already.
  virtual void startUnderMouse() {}
  /// The content, or what it says, has changed.
  virtual void describe() {}
  /// Why what the tooltip stands beside cannot be used; empty when it can.
  virtual QString reason() const;
  /// Puts the reason as it is now below the content.
  virtual void tellReason();
  /// What there is to read, in plain text.
  QString description() const;

  /// The window of what the tooltip stands beside, or the active one.
  QWidget* ownLayer() const;
  bool ensureLayer();
  /// Makes the content that is still to be made, and attaches it. False when who was called has ended the
  /// tooltip, like the next.
  bool ensureContent();
  bool setContent(QWidget* control, bool arrowed);
  void place();
  void followSize();

  QTimer& showUp();
  QTimer& dismiss();
  QTimer& check();
  ArrowedWindow& arrows();
  WidgetPosCalculator& calculator();

  /// After the show-up time, or at once where the group wants it so.
  void startShowUp();
  void startDismiss();
  void stop(const std::unique_ptr<QTimer>& timer);
  /// Whether the cursor is over the widget.
  static bool holdsCursor(const QWidget& widget);
  void callHandler(ATooltipObject::IHoverCallbackHandler* handler);
  void applyType();
  void applyArrow();
  void applyPlacement();

  /// First in destructors, while there is all of the object: those who hear that it is hidden may call it. It
  /// is not shown any more.
  void end();

  bool isShowing() const { return visible && tooltipWindow; }

  ATooltipObject* object = nullptr;
  bool enabled = true;
  QPointer<QWidget> layer;
  QPointer<QWidget> attachedControl;
  QPointer<QWidget> tooltipWindow;
  QPointer<QWidget> pendingControl;
  std::unique_ptr<QTimer> showUpTimer;
  int showUpTime;
  std::unique_ptr<QTimer> dismissTimer;
  int dismissTime;
  std::unique_ptr<QTimer> checkTimer;
  int checkTime;
  bool mouseOverTooltip = false;
  bool clickToDismiss = true;
  bool useCustomSettings = true;
  bool checkTimerEnabled = true;
  bool overrideDismissTimer = true;
  bool hoverEventsEnabled = false;
  ATooltipObject::IHoverCallbackHandler* hoveredHandler = nullptr;
  ATooltipObject::IHoverCallbackHandler* normalHandler = nullptr;
  bool visible = false;
  bool ended = false;
  bool tooltipHovered = false;
  std::unique_ptr<WidgetPosCalculator> posCalculator;
  QPointer<ArrowedWindow> arrowedWindow;
  QString group;
  bool useArrowedWindow = true;
  ETooltipType tooltipType = RichTooltip;

  bool typed = false;
  std::unique_ptr<TooltipPlacement> placement; // null until it is set
  bool layerFound = false;                     // the layer is what the manager answered
  int placing = 0; // how often: who is called meanwhile may have it placed once more
  bool placePending = false;
  int helpIndex = -1;
  QString helpKeyword;
  QString text;
  std::function<QWidget*()> make;

private:
  void attach();
  void detach();
  void makeTimer(std::unique_ptr<QTimer>& timer, int interval, void (ATooltipObject::*slot)());
  void handHelpOn();
  void link();
  void unlink();
  void discardWindows();

  QList<QMetaObject::Connection> links; // with the content
  friend class ATooltipObject;
};

} // namespace Vela::UiBase
