// SPDX-License-Identifier: MIT
#include "config_manager.h"

namespace Vela::Services {

ConfigManager::ConfigManager(QObject* parent) : QObject(parent) {}

ConfigManager::ConfigManager(const QString& iniFile, QObject* parent)
    : QObject(parent), m_settings(iniFile, QSettings::IniFormat) {}

QVariant ConfigManager::value(const QString& key, const QVariant& fallback) const {
  return m_settings.value(key, fallback);
}

bool ConfigManager::contains(const QString& key) const { return m_settings.contains(key); }

void ConfigManager::setValue(const QString& key, const QVariant& value) {
  if (m_settings.contains(key) && m_settings.value(key) == value)
    return;
  m_settings.setValue(key, value);
  Q_EMIT valueChanged(key);
}

void ConfigManager::remove(const QString& key) {
  if (!m_settings.contains(key))
    return;
  m_settings.remove(key);
  Q_EMIT valueChanged(key);
}

bool ConfigManager::save() {
  m_settings.sync();
  return m_settings.status() == QSettings::NoError;
}

} // namespace Vela::Services
