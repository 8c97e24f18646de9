// SPDX-License-Identifier: MIT
#pragma once

#include "session.h"

namespace Vela::UiBase {

/// How the parts of a session are written; SessionReader reads them.
namespace SessionText {

inline constexpr QLatin1String FileKey("$file");
inline constexpr QLatin1String UrlKey("$url");

/// Files of the folder, or below it, become relative to it.
QJsonValue toJson(const QVariant& value, const QDir& folder);
QVariant fromJson(const QJsonValue& value, const QDir& folder);

/// One line of JSON.
QString text(const QJsonValue& value);
/// A name as one word of a line: in quotes where it needs them.
QString word(const QString& name);

/// The line of a step, without its state.
QString line(const SessionStep& step, const QDir& folder);
/// The lines of a state, or of what changed in it.
QString lines(const SessionState& state);

/// What differs, for SessionStep::changes.
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
