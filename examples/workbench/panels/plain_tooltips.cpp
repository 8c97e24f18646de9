// SPDX-License-Identifier: MIT
#include "plain_tooltips.h"

#include <ui_base/toolbars/tool_button.h>
#include <ui_base/tooltips/tooltip_reason.h>
#include <workbench/panels/command_tooltip.h>

#include <QCoreApplication>
#include <QHelpEvent>
#include <QMenu>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

constexpr QPoint BelowCursor(0, 18); // px

bool endsTooltip(QEvent::Type type) {
  switch (type) {
  case QEvent::Leave:
  case QEvent::Hide:
  case QEvent::Wheel:
  case QEvent::MouseButtonPress:
  case QEvent::KeyPress:
    return true;
  default:
    return false;
  }
}

bool hasOwnTooltip(const QWidget& widget) {
  const auto* const button = qobject_cast<const ToolButton*>(&widget);
  return (button && button->GetTooltipObject()) || qobject_cast<const QMenu*>(&widget);
}

} // namespace

PlainTooltips::PlainTooltips(QObject* parent) : QObject(parent), m_tooltip(CommandTooltips) {
  QCoreApplication::instance()->installEventFilter(this);
}

bool PlainTooltips::eventFilter(QObject* watched, QEvent* event) {
  if (m_widget && watched == m_widget && endsTooltip(event->type())) {
    m_widget.clear();
    m_tooltip.HideTooltip();
  }
  if (event->type() != QEvent::ToolTip)
    return false;
  auto* const widget = qobject_cast<QWidget*>(watched);
  return widget && show(*widget, static_cast<QHelpEvent*>(event)->globalPos());
}

bool PlainTooltips::show(QWidget& widget, const QPoint& position) {
  const QString text = TooltipReason::composed(widget.toolTip(), TooltipReason::of(widget));
  if (text.isEmpty() || hasOwnTooltip(widget))
    return false;
  m_widget = &widget;
  m_tooltip.UpdateText(text);
  m_tooltip.Show(position + BelowCursor, true, ShowForDuration);
  return true;
}

} // namespace Workbench
