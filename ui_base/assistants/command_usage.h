// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QHash>
#include <QObject>
#include <QVariantMap>

namespace Vela::UiBase {

struct RunRecord;

/// How often the user ran each command, by identifier: what people use most is offered first. Counts by
/// itself from its construction on, whatever button, key or menu entry runs a command; runs that the program
/// sets off do not count. For the main thread.
///
/// @code
/// CommandUsage usage;
/// usage.restore(settings.value("usage").toMap());
/// …
/// settings.setValue("usage", usage.values());
/// @endcode
class UI_BASE_EXPORT CommandUsage : public QObject {
  Q_OBJECT

public:
  /// Begins with no counts.
  explicit CommandUsage(QObject* parent = nullptr);

  /// How often a command has been used; 0 for one that is not known.
  int count(const QString& commandId) const { return m_counts.value(commandId); }
  /// Counts one more run.
  void note(const QString& commandId);
  /// The counts by identifier, to be kept for the next start. What is used no more fades: when a count gets
  /// high, all are halved.
  QVariantMap values() const;
  /// Replaces the counts; what is no number counts as 0.
  void restore(const QVariantMap& values);

private:
  void noteRun(const RunRecord& record);

  QHash<QString, int> m_counts;
};

} // namespace Vela::UiBase
