// SPDX-License-Identifier: MIT
#include "tool_bar_placer.h"

#include "tool_bar_p.h"

#include <QLayout>

#include <utility>

namespace Vela::UiBase {

namespace {

bool holds(const QLayout& layout, const QWidget& widget) {
  for (int i = 0; i < layout.count(); ++i) {
    QLayoutItem* const item = layout.itemAt(i);
    if (item->widget() == &widget || (item->layout() && holds(*item->layout(), widget)))
      return true;
  }
  return false;
}

} // namespace

ToolBarPlacer::~ToolBarPlacer() { stop(); }

// --- where it rests

bool ToolBarPlacer::isLaidOut() const {
  const QWidget* const parent = m_toolBar.isWindow() ? nullptr : m_toolBar.parentWidget();
  return parent && parent->layout() && holds(*parent->layout(), m_toolBar);
}

bool ToolBarPlacer::isAutomatic() const {
  return m_toolBar.IsAutoPositionEnabled() && !m_toolBar.OwnerButton() && !m_toolBar.isWindow() &&
         m_toolBar.parentWidget() && m_toolBar.Area() != Qt::NoToolBarArea && !isLaidOut();
}

ToolBarPlace ToolBarPlacer::place() const {
  const QWidget* const parent = m_toolBar.isWindow() ? nullptr : m_toolBar.parentWidget();
  const bool onItsOwn = !parent || isLaidOut();
  return {m_toolBar.Area(),
          onItsOwn ? QRect(m_rest, m_toolBar.size()) : parent->rect(),
          m_toolBar.size(),
          m_toolBar.Offset(),
          m_rest,
          onItsOwn || m_pinned || m_placedByOverride,
          out()};
}

void ToolBarPlacer::pin(const QPoint& position) {
  noteMove();
  m_pinned = true;
  m_rest = position;
  if (!m_animation && m_toolBar.isHidden())
    m_to = 0;
  put();
}

void ToolBarPlacer::placeAtEdge() {
  if (!isAutomatic())
    return;
  noteMove();
  const QPointer<ToolBar> toolBar(&m_toolBar);
  m_placing = true;
  ToolBarPrivate::of(m_toolBar).autoPosition();
  if (!toolBar)
    return;
  m_placing = false;
  m_pinned = false;
  m_placedByOverride = false;
  m_rest = m_last = m_toolBar.pos();
  m_placedByOverride = place().onScreen() != m_rest;
  put();
}

// A move by hand goes along the edge: across it the bar stands where it is meant to, as soon as it slides.
void ToolBarPlacer::noteMove() {
  const QPoint position = m_toolBar.pos();
  if (m_placing || position == m_last)
    return;
  m_last = position;
  if (m_animation && m_animation->currentValue().toPoint() == position)
    return;
  const bool staysAcross = m_pinned && m_toolBar.Area() != Qt::NoToolBarArea && !isLaidOut();
  if (staysAcross && m_toolBar.Orientation() == Qt::Vertical)
    m_rest.setY(position.y());
  else if (staysAcross)
    m_rest.setX(position.x());
  else
    m_rest = position;
  update();
}

void ToolBarPlacer::update() {
  if (m_animation || m_to > 0)
    put();
}

void ToolBarPlacer::put() {
  ToolBarPlace end = place();
  const QPointer<QPropertyAnimation> animation = m_animation;
  if (!animation) {
    m_last = end.position();
    m_toolBar.move(m_last);
    return;
  }
  end.out = m_from;
  const QPoint from = end.position();
  end.out = m_to;
  animation->setStartValue(from);
  if (animation)
    animation->setEndValue(end.position());
}

// --- how far it is out

double ToolBarPlacer::out() const {
  if (!m_animation || m_animation->duration() <= 0)
    return m_to;
  const double progress = double(m_animation->currentTime()) / m_animation->duration();
  return m_from + (m_to - m_from) * m_animation->easingCurve().valueForProgress(progress);
}

void ToolBarPlacer::slide(bool in) {
  stop();
  noteMove();
  m_from = std::exchange(m_to, in ? 0 : 1);
  auto* const animation = new QPropertyAnimation(&m_toolBar, "pos", &m_toolBar);
  m_animation = animation;
  animation->setDuration(m_duration);
  animation->setEasingCurve(in ? QEasingCurve::OutExpo : QEasingCurve::InExpo);
  put();
  QObject::connect(animation, &QAbstractAnimation::finished, &m_toolBar,
                   in ? &ToolBar::OnShowAnimationDone : &ToolBar::OnHideAnimationDone);
  QObject::connect(animation, &QAbstractAnimation::finished, &m_toolBar,
                   in ? &ToolBar::ShowAnimationFinished : &ToolBar::HideAnimationFinished);
  animation->start(QAbstractAnimation::DeleteWhenStopped);
}

void ToolBarPlacer::stop() {
  const QPointer<ToolBar> toolBar(&m_toolBar);
  if (m_animation)
    noteMove();
  QPropertyAnimation* const animation = toolBar ? m_animation.data() : nullptr;
  if (!animation)
    return;
  m_to = out();
  m_last = m_toolBar.pos();
  m_animation.clear();
  animation->stop();
}

void ToolBarPlacer::goOut() {
  stop();
  noteMove();
  m_to = 1;
  put();
}

void ToolBarPlacer::comeIn() {
  stop();
  if (m_to <= 0)
    return;
  noteMove();
  m_to = 0;
  put();
}

} // namespace Vela::UiBase
