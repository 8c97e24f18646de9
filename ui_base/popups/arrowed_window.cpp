// SPDX-License-Identifier: MIT
#include "arrowed_window.h"

#include "arrowed_window_p.h"

#include <QEvent>
#include <QPaintEngine>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace Vela::UiBase {

namespace {

SArrowParam makeArrow(EArrowPosition position, int length, bool fixedAngle, int angle, int tipAngle,
                      bool offsetAlongX, int offset) {
  return {position, length, fixedAngle, angle, tipAngle, offsetAlongX, offset, {}};
}

} // namespace

ArrowedWindow::ArrowedWindow(QWidget* parent) : ArrowedWindow(*new ArrowedWindowPrivate, parent) {}

ArrowedWindow::ArrowedWindow(ArrowedWindowPrivate& state, QWidget* parent)
    : QWidget(parent, Qt::FramelessWindowHint), d(&state) {
  ArrowedWindow::Initialize();
}

ArrowedWindow::~ArrowedWindow() {
  // The content dies later than the private object, and so would the shadow.
  d->release();
  setGraphicsEffect(nullptr);
}

void ArrowedWindow::Initialize() {
  d->window = this;
  setMouseTracking(true);
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_TranslucentBackground);
  // Clicks and turns of the wheel are not for what lies behind.
  setAttribute(Qt::WA_NoMousePropagation);
  d->layout = new QVBoxLayout(this);
  d->layout->setSizeConstraint(QLayout::SetFixedSize);
  d->layout->setContentsMargins({});
}

// --- content

void ArrowedWindow::AttachWidget(QWidget* widget) {
  if (!widget || widget == this || widget->isAncestorOf(this))
    return;
  d->attach(widget);
}

QWidget* ArrowedWindow::DetachWidget() {
  QWidget* const widget = d->release();
  if (!widget)
    return nullptr;
  const QPointer<QWidget> detached(widget);
  const QPointer<QWidget> self(this);
  hide();
  if (self && detached && detached->parentWidget() == this)
    detached->setParent(nullptr);
  return detached;
}

QWidget* ArrowedWindow::InternalWidget() const { return d->content; }

// --- arrows

void ArrowedWindow::SetArrow(SArrowParam arrow) {
  if (arrow.position == NoArrow)
    return;
  d->clearArrows();
  AddArrow(arrow);
}

void ArrowedWindow::SetArrow(EArrowPosition position, int length, bool fixedAngle, int angle, int tipAngle,
                             bool offsetAlongX, int offset) {
  SetArrow(makeArrow(position, length, fixedAngle, angle, tipAngle, offsetAlongX, offset));
}

void ArrowedWindow::AddArrow(SArrowParam arrow) {
  d->addArrow(arrow);
  if (d->arrows.size() == 1)
    GenerateLayout();
}

void ArrowedWindow::AddArrow(EArrowPosition position, int length, bool fixedAngle, int angle, int tipAngle,
                             bool offsetAlongX, int offset) {
  AddArrow(makeArrow(position, length, fixedAngle, angle, tipAngle, offsetAlongX, offset));
}

QList<SArrowParam> ArrowedWindow::GetArrowParams() const { return d->arrows; }

bool ArrowedWindow::GetCurrentArrowParam(SArrowParam& arrow) const {
  if (d->currentArrow.position == NoArrow)
    return false;
  arrow = d->currentArrow;
  return true;
}

QPoint ArrowedWindow::GetArrowPoint() const { return d->tip; }

bool ArrowedWindow::GetArrowWindowSize(SArrowParam& arrow, QSize& size, QPoint& tip) {
  if (!d->content || arrow.position == NoArrow)
    return false;
  d->setCurrentArrow(arrow);
  GenerateLayout();
  arrow = d->currentArrow;
  size = this->size();
  tip = d->tip;
  return true;
}

void ArrowedWindow::SetAutoDecideArrowPosition(bool decide) { d->autoDecide = decide; }

bool ArrowedWindow::AutoDecideArrowPosition() const { return d->autoDecide; }

// --- looks

void ArrowedWindow::SetBorder(const QColor& color, int width, Qt::PenStyle style, Qt::PenJoinStyle join) {
  d->border = QPen(color, std::max(0, width), style, Qt::SquareCap, join);
  GenerateLayout();
}

void ArrowedWindow::SetContentMargin(int margin) {
  d->contentMargin = std::max(0, margin);
  GenerateLayout();
}

void ArrowedWindow::SetRoundCornerRadius(int radius) {
  d->cornerRadius = std::max(0, radius);
  GenerateLayout();
}

void ArrowedWindow::EnableShadow(bool enable) { d->enableShadow(enable); }

QGraphicsDropShadowEffect* ArrowedWindow::GetShadow() const { return d->shadow(); }

void ArrowedWindow::SetPartialBackgroundColor(bool on, const QRect& rect, const QColor& color) {
  d->partialBackground = on;
  d->partialColor = color;
  d->partialRect = QRect(d->bounds.left(), rect.top(), d->bounds.width(), rect.height());
  update();
}

QRect ArrowedWindow::GetBounds() const { return d->bounds; }

void ArrowedWindow::GenerateLayout() { d->layOut(); }

// --- events

void ArrowedWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  // A window needs room for its shadow, a child does not.
  if (event->type() == QEvent::ParentChange)
    GenerateLayout();
}

// A content whose text is written asks for its size, too.
bool ArrowedWindow::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest && d->content)
    d->adoptDescription();
  return QWidget::event(event);
}

bool ArrowedWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched != d->content)
    return QWidget::eventFilter(watched, event);
  switch (event->type()) {
  case QEvent::Resize:
    d->relayoutPending = true;
    if (isVisible())
      d->layOutAroundTip();
    break;
  case QEvent::Hide:
    if (d->content->isHidden())
      hide();
    break;
  case QEvent::ParentChange:
    if (d->content->parentWidget() != this)
      d->release();
    break;
  case QEvent::PaletteChange:
  case QEvent::StyleChange:
    d->adoptLooks();
    break;
  case QEvent::LanguageChange:
    d->adoptDescription();
    break;
  default:
    break;
  }
  return QWidget::eventFilter(watched, event);
}

void ArrowedWindow::paintEvent(QPaintEvent*) {
  if (!d->content)
    return;
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                         QPainter::SmoothPixmapTransform);
  d->fitOutline(painter.paintEngine()->paintDevice()->devicePixelRatioF());
  d->paint(painter);
}

void ArrowedWindow::showEvent(QShowEvent*) {
  if (!d->content)
    return;
  d->content->show();
  if (!d->content)
    return;
  d->adoptDescription();
  if (d->relayoutPending || d->isOutOfDate())
    GenerateLayout();
}

} // namespace Vela::UiBase
