// SPDX-License-Identifier: MIT
#include "qt_ui_debugger.h"

#include <QApplication>
#include <QCursor>
#include <QMessageBox>
#include <QStringList>
#include <QWidget>

namespace Vela::UiBase {

QtUiDebugger::QtUiDebugger(QObject* parent) : QObject(parent) {}

QtUiDebugger::~QtUiDebugger() = default;

void QtUiDebugger::DumpWidgetUnderMouse() {
  const QWidget* widget = QApplication::widgetAt(QCursor::pos());
  if (!widget)
    return;
  QStringList lines;
  lines << tr("Class: %1").arg(QLatin1String(widget->metaObject()->className()));
  lines << tr("Name: %1").arg(widget->objectName());
  if (const QObject* parent = widget->parent()) {
    lines << tr("Parent Class: %1").arg(QLatin1String(parent->metaObject()->className()));
    lines << tr("Parent Name: %1").arg(parent->objectName());
  }
  QMessageBox box(QMessageBox::Information, tr("Widget Info"), lines.join(QLatin1Char('\n')),
                  QMessageBox::NoButton, nullptr, Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint);
  // Class names of templates look like markup.
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

} // namespace Vela::UiBase
