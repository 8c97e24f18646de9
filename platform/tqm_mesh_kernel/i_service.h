// SPDX-License-Identifier: MIT
#pragma once

#include <tqm_mesh_kernel/tqm_mesh_kernel_export.h>

#include <QString>

namespace Taren::Core {

/// What starting a service comes to.
enum ERcmStatus : int {
  RcmSuccess = 0,
  RcmFailure = 1,     ///< Could not start.
  RcmUnavailable = 2, ///< Something it needs is missing.
};

/// A service of the kernel: a part of the program that is started with it and ended with it. Application
/// objects are services. Kernel::registerService() owns it jointly with whoever else holds it.
///
/// @code
/// class MeshStore : public Taren::Core::IService {
///   Taren::Core::ERcmStatus Initialize() override { return open() ? RcmSuccess : RcmFailure; }
///   void Terminate() override { close(); }
///   QString ServiceName() const override { return QStringLiteral("mesh store"); }
/// };
/// @endcode
class TQM_MESH_KERNEL_EXPORT IService {
public:
  IService() = default;
  virtual ~IService();
  IService(const IService&) = delete;
  IService& operator=(const IService&) = delete;

  /// Starts the service. Called once, on the main thread. A status other than success ends the start of the
  /// kernel; the service itself is then not terminated.
  virtual ERcmStatus Initialize() = 0;
  /// Ends the service; called once if Initialize() succeeded. The default does nothing.
  virtual void Terminate();
  /// The name the service goes by in logs and waypoints.
  virtual QString ServiceName() const = 0;
};

} // namespace Taren::Core
