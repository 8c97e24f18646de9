// SPDX-License-Identifier: MIT
#pragma once

#include "session.h"

namespace Vela::UiBase {

/// How the parts of a session are written; SessionReader reads them.
namespace SessionText {

inline constexpr QLatin1String FileKey("$file");
inline constexpr QLatin1String UrlKey("$url");
inline constexpr QLatin1String MapKey("$map");

/// Files of the folder, or below it, become relative to it.
QJsonValue toJson(const QVariant& value, const QDir& folder);
QVariant fromJson(const QJsonValue& value, const QDir& folder);
/// Whether all of a value has a form; what has none becomes null.
bool canBeWritten(const QVariant& value);

/// One line of JSON.
QString text(const QJsonValue& value);
/// A name as one word of a line: in quotes where it needs them.
QString word(const QString& name);

/// A command, and where several managers have one of that name, which.
QString commandName(const QString& id, int manager);
/// The line of a step, without its state.
QString line(const SessionStep& step, const QDir& folder);
/// The lines of a state, or of what changed in it.
QString lines(const SessionState& state);

/// What differs, for SessionStep::changes; null, for what is gone, is the same as nothing.
SessionState changes(const SessionState& before, const SessionState& after);
void apply(const SessionState& changes, SessionState& state);

/// Names of buttons and modifiers. No name gives nothing.
QString buttonName(Qt::MouseButton button);
std::optional<Qt::MouseButton> button(const QString& name);
QString modifierNames(Qt::KeyboardModifiers modifiers);
std::optional<Qt::KeyboardModifiers> modifiers(const QString& names);

/// Names of outcomes, in no language.
QString outcomeName(ERunOutcome outcome);
std::optional<ERunOutcome> outcome(const QString& name);

} // namespace SessionText
} // namespace Vela::UiBase
