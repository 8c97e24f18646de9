// SPDX-License-Identifier: MIT
#include "notification_button.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>

namespace Vela::UiBase {

namespace {

constexpr int Height = 26;
constexpr int TextPadding = 10;
constexpr double Radius = 5.0;

QColor withAlpha(QColor color, int alpha) {
  color.setAlpha(alpha);
  return color;
}

} // namespace

NotificationButton::NotificationButton(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
  setCursor(Qt::ArrowCursor);
}

void NotificationButton::setColor(const QColor& color) {
  m_color = color;
  update();
}

QFont NotificationButton::labelFont() const {
  QFont result = font();
  result.setWeight(QFont::DemiBold);
  return result;
}

QSize NotificationButton::sizeHint() const {
  if (text().isEmpty())
    return {Height, Height};
  const QFontMetrics metrics(labelFont());
  return {metrics.size(Qt::TextShowMnemonic, text()).width() + 2 * TextPadding,
          qMax(Height, metrics.height() + 6)};
}

void NotificationButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    click();
  else if (event->key() == Qt::Key_Escape)
    event->ignore();
  else
    QAbstractButton::keyPressEvent(event);
}

void NotificationButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF frame = QRectF(rect()).adjusted(1, 1, -1, -1);
  if (isDown() || underMouse()) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(withAlpha(m_color, isDown() ? 60 : 30));
    painter.drawRoundedRect(frame, Radius, Radius);
  }
  if (hasFocus()) {
    painter.setPen(QPen(m_color, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(frame.adjusted(0.5, 0.5, -0.5, -0.5), Radius, Radius);
  }
  if (text().isEmpty()) {
    paintCross(painter);
    return;
  }
  painter.setFont(labelFont());
  painter.setPen(m_color);
  painter.drawText(rect(), int(Qt::AlignCenter | Qt::TextShowMnemonic), text());
}

void NotificationButton::paintCross(QPainter& painter) const {
  const bool lively = isDown() || underMouse() || hasFocus();
  painter.setPen(QPen(withAlpha(m_color, lively ? 255 : 170), 1.6, Qt::SolidLine, Qt::RoundCap));
  const QPointF centre = QRectF(rect()).center();
  constexpr double arm = 4.0;
  painter.drawLine(centre - QPointF(arm, arm), centre + QPointF(arm, arm));
  painter.drawLine(centre - QPointF(arm, -arm), centre + QPointF(arm, -arm));
}

} // namespace Vela::UiBase
