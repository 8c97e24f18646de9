// SPDX-License-Identifier: MIT
#pragma once

#include <QtPlugin>

class QWidget;

namespace Vela::UiBase {

class InfoView;

/// What a plugin implements that brings another view for information panels. It is loaded when the first
/// panel is shown, and never when no panel is.
///
/// The identifier of the interface carries its version: a plugin made for another is passed over. What the
/// plugin needs of the process is written in its metadata, so that it is known before anything is loaded:
/// "SharedOpenGLContexts" (Qt::AA_ShareOpenGLContexts was set before the application object was made) and
/// "Sandbox" (the process is not root's, or QTWEBENGINE_DISABLE_SANDBOX=1 is in its environment).
///
/// @code
/// class MyViewPlugin : public QObject, public InfoViewPlugin {
///   Q_OBJECT
///   Q_PLUGIN_METADATA(IID VELA_INFO_VIEW_PLUGIN_IID FILE "my_view_plugin.json") // { "Needs": ["Sandbox"] }
///   Q_INTERFACES(Vela::UiBase::InfoViewPlugin)
///
/// public:
///   InfoView* CreateView(QWidget* parent) override { return new MyView(parent); }
/// };
/// @endcode
class InfoViewPlugin {
public:
  virtual ~InfoViewPlugin() = default;

  /// A new view, owned by `parent`; null when it cannot be made.
  virtual InfoView* CreateView(QWidget* parent) = 0;
};

} // namespace Vela::UiBase

#define VELA_INFO_VIEW_PLUGIN_IID "Vela.UiBase.InfoViewPlugin/1"
Q_DECLARE_INTERFACE(Vela::UiBase::InfoViewPlugin, VELA_INFO_VIEW_PLUGIN_IID)
