// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QByteArray>
#include <QObject>

namespace Vela::UiBase {

/// One signal-slot connection, made by signature, that ends with this object, or with either of its ends. A
/// Qt parent ties the connection to the parent's life. For the thread of the parent.
///
/// @code
/// new ScopedConnection(slider, SIGNAL(valueChanged(int)), preview, SLOT(setRadius(int)),
///                      Qt::AutoConnection, panel);     // ends when the panel goes
/// @endcode
class UI_BASE_EXPORT ScopedConnection : public QObject {
  Q_OBJECT

public:
  /// Connects @p signal of the sender to @p method of the receiver, both as SIGNAL() and SLOT() make them.
  /// When Qt refuses the connection, it says why in a warning and IsConnected() is false.
  ScopedConnection(const QObject* sender, const char* signal, const QObject* receiver, const char* method,
                   Qt::ConnectionType type, QObject* parent);
  /// Connects the signal to a method of the sender itself.
  ScopedConnection(const QObject* sender, const char* signal, const char* method, Qt::ConnectionType type,
                   QObject* parent);
  ~ScopedConnection() override;

  /// Whether both ends still live and nobody has disconnected them.
  bool IsConnected() const { return m_connected; }

private Q_SLOTS:
  void onDestroyed(QObject* object);

private:
  bool m_connected = false;
  const QObject* m_sender;
  QByteArray m_signal;
  const QObject* m_receiver;
  QByteArray m_method;
  // By its four ends a connection cannot be found any more once one of them is being destroyed.
  QMetaObject::Connection m_connection;
};

} // namespace Vela::UiBase
