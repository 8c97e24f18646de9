// SPDX-License-Identifier: MIT
#include "info_panel.h"

#include "info_view_loader.h"
#include "leading_label.h"
#include "local_page.h"
#include "text_info_view.h"

#include <ui_base/core/language.h>
#include <vlk_common_res/styles.h>

#include <QDesktopServices>
#include <QLabel>
#include <QVBoxLayout>

namespace Vela::UiBase {

using Resource::Styles;

namespace {

constexpr int titleSpacing = 10; // px between title and content

void openOutside(const QUrl& url) {
  const QString scheme = url.scheme();
  if (scheme == QLatin1String("http") || scheme == QLatin1String("https") ||
      scheme == QLatin1String("mailto"))
    QDesktopServices::openUrl(url);
}

} // namespace

class InfoPanelPrivate {
public:
  explicit InfoPanelPrivate(InfoPanel* owner) : q(owner) {}

  void use(InfoView* newView);
  void present();
  void read();
  void applyStyles();

  InfoPanel* const q;
  QLabel* title = nullptr;
  InfoView* view = nullptr; // made when the panel is shown
  QString html;
  QUrl base;
  QUrl source;
  bool readable = true;
  bool announces = false; // the next loaded() of the view is of new content
};

void InfoPanelPrivate::use(InfoView* newView) {
  const bool hadFocus = view && view->focusWidget() && view->focusWidget()->hasFocus();
  if (view) {
    view->disconnect(q);
    view->hide();
    view->deleteLater();
  }
  view = newView;
  q->layout()->addWidget(view);
  q->setFocusProxy(view);
  view->show();
  if (hadFocus)
    view->setFocus();
  QObject::connect(view, &InfoView::linkActivated, q, openOutside);
  QObject::connect(view, &InfoView::loaded, q, [this](bool ok) {
    if (std::exchange(announces, false))
      Q_EMIT q->loaded(ok && readable);
  });
  QObject::connect(view, &InfoView::failed, q, [this] {
    if (qobject_cast<TextInfoView*>(view))
      return;
    use(new TextInfoView(q));
    present();
  });
}

void InfoPanelPrivate::present() {
  if (!view)
    return;
  view->setAccessibleName(q->accessibleName());
  view->SetContent(styledPage(html), base);
}

void InfoPanelPrivate::read() {
  const std::optional<QByteArray> page = readLocal(source);
  readable = page.has_value();
  html = QString::fromUtf8(page.value_or(QByteArray()));
  base = source;
}

void InfoPanelPrivate::applyStyles() {
  const Styles& styles = Styles::Instance();
  q->setPalette(styles.widgetPalette());
  title->setFont(styles.FontTitle());
  QPalette palette = styles.widgetPalette();
  palette.setColor(QPalette::WindowText, styles.ColorTextTitle());
  title->setPalette(palette);
  present();
}

InfoPanel::InfoPanel(QWidget* parent) : QWidget(parent), d(std::make_unique<InfoPanelPrivate>(this)) {
  d->title = new LeadingLabel(this);
  d->title->setObjectName(QStringLiteral("title_label"));
  d->title->setTextFormat(Qt::PlainText);
  d->title->hide();
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(titleSpacing);
  column->addWidget(d->title);
  keepTranslated(this, [this] {
    if (Title().isEmpty())
      setAccessibleName(tr("Information"));
  });
  setFocusPolicy(Qt::StrongFocus); // until there is a view that it can hand the focus to
  d->applyStyles();
  connect(&Styles::Instance(), &Styles::changed, this, [this] { d->applyStyles(); });
}

InfoPanel::InfoPanel(const QString& title, QWidget* parent) : InfoPanel(parent) { SetTitle(title); }

InfoPanel::~InfoPanel() = default;

QString InfoPanel::Title() const { return d->title->text(); }

void InfoPanel::SetTitle(const QString& title) {
  d->title->setText(title);
  d->title->setVisible(!title.isEmpty());
  setAccessibleName(title.isEmpty() ? tr("Information") : title);
}

void InfoPanel::SetHtml(const QString& html, const QUrl& baseUrl) {
  d->html = html;
  d->base = baseUrl;
  d->source.clear();
  d->readable = true;
  d->announces = true;
  d->present();
}

void InfoPanel::SetSource(const QUrl& url) {
  d->source = url;
  d->read();
  d->announces = true;
  d->present();
}

QUrl InfoPanel::Source() const { return d->source; }

QString InfoPanel::Image(const QByteArray& svg) {
  return QStringLiteral("<p><img src=\"data:image/svg+xml;base64,%1\"></p>")
      .arg(QString::fromLatin1(svg.toBase64()));
}

bool InfoPanel::IsWebView() const { return d->view && !qobject_cast<TextInfoView*>(d->view); }

QSize InfoPanel::sizeHint() const { return {420, 320}; }

void InfoPanel::showEvent(QShowEvent*) {
  if (d->view)
    return;
  InfoView* const fromPlugin = createPluginView(this);
  d->use(fromPlugin ? fromPlugin : new TextInfoView(this));
  d->present();
}

} // namespace Vela::UiBase
