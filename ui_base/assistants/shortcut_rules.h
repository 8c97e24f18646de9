// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/assistants/shortcut_use.h>

#include <QSet>
#include <QStringList>

#include <utility>

namespace Vela::UiBase {

/// How two shortcuts get into each other's way.
enum EMeeting : int {
  NeverMeet,
  SameKeys, ///< One key would mean both: Qt then runs neither.
  Prefix,   ///< The keys of the one begin with those of the other, which can then not be told from it.
};

/// Says whether two shortcuts meet. Goes by where they stand and by what the application says about its
/// modes; what was seen to meet once meets, whatever follows from these. A value.
///
/// Shortcuts meet unless they can never be active at once: in different windows, on different pages of a
/// stack, when the focus would have to be in two places, or in no mode together.
///
/// @code
/// ShortcutRules rules;
/// rules.addMode("mesh", {"Smooth", "Measure", "Open"});
/// rules.addMode("photograph", {"Zoom", "Open"});
/// const auto smooth = usesOf(*smoothCommand), zoom = usesOf(*zoomCommand);
/// rules.meeting(smooth[0], zoom[0]);   // NeverMeet, be it one key: no mode enables both
/// @endcode
class UI_BASE_EXPORT ShortcutRules {
public:
  /// Declares a state of the application in which these commands can be used. A command that no mode names
  /// can be used in all.
  void addMode(const QString& name, const QStringList& commandIds);
  /// One key was seen to mean both of these commands.
  void noteMet(const QString& commandId, const QString& otherId);
  /// The pairs of commands that always meet where their keys do, because that was seen.
  QSet<std::pair<QString, QString>> met() const { return m_met; }

  /// How the two can come into each other's way.
  EMeeting meeting(const ShortcutUse& one, const ShortcutUse& other) const;
  /// Those of the others that a use meets; uses of the same command are not looked at.
  QList<ShortcutUse> metBy(const ShortcutUse& use, const QList<ShortcutUse>& others) const;

private:
  bool sharesMode(const QString& one, const QString& other) const;
  bool isInNoMode(const QString& id) const;

  QList<QSet<QString>> m_modes;
  QStringList m_modeNames;
  QSet<std::pair<QString, QString>> m_met;
};

} // namespace Vela::UiBase
