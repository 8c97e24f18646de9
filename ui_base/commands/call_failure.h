// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>

#include <exception>
#include <new>
#include <optional>

namespace Vela::UiBase {

/// Calls what may throw. @return what it threw, in words for the user; nothing when it did not.
template <class Call>
std::optional<QString> failureOf(const Call& call) noexcept {
  try {
    call();
    return {};
  } catch (const std::bad_alloc&) {
    return QCoreApplication::translate("Vela::UiBase::CommandBase", "There is not enough memory.");
  } catch (const std::exception& error) {
    return QString::fromLocal8Bit(error.what());
  } catch (...) {
    return QCoreApplication::translate("Vela::UiBase::CommandBase", "unknown error");
  }
}

/// Makes several calls of which some may throw, and throws the first of that when all are done.
class FirstFailure {
public:
  template <class Call>
  void guard(const Call& call) {
    try {
      call();
    } catch (...) {
      if (!m_first)
        m_first = std::current_exception();
    }
  }
  void rethrow() const {
    if (m_first)
      std::rethrow_exception(m_first);
  }

private:
  std::exception_ptr m_first;
};

} // namespace Vela::UiBase
