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

} // namespace Vela::UiBase
