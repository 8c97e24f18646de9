// SPDX-License-Identifier: MIT
#include "dialog_message.h"

#include <ui_base/core/language.h>
#include <vlk_common_res/icons.h>
#include <vlk_common_res/styles.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QToolButton>

namespace Vela::UiBase {

using Resource::Icons;
using Resource::Styles;

namespace {

constexpr int markSize = 32;       // px
constexpr int textWidth = 340;     // px, at least
constexpr int detailsHeight = 140; // px
constexpr int markSpacing = 16;    // px between the mark and the text
constexpr int textSpacing = 8;     // px between the texts

QLabel* makeLabel(const QString& name, QWidget* parent) {
  auto* const label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setWordWrap(true);
  label->setMinimumWidth(textWidth);
  return label;
}

QIcon iconOf(EDialogSeverity severity) {
  switch (severity) {
  case DialogInfo:
    return Icons::icon(QStringLiteral("info"));
  case DialogWarning:
    return Icons::icon(QStringLiteral("warning"));
  case DialogError:
    return Icons::icon(QStringLiteral("error"));
  case DialogPlain:
    break;
  }
  return {};
}

} // namespace

DialogMessage::DialogMessage(QWidget* parent) : QWidget(parent) {
  m_mark = new QLabel(this);
  m_mark->setObjectName(QStringLiteral("severity_label"));
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(markSpacing);
  row->addWidget(m_mark, 0, Qt::AlignTop);
  row->addLayout(textColumn(), 1);
  applyStyles();
  connect(m_unfold, &QToolButton::toggled, this, [this](bool shown) {
    updateDetails();
    Q_EMIT detailsToggled(shown);
  });
  connect(&Styles::Instance(), &Styles::changed, this, &DialogMessage::applyStyles);
}

QLayout* DialogMessage::textColumn() {
  m_text = makeLabel(QStringLiteral("text_label"), this);
  m_informative = makeLabel(QStringLiteral("informative_label"), this);
  m_informative->hide();
  m_unfold = new QToolButton(this);
  m_unfold->setObjectName(QStringLiteral("details_button"));
  m_unfold->setCheckable(true);
  m_unfold->setFocusPolicy(Qt::StrongFocus);
  m_unfold->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  m_unfold->hide();
  m_details = new QPlainTextEdit(this);
  m_details->setObjectName(QStringLiteral("details_edit"));
  keepTranslated(this, [this] {
    m_unfold->setText(tr("&Details"));
    m_details->setAccessibleName(tr("Details"));
  });
  m_details->setReadOnly(true);
  m_details->setTabChangesFocus(true);
  m_details->setMinimumHeight(detailsHeight);
  m_details->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  auto* const column = new QVBoxLayout;
  column->setSpacing(textSpacing);
  column->addWidget(m_text);
  column->addWidget(m_informative);
  column->addWidget(m_unfold, 0, Qt::AlignLeft);
  column->addWidget(m_details, 1);
  column->addStretch();
  return column;
}

void DialogMessage::applyStyles() {
  const Styles& styles = Styles::Instance();
  m_unfold->setFont(styles.FontLabel());
  m_unfold->setStyleSheet(styles.ToolButtonSystem());
  setSeverity(m_severity);
  updateDetails();
}

void DialogMessage::setSeverity(EDialogSeverity severity) {
  m_severity = severity;
  const QIcon icon = iconOf(severity);
  m_mark->setPixmap(icon.pixmap(QSize(markSize, markSize), devicePixelRatioF()));
  m_mark->setVisible(!icon.isNull());
}

QString DialogMessage::text() const { return m_text->text(); }

void DialogMessage::setText(const QString& text) { m_text->setText(text); }

QString DialogMessage::informativeText() const { return m_informative->text(); }

void DialogMessage::setInformativeText(const QString& text) {
  m_informative->setText(text);
  m_informative->setVisible(!text.isEmpty());
}

QString DialogMessage::details() const { return m_details->toPlainText(); }

void DialogMessage::setDetails(const QString& details) {
  m_details->setPlainText(details);
  m_unfold->setVisible(!details.isEmpty());
  if (details.isEmpty())
    showDetails(false);
}

bool DialogMessage::areDetailsShown() const { return m_unfold->isChecked(); }

void DialogMessage::showDetails(bool show) { m_unfold->setChecked(show && !details().isEmpty()); }

QString DialogMessage::spokenText() const {
  return informativeText().isEmpty() ? text() : text() + QLatin1Char('\n') + informativeText();
}

QString DialogMessage::wholeText() const {
  return details().isEmpty() ? spokenText() : spokenText() + QLatin1String("\n\n") + details();
}

void DialogMessage::updateDetails() {
  const bool shown = areDetailsShown();
  m_unfold->setIcon(Icons::icon(shown ? QStringLiteral("arrow_down") : QStringLiteral("arrow_right")));
  m_details->setVisible(shown);
}

} // namespace Vela::UiBase
