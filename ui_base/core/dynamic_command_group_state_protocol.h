// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/delegator.h>

namespace Vela::UiBase {

class CommandGroup;

/// Tells when a dynamic command group comes into use and goes out of use. The application's own objects
/// announce it, as Taren::Core::Delegator<DynamicCommandGroupStateProtocol>. Every callback does nothing by
/// default.
class UI_BASE_EXPORT DynamicCommandGroupStateProtocol {
public:
  DynamicCommandGroupStateProtocol();
  /// Observers may be copied.
  DynamicCommandGroupStateProtocol(const DynamicCommandGroupStateProtocol&);
  DynamicCommandGroupStateProtocol& operator=(const DynamicCommandGroupStateProtocol&);
  virtual ~DynamicCommandGroupStateProtocol();

  /// The group has come up.
  virtual void commandGroupBegan(CommandGroup* group);
  /// The group has gone.
  virtual void commandGroupEnded(CommandGroup* group);
};

} // namespace Vela::UiBase

extern template class UI_BASE_EXPORT Taren::Core::Broadcaster<Vela::UiBase::DynamicCommandGroupStateProtocol>;
extern template class UI_BASE_EXPORT Taren::Core::Delegator<Vela::UiBase::DynamicCommandGroupStateProtocol>;
