// SPDX-License-Identifier: MIT
#include "tooltip_text.h"

#include <ui_base/tooltips/a_tooltip_ex.h>

#include <QLabel>
#include <QTextDocumentFragment>

namespace Vela::UiBase {

namespace {

constexpr int LINE_WIDTH = 320;

} // namespace

QString TooltipText::plain(const QString& text) {
  return Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText().trimmed() : text;
}

void TooltipText::setWrapped(QLabel* label, const QString& text) {
  label->setText(text);
  label->setWordWrap(false);
  label->setMinimumWidth(0);
  label->setMaximumWidth(QWIDGETSIZE_MAX);
  if (label->sizeHint().width() <= LINE_WIDTH)
    return;
  label->setWordWrap(true);
  label->setFixedWidth(LINE_WIDTH);
}

QString TooltipText::read(const QWidget* content) {
  if (const auto* const tooltip = qobject_cast<const ATooltipEx*>(content))
    return tooltip->AccessibleText();
  const auto* label = qobject_cast<const QLabel*>(content);
  if (!label)
    label = content->findChild<const QLabel*>();
  return label ? plain(label->text()) : QString();
}

void TooltipText::write(QWidget* content, const QString& text) {
  if (auto* const tooltip = qobject_cast<ATooltipEx*>(content)) {
    tooltip->SetText(text);
    return;
  }
  auto* label = qobject_cast<QLabel*>(content);
  if (!label)
    label = content->findChild<QLabel*>();
  if (label)
    label->setText(text);
}

} // namespace Vela::UiBase
