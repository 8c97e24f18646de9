// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QUrl>
#include <QWidget>

namespace Vela::UiBase {

/// What an InfoPanel shows its content in: a text browser, or what an InfoViewPlugin makes.
///
/// A view shows what it is given, lets it be scrolled and selected with mouse and keyboard, and follows its
/// palette with what the content leaves free. It opens no links and loads nothing but resources and local
/// files.
class UI_BASE_EXPORT InfoView : public QWidget {
  Q_OBJECT

public:
  /// Made by a plugin, as a child of the panel.
  explicit InfoView(QWidget* parent = nullptr);
  ~InfoView() override;

  /// Shows a whole HTML page. Emits loaded() when it stands, also before this returns.
  /// @param baseUrl what relative addresses in it are relative to.
  virtual void SetContent(const QString& html, const QUrl& baseUrl) = 0;

Q_SIGNALS:
  /// A page has been loaded, or could not be.
  void loaded(bool ok);
  /// The user wants to follow a link that leads out of the page.
  void linkActivated(const QUrl& url);
  /// The view cannot show its content, now or ever; the panel puts another in its place.
  void failed();
};

} // namespace Vela::UiBase
