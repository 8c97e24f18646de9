// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QObject>

namespace Vela::UiBase {

/// A developer's aid: tells which widget lies under the mouse. Connect its slot to a shortcut.
///
/// @code
/// auto* debugger = new Vela::UiBase::QtUiDebugger(window);
/// connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_I), window), &QShortcut::activated,
///         debugger, &Vela::UiBase::QtUiDebugger::DumpWidgetUnderMouse);
/// @endcode
class UI_BASE_EXPORT QtUiDebugger : public QObject {
  Q_OBJECT

public:
  /// Watches nothing until it is enabled.
  explicit QtUiDebugger(QObject* parent = nullptr);
  ~QtUiDebugger() override;

public Q_SLOTS:
  /// Shows class and object name of the widget under the mouse and of its parent in a modal message box, and
  /// returns when the box is closed. Does nothing when no widget of the application is there.
  virtual void DumpWidgetUnderMouse();
};

} // namespace Vela::UiBase
