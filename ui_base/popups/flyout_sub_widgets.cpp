// SPDX-License-Identifier: MIT
#include "flyout_sub_widgets.h"

#include <ui_base/popups/arrowed_window.h>

#include <QEvent>
#include <QVariant>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

namespace {

constexpr int gap = 4; // px between the host and a sub-widget

QPoint positionBeside(const QRect& host, const QSize& size, EDirection side) {
  switch (side) {
  case Left:
    return {host.left() - gap - size.width(), host.top()};
  case Top:
    return {host.left(), host.top() - gap - size.height()};
  case Bottom:
    return {host.left(), host.bottom() + 1 + gap};
  default:
    return {host.right() + 1 + gap, host.top()};
  }
}

} // namespace

// The flyout owns them, but they are not its children.
FlyoutSubWidgets::~FlyoutSubWidgets() {
  const QList<SubWidget> widgets = std::exchange(m_widgets, {});
  for (const SubWidget& sub : widgets)
    delete sub.widget;
}

void FlyoutSubWidgets::add(QWidget* widget, EDirection side) {
  if (!widget)
    return;
  widget->hide();
  widget->setProperty("direction_to", int(side));
  m_widgets.append({widget, side});
  connect(widget, &QObject::destroyed, this, [this, widget] {
    m_widgets.removeIf([widget](const SubWidget& sub) { return !sub.widget || sub.widget == widget; });
    publish();
  });
  publish();
  follow();
}

// Placement reads which widgets need room beside the flyout.
void FlyoutSubWidgets::publish() {
  QList<QWidget*> all;
  for (const SubWidget& sub : std::as_const(m_widgets))
    all += sub.widget;
  m_flyout.setProperty("sub_widgets", QVariant::fromValue(all));
}

bool FlyoutSubWidgets::setShown(QWidget* widget, bool shown) {
  const auto sub = std::find_if(m_widgets.begin(), m_widgets.end(),
                                [widget](const SubWidget& each) { return each.widget == widget; });
  if (sub == m_widgets.end() || sub->shown == shown)
    return false;
  sub->shown = shown;
  follow();
  return true;
}

bool FlyoutSubWidgets::isAnyShown() const {
  return std::any_of(m_widgets.begin(), m_widgets.end(), [](const SubWidget& sub) { return sub.shown; });
}

void FlyoutSubWidgets::follow() {
  auto* const window = qobject_cast<ArrowedWindow*>(m_flyout.parentWidget());
  QWidget* const host = window ? static_cast<QWidget*>(window) : &m_flyout;
  if (host != m_host) {
    if (m_host)
      m_host->removeEventFilter(this);
    m_host = host;
    host->installEventFilter(this);
  }
  const QPointer<FlyoutSubWidgets> self(this);
  const QList<SubWidget> widgets = m_widgets; // showing one may have others added or taken away
  for (const SubWidget& sub : widgets) {
    if (self && sub.widget)
      place(sub);
  }
}

void FlyoutSubWidgets::place(const SubWidget& sub) const {
  QWidget& widget = *sub.widget;
  const bool visible = sub.shown && m_flyout.isVisible();
  if (!visible) {
    widget.hide();
    return;
  }
  const Qt::WindowFlags flags = m_host->isWindow() ? Qt::Tool | Qt::FramelessWindowHint : Qt::Widget;
  QWidget* const parent = m_host->isWindow() ? m_host.data() : m_host->parentWidget();
  if (widget.parentWidget() != parent)
    widget.setParent(parent, flags);
  widget.adjustSize();
  widget.move(positionBeside(m_host->geometry(), widget.size(), sub.side));
  const QPointer<QWidget> shown(&widget);
  widget.show();
  if (shown)
    shown->raise();
}

bool FlyoutSubWidgets::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (watched == m_host && (type == QEvent::Move || type == QEvent::Resize))
    follow();
  return false;
}

} // namespace Vela::UiBase
