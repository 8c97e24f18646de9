// SPDX-License-Identifier: MIT
#include "shortcut_rules.h"

#include <QStackedLayout>

#include <algorithm>

namespace Vela::UiBase {

namespace {

std::pair<QString, QString> pairOf(const QString& one, const QString& other) {
  return one < other ? std::pair(one, other) : std::pair(other, one);
}

bool isWithin(const QWidget& widget, const QWidget& ancestor) {
  return &widget == &ancestor || ancestor.isAncestorOf(&widget);
}

/// The child of an ancestor that a widget lies in.
QWidget* branchOf(QWidget* widget, const QWidget& ancestor) {
  while (widget && widget->parentWidget() != &ancestor)
    widget = widget->parentWidget();
  return widget;
}

/// Whether two widgets lie on different pages of a stack.
bool onDifferentPages(QWidget& one, QWidget& other) {
  const QWidget* common = one.parentWidget();
  while (common && !isWithin(other, *common))
    common = common->parentWidget();
  if (!common || common == &other)
    return false;
  const auto* const stack = qobject_cast<const QStackedLayout*>(common->layout());
  if (!stack || stack->stackingMode() != QStackedLayout::StackOne)
    return false;
  QWidget* const page = branchOf(&one, *common);
  QWidget* const otherPage = branchOf(&other, *common);
  return page != otherPage && stack->indexOf(page) >= 0 && stack->indexOf(otherPage) >= 0;
}

/// Where the keys of a window work: those of its parent do in a tool window, too.
const QWidget* scopeWindow(const QWidget& widget) {
  const QWidget* window = widget.window();
  while (window->windowType() == Qt::Tool && window->parentWidget())
    window = window->parentWidget()->window();
  return window;
}

struct Scope {
  QWidget& place;
  Qt::ShortcutContext context;
};

/// Whether the focus can be where it has to be for both.
bool focusSuitsBoth(const Scope& one, const Scope& other) {
  const bool oneExact = one.context == Qt::WidgetShortcut;
  const bool otherExact = other.context == Qt::WidgetShortcut;
  if (oneExact && otherExact)
    return &one.place == &other.place;
  const bool oneWithin = oneExact || one.context == Qt::WidgetWithChildrenShortcut;
  const bool otherWithin = otherExact || other.context == Qt::WidgetWithChildrenShortcut;
  if (!oneWithin || !otherWithin)
    return true;
  return (!otherExact && isWithin(one.place, other.place)) || (!oneExact && isWithin(other.place, one.place));
}

bool canBothBeActive(const Scope& one, const Scope& other) {
  if (onDifferentPages(one.place, other.place))
    return false;
  if (one.context == Qt::ApplicationShortcut || other.context == Qt::ApplicationShortcut)
    return true;
  return scopeWindow(one.place) == scopeWindow(other.place) && focusSuitsBoth(one, other);
}

bool canBothBeActive(const ShortcutUse& one, const ShortcutUse& other) {
  if (one.places.isEmpty() || other.places.isEmpty())
    return true;
  for (const auto& place : one.places) {
    for (const auto& otherPlace : other.places) {
      if (place && otherPlace && canBothBeActive({*place, one.context}, {*otherPlace, other.context}))
        return true;
    }
  }
  return false;
}

EMeeting compare(const QKeySequence& one, const QKeySequence& other) {
  if (one.isEmpty() || other.isEmpty())
    return NeverMeet;
  if (one.matches(other) == QKeySequence::ExactMatch)
    return SameKeys;
  const bool begins =
      one.matches(other) == QKeySequence::PartialMatch || other.matches(one) == QKeySequence::PartialMatch;
  return begins ? Prefix : NeverMeet;
}

} // namespace

void ShortcutRules::addMode(const QString& name, const QStringList& commandIds) {
  const QSet<QString> ids(commandIds.cbegin(), commandIds.cend());
  const qsizetype known = m_modeNames.indexOf(name);
  if (known >= 0) {
    m_modes[known] = ids;
    return;
  }
  m_modeNames.append(name);
  m_modes.append(ids);
}

void ShortcutRules::noteMet(const QString& commandId, const QString& otherId) {
  m_met.insert(pairOf(commandId, otherId));
}

EMeeting ShortcutRules::meeting(const ShortcutUse& one, const ShortcutUse& other) const {
  const EMeeting keys = compare(one.keys, other.keys);
  if (keys == NeverMeet || m_met.contains(pairOf(one.commandId, other.commandId)))
    return keys;
  return sharesMode(one.commandId, other.commandId) && canBothBeActive(one, other) ? keys : NeverMeet;
}

QList<ShortcutUse> ShortcutRules::metBy(const ShortcutUse& use, const QList<ShortcutUse>& others) const {
  QList<ShortcutUse> met;
  for (const ShortcutUse& other : others) {
    const bool isSame = !use.commandId.isEmpty() && use.commandId == other.commandId;
    if (!isSame && meeting(use, other) != NeverMeet)
      met.append(other);
  }
  return met;
}

bool ShortcutRules::isInNoMode(const QString& id) const {
  return std::none_of(m_modes.cbegin(), m_modes.cend(), [&](const auto& mode) { return mode.contains(id); });
}

bool ShortcutRules::sharesMode(const QString& one, const QString& other) const {
  if (isInNoMode(one) || isInNoMode(other))
    return true;
  return std::any_of(m_modes.cbegin(), m_modes.cend(),
                     [&](const auto& mode) { return mode.contains(one) && mode.contains(other); });
}

} // namespace Vela::UiBase
