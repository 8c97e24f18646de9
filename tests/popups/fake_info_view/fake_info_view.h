// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/info_view.h>
#include <ui_base/popups/info_view_plugin.h>

#include <QObject>

/// Shows nothing, keeps what it was given in the property "content", and fails at content that says so.
class FakeInfoView : public Vela::UiBase::InfoView {
  Q_OBJECT

public:
  using InfoView::InfoView;
  void SetContent(const QString& html, const QUrl& baseUrl) override;
};

class FakeInfoViewPlugin : public QObject, public Vela::UiBase::InfoViewPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID VELA_INFO_VIEW_PLUGIN_IID FILE "fake_info_view.json")
  Q_INTERFACES(Vela::UiBase::InfoViewPlugin)

public:
  Vela::UiBase::InfoView* CreateView(QWidget* parent) override { return new FakeInfoView(parent); }
};
