// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tooltips/tooltip_wrapper.h>

#include <QPointer>
#include <QWidget>

namespace Workbench {

/// Shows the plain tooltips of widgets, those that have only a text, in the window that all other tooltips of
/// the workbench have. For all windows of the program.
class PlainTooltips : public QObject {
  Q_OBJECT

public:
  explicit PlainTooltips(QObject* parent);

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  bool show(QWidget& widget, const QPoint& position);

  Vela::UiBase::TooltipWrapper m_tooltip;
  QPointer<QWidget> m_widget; // of what is shown
};

} // namespace Workbench
