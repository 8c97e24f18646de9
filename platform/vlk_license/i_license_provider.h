// SPDX-License-Identifier: MIT
#pragma once

#include <vlk_license/license_state.h>
#include <vlk_license/vlk_license_export.h>

#include <QString>
#include <QUrl>

namespace Vela::License {

/// What an application implements to say whether its user holds a licence.
///
/// LicenseService owns the provider and calls it on the main thread. A provider whose state changes on its
/// own (a trial runs out, a server answers) tells it with LicenseService::refresh().
///
/// \code
/// class KeyFileProvider : public Vela::License::ILicenseProvider {
/// public:
///   Vela::License::ELicenseState state() const override { return m_state; }
///   bool activate(const QString& key, QString* error) override {
///     if (verifySignature(key)) {
///       m_state = Vela::License::FullLicense;
///       return true;
///     }
///     *error = tr("This key is not valid for the product.");
///     return false;
///   }
///   ...
/// };
/// LicenseService::Instance().setProvider(std::make_unique<KeyFileProvider>());
/// \endcode
class LICENSE_EXPORT ILicenseProvider {
public:
  virtual ~ILicenseProvider();

  /// The state now. Asked often: it should answer from memory.
  virtual ELicenseState state() const = 0;

  /// Tries to turn \a key, which is never empty, into a licence. Returns true when the key was taken; state()
  /// may then be another. Otherwise returns false and may put a text for the user into \a error, which is
  /// never null.
  virtual bool activate(const QString& key, QString* error) = 0;

  /// The days left of a trial, or -1 (the default) when the trial has no end or the number is not known.
  virtual int trialDaysLeft() const;

  /// The name of the product as the licence dialog shows it; QGuiApplication::applicationDisplayName() unless
  /// overridden.
  virtual QString productName() const;

  /// The page where a licence can be bought; empty, as by default, when there is none.
  virtual QUrl productPage() const;

protected:
  ILicenseProvider() = default;
  ILicenseProvider(const ILicenseProvider&) = default;
  ILicenseProvider& operator=(const ILicenseProvider&) = default;
};

} // namespace Vela::License
