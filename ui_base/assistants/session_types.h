// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QVariant>

#include <optional>

namespace Vela::UiBase {

/// Values that JSON has no form for, each as an object of one member: {"$point": [1, 2]}. Bytes, numbers that
/// are not finite, points, sizes, rectangles, lines, vectors, quaternions and matrices.
namespace SessionTypes {

/// Nothing for a value that JSON has a form for, and for one that has none here either.
std::optional<QJsonObject> toJson(const QVariant& value);
/// Nothing for an object that is none of these.
std::optional<QVariant> fromJson(const QJsonObject& object);

} // namespace SessionTypes
} // namespace Vela::UiBase
