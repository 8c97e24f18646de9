// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QStringList>

#include <memory>

class QPoint;
class QWidget;

namespace Vela::UiBase {

class CmdMgr;
class CommandBase;
class ContextHolder;

/// What a CommandInspector shows, gathered afresh each time it looks: rows of texts, which keep nothing
/// alive.
namespace InspectorSections {

using Managers = QList<std::shared_ptr<CmdMgr>>;
using Rows = QList<QStringList>;

/// A widget by its class and, where it has one, its object name.
QString nameOf(const QWidget* widget);
/// Who holds a layer of contexts.
QString holderText(const ContextHolder& holder);
/// A manager by its view.
QString nameOf(const CmdMgr& manager);

/// Manager, height, holder, how it ends, and the commands that it names.
QStringList layerTitles();
Rows layers(const Managers& managers);
/// Manager, button, tool, and its state; the top of each stack last.
QStringList toolTitles();
Rows tools(const Managers& managers);
/// Base view, view, presenter, and whether it is in front; from back to front.
QStringList viewTitles();
Rows views();
/// Bars with their places, then what buttons host; and the groups of the managers.
QStringList barTitles();
Rows bars(const Managers& managers);

/// What is known of a command: how it stands and why, its groups, and where it is shown.
QStringList describe(const CommandBase& command);
/// A widget, where it stands, and by what it is placed: a bar, the button that hosts it, a layout.
QStringList describe(QWidget& widget);
/// The command that is shown at a point of a widget, or null: of a button or a menu entry.
CommandBase* commandAt(QWidget& widget, const QPoint& at);

} // namespace InspectorSections
} // namespace Vela::UiBase
