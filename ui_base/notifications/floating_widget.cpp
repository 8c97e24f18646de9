// SPDX-License-Identifier: MIT
#include "floating_widget.h"

#include <QEvent>
#include <QLayout>
#include <QPointer>
#include <QStyle>

namespace Vela::UiBase {

class FloatingWidgetPrivate {
public:
  explicit FloatingWidgetPrivate(FloatingWidget* owner) : host(owner) {
    host->layout()->setSizeConstraint(QLayout::SetNoConstraint);
  }

  void followParent();
  void place();
  void leaveGapsOpen();

  FloatingWidget* const host;
  QPointer<QWidget> followed;
  Qt::Alignment alignment = Qt::AlignTop | Qt::AlignHCenter;
  QMargins margins = {8, 8, 8, 8};
  bool wanted = true;
};

void FloatingWidgetPrivate::followParent() {
  if (followed == host->parentWidget())
    return;
  if (followed)
    followed->removeEventFilter(host);
  followed = host->parentWidget();
  if (followed)
    followed->installEventFilter(host);
}

void FloatingWidgetPrivate::place() {
  if (!followed || !host->hasVisibleContent())
    return;
  host->layout()->activate();
  const QRect area = followed->rect().marginsRemoved(margins);
  const QSize size = host->fittingSize(area.size().expandedTo({0, 0}));
  host->setGeometry(QStyle::alignedRect(followed->layoutDirection(), alignment, size, area));
  // A hidden host gets its resize event later, but the gaps are computed now.
  host->layout()->setGeometry(host->rect());
  leaveGapsOpen();
}

void FloatingWidgetPrivate::leaveGapsOpen() {
  QRegion covered;
  const QList<QWidget*> contents = host->widgets();
  for (const QWidget* widget : contents) {
    if (!widget->isHidden())
      covered += widget->geometry();
  }
  if (covered.isEmpty() || covered == QRegion(host->rect()))
    host->clearMask();
  else
    host->setMask(covered);
}

FloatingWidget::FloatingWidget(QWidget* parent)
    : LayoutBaseWidget(parent), d(std::make_unique<FloatingWidgetPrivate>(this)) {
  // An explicit hide keeps an empty host from being shown together with its parent.
  QWidget::setVisible(false);
  d->followParent();
}

FloatingWidget::~FloatingWidget() = default;

Qt::Alignment FloatingWidget::alignment() const { return d->alignment; }

void FloatingWidget::setAlignment(Qt::Alignment alignment) {
  d->alignment = alignment;
  d->place();
}

QMargins FloatingWidget::margins() const { return d->margins; }

void FloatingWidget::setMargins(const QMargins& margins) {
  d->margins = margins;
  d->place();
}

void FloatingWidget::setVisible(bool visible) {
  d->wanted = visible;
  const bool shows = visible && parentWidget() && hasVisibleContent();
  if (shows)
    d->place();
  if (shows == isHidden())
    QWidget::setVisible(shows);
}

bool FloatingWidget::event(QEvent* event) {
  switch (event->type()) {
  case QEvent::ParentChange:
    d->followParent();
    d->place();
    break;
  case QEvent::LayoutRequest: {
    const bool handled = LayoutBaseWidget::event(event);
    setVisible(d->wanted);
    return handled;
  }
  case QEvent::LayoutDirectionChange:
    d->place();
    break;
  default:
    break;
  }
  return LayoutBaseWidget::event(event);
}

void FloatingWidget::contentChanged() { setVisible(d->wanted); }

bool FloatingWidget::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize && watched == d->followed)
    d->place();
  return LayoutBaseWidget::eventFilter(watched, event);
}

void FloatingWidget::showEvent(QShowEvent*) { raise(); }

} // namespace Vela::UiBase
