// SPDX-License-Identifier: MIT
#include "tooltip_manager.h"

#include <ui_base/tooltips/a_tooltip_ex.h>
#include <ui_base/tooltips/a_tooltip_object.h>
#include <ui_base/tooltips/a_tooltip_object_p.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

TooltipManager& TooltipManager::GetInstance() {
  // Never destroyed: static tooltip objects may go after it.
  static auto* const instance = new TooltipManager;
  return *instance;
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
  QWidget* const own = tooltip->d->ownLayer();
  // A layer in another window is not where the user looks.
  return layer && (!own || layer->isWindow() || layer->window() == own->window()) ? layer : own;
}

void TooltipManager::SetTooltipLayer(const QString& group, QWidget* layer) {
  if (layer)
    m_layers.insert(group, layer);
  else
    m_layers.remove(group);
}

void TooltipManager::HideAllTooltipsInGroupExcept(ATooltipObject* tooltip, const QString& group) {
  const auto shown = m_shown;
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the owner of the name may end
  const QString name = group;
  for (ATooltipObject* const other : shown) {
    // Hiding one may end another.
    if (other != tooltip && m_shown.contains(other) && m_groups.value(other) == name)
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
  if (m_shown.removeOne(tooltip))
    watchNoMore();
}

void TooltipManager::watchNoMore() {
  if (m_shown.isEmpty() && !m_helpKeyTaken && QCoreApplication::instance())
    QCoreApplication::instance()->removeEventFilter(this);
}

// A key is offered as a shortcut first. One that is taken then comes again as a press, which may find the
// tooltip gone, and goes up; nobody else gets any of these.
bool TooltipManager::handleHelpKey(QKeyEvent& key) {
  const QEvent::Type type = key.type();
  if (type == QEvent::ShortcutOverride && !key.isAutoRepeat()) {
    const auto* const latest = m_shown.isEmpty() ? nullptr : m_shown.constLast();
    auto* const content = latest ? qobject_cast<ATooltipEx*>(latest->TooltipControl()) : nullptr;
    m_helpKeyTaken = content; // keeps watching when the tooltip goes at that
    m_helpKeyTaken = content && content->HandleHelpKey();
  }
  const bool taken = m_helpKeyTaken;
  if (taken)
    key.accept();
  if (type == QEvent::KeyRelease && !key.isAutoRepeat())
    m_helpKeyTaken = false;
  if (!m_helpKeyTaken)
    watchNoMore();
  return taken;
}

bool TooltipManager::handleKey(QKeyEvent& key) {
  if (key.key() == Qt::Key_F1 && key.modifiers() == Qt::NoModifier)
    return handleHelpKey(key);
  if (key.key() == Qt::Key_Escape && key.type() != QEvent::KeyRelease)
    HideAllTooltips();
  return false;
}

// What a tooltip points at has scrolled away, or lies behind a modal window.
void TooltipManager::hideTooltipsOf(const QWidget& widget, bool withWindow) {
  const QPointer<const QWidget> guard(&widget);
  const auto shown = m_shown;
  for (ATooltipObject* const tooltip : shown) {
    if (!guard || !m_shown.contains(tooltip))
      continue;
    const QWidget* const owner = tooltip->d->owner();
    const QWidget* const window = tooltip->d->tooltipWindow;
    const bool stays = !withWindow && widget.isWindow() && window && !window->isWindow();
    if (owner && (owner == &widget || widget.isAncestorOf(owner)) && !stays)
      tooltip->ForceHideTooltip();
  }
}

bool TooltipManager::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
  case QEvent::ShortcutOverride:
  case QEvent::KeyPress:
  case QEvent::KeyRelease:
    return handleKey(*static_cast<QKeyEvent*>(event));
  case QEvent::Resize:
    for (const ATooltipObject* const tooltip : std::as_const(m_shown)) {
      const QWidget* const window = tooltip->d->tooltipWindow;
      if (window && window->parentWidget() == watched)
        tooltip->d->followSize();
    }
    break;
  case QEvent::Move:
  case QEvent::WindowBlocked:
    if (watched->isWidgetType())
      hideTooltipsOf(*static_cast<QWidget*>(watched), event->type() == QEvent::WindowBlocked);
    break;
  default:
    break;
  }
  return QObject::eventFilter(watched, event);
}

} // namespace Vela::UiBase
