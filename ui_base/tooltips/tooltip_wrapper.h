// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tooltips/a_tooltip_object.h>

class QPoint;

namespace Vela::UiBase {

class TooltipWrapperPrivate;

/// A tooltip that is shown on demand, at a point or beside the widget that its position calculator was given:
/// a word about a spot in a view, a hint about an entry.
///
/// @code
/// m_hint = new TooltipWrapper(QStringLiteral("view"), this);
/// m_hint->SetTooltipText(tr("Pick a second point"));
/// m_hint->Show(mapToGlobal(point), true, ShowForDuration);
/// @endcode
class UI_BASE_EXPORT TooltipWrapper : public ATooltipObject {
  Q_OBJECT

public:
  /// In a group of tooltips, of which one is shown at a time; a parent owns it.
  explicit TooltipWrapper(const QString& group, QObject* parent = nullptr);
  ~TooltipWrapper() override;

  /// @param point where, in global coordinates.
  /// @param usePoint whether to show it at the point, which then stays; else where it was shown last, or
  /// beside
  ///   the widget of the position calculator.
  /// @param type whether it goes by itself: after the show duration of TooltipTimes.
  void Show(const QPoint& point, bool usePoint, ETooltipShowUpType type);
  /// Hides it after the dismiss time.
  void DelayHide();
  /// Gives the content another text.
  void UpdateText(const QString& text);

  void EventFilterOnHide(QObject* object) override;

protected:
  /// Takes the private object over.
  TooltipWrapper(TooltipWrapperPrivate& state, const QString& group, QObject* parent);

private:
  TooltipWrapperPrivate* own() const;
};

} // namespace Vela::UiBase
