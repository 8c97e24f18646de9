// SPDX-License-Identifier: MIT
#include "license_service.h"

#include "license_dialog.h"

#include <vlk_common_res/icons.h>
#include <vlk_common_res/styles.h>

#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSize>

namespace Vela::License {

namespace {

constexpr QSize ICON_SIZE(32, 32);

/// Everything is allowed.
class LicensedProvider : public ILicenseProvider {
public:
  ELicenseState state() const override { return FullLicense; }
  bool activate(const QString& /*key*/, QString* error) override {
    *error = LicenseService::tr("The product is licensed already.");
    return false;
  }
};

QPointer<QMessageBox> makePaidFeatureBox(QWidget* parent) {
  QPointer box = new QMessageBox(parent);
  box->setObjectName(QStringLiteral("paid_feature_box"));
  box->setWindowTitle(LicenseService::tr("Paid Feature"));
  box->setTextFormat(Qt::PlainText);
  box->setIconPixmap(
      Resource::Icons::icon(QStringLiteral("info")).pixmap(ICON_SIZE, box->devicePixelRatioF()));
  box->setStyleSheet(Resource::Styles::Instance().DialogGeneral());
  return box;
}

/// The feature's name as it stands in a sentence: without the mnemonic marks of an action's text.
QString spokenName(QString featureName) {
  featureName.replace(QLatin1String("&&"), QLatin1String("\n"));
  featureName.remove(QLatin1Char('&'));
  return featureName.replace(QLatin1Char('\n'), QLatin1Char('&'));
}

} // namespace

LicenseService::LicenseService() : m_provider(std::make_unique<LicensedProvider>()) {}

LicenseService::~LicenseService() = default;

LicenseService& LicenseService::Instance() {
  static LicenseService instance;
  return instance;
}

void LicenseService::setProvider(std::unique_ptr<ILicenseProvider> provider) {
  if (provider == nullptr)
    provider = std::make_unique<LicensedProvider>();
  m_provider = std::move(provider);
  refresh();
}

const ILicenseProvider& LicenseService::provider() const { return *m_provider; }

ELicenseState LicenseService::state() const { return m_provider->state(); }

bool LicenseService::isLicensed() const { return state() == FullLicense; }

bool LicenseService::isTrial() const { return state() == TrialLicense; }

bool LicenseService::isUsable() const { return state() != NoLicense; }

void LicenseService::refresh() {
  const ELicenseState now = state();
  if (now == m_knownState)
    return;
  m_knownState = now;
  Q_EMIT stateChanged();
}

bool LicenseService::activate(const QString& key, QString* error) {
  const QString trimmed = key.trimmed();
  QString reason;
  bool taken = false;
  if (trimmed.isEmpty()) {
    reason = tr("Please enter a license key.");
  } else {
    taken = m_provider->activate(trimmed, &reason);
    refresh();
  }
  if (!taken && reason.isEmpty())
    reason = tr("The license key was not accepted.");
  if (!taken && error != nullptr)
    *error = reason;
  return taken;
}

bool LicenseService::confirmPaidFeature(QWidget* parent, const QString& featureName) {
  switch (state()) {
  case FullLicense:
    return true;
  case TrialLicense:
    return confirmTrialUse(parent, spokenName(featureName));
  case NoLicense:
    break;
  }
  return offerActivation(parent, spokenName(featureName));
}

bool LicenseService::confirmTrialUse(QWidget* parent, const QString& featureName) {
  const QPointer<QMessageBox> box = makePaidFeatureBox(parent);
  box->setText(tr("“%1” is a paid feature.").arg(featureName));
  box->setInformativeText(tr("Do you want to use it as part of your trial?"));
  box->setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  box->setDefaultButton(QMessageBox::Yes);
  box->setEscapeButton(QMessageBox::No);
  const int answer = box->exec();
  delete box;
  return answer == QMessageBox::Yes;
}

bool LicenseService::offerActivation(QWidget* parent, const QString& featureName) {
  const QPointer<QWidget> owner = parent;
  const QPointer<QMessageBox> box = makePaidFeatureBox(parent);
  box->setText(tr("“%1” is a paid feature.").arg(featureName));
  box->setInformativeText(tr("It needs a license. Do you want to activate one now?"));
  const QPointer<QPushButton> activateButton = box->addButton(tr("&Activate…"), QMessageBox::AcceptRole);
  activateButton->setObjectName(QStringLiteral("paid_feature_activate_button"));
  box->addButton(QMessageBox::Cancel);
  box->setDefaultButton(activateButton);
  box->setEscapeButton(QMessageBox::Cancel);
  box->exec();
  const bool wanted = box != nullptr && box->clickedButton() == activateButton;
  delete box;
  if (!wanted)
    return false;
  showLicenseDialog(owner);
  return isUsable();
}

void LicenseService::showLicenseDialog(QWidget* parent) {
  const QPointer<LicenseDialog> dialog = new LicenseDialog(*this, parent);
  dialog->exec();
  delete dialog;
}

} // namespace Vela::License
