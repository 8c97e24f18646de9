// SPDX-License-Identifier: MIT
#include "notification_label.h"

#include <ui_base/notifications/notification_look.h>

#include <QEvent>
#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace Vela::UiBase {

using namespace NotificationMetrics;

namespace {

constexpr int VerticalPadding = 3;

} // namespace

NotificationLabel::NotificationLabel(QWidget* parent) : QWidget(parent) {
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

void NotificationLabel::setText(const QString& text) {
  m_text = text;
  m_text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  setAccessibleName(m_text);
  updateToolTip();
  updateGeometry();
  update();
}

void NotificationLabel::setTextColor(const QColor& color) {
  m_color = color;
  update();
}

NotificationLabel::Lines NotificationLabel::brokenInto(int width) const {
  const int lineWidth = std::max(width, 1);
  QString text = m_text;
  text.replace(QLatin1Char('\n'), QChar::LineSeparator);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  QTextLayout layout(text, font());
  layout.setTextOption(option);

  Lines lines;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(lineWidth);
    lines.width = std::max(lines.width, double(line.naturalTextWidth()));
    if (lines.texts.size() == MaximumLines) {
      QString& last = lines.texts.back();
      last = fontMetrics().elidedText(last.trimmed() + QChar(0x2026), Qt::ElideRight, lineWidth);
      lines.elided = true;
      break;
    }
    lines.texts.push_back(text.mid(line.textStart(), line.textLength()).remove(QChar::LineSeparator));
  }
  layout.endLayout();
  return lines;
}

bool NotificationLabel::isElided() const { return brokenInto(width()).elided; }

QSize NotificationLabel::sizeHint() const {
  // As the lines are broken: what font metrics tell differs by up to some pixels.
  const int natural = static_cast<int>(std::ceil(brokenInto(MaximumTextWidth).width)) + 1;
  const int width = std::min(natural, MaximumTextWidth);
  return {width, heightForWidth(width)};
}

QSize NotificationLabel::minimumSizeHint() const {
  return {std::min(sizeHint().width(), MinimumTextWidth), fontMetrics().height()};
}

int NotificationLabel::heightForWidth(int width) const {
  const auto lines = std::max<std::size_t>(1, brokenInto(width).texts.size());
  return static_cast<int>(lines - 1) * fontMetrics().lineSpacing() + fontMetrics().height() +
         2 * VerticalPadding;
}

void NotificationLabel::paintEvent(QPaintEvent*) {
  const std::vector<QString> lines = brokenInto(width()).texts;
  QPainter painter(this);
  painter.setPen(m_color.isValid() ? m_color : palette().color(QPalette::WindowText));
  const QFontMetrics metrics = fontMetrics();
  const int used = (static_cast<int>(lines.size()) - 1) * metrics.lineSpacing() + metrics.height();
  int top = std::max(0, (height() - used) / 2);
  for (const QString& line : lines) {
    painter.drawText(QRect(0, top, width(), metrics.height()), int(Qt::AlignLeading | Qt::AlignVCenter),
                     line);
    top += metrics.lineSpacing();
  }
}

void NotificationLabel::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  updateToolTip();
}

void NotificationLabel::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange)
    updateToolTip();
}

void NotificationLabel::updateToolTip() {
  setToolTip(isElided() ? m_text.toHtmlEscaped().prepend(QLatin1String("<span>")) + QLatin1String("</span>")
                        : QString());
}

} // namespace Vela::UiBase
