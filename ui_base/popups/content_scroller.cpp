// SPDX-License-Identifier: MIT
#include "content_scroller.h"

#include <QEvent>
#include <QLayout>
#include <QScrollBar>

#include <algorithm>

namespace Vela::UiBase {

namespace {

constexpr int leastHeight = 40; // px, in which there is something to see of what scrolls

} // namespace

ContentScroller::ContentScroller(QWidget* parent) : QScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  viewport()->setAutoFillBackground(false);
  updateFocusPolicy();
  for (const QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()})
    connect(bar, &QScrollBar::rangeChanged, this, &ContentScroller::updateFocusPolicy);
}

void ContentScroller::setContent(QWidget* content) {
  setWidget(content);
  content->setAutoFillBackground(false);
  updateGeometry();
}

void ContentScroller::setLimit(const QSize& limit) {
  m_limit = limit;
  updateGeometry();
}

void ContentScroller::setLimitWithin(QLayout& column, const QSize& limit) {
  setLimit({0, 0});
  column.invalidate();
  const QMargins margins = column.contentsMargins();
  const QSize left(limit.width() - margins.left() - margins.right(),
                   limit.height() - column.totalMinimumSize().height());
  setLimit(left.expandedTo({0, leastHeight}));
  column.invalidate();
}

bool ContentScroller::hasHeightForWidth() const { return widget() && widget()->hasHeightForWidth(); }

int ContentScroller::heightForWidth(int width) const {
  return hasHeightForWidth() ? std::min(widget()->heightForWidth(width), m_limit.height()) : -1;
}

QSize ContentScroller::sizeHint() const { return widget() ? limited(widget()->sizeHint()) : QSize(0, 0); }

QSize ContentScroller::minimumSizeHint() const {
  if (!widget())
    return {0, 0};
  return limited(widget()->minimumSizeHint().expandedTo(widget()->minimumSize())).expandedTo({0, 0});
}

// What scrolls up and down has the scroll bar beside it.
QSize ContentScroller::limited(QSize size) const {
  if (size.height() > m_limit.height())
    size.rwidth() += verticalScrollBar()->sizeHint().width();
  return size.boundedTo(m_limit);
}

bool ContentScroller::eventFilter(QObject* watched, QEvent* event) {
  if (watched == widget() && event->type() == QEvent::LayoutRequest)
    updateGeometry();
  return QScrollArea::eventFilter(watched, event);
}

void ContentScroller::updateFocusPolicy() {
  const bool scrolls = horizontalScrollBar()->maximum() > 0 || verticalScrollBar()->maximum() > 0;
  setFocusPolicy(scrolls ? Qt::StrongFocus : Qt::NoFocus);
}

} // namespace Vela::UiBase
