// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>

#include <exception>
#include <memory>
#include <new>
#include <optional>
#include <thread>
#include <utility>

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

/// Calls @p tell with each observer of a broadcaster; what one of them throws keeps nothing from the others.
/// @return what the first one threw that hears at once; of one that hears later it is logged.
template <class Broadcaster, class Tell>
std::optional<QString> failureOfTelling(Broadcaster& broadcaster, Tell tell) noexcept {
  struct Telling {
    std::thread::id thread = std::this_thread::get_id();
    bool isOver = false; // by the thread alone, like the failure
    std::optional<QString> failure;
  };
  std::optional<QString> failure;
  const auto ownFailure = failureOf([&] {
    const auto telling = std::make_shared<Telling>();
    broadcaster.broadcast([telling, tell = std::move(tell)](auto* observer) {
      const auto thrown = failureOf([&] { tell(*observer); });
      if (!thrown)
        return;
      if (telling->thread != std::this_thread::get_id() || telling->isOver)
        qWarning("An observer of a command failed: %s", qUtf8Printable(*thrown));
      else if (!telling->failure)
        telling->failure = thrown;
    });
    telling->isOver = true;
    failure = telling->failure;
  });
  return failure ? failure : ownFailure;
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
