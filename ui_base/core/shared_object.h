// SPDX-License-Identifier: MIT
#pragma once

#include <tqm_mesh_kernel/shared_object_internal.h>
#include <ui_base/ui_base_export.h>

#include <memory>

namespace Taren::Objects {

/// Gives T, which derives from it virtually, shared pointers to itself. Objects are made with
/// createShared<T>() or taken in with adoptShared(); see SharedObjectInternal for ownership.
///
/// @code
/// class Document : public virtual SharedObject<Document> {
/// public:
///   ~Document() override { beginDestruction(); }
///   void save() { queue([self = shared_from_this()] { self->write(); }); }
///   void write();
/// };
/// @endcode
template <class T>
class SharedObject : public virtual SharedObjectInternal {
public:
  SharedObject();
  /// A copy is an object of its own, owned by nobody yet.
  SharedObject(const SharedObject&);
  SharedObject& operator=(const SharedObject&);
  ~SharedObject() override;

  /// @throws std::bad_weak_ptr when the object is not shared or is being destroyed.
  std::shared_ptr<T> shared_from_this();
  /// Like shared_from_this(), but empty instead of throwing.
  std::shared_ptr<T> sharedOrEmpty() noexcept;
};

template <class T>
SharedObject<T>::SharedObject() = default;

template <class T>
SharedObject<T>::SharedObject(const SharedObject&) = default;

template <class T>
SharedObject<T>& SharedObject<T>::operator=(const SharedObject&) = default;

template <class T>
SharedObject<T>::~SharedObject() = default;

template <class T>
std::shared_ptr<T> SharedObject<T>::shared_from_this() {
  if (auto self = sharedOrEmpty())
    return self;
  throw std::bad_weak_ptr();
}

template <class T>
std::shared_ptr<T> SharedObject<T>::sharedOrEmpty() noexcept {
  auto self = this->lockSelf();
  T* const object = self ? dynamic_cast<T*>(this) : nullptr;
  return object ? std::shared_ptr<T>(std::move(self), object) : nullptr;
}

} // namespace Taren::Objects
