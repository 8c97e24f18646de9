// SPDX-License-Identifier: MIT
#include "tooltip_ex_factory.h"

#include <ui_base/tooltips/a_tooltip_object.h>
#include <ui_base/tooltips/tooltip_ex.h>
#include <ui_base/tooltips/tooltip_text.h>

#include <QAction>
#include <QPointer>
#include <QRegularExpression>

namespace Vela::UiBase {

namespace {

QString titleOf(const QAction& action) {
  static const QRegularExpression mnemonicInBrackets(QStringLiteral("\\s*\\(&\\w\\)"));
  static const QRegularExpression mnemonic(QStringLiteral("&(.)"));
  static const QRegularExpression closingDots(QStringLiteral("\\s*(\\.\\.\\.|…)$"));
  return action.text()
      .remove(mnemonicInBrackets)
      .replace(mnemonic, QStringLiteral("\\1"))
      .remove(closingDots);
}

// An action without a tooltip of its own makes one of its text.
QString textOf(const QAction& action) {
  const QString text = action.toolTip();
  const bool own = text != titleOf(action) && text != QAction(action.text()).toolTip();
  return own ? text : action.statusTip();
}

void fill(TooltipEx& tooltip, const QAction& action) {
  tooltip.SetTitle(titleOf(action));
  tooltip.SetShortcut(action.shortcut().toString(QKeySequence::NativeText));
  tooltip.SetText(textOf(action));
}

} // namespace

TooltipEx* TooltipExFactory::Create(const QAction* action, QWidget* parent) {
  if (!action)
    return nullptr;
  auto* const tooltip = new TooltipEx(QString(), QString(), parent);
  fill(*tooltip, *action);
  QObject::connect(action, &QAction::changed, tooltip, [tooltip, action] { fill(*tooltip, *action); });
  return tooltip;
}

void TooltipExFactory::Attach(ATooltipObject* object, const QAction* action) {
  if (!object || !action)
    return;
  const auto make = [action = QPointer<const QAction>(action)]() -> QWidget* { return Create(action); };
  object->SetTooltipFactory(make, Description(action), true);
}

QString TooltipExFactory::Description(const QAction* action) {
  return action ? TooltipText::plain(textOf(*action)) : QString();
}

} // namespace Vela::UiBase
