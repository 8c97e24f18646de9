// SPDX-License-Identifier: MIT
#include "point_tips.h"

#include <QHelpEvent>
#include <QWidget>

namespace Vela::UiBase {

namespace {

constexpr QPoint belowCursor(0, 18); // px

bool endsTip(QEvent::Type type) {
  return type == QEvent::Leave || type == QEvent::Hide || type == QEvent::Wheel ||
         type == QEvent::MouseButtonPress || type == QEvent::KeyPress;
}

} // namespace

PointTips::PointTips(QWidget& widget, std::function<QString(const QPoint&)> textAt)
    : QObject(&widget), m_textAt(std::move(textAt)), m_tip(QStringLiteral("inspector")) {
  m_tip.SetTooltipLayer(widget.window());
  widget.installEventFilter(this);
}

bool PointTips::eventFilter(QObject*, QEvent* event) {
  if (endsTip(event->type()))
    m_tip.HideTooltip();
  if (event->type() != QEvent::ToolTip)
    return false;
  const auto* const help = static_cast<QHelpEvent*>(event);
  const QString text = m_textAt(help->pos());
  if (text.isEmpty()) {
    m_tip.HideTooltip();
    return true;
  }
  m_tip.SetTooltipText(QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped()));
  m_tip.Show(help->globalPos() + belowCursor, true, ShowForDuration);
  return true;
}

} // namespace Vela::UiBase
