// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>
#include <QVariantMap>
#include <QVector3D>

namespace Vela::UiBase {

/// What a tool or a view did for the user, in words and in units of the scene, so that it can be done again
/// in a window of another size. A plain value; see OperationLog.
struct ToolOperation {
  /// The identifier of the command that the tool belongs to, or a name that the tool or the view goes by.
  QString command;
  /// What was done, a word such as "click" or "measure".
  QString action;
  Qt::MouseButton button = Qt::NoButton;
  Qt::KeyboardModifiers modifiers;
  /// In units of the scene.
  QList<QVector3D> positions;
  /// What else counts: numbers, texts, truth values, files as QUrl, and lists and maps of them.
  QVariantMap values;

  bool operator==(const ToolOperation&) const = default;
};

} // namespace Vela::UiBase

Q_DECLARE_METATYPE(Vela::UiBase::ToolOperation)
