// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

class QAction;
class QString;
class QWidget;

namespace Vela::UiBase {

class ATooltipObject;
class TooltipEx;

/// Makes rich tooltips of actions and commands, so that all of an application read alike.
///
/// The title is the text of the action without its mnemonic and its closing dots, the shortcut its first one,
/// the text its tooltip, or its status tip where the tooltip says no more than the title.
///
/// @code
/// auto* tooltip = new TooltipObject(QStringLiteral("toolbar"), button);
/// tooltip->AttachTo(button);
/// TooltipExFactory::Attach(tooltip, command);
/// @endcode
class UI_BASE_EXPORT TooltipExFactory {
public:
  TooltipExFactory() = delete;

  /// A tooltip that follows the action's changes. The caller owns it. Null for a null action.
  static TooltipEx* Create(const QAction* action, QWidget* parent = nullptr);

  /// Gives the tooltip object such a content, made when it is shown for the first time. Null is ignored.
  static void Attach(ATooltipObject* object, const QAction* action);

  /// What the tooltip of the action says, in plain text; empty for null.
  static QString Description(const QAction* action);
};

} // namespace Vela::UiBase
