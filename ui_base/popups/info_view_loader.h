// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace Vela::UiBase {

class InfoView;

/// A view of the first plugin that fits, or null when there is none; owned by `parent`. Plugins are looked
/// for in the folders of the environment variable VLK_PLUGIN_PATH where it is set, else beside the library in
/// vlk_ui_base/plugins.
InfoView* createPluginView(QWidget* parent);

} // namespace Vela::UiBase
