// SPDX-License-Identifier: MIT
#include "tooltip_manager.h"

#include <ui_base/tooltips/a_tooltip_ex.h>
#include <ui_base/tooltips/a_tooltip_object.h>
#include <ui_base/tooltips/a_tooltip_object_p.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QToolTip>

#include <algorithm>

namespace Vela::UiBase {

TooltipManager& TooltipManager::GetInstance() {
  static TooltipManager instance;
  return instance;
}

void TooltipManager::AddTooltip(ATooltipObject* tooltip, const QString& group) {
  if (tooltip)
    m_groups.insert(tooltip, group);
}

void TooltipManager::RemoveTooltip(ATooltipObject* tooltip) {
  onHidden(tooltip);
  m_groups.remove(tooltip);
}

QWidget* TooltipManager::getTooltipLayer(ATooltipObject* tooltip) const {
  const auto group = m_groups.constFind(tooltip);
  if (group == m_groups.cend())
    return nullptr;
  QWidget* const layer = m_layers.value(*group);
  return layer ? layer : tooltip->d->ownLayer();
}

void TooltipManager::SetTooltipLayer(const QString& group, QWidget* layer) {
  if (layer)
    m_layers.insert(group, layer);
  else
    m_layers.remove(group);
}

void TooltipManager::HideAllTooltipsInGroupExcept(ATooltipObject* tooltip, const QString& group) {
  const auto shown = m_shown;
  for (ATooltipObject* const other : shown) {
    // Hiding one may end another.
    if (other != tooltip && m_shown.contains(other) && m_groups.value(other) == group)
      other->HideTooltip();
  }
}

void TooltipManager::HideAllTooltips() {
  const auto shown = m_shown;
  for (ATooltipObject* const tooltip : shown) {
    if (m_shown.contains(tooltip))
      tooltip->ForceHideTooltip();
  }
}

bool TooltipManager::IsTooltipShown(const QString& group) const {
  return std::any_of(m_shown.cbegin(), m_shown.cend(),
                     [&](const ATooltipObject* tooltip) { return m_groups.value(tooltip) == group; });
}

void TooltipManager::SetShowNextAtOnce(const QString& group, bool atOnce) {
  if (atOnce)
    m_atOnce.insert(group);
  else
    m_atOnce.remove(group);
}

bool TooltipManager::ShowNextAtOnce(const QString& group) const { return m_atOnce.contains(group); }

const TooltipTimes& TooltipManager::Times() const { return m_times; }

void TooltipManager::SetTimes(const TooltipTimes& times) { m_times = times; }

void TooltipManager::onViewVisibilityChange(bool visible) {
  // The tool tip of a view that disappears would stay up until the mouse moves.
  if (!visible) {
    HideAllTooltips();
    if (QToolTip::isVisible())
      QToolTip::hideText();
  }
  Q_EMIT viewVisibilityChanged(visible);
}

void TooltipManager::onShown(ATooltipObject* tooltip) {
  if (m_shown.isEmpty())
    QCoreApplication::instance()->installEventFilter(this);
  m_shown.removeOne(tooltip);
  m_shown.append(tooltip);
}

void TooltipManager::onHidden(ATooltipObject* tooltip) {
  if (m_shown.removeOne(tooltip) && m_shown.isEmpty() && QCoreApplication::instance())
    QCoreApplication::instance()->removeEventFilter(this);
}

// A key is offered as a shortcut first. One that is taken then comes again as a press.
bool TooltipManager::handleHelpKey(QEvent* event) {
  if (event->type() == QEvent::KeyPress)
    return std::exchange(m_helpKeyTaken, false);
  const QPointer<ATooltipObject> latest(m_shown.constLast());
  auto* const content = qobject_cast<ATooltipEx*>(latest->TooltipControl());
  m_helpKeyTaken = content && content->HandleHelpKey();
  if (m_helpKeyTaken)
    event->accept();
  return m_helpKeyTaken;
}

bool TooltipManager::eventFilter(QObject* watched, QEvent* event) {
  const bool override = event->type() == QEvent::ShortcutOverride;
  if ((!override && event->type() != QEvent::KeyPress) || m_shown.isEmpty())
    return QObject::eventFilter(watched, event);
  const auto* const key = static_cast<QKeyEvent*>(event);
  if (key->key() == Qt::Key_Escape)
    HideAllTooltips();
  else if (key->key() == Qt::Key_F1 && key->modifiers() == Qt::NoModifier)
    return handleHelpKey(event);
  return QObject::eventFilter(watched, event);
}

} // namespace Vela::UiBase
