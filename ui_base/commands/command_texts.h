// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/text.h>

#include <array>
#include <optional>

class QAction;

namespace Vela::UiBase {

/// The texts that an action was given as Text, kept in the language of the program. One that was set as a
/// plain text since is left alone.
class CommandTexts {
public:
  enum EPart { Label, ToolTip, StatusTip };

  /// @param action has these texts, and owns this object.
  void set(QAction& action, EPart part, const Text& text);
  /// The text that the action shows there, if it was given as Text.
  std::optional<Text> text(const QAction& action, EPart part) const;

private:
  struct Shown {
    Text text;
    QString shown;
  };

  void retranslate(QAction& action);

  std::array<std::optional<Shown>, 3> m_parts;
  bool m_followsLanguage = false;
};

} // namespace Vela::UiBase
