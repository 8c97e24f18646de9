// SPDX-License-Identifier: MIT
#include "view_hint.h"

#include <ui_base/views/qt_ui_toolkit.h>

#include <QIcon>
#include <QPainter>
#include <QWidget>

namespace Workbench {
namespace {

constexpr int IconSize = 56; // px
constexpr int Spacing = 14;  // px

} // namespace

void paintHint(QPainter& painter, const QWidget& view, const QRect& area, const ViewHint& hint) {
  QFont titleFont = view.font();
  titleFont.setPixelSize(qRound(QFontInfo(titleFont).pixelSize() * 1.4));
  const QRect title(area.left(), area.center().y(), area.width(), QFontMetrics(titleFont).height());
  const QRect icon(area.center().x() - IconSize / 2, title.top() - IconSize - Spacing, IconSize, IconSize);
  painter.setOpacity(0.6);
  Vela::UiBase::QtUiToolkit::Instance().CreateIcon(hint.icon).paint(&painter, icon);
  painter.setOpacity(1);
  painter.setPen(view.palette().color(QPalette::WindowText));
  painter.setFont(titleFont);
  painter.drawText(title, Qt::AlignCenter, hint.title);
  painter.setFont(view.font());
  painter.setOpacity(0.8); // still 4.5 : 1
  painter.drawText(title.translated(0, title.height() + Spacing / 2), Qt::AlignCenter, hint.details);
  painter.setOpacity(1);
}

void paintDropHighlight(QPainter& painter, const QWidget& view, const QRect& area) {
  painter.setRenderHint(QPainter::Antialiasing);
  QColor color = view.palette().color(QPalette::Highlight);
  painter.setPen(QPen(color, 3));
  color.setAlpha(28);
  painter.setBrush(color);
  painter.drawRoundedRect(QRectF(area).adjusted(8, 8, -8, -8), 8, 8);
}

} // namespace Workbench
