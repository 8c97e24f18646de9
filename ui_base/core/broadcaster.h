// SPDX-License-Identifier: MIT
#pragma once

#include <tqm_mesh_kernel/dispatch.h>
#include <ui_base/core/observer_list.h>
#include <ui_base/ui_base_export.h>

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>
#include <mutex>
#include <typeinfo>
#include <utility>

namespace Taren::Core {

namespace detail {
/// @throws std::logic_error
[[noreturn]] UI_BASE_EXPORT void throwUnmanagedObserver(const std::type_info& type);
} // namespace detail

/// A subject that announces the protocol P, an abstract class of callbacks, to any number of observers.
///
/// Observers are never owned:
/// - a *guarded* observer is given as a plain pointer; it must be a QObject that lives on the main thread,
///   owned by its Qt parent. It is called from a task of MainThreadQoS;
/// - an *asynchronous* observer is given as a shared pointer and held weakly; called from the same task;
/// - a *synchronous* observer is given as a shared pointer and held weakly; called by broadcast() itself.
///
/// Adding, removing and broadcasting are allowed from any thread, also from inside a callback: no lock is
/// held while an observer runs. An observer added or removed during a broadcast does not change who receives
/// that broadcast; one that is destroyed is never called. An observer added twice is called twice.
///
/// @code
/// class Progress : public Broadcaster<ProgressProtocol> {
///   void advance(int percent) {
///     broadcast([percent](ProgressProtocol* observer) { observer->advanced(percent); });
///   }
/// };
/// progress.addObserver(label);             // a QObject with a parent: main thread, later
/// progress.addObserver(sharedLog, false);  // at once, on the thread that broadcasts
/// @endcode
///
/// What is bound into a broadcast must live as long as the task may: bind shared pointers, never a raw
/// `this`.
template <class P>
class Broadcaster {
public:
  Broadcaster();
  virtual ~Broadcaster();
  Broadcaster(const Broadcaster&) = delete;
  Broadcaster& operator=(const Broadcaster&) = delete;

  /// Adds a guarded observer; null is ignored.
  /// @throws std::logic_error when the observer is not a QObject.
  virtual void addObserver(P* observer);
  /// Adds an asynchronous or a synchronous observer; an empty pointer is ignored.
  virtual void addObserver(const std::shared_ptr<P>& observer, bool asynchronous);
  /// Removes every guarded entry of the observer; null is ignored.
  /// @throws std::logic_error when the observer is not a QObject or has no Qt parent.
  virtual void removeObserver(P* observer);
  /// Removes every synchronous and asynchronous entry of the observer.
  virtual void removeObserver(const std::shared_ptr<P>& observer);
  virtual void removeAllObservers();

  /// Calls @p f with each observer: guarded, then asynchronous ones in one task handed to dispatchAsync() (an
  /// empty task when there are none), then the synchronous ones on this thread, each kind in order of
  /// addition.
  /// @p f is copied into the task.
  template <class F>
  void broadcast(const F& f);

protected:
  /// The observer that has been there longest, guarded ones before asynchronous before synchronous ones.
  P* firstObserver() const;

private:
  struct Guarded {
    QPointer<QObject> object;
    P* observer; // the object's other face, valid while the object is
  };
  using Weak = std::weak_ptr<P>;
  using GuardedList = detail::ObserverList<Guarded>;
  using WeakList = detail::ObserverList<Weak>;
  struct Recipients {
    typename GuardedList::Snapshot guarded;
    typename WeakList::Snapshot asynchronous;
    typename WeakList::Snapshot synchronous;
  };

  template <class F>
  static void callEach(const typename WeakList::Snapshot& observers, const F& f);
  Recipients takeRecipients();
  void removeNullObservers();

