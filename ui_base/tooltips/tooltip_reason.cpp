// SPDX-License-Identifier: MIT
#include "tooltip_reason.h"

#include "tooltip_reason_news.h"

#include <QAction>
#include <QTextDocument>
#include <QToolButton>

namespace Vela::UiBase {

namespace {

TooltipReason::Source& theSource() {
  static TooltipReason::Source source;
  return source;
}

const QAction* actionOf(const QWidget& widget) {
  if (const auto* const button = qobject_cast<const QToolButton*>(&widget))
    return button->defaultAction();
  const QList<QAction*> actions = widget.actions();
  return actions.size() == 1 ? actions.constFirst() : nullptr;
}

} // namespace

void TooltipReason::setSource(Source source) { theSource() = std::move(source); }

TooltipReason::Source TooltipReason::source() {
  return theSource() ? theSource() : [](const QAction&) { return QString(); };
}

QString TooltipReason::of(const QAction& action) { return source()(action); }

QString TooltipReason::of(const QWidget& widget) {
  const QAction* const action = widget.isEnabled() ? nullptr : actionOf(widget);
  return action ? of(*action) : QString();
}

void TooltipReason::refresh() { TooltipReasonNews::Instance().post(); }

QString TooltipReason::composed(const QString& text, const QString& reason) {
  if (text.isEmpty() || reason.isEmpty())
    return text + reason;
  return Qt::mightBeRichText(text) ? text + QStringLiteral("<p>%1</p>").arg(reason.toHtmlEscaped())
                                   : text + QLatin1Char('\n') + reason;
}

} // namespace Vela::UiBase
