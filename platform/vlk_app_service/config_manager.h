// SPDX-License-Identifier: MIT
#pragma once

#include <vlk_app_service/vlk_app_service_export.h>

#include <QObject>
#include <QSettings>
#include <QVariant>

namespace Vela::Services {

/// The user's settings, kept by QSettings under the organisation and application name of the program. For the
/// main thread.
///
/// @code
/// auto& config = ApplicationService::GetInstance().GetConfigManager();
/// config.setValue(QStringLiteral("view/unit"), QStringLiteral("mm"));
/// @endcode
class VLK_APP_SERVICE_EXPORT ConfigManager : public QObject {
  Q_OBJECT

public:
  /// The settings of the user, by the names of organization and application.
  explicit ConfigManager(QObject* parent = nullptr);
  /// Keeps the settings in a file of its own, in INI format.
  explicit ConfigManager(const QString& iniFile, QObject* parent = nullptr);

  /// The value of a key ("group/name"), or the fallback when there is none.
  QVariant value(const QString& key, const QVariant& fallback = {}) const;
  /// Whether there is a value for the key.
  bool contains(const QString& key) const;
  /// Told by valueChanged() when it is another value than before.
  void setValue(const QString& key, const QVariant& value);
  /// Told by valueChanged() when there was a value.
  void remove(const QString& key);
  /// Writes what is pending. @return false when the settings cannot be written.
  bool save();

Q_SIGNALS:
  /// The value of a key is another one than before.
  void valueChanged(const QString& key);

private:
  QSettings m_settings;
};

} // namespace Vela::Services
