// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/views/i_app.h>

namespace Vela::UiBase {

class BaseViewController;

/// An application that has a root view controller.
class UI_BASE_EXPORT IVCApp : public IApp {
public:
  IVCApp();
  ~IVCApp() override;

  /// The root view controller; null before it is made and after it has died. Not owned by the caller.
  virtual BaseViewController* getVC() const = 0;
};

} // namespace Vela::UiBase
