// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/info_view_plugin.h>

#include <QObject>

namespace Vela::UiBase {

/// Makes information panels draw with Qt WebEngine.
class WebViewPlugin : public QObject, public InfoViewPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID VELA_INFO_VIEW_PLUGIN_IID FILE "web_view_plugin.json")
  Q_INTERFACES(Vela::UiBase::InfoViewPlugin)

public:
  InfoView* CreateView(QWidget* parent) override;
};

} // namespace Vela::UiBase
