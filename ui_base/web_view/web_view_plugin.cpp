// SPDX-License-Identifier: MIT
#include "web_view_plugin.h"

#include "web_info_view.h"

namespace Vela::UiBase {

InfoView* WebViewPlugin::CreateView(QWidget* parent) { return new WebInfoView(parent); }

} // namespace Vela::UiBase
