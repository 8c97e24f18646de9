// SPDX-License-Identifier: MIT
#include "sub_widgets.h"

#include <ui_base/popups/placement.h>

#include <QApplication>
#include <QVariant>
#include <QWidget>

namespace Vela::UiBase {

QMargins SubWidgets::takenBeside(const QWidget* content) {
  QMargins taken;
  const auto listed = content ? content->property("sub_widgets").value<QList<QWidget*>>() : QList<QWidget*>();
  if (listed.isEmpty())
    return taken;
  // The list does not tell which of them have died.
  const QWidgetList alive = QApplication::allWidgets();
  for (const QWidget* const widget : listed)
    if (alive.contains(widget) && widget->isVisible())
      Placement::addSideWidget(taken, widget->property("direction_to").toInt(), widget->size());
  return taken;
}

} // namespace Vela::UiBase
