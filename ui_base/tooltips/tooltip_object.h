// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tooltips/a_tooltip_object.h>

namespace Vela::UiBase {

class TooltipObjectPrivate;

/// The tooltip of a widget. It appears when the mouse has rested on the widget, or when the keyboard has
/// brought the focus there, and goes some time after the mouse has left, with a press, with the focus and
/// with the widget.
///
/// Neither owns the other; as a child of its widget the object dies with it. The text of the tooltip is the
/// accessible description of the widget, unless that has one of its own.
///
/// @code
/// auto* tooltip = new TooltipObject(QStringLiteral("toolbar"), button);
/// tooltip->SetTooltipType(QuickSideTooltip);
/// tooltip->SetTooltipText(tr("Fit the mesh to the view"));
/// tooltip->AttachTo(button);
/// @endcode
class UI_BASE_EXPORT TooltipObject : public ATooltipObject {
  Q_OBJECT

public:
  /// In a group of tooltips, of which one is shown at a time; a parent owns it.
  explicit TooltipObject(const QString& group, QObject* parent = nullptr);
  ~TooltipObject() override;

  /// Watches the widget, in place of the one before, and has it track the mouse and refuse the focus. One
  /// that shall take the focus gets its policy afterwards. Null is ignored.
  void AttachTo(QWidget* widget);
  /// Hides the tooltip and leaves the widget alone.
  void Detach();
  /// The widget, or null.
  QWidget* AttachedWidget() const;

  /// Whether a press on the widget hides the tooltip; on at first.
  void SetDismissOnPress(bool dismiss);

  bool CanTooltipBeShown() override;
  /// Whether the cursor is over the widget or the tooltip.
  bool CheckMouseHover() const override;
  void EventFilterOnEnter(QObject* object) override;
  void EventFilterOnLeave(QObject* object) override;
  void EventFilterOnMouseMove(QObject* object, QEvent* event) override;
  void EventFilterOnMouseButtonPress(QObject* object, QEvent* event) override;
  void EventFilterOnHide(QObject* object) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

protected:
  /// Takes the private object over.
  TooltipObject(TooltipObjectPrivate& state, const QString& group, QObject* parent);

private:
  TooltipObjectPrivate* own() const;
  void followReason();
};

} // namespace Vela::UiBase
