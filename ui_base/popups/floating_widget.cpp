// SPDX-License-Identifier: MIT
#include "floating_widget.h"

#include <QEvent>
#include <QPointer>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace Vela::UiBase {

class FloatingWidgetPrivate {
public:
  explicit FloatingWidgetPrivate(FloatingWidget* owner) : host(owner), layout(new QVBoxLayout(owner)) {
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->setSizeConstraint(QLayout::SetNoConstraint);
  }

  void followParent();
  void place();
  QSize fittingSize(const QSize& available) const;
  void leaveGapsOpen();
  bool hasVisibleContent() const;

  FloatingWidget* const host;
  QVBoxLayout* const layout;
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

bool FloatingWidgetPrivate::hasVisibleContent() const {
  for (int i = 0; i < layout->count(); ++i) {
    const QWidget* widget = layout->itemAt(i)->widget();
    if (widget && !widget->isHidden())
      return true;
  }
  return false;
}

QSize FloatingWidgetPrivate::fittingSize(const QSize& available) const {
  QSize size = layout->totalSizeHint().boundedTo(available);
  if (layout->hasHeightForWidth())
    size.setHeight(std::min(layout->totalHeightForWidth(size.width()), available.height()));
  return size;
}

void FloatingWidgetPrivate::place() {
  if (!followed || !hasVisibleContent())
    return;
  layout->activate();
  const QRect area = followed->rect().marginsRemoved(margins);
  const QSize size = fittingSize(area.size().expandedTo({0, 0}));
  host->setGeometry(QStyle::alignedRect(followed->layoutDirection(), alignment, size, area));
  // A hidden host gets its resize event later, but the gaps are computed now.
  layout->setGeometry(host->rect());
  leaveGapsOpen();
}

void FloatingWidgetPrivate::leaveGapsOpen() {
  QRegion covered;
  for (int i = 0; i < layout->count(); ++i) {
    const QWidget* widget = layout->itemAt(i)->widget();
    if (widget && !widget->isHidden())
      covered += widget->geometry();
  }
  if (covered.isEmpty() || covered == QRegion(host->rect()))
    host->clearMask();
  else
    host->setMask(covered);
}

FloatingWidget::FloatingWidget(QWidget* parent)
    : QWidget(parent), d(std::make_unique<FloatingWidgetPrivate>(this)) {
  // An explicit hide keeps an empty host from being shown together with its parent.
  QWidget::setVisible(false);
  d->followParent();
}

FloatingWidget::~FloatingWidget() = default;

void FloatingWidget::addWidget(QWidget* widget) {
  if (!widget || widget == this)
    return;
  const bool staysHidden = widget->isHidden() && widget->testAttribute(Qt::WA_WState_ExplicitShowHide);
  d->layout->addWidget(widget);
  widget->installEventFilter(this);
  if (!staysHidden)
    widget->show();
  setVisible(d->wanted);
}

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
  const bool shows = visible && parentWidget() && d->hasVisibleContent();
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
    const bool handled = QWidget::event(event);
    setVisible(d->wanted);
    return handled;
  }
  case QEvent::LayoutDirectionChange:
    d->place();
    break;
  default:
    break;
  }
  return QWidget::event(event);
}

bool FloatingWidget::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
  case QEvent::Resize:
    if (watched == d->followed)
      d->place();
    break;
  case QEvent::ShowToParent:
  case QEvent::HideToParent:
    if (watched->parent() == this)
      setVisible(d->wanted);
    break;
  default:
    break;
  }
  return QWidget::eventFilter(watched, event);
}

void FloatingWidget::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  raise();
}

} // namespace Vela::UiBase
