// SPDX-License-Identifier: MIT
#include "shared_object_internal.h"

#include "dispatch.h"

#include <QObject>

namespace Taren::Objects {

class SharedObjectInternal::Deleter {
public:
  explicit Deleter(std::shared_ptr<std::atomic<Life>> life) : m_life(std::move(life)) {}

  void operator()(SharedObjectInternal* object) const {
    Life owned = Life::Owned;
    if (!m_life->compare_exchange_strong(owned, Life::Releasing))
      return; // deleted by hand
    if (Core::isMainThread()) {
      delete object;
      return;
    }
    const auto deleteUnlessGone = [object, life = m_life] {
      if (*life == Life::Releasing)
        delete object;
    };
    if (!Core::dispatchAsync(deleteUnlessGone, Core::MainThreadQoS))
      delete object; // the main thread has ended its work; nobody else can reach the object any more
  }

private:
  std::shared_ptr<std::atomic<Life>> m_life;
};

SharedObjectInternal::SharedObjectInternal() noexcept = default;
SharedObjectInternal::SharedObjectInternal(const SharedObjectInternal&) noexcept {}
// NOLINTNEXTLINE(bugprone-unhandled-self-assignment, cert-oop54-cpp): nothing is assigned
SharedObjectInternal& SharedObjectInternal::operator=(const SharedObjectInternal&) noexcept { return *this; }
SharedObjectInternal::~SharedObjectInternal() { beginDestruction(); }

bool SharedObjectInternal::isShared() const noexcept { return !m_self.expired(); }

void SharedObjectInternal::beginDestruction() noexcept {
  m_dying = true;
  if (m_life)
    *m_life = Life::Dying;
}

std::shared_ptr<SharedObjectInternal> SharedObjectInternal::lockSelf() const noexcept {
  return m_dying ? nullptr : m_self.lock();
}

SharedObjectInternal::Life SharedObjectInternal::life() const noexcept {
  if (m_dying)
    return Life::Dying;
  return m_life ? m_life->load() : Life::Unowned;
}

std::shared_ptr<SharedObjectInternal> SharedObjectInternal::acquireSelf() {
  if (auto self = lockSelf())
    return self;
  if (life() != Life::Unowned)
    throw std::bad_weak_ptr();
  if (auto* const object = dynamic_cast<QObject*>(this); object && object->parent())
    object->setParent(nullptr);
  m_life = std::make_shared<std::atomic<Life>>(Life::Owned);
  std::shared_ptr<SharedObjectInternal> self(this, Deleter(m_life));
  m_self = self;
  return self;
}

} // namespace Taren::Objects
