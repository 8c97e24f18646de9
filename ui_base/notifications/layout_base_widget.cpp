// SPDX-License-Identifier: MIT
#include "layout_base_widget.h"

#include <QChildEvent>
#include <QGridLayout>

#include <algorithm>

namespace Vela::UiBase {

class LayoutBaseWidgetPrivate {
public:
  explicit LayoutBaseWidgetPrivate(LayoutBaseWidget* owner) : layout(new QGridLayout(owner)) {
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
  }

  void arrange();

  QGridLayout* const layout;
  QList<QWidget*> widgets;
  LayoutBaseWidget::EArrangement arrangement = LayoutBaseWidget::Column;
  int columns = 2;
};

void LayoutBaseWidgetPrivate::arrange() {
  int place = 0;
  for (QWidget* const widget : std::as_const(widgets)) {
    layout->removeWidget(widget);
    if (widget->isHidden())
      continue;
    switch (arrangement) {
    case LayoutBaseWidget::Column:
      layout->addWidget(widget, place, 0);
      break;
    case LayoutBaseWidget::Row:
      layout->addWidget(widget, 0, place);
      break;
    case LayoutBaseWidget::Grid:
      layout->addWidget(widget, place / columns, place % columns);
      break;
    }
    ++place;
  }
}

LayoutBaseWidget::LayoutBaseWidget(QWidget* parent)
    : QWidget(parent), d(std::make_unique<LayoutBaseWidgetPrivate>(this)) {}

LayoutBaseWidget::~LayoutBaseWidget() = default;

void LayoutBaseWidget::addWidget(QWidget* widget) {
  if (!widget || widget == this || widget->isAncestorOf(this) || d->widgets.contains(widget))
    return;
  const bool staysHidden = widget->isHidden() && widget->testAttribute(Qt::WA_WState_ExplicitShowHide);
  widget->setParent(this);
  d->widgets.append(widget);
  widget->installEventFilter(this);
  if (!staysHidden)
    widget->show();
  d->arrange();
  contentChanged();
}

QList<QWidget*> LayoutBaseWidget::widgets() const { return d->widgets; }

bool LayoutBaseWidget::hasVisibleContent() const {
  return std::any_of(d->widgets.cbegin(), d->widgets.cend(),
                     [](const QWidget* widget) { return !widget->isHidden(); });
}

LayoutBaseWidget::EArrangement LayoutBaseWidget::arrangement() const { return d->arrangement; }

void LayoutBaseWidget::setArrangement(EArrangement arrangement, int columns) {
  d->arrangement = arrangement;
  d->columns = std::max(1, columns);
  d->arrange();
}

int LayoutBaseWidget::contentMargin() const { return d->layout->contentsMargins().left(); }

void LayoutBaseWidget::setContentMargin(int pixels) {
  d->layout->setContentsMargins(pixels, pixels, pixels, pixels);
}

int LayoutBaseWidget::spacing() const { return d->layout->spacing(); }

void LayoutBaseWidget::setSpacing(int pixels) { d->layout->setSpacing(pixels); }

void LayoutBaseWidget::contentChanged() {}

QSize LayoutBaseWidget::fittingSize(const QSize& available) const {
  QSize size = d->layout->totalSizeHint().boundedTo(available);
  if (d->layout->hasHeightForWidth())
    size.setHeight(std::min(d->layout->totalHeightForWidth(size.width()), available.height()));
  return size;
}

void LayoutBaseWidget::childEvent(QChildEvent* event) {
  // It may be half destroyed, so only its address counts.
  if (event->removed() && d->widgets.removeOne(event->child()))
    event->child()->removeEventFilter(this);
}

bool LayoutBaseWidget::eventFilter(QObject* watched, QEvent* event) {
  if ((event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent) &&
      watched->parent() == this) {
    d->arrange();
    contentChanged();
  }
  return QWidget::eventFilter(watched, event);
}

} // namespace Vela::UiBase
