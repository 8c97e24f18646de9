// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>

namespace Vela::UiBase {

/// A guarded pointer that is null from the moment on that its object begins to be destroyed. A QPointer is
/// null only at the end of that: until then, also while a widget announces that it is destroyed, it leads to
/// an object that is no T any more.
///
/// T has the Q_OBJECT macro, or is a class of Qt.
template <class T>
class LivePointer {
public:
  LivePointer() = default;
  /// Watches @p object, which may be null.
  LivePointer(T* object) : m_object(object) {}

  /// The object; null once its own part of the destructor has begun.
  T* data() const { return qobject_cast<T*>(m_object.data()); }
  /// Only while it is not null.
  T* operator->() const { return data(); }
  /// Only while it is not null.
  T& operator*() const { return *data(); }
  /// As data().
  operator T*() const { return data(); }
  /// Whether there is no live object.
  bool isNull() const { return !data(); }
  /// Watches nothing from now on.
  void clear() { m_object.clear(); }
  /// What is left of the object while it is being destroyed.
  QObject* remains() const { return m_object.data(); }

private:
  QPointer<QObject> m_object;
};

} // namespace Vela::UiBase
