// SPDX-License-Identifier: MIT
#pragma once

namespace Vela::License {

/// What a user may do with the product.
enum ELicenseState : int {
  NoLicense = 0,    ///< Paid features are locked.
  TrialLicense = 1, ///< Paid features may be tried.
  FullLicense = 2,  ///< Everything is free to use.
};

} // namespace Vela::License
