// SPDX-License-Identifier: MIT
#include "command_texts.h"

#include <ui_base/core/language.h>

#include <QAction>
#include <QPointer>

#include <utility>

namespace Vela::UiBase {

namespace {

QString shownText(const QAction& action, CommandTexts::EPart part) {
  return part == CommandTexts::Label     ? action.text()
         : part == CommandTexts::ToolTip ? action.toolTip()
                                         : action.statusTip();
}

void show(QAction& action, CommandTexts::EPart part, const QString& text) {
  if (part == CommandTexts::Label)
    action.setText(text);
  else if (part == CommandTexts::ToolTip)
    action.setToolTip(text);
  else
    action.setStatusTip(text);
}

} // namespace

void CommandTexts::set(QAction& action, EPart part, const Text& text) {
  const QString shown = text.translated();
  const QPointer<QAction> alive(&action);
  m_parts.at(part) = text.isFixed() ? std::nullopt : std::optional(Shown{text, shown});
  show(action, part, shown);
  if (alive && !text.isFixed() && !std::exchange(m_followsLanguage, true))
    keepTranslated(&action, [this, &action] { retranslate(action); });
}

std::optional<Text> CommandTexts::text(const QAction& action, EPart part) const {
  const std::optional<Shown>& given = m_parts.at(part);
  return given && given->shown == shownText(action, part) ? std::optional(given->text) : std::nullopt;
}

// Who hears of a changed text may end the command.
void CommandTexts::retranslate(QAction& action) {
  const QPointer<QAction> alive(&action);
  for (const EPart part : {Label, ToolTip, StatusTip}) {
    std::optional<Shown>& given = m_parts.at(part);
    if (!given)
      continue;
    if (given->shown != shownText(action, part)) {
      given.reset();
      continue;
    }
    given->shown = given->text.translated();
    show(action, part, QString(given->shown));
    if (!alive)
      return;
  }
}

} // namespace Vela::UiBase
