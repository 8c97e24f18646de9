// SPDX-License-Identifier: MIT
#include "present_view_protocol.h"

namespace Vela::UiBase {

PresentViewProtocol::PresentViewProtocol() = default;
PresentViewProtocol::PresentViewProtocol(const PresentViewProtocol&) = default;
PresentViewProtocol& PresentViewProtocol::operator=(const PresentViewProtocol&) = default;
PresentViewProtocol::~PresentViewProtocol() = default;

bool PresentViewProtocol::presentViewController(BaseViewController*, ETransitionDirection) { return false; }
bool PresentViewProtocol::dismissViewController() { return false; }

} // namespace Vela::UiBase

template class Taren::Core::Broadcaster<Vela::UiBase::PresentViewProtocol>;
template class Taren::Core::Delegator<Vela::UiBase::PresentViewProtocol>;
