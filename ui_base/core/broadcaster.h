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
#include <type_traits>
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
///   owned by its Qt parent. It is called from a task of MainThreadQoS, and no more once its own destructor
///   has ended, also while those of its base classes still run;
/// - an *asynchronous* observer is given as a shared pointer and held weakly; called from the same task;
/// - a *synchronous* observer is given as a shared pointer and held weakly; called by broadcast() itself.
///
/// Adding, removing and broadcasting are allowed from any thread, also from inside a callback: no lock is
/// held while an observer runs. An observer added or removed during a broadcast does not change who receives
/// that broadcast; one that is destroyed is never called, and none is kept alive beyond its own call. An
/// observer added twice is called twice.
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
  /// Nobody hears of anything until observers are added again.
  virtual void removeAllObservers();

  /// Calls @p f with each observer: guarded, then asynchronous ones in one task handed to dispatchAsync()
  /// (one that does nothing when there are none), then the synchronous ones on this thread, each kind in
  /// order of addition.
  ///
  /// The task has a copy of @p f, which may change its own state; a callable that cannot be copied is shared
  /// by the task and this thread.
  template <class F>
  void broadcast(F f);

protected:
  /// The observer that has been there longest, guarded ones before asynchronous before synchronous ones.
  P* firstObserver() const;

private:
  struct Guarded {
    QPointer<QObject> object;
    P* observer;                // the object's other face
    const std::type_info* type; // of the object when it was added

    /// The observer, or null when it is gone. For the main thread, as it looks at the object itself.
    P* living() const {
      QObject* const alive = object;
      if (!alive)
        return nullptr;
      // While the destructors of its base classes run, the object is of their classes, and the guard still
      // set. One that was added by a constructor of a base class is of another class too, but an observer.
      return &typeid(*alive) == type ? observer : dynamic_cast<P*>(alive);
    }
  };
  struct Weak {
    std::weak_ptr<P> owner;
    P* observer; // to tell it from others without a reference, which could turn out to be the last
  };
  using GuardedList = detail::ObserverList<Guarded>;
  using WeakList = detail::ObserverList<Weak>;
  struct Recipients {
    typename GuardedList::Snapshot guarded;
    typename WeakList::Snapshot asynchronous;
    typename WeakList::Snapshot synchronous;
  };

  template <class F>
  static void callEach(const typename GuardedList::Snapshot& observers, F& f);
  template <class F>
  static void callEach(const typename WeakList::Snapshot& observers, F& f);
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
  m_guarded.append({object, observer, &typeid(*object)});
}

template <class P>
void Broadcaster<P>::addObserver(const std::shared_ptr<P>& observer, bool asynchronous) {
  if (!observer)
    return;
  const std::lock_guard lock(m_mutex);
  (asynchronous ? m_asynchronous : m_synchronous).append({observer, observer.get()});
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
  const auto isObserver = [&observer](const Weak& entry) { return entry.observer == observer.get(); };
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
  const auto hasExpired = [](const Weak& entry) { return entry.owner.expired(); };
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
  if (!m_guarded.isEmpty()) {
    const Guarded& guarded = m_guarded.first();
    if (isMainThread())
      return guarded.living();
    return guarded.object ? guarded.observer : nullptr;
  }
  if (!m_asynchronous.isEmpty())
    first = m_asynchronous.first().owner.lock();
  else if (!m_synchronous.isEmpty())
    first = m_synchronous.first().owner.lock();
  return first.get();
}

template <class P>
template <class F>
void Broadcaster<P>::callEach(const typename GuardedList::Snapshot& observers, F& f) {
  for (const Guarded& entry : observers) {
    if (P* const observer = entry.living())
      std::invoke(f, observer);
  }
}

template <class P>
template <class F>
void Broadcaster<P>::callEach(const typename WeakList::Snapshot& observers, F& f) {
  for (const Weak& entry : observers) {
    if (const auto observer = entry.owner.lock())
      std::invoke(f, observer.get());
  }
}

template <class P>
template <class F>
void Broadcaster<P>::broadcast(F f) {
  if constexpr (std::is_copy_constructible_v<F>) {
    Recipients recipients = takeRecipients();
    if (recipients.guarded.isEmpty() && recipients.asynchronous.isEmpty()) {
      dispatchAsync([] {}, MainThreadQoS);
    } else {
      dispatchAsync(
          [guarded = std::move(recipients.guarded), asynchronous = std::move(recipients.asynchronous),
           f]() mutable {
            callEach(guarded, f);
            callEach(asynchronous, f);
          },
          MainThreadQoS);
    }
    callEach(recipients.synchronous, f);
  } else {
    broadcast([shared = std::make_shared<F>(std::move(f))](P* observer) { std::invoke(*shared, observer); });
  }
}

} // namespace Taren::Core
