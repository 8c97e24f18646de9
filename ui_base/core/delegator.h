// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/broadcaster.h>

namespace Taren::Core {

/// A subject that announces the protocol P to one observer, its delegate. Setting a delegate replaces the one
/// before. Ownership, threads and errors are those of Broadcaster.
///
/// @code
/// class Importer : public Delegator<ImportProtocol> {
///   bool mayReplace() {
///     ImportProtocol* const delegate = getDelegate();   // an answer is needed: ask directly
///     return !delegate || delegate->mayReplace(this);
///   }
/// };
/// importer.setDelegate(sharedDelegate, false);
/// @endcode
template <class P>
class Delegator : public Broadcaster<P> {
public:
  Delegator();
  ~Delegator() override;

  /// Removes all observers, then adds this one. An empty pointer leaves no delegate.
  virtual void setDelegate(const std::shared_ptr<P>& delegate, bool asynchronous);
  /// @overload
  /// @throws std::logic_error when the delegate is not a QObject; there is no delegate then.
  virtual void setDelegate(P* delegate);

  /// The delegate, or null when there is none or it has died. The call does not keep it alive. Ask for a
  /// guarded one on the main thread.
  P* getDelegate() const;

protected:
  /// Same as broadcast().
  template <class F>
  void delegate(F f);
};

template <class P>
Delegator<P>::Delegator() = default;

template <class P>
Delegator<P>::~Delegator() = default;

template <class P>
void Delegator<P>::setDelegate(const std::shared_ptr<P>& delegate, bool asynchronous) {
  this->removeAllObservers();
  this->addObserver(delegate, asynchronous);
}

template <class P>
void Delegator<P>::setDelegate(P* delegate) {
  this->removeAllObservers();
  this->addObserver(delegate);
}

template <class P>
P* Delegator<P>::getDelegate() const {
  return this->firstObserver();
}

template <class P>
template <class F>
void Delegator<P>::delegate(F f) {
  this->broadcast(std::move(f));
}

} // namespace Taren::Core
