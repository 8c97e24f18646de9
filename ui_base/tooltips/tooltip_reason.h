// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QString>

#include <functional>

class QAction;
class QWidget;

namespace Vela::UiBase {

/// Why what is disabled cannot be used, as tooltips tell it below their text. The tooltips ask when they are
/// composed for showing; the texts they were given stay as they are. Commands answer for themselves; an
/// application that has other actions may put a source of its own in front.
///
/// @code
/// TooltipReason::setSource([before = TooltipReason::source()](const QAction& action) {
///   return action.data() == QStringLiteral("scan") ? tr("The scanner is off.") : before(action);
/// });
/// @endcode
class UI_BASE_EXPORT TooltipReason {
public:
  /// Gives a plain-text sentence, empty for an action that can be used or is not known.
  using Source = std::function<QString(const QAction& action)>;

  TooltipReason() = delete;

  /// Where reasons come from; an empty source ends that.
  static void setSource(Source source);
  /// Never empty: without a source it knows no reason.
  static Source source();

  /// Of an action; empty when it can be used.
  static QString of(const QAction& action);
  /// Of a widget, by its default or only action; empty when it is enabled.
  static QString of(const QWidget& widget);

  /// To be called on the main thread when a reason has become another while what it is about stays disabled:
  /// tooltips that are shown, and what assistive technology reads, follow in the next turn of the event loop.
  static void refresh();

  /// A tooltip, plain or rich, with the reason below.
  static QString composed(const QString& text, const QString& reason);
};

} // namespace Vela::UiBase
