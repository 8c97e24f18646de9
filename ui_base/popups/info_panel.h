// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QUrl>
#include <QWidget>

#include <memory>

namespace Vela::UiBase {

class InfoPanelPrivate;

/// Shows rich content: HTML with tables and pictures, in the colours of the palette, which it follows.
///
/// Where the web view plugin is installed the content is shown by a browser engine, which is loaded when the
/// first panel is shown; elsewhere by a QTextBrowser. Content that is to look the same in both keeps to what
/// Qt's rich text knows and gives drawings as pictures: an SVG chart goes into an `<img>` with a qrc: or
/// data: address, see Image(). Scripts do not run.
///
/// Nothing is loaded from the network. Links to the web and to mail addresses open in the programs of the
/// desktop, links within the page scroll, others do nothing. Text can be selected and copied, and scrolled
/// with the keyboard.
///
/// @code
/// auto* panel = new InfoPanel(tr("Mesh"), view);
/// panel->SetHtml(QStringLiteral("<table><tr><th>Triangles<td>69 451</table>") + InfoPanel::Image(chartSvg));
/// @endcode
class UI_BASE_EXPORT InfoPanel : public QWidget {
  Q_OBJECT

public:
  /// Without title.
  explicit InfoPanel(QWidget* parent = nullptr);
  /// With a title, which is also its accessible name.
  explicit InfoPanel(const QString& title, QWidget* parent = nullptr);
  ~InfoPanel() override;

  /// Shown above the content when it is not empty; also the accessible name.
  QString Title() const;
  /// See Title().
  void SetTitle(const QString& title);

  /// Shows HTML, a whole page or a part of one.
  /// @param baseUrl a qrc: or file: address that relative ones in the content are relative to.
  void SetHtml(const QString& html, const QUrl& baseUrl = {});
  /// Shows a page from a resource (qrc:) or a local file, in UTF-8. One that cannot be read leaves the panel
  /// empty, and loaded() says so.
  void SetSource(const QUrl& url);
  /// The address given last; empty after SetHtml().
  QUrl Source() const;

  /// A paragraph with this SVG drawing in it, sharp on any screen.
  static QString Image(const QByteArray& svg);

  /// Whether a plugin shows the content; false until the panel is shown for the first time.
  bool IsWebView() const;

  QSize sizeHint() const override;

Q_SIGNALS:
  /// The content given last is shown, or could not be read. Comes after the panel was shown.
  void loaded(bool ok);

protected:
  void showEvent(QShowEvent* event) override;

private:
  const std::unique_ptr<InfoPanelPrivate> d;
};

} // namespace Vela::UiBase
