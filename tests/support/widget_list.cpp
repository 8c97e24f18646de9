// SPDX-License-Identifier: MIT
#include "widget_list.h"

#include "test_case.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace Vela::Test {

namespace {

QString placeOf(const QRect& place) {
  return QStringLiteral("%1,%2 %3x%4").arg(place.x()).arg(place.y()).arg(place.width()).arg(place.height());
}

template <typename Enum>
QString nameOf(Enum value) {
  return QLatin1String(QMetaEnum::fromType<Enum>().valueToKey(value));
}

QStringList forReaders(const QAccessibleInterface& reader) {
  const QAccessible::State state = reader.state();
  const std::pair<bool, const char*> flags[] = {
      {state.disabled, "disabled"},   {state.focusable, "focusable"}, {state.focused, "focused"},
      {state.checkable, "checkable"}, {state.checked, "checked"},     {state.pressed, "pressed"},
      {state.hasPopup, "has popup"},  {state.expanded, "expanded"},   {state.readOnly, "read only"},
      {state.invisible, "invisible"}, {state.modal, "modal"},         {state.defaultButton, "default"}};
  QStringList facts;
  if (reader.role() != QAccessible::Client)
    facts += nameOf(reader.role());
  for (const auto& [isSet, name] : flags) {
    if (isSet)
      facts += QLatin1String(name);
  }
  for (const QAccessible::Text kind : {QAccessible::Name, QAccessible::Description, QAccessible::Value}) {
    const QString text = reader.text(kind).left(100).replace(QLatin1Char('\n'), QLatin1Char('/'));
    if (!text.isEmpty())
      facts += QLatin1Char('"') + text + QLatin1Char('"');
  }
  return facts;
}

QStringList forMouseAndKeys(const QWidget& widget) {
  const std::pair<Qt::WidgetAttribute, const char*> attributes[] = {
      {Qt::WA_TransparentForMouseEvents, "lets the mouse through"},
      {Qt::WA_NoMousePropagation, "keeps the mouse"},
      {Qt::WA_Hover, "hovers"},
      {Qt::WA_TranslucentBackground, "translucent"},
      {Qt::WA_ShowWithoutActivating, "does not activate"},
      {Qt::WA_RightToLeft, "mirrored"},
      {Qt::WA_DeleteOnClose, "dies when closed"}};
  QStringList facts;
  if (widget.focusPolicy() != Qt::NoFocus)
    facts += nameOf(widget.focusPolicy());
  if (widget.testAttribute(Qt::WA_SetCursor))
    facts += nameOf(widget.cursor().shape());
  for (const auto& [attribute, name] : attributes) {
    if (widget.testAttribute(attribute))
      facts += QLatin1String(name);
  }
  return facts;
}

/// What is the widget's own: its window, texts, sizes, font, colours, style and actions.
QStringList ofItsOwn(const QWidget& widget) {
  const QSize most(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
  const QPalette& palette = widget.palette();
  const QByteArray style = widget.styleSheet().toUtf8();
  const std::tuple<bool, const char*, QString> own[] = {
      {widget.isActiveWindow() && widget.isWindow(), "active", {}},
      {widget.isWindow(), "title", widget.windowTitle()},
      {widget.isWindow(), "flags", QString::number(widget.windowFlags(), 16)},
      {widget.windowOpacity() != 1, "translucent", {}},
      {!widget.toolTip().isEmpty(), "tip",
       widget.toolTip().left(60).replace(QLatin1Char('\n'), QLatin1Char('/'))},
      {!widget.minimumSize().isNull(), "min", QDebug::toString(widget.minimumSize())},
      {widget.maximumSize() != most, "max", QDebug::toString(widget.maximumSize())},
      {widget.testAttribute(Qt::WA_SetFont), "font", widget.font().toString()},
      {widget.testAttribute(Qt::WA_SetPalette), "colours",
       palette.window().color().name() + palette.windowText().color().name()},
      {!style.isEmpty(), "style", QString::number(qChecksum(style), 16)}};
  QStringList facts;
  for (const auto& [isOwn, name, value] : own) {
    if (isOwn)
      facts += QLatin1String(name) + (value.isEmpty() ? value : QLatin1Char(' ') + value);
  }
  const QList<QAction*> actions = widget.actions();
  for (const QAction* const action : actions)
    facts += QStringLiteral("<%1%2%3%4 %5>")
                 .arg(action->text(), QLatin1String(action->isEnabled() ? "" : " off"),
                      QLatin1String(action->isChecked() ? " on" : ""),
                      QLatin1String(action->isVisible() ? "" : " hidden"), action->shortcut().toString());
  return facts;
}

void list(QWidget& widget, const QPoint& origin, const QString& indent, QStringList& lines) {
  const QRect place(widget.isWindow() ? widget.pos() - origin : widget.pos(), widget.size());
  QAccessibleInterface* const reader = QAccessible::queryAccessibleInterface(&widget);
  QStringList facts{QString::fromLatin1(widget.metaObject()->className()).section(QLatin1String("::"), -1),
                    placeOf(place)};
  facts += forMouseAndKeys(widget) + ofItsOwn(widget);
  if (reader)
    facts += forReaders(*reader);
  lines += indent + facts.join(QLatin1String("; "));
  for (int i = 0; reader && i < reader->childCount(); ++i) {
    const QAccessibleInterface* const child = reader->child(i);
    if (child && !qobject_cast<QWidget*>(child->object()))
      lines += indent + QStringLiteral("  - ") + forReaders(*child).join(QLatin1String("; "));
  }
  for (QObject* const each : widget.children()) {
    auto* const child = qobject_cast<QWidget*>(each);
    if (child && child->isVisible() && !child->isWindow())
      list(*child, origin, indent + QStringLiteral("  "), lines);
  }
}

} // namespace

QWidgetList visibleWindows() {
  QWidgetList windows;
  for (QWidget* const each : QApplication::topLevelWidgets()) {
    if (each->isVisible())
      windows += each;
  }
  const auto rank = [](const QWidget* window) {
    const QRect place = window->geometry();
    return std::tuple(window->windowType() != Qt::Window, -place.width() * place.height(), place.y(),
                      place.x(), QByteArray(window->metaObject()->className()));
  };
  std::sort(windows.begin(), windows.end(),
            [&rank](const QWidget* one, const QWidget* other) { return rank(one) < rank(other); });
  return windows;
}

QStringList visibleWidgets() {
  const QWidgetList windows = visibleWindows();
  QStringList lines;
  for (QWidget* const each : windows)
    list(*each, windows.first()->pos(), {}, lines);
  return lines;
}

QString firstDifference(const QStringList& now, const QStringList& then) {
  const auto [one, other] = std::mismatch(now.begin(), now.end(), then.begin(), then.end());
  if (one == now.end() && other == then.end())
    return {};
  return QStringLiteral("now  %1\nthen %2")
      .arg(one == now.end() ? QString() : one->trimmed(), other == then.end() ? QString() : other->trimmed());
}

} // namespace Vela::Test
