// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tooltips/a_tooltip_object_p.h>
#include <ui_base/tooltips/tooltip_object.h>

class QFocusEvent;
class QKeyEvent;

namespace Vela::UiBase {

/// The state of a TooltipObject, for subclasses that add to it.
class UI_BASE_EXPORT TooltipObjectPrivate : public ATooltipObjectPrivate {
public:
  QWidget* reference() const override;
  void describe() override;
  QString reason() const override;
  void tellReason() override;
  void startUnderMouse() override;

  /// Whether the mouse on this widget is the mouse on the attached one: its children count, but for those
  /// that have a tooltip of their own, and what lies in them.
  bool isPart(const QObject* candidate) const;
  bool isOverPart(const QPoint& position) const;
  /// Has the parts tell of the mouse, too.
  void watchParts();
  void watchPart(QWidget& part);
  void onPartEvent(QObject* part, QEvent* event);
  void onFocusIn(const QFocusEvent& event);
  void onFocusOut();
  void onKeyPress(const QKeyEvent& event);

  QPointer<QWidget> attachedWidget;
  bool mouseInside = false;
  bool dismissOnPress = true;

  bool broughtByFocus = false;
  QString ownDescription;   // what the tooltip says, without the reason
  QString givenDescription; // what the attached widget was given

private:
  void giveDescription();
};

} // namespace Vela::UiBase
