// SPDX-License-Identifier: MIT
#pragma once

#include <tqm_mesh_kernel/i_service.h>
#include <ui_base/ui_base_export.h>

namespace Vela::UiBase {

/// An application: the top object of a program, a service that the kernel starts first and ends last. An
/// application class derives from TabbedApp, which holds a root view controller, or from CommandApp, which is
/// driven by commands; see there for examples.
class UI_BASE_EXPORT IApp : public Taren::Core::IService {
public:
  IApp();
  ~IApp() override;
};

} // namespace Vela::UiBase
