// SPDX-License-Identifier: MIT
#include "i_license_provider.h"

#include <QGuiApplication>

namespace Vela::License {

ILicenseProvider::~ILicenseProvider() = default;

int ILicenseProvider::trialDaysLeft() const { return -1; }

QString ILicenseProvider::productName() const { return QGuiApplication::applicationDisplayName(); }

QUrl ILicenseProvider::productPage() const { return {}; }

} // namespace Vela::License
