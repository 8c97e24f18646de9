// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QString>

#include <atspi/atspi.h>
#include <functional>
#include <memory>
#include <vector>

namespace Driven {

/// Something on the screen as a screen reader finds it. A value; null where nothing was found. Each answer
/// comes from the program at that moment; of what is gone meanwhile there are empty texts and no states.
///
/// @code
/// const Accessible apply = program.find(ATSPI_ROLE_PUSH_BUTTON, "Apply");
/// QVERIFY(apply.has(ATSPI_STATE_ENABLED));
/// @endcode
class Accessible {
public:
  Accessible() = default;
  /// Takes the reference over.
  explicit Accessible(AtspiAccessible* taken);

  /// The program that introduces itself by this name; null while it does not.
  static Accessible application(const QString& name);

  explicit operator bool() const noexcept { return m_object != nullptr; }
  AtspiRole role() const;
  QString name() const;
  QString description() const;
  /// What is written in a field; empty where nothing can be written.
  QString text() const;
  bool has(AtspiStateType state) const;
  /// On the screen.
  QRect rect() const;
  std::vector<Accessible> children() const;

  using Condition = std::function<bool(const Accessible&)>;
  /// The first below this one, from the top, that is seen and meets the condition; null where there is none.
  Accessible find(const Condition& condition) const;
  Accessible find(AtspiRole role, const QString& name) const;
  /// Everything below that is seen, a line each, for the message of a failed test.
  QString tree(int depth = 0) const;

private:
  std::shared_ptr<AtspiAccessible> m_object;
};

} // namespace Driven
