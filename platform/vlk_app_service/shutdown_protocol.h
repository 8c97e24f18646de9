// SPDX-License-Identifier: MIT
#pragma once

#include <vlk_app_service/vlk_app_service_export.h>

namespace Vela::Services {

/// What the application service asks and tells its delegates when the program is to end. The view controllers
/// of loaded views are such delegates. Called on the main thread.
class VLK_APP_SERVICE_EXPORT ShutdownProtocol {
public:
  ShutdownProtocol();
  /// Subclasses may be copied.
  ShutdownProtocol(const ShutdownProtocol&);
  ShutdownProtocol& operator=(const ShutdownProtocol&);
  virtual ~ShutdownProtocol();

  /// Whether the program may end now. One delegate that answers false keeps it running. The default is true.
  virtual bool mayShutDown();
  /// The program ends: every delegate agreed. The default does nothing.
  virtual void onShutDown();
};

} // namespace Vela::Services
