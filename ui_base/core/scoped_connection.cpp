// SPDX-License-Identifier: MIT
#include "scoped_connection.h"

namespace Vela::UiBase {

ScopedConnection::ScopedConnection(const QObject* sender, const char* signal, const QObject* receiver,
                                   const char* method, Qt::ConnectionType type, QObject* parent)
    : QObject(parent),
      m_sender(sender),
      m_signal(signal),
      m_receiver(receiver),
      m_method(method),
      m_connection(QObject::connect(sender, signal, receiver, method, type)) {
  m_connected = static_cast<bool>(m_connection);
  if (m_sender)
    QObject::connect(m_sender, SIGNAL(destroyed(QObject*)), this, SLOT(onDestroyed(QObject*)));
  if (m_receiver && m_receiver != m_sender)
    QObject::connect(m_receiver, SIGNAL(destroyed(QObject*)), this, SLOT(onDestroyed(QObject*)));
}

ScopedConnection::ScopedConnection(const QObject* sender, const char* signal, const char* method,
                                   Qt::ConnectionType type, QObject* parent)
    : ScopedConnection(sender, signal, sender, method, type, parent) {}

ScopedConnection::~ScopedConnection() {
  // The two watches end with this object by themselves.
  if (m_connected)
    QObject::disconnect(m_connection);
}

void ScopedConnection::onDestroyed(QObject* object) {
  if (!m_connected || (object != m_sender && object != m_receiver))
    return;
  QObject::disconnect(m_connection);
  m_connected = false;
}

} // namespace Vela::UiBase