  GuardedList m_guarded;
  WeakList m_asynchronous;
  WeakList m_synchronous;
  mutable std::mutex m_mutex;
};

template <class P>
Broadcaster<P>::Broadcaster() = default;

template <class P>
Broadcaster<P>::~Broadcaster() = default;

template <class P>
void Broadcaster<P>::addObserver(P* observer) {
  if (!observer)
    return;
  auto* const object = dynamic_cast<QObject*>(observer);
  if (!object)
    detail::throwUnmanagedObserver(typeid(*observer));
  const std::lock_guard lock(m_mutex);
  m_guarded.append({object, observer});
}

template <class P>
void Broadcaster<P>::addObserver(const std::shared_ptr<P>& observer, bool asynchronous) {
  if (!observer)
    return;
  const std::lock_guard lock(m_mutex);
  (asynchronous ? m_asynchronous : m_synchronous).append(observer);
}

template <class P>
void Broadcaster<P>::removeObserver(P* observer) {
  if (!observer)
    return;
  const auto* const object = dynamic_cast<QObject*>(observer);
  if (!object || !object->parent())
    detail::throwUnmanagedObserver(typeid(*observer));
  const std::lock_guard lock(m_mutex);
  m_guarded.removeIf([object](const Guarded& entry) { return entry.object == object; });
}

template <class P>
void Broadcaster<P>::removeObserver(const std::shared_ptr<P>& observer) {
  if (!observer)
    return;
  // Locks an entry only when the argument holds the same object, so no observer can die under the mutex.
  const auto isObserver = [&observer](const Weak& entry) {
    const bool sameOwner = !entry.owner_before(observer) && !observer.owner_before(entry);
    return sameOwner && entry.lock() == observer;
  };
  const std::lock_guard lock(m_mutex);
  m_synchronous.removeIf(isObserver);
  m_asynchronous.removeIf(isObserver);
}

template <class P>
void Broadcaster<P>::removeAllObservers() {
  const std::lock_guard lock(m_mutex);
  m_guarded.clear();
  m_asynchronous.clear();
  m_synchronous.clear();
}

template <class P>
void Broadcaster<P>::removeNullObservers() {
  const auto hasExpired = [](const Weak& entry) { return entry.expired(); };
  m_guarded.removeIf([](const Guarded& entry) { return entry.object.isNull(); });
  m_asynchronous.removeIf(hasExpired);
  m_synchronous.removeIf(hasExpired);
}

template <class P>
typename Broadcaster<P>::Recipients Broadcaster<P>::takeRecipients() {
  const std::lock_guard lock(m_mutex);
  removeNullObservers();
  return {m_guarded.snapshot(), m_asynchronous.snapshot(), m_synchronous.snapshot()};
}

template <class P>
P* Broadcaster<P>::firstObserver() const {
  std::shared_ptr<P> first; // released after the mutex, as it may be the last reference
  const std::lock_guard lock(m_mutex);
  if (!m_guarded.isEmpty())
    return m_guarded.first().object ? m_guarded.first().observer : nullptr;
  if (!m_asynchronous.isEmpty())
    first = m_asynchronous.first().lock();
  else if (!m_synchronous.isEmpty())
    first = m_synchronous.first().lock();
  return first.get();
}

template <class P>
template <class F>
void Broadcaster<P>::callEach(const typename WeakList::Snapshot& observers, const F& f) {
  // The reference to an observer that others hold too is let go one call later: its counter cannot be read
  // right after the lock has written it without waiting for the write, which takes as long as a small call.
  std::shared_ptr<P> called;
  for (const Weak& entry : observers) {
    // But not across another entry of the same owner, which would find alive what ended in its call.
    if (!called.owner_before(entry) && !entry.owner_before(called))
      called.reset();
    if (auto observer = entry.lock()) {
      std::invoke(f, observer.get());
      if (observer.use_count() > 1)
        called = std::move(observer);
    }
  }
}

template <class P>
template <class F>
void Broadcaster<P>::broadcast(const F& f) {
  Recipients recipients = takeRecipients();
  if (recipients.guarded.isEmpty() && recipients.asynchronous.isEmpty()) {
    dispatchAsync(std::function<void()>(), MainThreadQoS);
  } else {
    dispatchAsync(
        [guarded = std::move(recipients.guarded), asynchronous = std::move(recipients.asynchronous), f] {
          for (const Guarded& entry : guarded) {
            if (entry.object)
              std::invoke(f, entry.observer);
          }
          callEach(asynchronous, f);
        },
        MainThreadQoS);
  }
  callEach(recipients.synchronous, f);
}

} // namespace Taren::Core
