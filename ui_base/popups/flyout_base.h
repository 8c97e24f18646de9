// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/arrow_param.h>
#include <ui_base/popups/panel_buttons.h>
#include <ui_base/ui_base_export.h>

#include <QColor>
#include <QWidget>

#include <memory>

namespace Vela::UiBase {

class FlyoutBasePrivate;

/// The panel through which a command is worked: a title, the command's own controls, and buttons that apply,
/// reset and cancel. It opens beside the button of its command, or where its parent has a place for it.
///
/// The flyout owns its main panel and its sub-widgets. It announces what the user asks for and leaves the
/// doing to whoever listens, a FlyoutCommand as a rule; closing it is its own affair: CloseMe() hides it and
/// emits CloseFlyout() once. When it is shown it takes the focus, and gives it back when it goes.
///
/// Keyboard: Return applies, also in the last field of the panel, Escape cancels. While the flyout is busy
/// its controls are disabled and Escape is only announced.
///
/// @code
/// auto* panel = new SmoothingPanel;                 // spin boxes and so on
/// auto* flyout = new FlyoutBase(tr("Smoothing"), panel, ApplyButton | ResetButton | CancelButton, view);
/// manager->addCommand(new SmoothCommand(flyout, controller));   // a FlyoutCommand
/// @endcode
class UI_BASE_EXPORT FlyoutBase : public QWidget {
  Q_OBJECT

public:
  /// @param title shown at the top; also the accessible name.
  /// @param mainPanel the command's controls, taken over; may be null.
  FlyoutBase(const QString& title, QWidget* mainPanel, PanelButtons buttons, QWidget* parent = nullptr);
  /// The same for a button.
  /// @param toolButton the button the flyout belongs to, not owned; may be null.
  /// @param apply,reset,cancel,close which buttons there are.
  FlyoutBase(const QString& title, QWidget* mainPanel, QWidget* toolButton, bool apply, bool reset,
             bool cancel, bool close, QWidget* parent = nullptr);
  ~FlyoutBase() override;

  /// What stands at the top, and is its accessible name.
  QString Title() const;
  /// See Title().
  void SetTitle(const QString& title);
  /// The text of the apply button, "Apply" unless set.
  void SetApplyText(const QString& text);

  /// The command's controls, or null.
  QWidget* MainPanel() const;
  /// The button the flyout belongs to; null when there is none or it has died. Where buttons share the
  /// flyout, the one that was clicked, or would open it now.
  QWidget* ToolButton() const;
  /// See ToolButton().
  void SetToolButton(QWidget* button);

  /// Whether there is such a button and it can be pressed when the flyout is not busy.
  bool IsApplyButtonEnabled() const;
  /// The same for the button that resets.
  bool IsResetButtonEnabled() const;
  /// See IsApplyButtonEnabled().
  void EnableApplyButton(bool enable);
  /// See IsResetButtonEnabled().
  void EnableResetButton(bool enable);

  /// Gives the flyout a widget that stands beside it, on that side of what hosts it, taken over and hidden at
  /// first. Popups are placed so that there is room for it.
  void AddSubWidget(QWidget* widget, EDirection side);
  /// Shows or hides a sub-widget; it goes and comes back with the flyout.
  void ShowSubWidget(QWidget* widget, bool show);
  /// Whether any of its side widgets is visible.
  bool IsSubWidgetVisible() const;

  /// The size that the flyout asks for at most, in pixels, for what hosts it; the main panel scrolls where it
  /// needs more. Unlimited at first.
  void SetSizeLimit(const QSize& limit);

  /// Colours the part of the hosting window's background behind a region of the flyout, in its coordinates,
  /// to set it off from the rest.
  void ShowPartialBackground(const QRect& region, const QColor& color);
  /// See ShowPartialBackground().
  void HidePartialBackground();

  /// Whether the flyout stays open when the user presses in the view of its command, so that view, command
  /// and tools can be worked with beside it; off at first. A press anywhere else still closes it.
  bool KeepOpenInView() const;
  /// See KeepOpenInView().
  void SetKeepOpenInView(bool keep);

  /// While it works the flyout takes no input but cancelling and closing, and shows that it does.
  bool IsBusy() const;
  /// See IsBusy().
  void SetBusy(bool busy);

  void setVisible(bool visible) override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

public Q_SLOTS:
  /// What the buttons do; also for programs.
  void Apply();
  /// See Apply().
  void Reset();
  /// Announces that the changes are not wanted, then closes.
  void Cancel();
  /// Closes the flyout. Does nothing when it is not open.
  void CloseMe();

Q_SIGNALS:
  /// Apply was pressed.
  void ApplyChanges();
  /// Reset was pressed.
  void ResetValues();
  /// It was dismissed without applying.
  void CancelChanges();
  /// It has closed, in whatever way.
  void CloseFlyout();
  /// The flyout wants to be shown, by the button that stands in for its own in extend mode.
  void RequestShowMenu();
  /// The Escape key was released in the flyout, or in the button it belongs to.
  void ESCKeyReleased();
  /// It has another size.
  void FlyoutResized();
  /// ShowSubWidget() has shown a sub-widget, or hidden one.
  void SubWidgetVisibilityChanged(bool visible);
  /// See ShowPartialBackground(); for what hosts the flyout.
  void SetPartialBackgroundColor(bool showColor, const QRect& rc, QColor color);
  /// SetBusy(true) has locked it.
  void FlyoutBusy();
  /// SetBusy(false) has unlocked it.
  void FlyoutIdle();

protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

private:
  void OnESCKeyReleased();

  const std::unique_ptr<FlyoutBasePrivate> d;
};

} // namespace Vela::UiBase
