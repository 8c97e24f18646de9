// SPDX-License-Identifier: MIT
#pragma once

#include <tqm_mesh_kernel/tqm_mesh_kernel_export.h>

#include <atomic>
#include <memory>
#include <utility>

namespace Taren::Objects {

template <class T>
std::shared_ptr<T> adoptShared(T* object);

/// The base of objects that are held by shared pointer and hand out shared pointers to themselves.
///
/// It is a virtual base, so an object has one however many Taren::Objects::SharedObject<T> it derives from,
/// and with it exactly one control block, which every std::shared_ptr to any of its types shares. The object
/// comes to be shared by createShared() or adoptShared(), the only door for plain pointers.
///
/// The last reference deletes the object on the main thread; when it goes on another thread the deletion is
/// dispatched there. An object that is deleted by hand although it is shared disarms its control block: the
/// remaining references dangle but never delete it again.
class TQM_MESH_KERNEL_EXPORT SharedObjectInternal {
public:
  virtual ~SharedObjectInternal();

  /// Whether a control block is alive.
  bool isShared() const noexcept;

protected:
  SharedObjectInternal() noexcept;
  /// A copy is an object of its own that nobody shares yet.
  SharedObjectInternal(const SharedObjectInternal& other) noexcept;
  SharedObjectInternal& operator=(const SharedObjectInternal& other) noexcept;

  /// The first line of every destructor of a shared class: from here on no reference deletes the object and
  /// none can be made.
  void beginDestruction() noexcept;
  /// A reference, or empty when the object is not shared or is being destroyed.
  std::shared_ptr<SharedObjectInternal> lockSelf() const noexcept;

private:
  enum class Life : int { Unowned, Owned, Releasing, Dying };
  class Deleter;
  template <class T>
  friend std::shared_ptr<T> adoptShared(T* object);

  std::shared_ptr<SharedObjectInternal> acquireSelf();
  Life life() const noexcept;

  std::weak_ptr<SharedObjectInternal> m_self;
  std::shared_ptr<std::atomic<Life>> m_life; // also held by the deleter, which outlives the object
  bool m_dying = false;
};

/// Takes a plain pointer into shared ownership; an object that is shared already is joined, never given a
/// second owner. A QObject with a Qt parent loses its parent, which would be a second owner. Null gives an
/// empty pointer. For the main thread, or for an object no other thread knows yet.
/// @throws std::bad_weak_ptr for an object that is being destroyed.
template <class T>
std::shared_ptr<T> adoptShared(T* object) {
  if (!object)
    return {};
  SharedObjectInternal& self = *object;
  return std::shared_ptr<T>(self.acquireSelf(), object);
}

/// Makes an object that is shared from the start.
///
/// @code
/// auto manager = Taren::Objects::createShared<CmdMgr>();
/// @endcode
template <class T, class... Args>
std::shared_ptr<T> createShared(Args&&... args) {
  return adoptShared(new T(std::forward<Args>(args)...));
}

} // namespace Taren::Objects
