// SPDX-License-Identifier: MIT
#pragma once

#include <vlk_license/i_license_provider.h>
#include <vlk_license/license_state.h>
#include <vlk_license/vlk_license_export.h>

#include <QObject>
#include <QString>

#include <memory>

class QWidget;

namespace Vela::License {

/// Answers whether the product is licensed or in trial, and asks the user about paid features.
///
/// By default everything is licensed. An application with licences installs a provider; one with dialogs of
/// its own may replace this library with one of the same target and class names. To be used on the main
/// thread only.
///
/// \code
/// auto& license = Vela::License::LicenseService::Instance();
/// license.setProvider(std::make_unique<KeyFileProvider>());
/// connect(&license, &LicenseService::stateChanged, toolBar, &MyToolBar::updateLocks);
/// if (license.confirmPaidFeature(window, tr("Export")))
///   exportMesh();
/// \endcode
class LICENSE_EXPORT LicenseService : public QObject {
  Q_OBJECT

public:
  /// The one instance, made on first use; it lives until the program ends.
  static LicenseService& Instance();

  /// Takes over \a provider and drops the one before; null restores the default one, which is always fully
  /// licensed. Emits stateChanged() when the state is another now. Not to be called by a provider.
  void setProvider(std::unique_ptr<ILicenseProvider> provider);
  /// The provider in use, never null; owned by the service.
  const ILicenseProvider& provider() const;

  /// What the provider says now.
  ELicenseState state() const;
  /// True for FullLicense only.
  bool isLicensed() const;
  /// Whether the state is TrialLicense.
  bool isTrial() const;
  /// Licensed or in trial: paid features can be used.
  bool isUsable() const;

  /// Compares the provider's state with the last one known and emits stateChanged() when it is another.
  void refresh();

  /// Hands \a key, without the space around it, to the provider, then refresh(). Returns whether the key was
  /// taken. When it was not and \a error is given, it receives a text for the user.
  bool activate(const QString& key, QString* error = nullptr);

  /// Asks whether the paid feature \a featureName may be used now. True at once with a full licence.
  /// Otherwise a modal box, in front of the window of \a parent (may be null), asks: in trial, whether to use
  /// the feature as part of the trial; without a licence, whether to activate one, which opens the licence
  /// dialog, after which the answer is isUsable(). A box that is dismissed, or closed with its parent, is a
  /// no.
  bool confirmPaidFeature(QWidget* parent, const QString& featureName);

  /// Shows the licence dialog and returns when it is closed. \a parent may be null.
  void showLicenseDialog(QWidget* parent);

Q_SIGNALS:
  /// state() is another than before.
  void stateChanged();

private:
  LicenseService();
  ~LicenseService() override;

  bool confirmTrialUse(QWidget* parent, const QString& featureName);
  bool offerActivation(QWidget* parent, const QString& featureName);

  std::unique_ptr<ILicenseProvider> m_provider;
  ELicenseState m_knownState = FullLicense;
};

} // namespace Vela::License
