// SPDX-License-Identifier: MIT
#include "inspector_sections.h"

#include <ui_base/commands/command_name.h>
#include <ui_base/commands/command_walk.h>
#include <ui_base/toolbars/hosting_info.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/tools/interactive_tool.h>
#include <ui_base/tools/tool_stack.h>
#include <ui_base/views/base_view.h>
#include <ui_base/views/cmds_view_controller.h>

#include <QApplication>
#include <QCoreApplication>
#include <QMenu>
#include <QToolButton>

#include <cstdlib>
#include <typeinfo>
#if __has_include(<cxxabi.h>)
#include <cxxabi.h>
#endif

namespace Vela::UiBase {

namespace {

struct Sentences {
  Q_DECLARE_TR_FUNCTIONS(Vela::UiBase::CommandInspector)
};

QString textOf(const CommandContext& context) {
  QStringList names;
  for (auto entry = context.get().cbegin(); entry != context.get().cend(); ++entry) {
    QString name = entry.key();
    if (entry->enabled != State::Keep)
      name += entry->enabled == State::On ? QStringLiteral(" on") : QStringLiteral(" off");
    if (entry->checked != State::Keep)
      name += entry->checked == State::On ? QStringLiteral(" checked") : QStringLiteral(" unchecked");
    names.append(name);
  }
  return names.join(QLatin1String(", "));
}

QString textOf(EToolActivationButton button) {
  switch (button) {
  case LeftButton:
    return Sentences::tr("left");
  case RightButton:
    return Sentences::tr("right");
  case MiddleButton:
    return Sentences::tr("middle");
  default:
    return Sentences::tr("wheel");
  }
}

QString stateOf(const InteractiveTool& tool) {
  return tool.isOperating()   ? Sentences::tr("operates")
         : tool.isActive()    ? Sentences::tr("active")
         : tool.isSuspended() ? Sentences::tr("suspended")
                              : Sentences::tr("inactive");
}

// Tools are no objects of Qt, and have no meta-object that knows their class.
QString className(const InteractiveTool& tool) {
  const char* const name = typeid(tool).name();
#if __has_include(<cxxabi.h>)
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> plain(
      abi::__cxa_demangle(name, nullptr, nullptr, &status), &std::free);
  if (plain)
    return QString::fromLatin1(plain.get());
#endif
  return QString::fromLatin1(name);
}

QString textOf(const QRect& place) {
  return QStringLiteral("%1, %2  %3 × %4")
      .arg(place.x())
      .arg(place.y())
      .arg(place.width())
      .arg(place.height());
}

QString textOf(const ToolBarPlace& place) {
  const QString why = place.isFixed ? Sentences::tr("put there by the application or a layout")
                                    : Sentences::tr("at its edge");
  const QPoint at = place.onScreen();
  const QString rest = QStringLiteral("%1, %2 (%3)").arg(at.x()).arg(at.y()).arg(why);
  return place.out > 0 ? Sentences::tr("%1, %2 % slid out").arg(rest).arg(qRound(place.out * 100)) : rest;
}

QString textOf(MenuState::EPhase phase) {
  return phase == MenuState::Closed ? Sentences::tr("closed") : Sentences::tr("open");
}

template <class Widget>
QList<Widget*> all() {
  QList<Widget*> found;
  const auto widgets = QApplication::allWidgets();
  for (QWidget* const widget : widgets) {
    if (auto* const one = qobject_cast<Widget*>(widget))
      found.append(one);
  }
  return found;
}

InspectorSections::Rows rowsOfBars() {
  InspectorSections::Rows rows;
  const auto bars = all<ToolBar>();
  for (const ToolBar* const bar : bars)
    rows.append({Sentences::tr("bar"), InspectorSections::nameOf(bar), textOf(bar->Place()),
                 bar->isHidden() ? Sentences::tr("hidden") : Sentences::tr("shown")});
  return rows;
}

InspectorSections::Rows rowsOfHosting() {
  InspectorSections::Rows rows;
  const auto hosted = hostedWidgets();
  for (const HostingInfo& info : hosted)
    rows.append({Sentences::tr("menu"), info.widget,
                 Sentences::tr("of %n button(s), last of %1", nullptr, info.buttons)
                     .arg(info.turn.isEmpty() ? Sentences::tr("none") : info.turn),
                 info.command.isEmpty() ? textOf(info.phase)
                                        : QStringLiteral("%1: %2").arg(textOf(info.phase), info.command)});
  return rows;
}

} // namespace

QString InspectorSections::holderText(const ContextHolder& holder) {
  switch (holder.kind()) {
  case ContextHolder::RunningCommand:
    return Sentences::tr("%1 runs").arg(holder.commandId());
  case ContextHolder::OpenCommand:
    return Sentences::tr("%1 is open").arg(holder.commandId());
  case ContextHolder::Reason:
    return holder.reason();
  case ContextHolder::Nobody:
    break;
  }
  return Sentences::tr("not said");
}

QString InspectorSections::nameOf(const QWidget* widget) {
  if (!widget)
    return Sentences::tr("none");
  const QString type = QString::fromLatin1(widget->metaObject()->className());
  return widget->objectName().isEmpty() ? type : QStringLiteral("%1 “%2”").arg(type, widget->objectName());
}

QString InspectorSections::nameOf(const CmdMgr& manager) {
  const auto* const controller = dynamic_cast<const CmdsViewController*>(&manager);
  return controller ? nameOf(controller->getView()) : Sentences::tr("without a view");
}

QStringList InspectorSections::layerTitles() {
  return {Sentences::tr("Commands of"), Sentences::tr("Layer"), Sentences::tr("Holder"),
          Sentences::tr("Ends with"), Sentences::tr("Names")};
}

InspectorSections::Rows InspectorSections::layers(const Managers& managers) {
  Rows rows;
  for (const auto& manager : managers) {
    int height = 0;
    const auto layers = manager->layers();
    for (const ContextLayer& layer : layers)
      rows.append({nameOf(*manager), QString::number(++height), holderText(layer.holder),
                   layer.isHeld ? Sentences::tr("its hold") : QStringLiteral("popContext()"),
                   textOf(layer.asked)});
  }
  return rows;
}

QStringList InspectorSections::toolTitles() {
  return {Sentences::tr("Tools of"), Sentences::tr("Button"), Sentences::tr("Tool"), Sentences::tr("State")};
}

InspectorSections::Rows InspectorSections::tools(const Managers& managers) {
  Rows rows;
  for (const auto& manager : managers) {
    const auto* const stack = dynamic_cast<const ToolStack*>(manager.get());
    const auto tools = stack ? stack->heldTools() : QList<HeldTool>();
    for (const HeldTool& held : tools)
      rows.append({nameOf(*manager), textOf(held.button), className(*held.tool), stateOf(*held.tool)});
  }
  return rows;
}

QStringList InspectorSections::viewTitles() {
  return {Sentences::tr("Base view"), Sentences::tr("View"), Sentences::tr("Presented by"),
          Sentences::tr("Stands")};
}

InspectorSections::Rows InspectorSections::views() {
  Rows rows;
  const auto views = all<BaseView>();
  for (const BaseView* const base : views) {
    const auto order = base->presentation();
    if (order.isEmpty() || order.constFirst().view != base)
      continue;
    for (const PresentedView& presented : order)
      rows.append({nameOf(base), nameOf(presented.view), nameOf(presented.presenter),
                   presented.covered                               ? Sentences::tr("covered")
                   : presented.view && presented.view->isVisible() ? Sentences::tr("in front")
                                                                   : Sentences::tr("hidden")});
  }
  return rows;
}

QStringList InspectorSections::barTitles() {
  return {Sentences::tr("Kind"), Sentences::tr("Name"), Sentences::tr("Place"), Sentences::tr("State")};
}

InspectorSections::Rows InspectorSections::bars(const Managers& managers) {
  Rows rows = rowsOfBars() + rowsOfHosting();
  for (const auto& manager : managers) {
    visitCommands(std::as_const(*manager).commandBag(), [&](const CommandBase& command) {
      const auto* const group = dynamic_cast<const CommandGroup*>(&command);
      if (!group)
        return;
      QStringList children;
      for (int i = 0; i < group->commandBag().count(); ++i)
        children.append(group->commandBag().commandAt(i)->commandId());
      rows.append({Sentences::tr("group"), command.commandId(), children.join(QLatin1String(", ")),
                   command.isEnabled() ? Sentences::tr("enabled") : Sentences::tr("disabled")});
    });
  }
  return rows;
}

QStringList InspectorSections::describe(const CommandBase& command) {
  QStringList lines{QStringLiteral("%1 (%2)").arg(nameInSentence(command), command.commandId())};
  lines.append(command.isEnabled() ? Sentences::tr("It can be used.") : command.whyUnavailable());
  QStringList groups;
  const auto holding = command.holdingGroups();
  for (const CommandGroup* const group : holding)
    groups.append(group->commandId());
  if (!groups.isEmpty())
    lines.append(Sentences::tr("It belongs to %1.").arg(groups.join(QLatin1String(", "))));
  QStringList places;
  const auto objects = command.associatedObjects();
  for (const QObject* const object : objects) {
    const auto* const widget = qobject_cast<const QWidget*>(object);
    if (widget)
      places.append(Sentences::tr("%1 in %2").arg(nameOf(widget), nameOf(widget->parentWidget())));
  }
  if (!places.isEmpty())
    lines.append(Sentences::tr("It is shown by %1.").arg(places.join(QLatin1String(", "))));
  return lines;
}

CommandBase* InspectorSections::commandAt(QWidget& widget, const QPoint& at) {
  for (QWidget* part = &widget; part; part = part->parentWidget()) {
    QAction* action = nullptr;
    if (const auto* const menu = qobject_cast<QMenu*>(part))
      action = menu->actionAt(widget.mapTo(part, at));
    else if (const auto* const button = qobject_cast<QToolButton*>(part))
      action = button->defaultAction();
    if (auto* const command = dynamic_cast<CommandBase*>(action))
      return command;
    if (part->isWindow())
      break;
  }
  return nullptr;
}

QStringList InspectorSections::describe(QWidget& widget) {
  QStringList chain;
  for (const QWidget* part = &widget; part; part = part->isWindow() ? nullptr : part->parentWidget())
    chain.append(nameOf(part));
  QStringList lines{chain.join(QLatin1String(" < "))};
  QString place = textOf(widget.geometry());
  for (const QWidget* part = &widget; part; part = part->parentWidget()) {
    if (const auto* const bar = qobject_cast<const ToolBar*>(part)) {
      place += QStringLiteral("; ") + Sentences::tr("the bar rests at %1").arg(textOf(bar->Place()));
      break;
    }
  }
  lines.append(place);
  const auto hosted = hostedWidgets();
  for (const HostingInfo& info : hosted) {
    for (const QWidget* part = &widget; part; part = part->parentWidget()) {
      const QString name = part->objectName().isEmpty() ? QString::fromLatin1(part->metaObject()->className())
                                                        : part->objectName();
      if (info.widget == name && info.phase != MenuState::Closed)
        lines.append(Sentences::tr("%1 opens at %2.").arg(info.widget, info.turn));
    }
  }
  return lines;
}

} // namespace Vela::UiBase
