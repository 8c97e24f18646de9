// SPDX-License-Identifier: MIT
#include "arrowed_window_p.h"

#include "arrow_outline.h"
#include "arrowed_window.h"
#include "cached_shadow_effect.h"

#include <vlk_common_res/styles.h>

#include <QPainter>
#include <QVBoxLayout>
#include <QtMath>

#include <utility>

namespace Vela::UiBase {

namespace {

/// The size of a content that nothing else decides on. Qt's own item knows none for hidden widgets, and
/// collapses those without a size hint.
QSize naturalSize(const QWidget& widget) {
  widget.ensurePolished();
  QSize size = widget.sizeHint();
  if (!size.isValid() && widget.testAttribute(Qt::WA_Resized))
    size = widget.size();
  const auto limited = [&](const QSize& wanted) {
    return wanted.expandedTo({0, 0})
        .expandedTo(widget.minimumSizeHint())
        .boundedTo(widget.maximumSize())
        .expandedTo(widget.minimumSize());
  };
  size = limited(size);
  if (widget.hasHeightForWidth())
    size = limited({size.width(), widget.heightForWidth(size.width())});
  return size;
}

class ContentItem : public QWidgetItem {
public:
  using QWidgetItem::QWidgetItem;

  bool isEmpty() const override { return false; }
  bool hasHeightForWidth() const override { return false; }
  QSize sizeHint() const override { return naturalSize(*wid).expandedTo(smallest); }
  QSize minimumSize() const override { return sizeHint(); }

  QSize smallest;
};

QColor defaultShadowColor(const QPalette& palette) {
  const bool dark = Vela::Resource::Styles::suitablePalette(palette) == Vela::Resource::Dark;
  return dark ? QColor(0, 0, 0, 166) : QColor(192, 192, 192, 166);
}

bool isDefaultShadowColor(const QColor& color) {
  return color == QColor(0, 0, 0, 166) || color == QColor(192, 192, 192, 166);
}

} // namespace

struct ArrowedWindowPrivate::LaidOut {
  ArrowFrame frame;
  SArrowParam arrow;
  QRect place; // of the content
  friend bool operator==(const LaidOut&, const LaidOut&) = default;
};

ArrowedWindowPrivate::ArrowedWindowPrivate() {
  currentArrow.position = NoArrow;
  m_askedCurrent.position = NoArrow;
}

ArrowedWindowPrivate::~ArrowedWindowPrivate() = default;

// --- the content

void ArrowedWindowPrivate::attach(QWidget* widget) {
  if (content == widget) {
    layOut();
    return;
  }
  const QPointer<QWidget> self(window);
  const QPointer<QWidget> next(widget);
  if (QWidget* const before = release())
    before->hide();
  // What is shown is hidden on the way, of which others hear.
  if (self && next)
    next->setParent(window);
  if (!self || !next || next->parentWidget() != window || content)
    return;
  layout->addItem(new ContentItem(widget));
  content = widget;
  m_contentDeath = QObject::connect(widget, &QObject::destroyed, window, [this] {
    // A dying widget announces it before guarded pointers to it are null.
    content.clear();
    window->hide();
  });
  watchContent(true);
  adoptLooks();
  adoptDescription();
  normalizeArrows();
  layOut();
  if (window->isVisible())
    widget->show();
}

QWidget* ArrowedWindowPrivate::release() {
  QWidget* const released = content;
  QObject::disconnect(m_contentDeath);
  watchContent(false);
  content = nullptr;
  m_laidOut.reset();
  if (released)
    layout->removeWidget(released);
  return released;
}

void ArrowedWindowPrivate::watchContent(bool watch) {
  if (!content)
    return;
  if (watch)
    content->installEventFilter(window);
  else
    content->removeEventFilter(window);
}

void ArrowedWindowPrivate::adoptLooks() {
  content->ensurePolished();
  background = content->palette().color(QPalette::Window);
  if (isDefaultShadowColor(shadow()->color()))
    shadow()->setColor(defaultShadowColor(content->palette()));
  window->update();
}

void ArrowedWindowPrivate::adoptDescription() {
  // What somebody gave to the window itself stays.
  if (window->accessibleName() == m_adoptedName) {
    m_adoptedName = content->accessibleName();
    if (m_adoptedName.isEmpty())
      m_adoptedName = content->windowTitle();
    window->setAccessibleName(m_adoptedName);
  }
  if (window->accessibleDescription() == m_adoptedDescription) {
    m_adoptedDescription = content->accessibleDescription();
    window->setAccessibleDescription(m_adoptedDescription);
  }
}

// --- the layout

ArrowFrame ArrowedWindowPrivate::frame() const {
  ArrowFrame frame;
  frame.content = m_contentSize;
  frame.contentMargin = contentMargin;
  frame.cornerRadius = cornerRadius;
  frame.border = border;
  frame.pixelRatio = m_pixelRatio;
  if (m_installedShadow && window->isWindow()) {
    const QRect unit(0, 0, 1, 1);
    const QRect shaded = m_installedShadow->boundingRectFor(unit).toAlignedRect();
    frame.room = QMargins(-shaded.left(), -shaded.top(), shaded.right(), shaded.bottom());
  }
  return frame;
}

void ArrowedWindowPrivate::addArrow(const SArrowParam& arrow) {
  m_askedArrows.append(arrow);
  arrows.append(arrow);
  normalizeArrows();
  setCurrentArrow(arrows.constFirst());
}

void ArrowedWindowPrivate::clearArrows() {
  m_askedArrows.clear();
  arrows.clear();
}

void ArrowedWindowPrivate::setCurrentArrow(const SArrowParam& arrow) {
  m_askedCurrent = asked(arrow);
  currentArrow = arrow;
}

const SArrowParam& ArrowedWindowPrivate::asked(const SArrowParam& arrow) const {
  const qsizetype known = arrows.indexOf(arrow);
  if (known >= 0)
    return m_askedArrows.at(known);
  return arrow == currentArrow ? m_askedCurrent : arrow;
}

ArrowLayout ArrowedWindowPrivate::measure(const SArrowParam& arrow) const {
  return measureArrow(frame(), asked(arrow));
}

QRect ArrowedWindowPrivate::shape() const {
  return currentArrow.position == NoArrow ? bounds : bounds | QRect(tip, QSize(1, 1));
}

void ArrowedWindowPrivate::normalizeArrows() {
  if (!content)
    return;
  m_contentSize = naturalSize(*content);
  for (qsizetype i = 0; i < arrows.size(); ++i)
    arrows[i] = measureArrow(frame(), m_askedArrows.at(i)).arrow;
  if (!arrows.isEmpty())
    setCurrentArrow(arrows.constFirst());
}

void ArrowedWindowPrivate::layOut() {
  if (!content || layout->count() == 0)
    return; // somebody has taken it away
  relayoutPending = false;
  m_contentSize = naturalSize(*content);
  LaidOut wanted{frame(), m_askedCurrent, content->geometry()};
  if (m_laidOut && *m_laidOut == wanted)
    return;
  watchContent(false);
  const ArrowLayout result = measureArrow(wanted.frame, wanted.arrow);
  partialRect = QRect(result.bounds.left(), partialRect.top() + result.bounds.top() - bounds.top(),
                      result.bounds.width(), partialRect.height());
  currentArrow = result.arrow;
  bounds = result.bounds;
  tip = result.tip;
  m_outlineOutdated = true;

  static_cast<ContentItem*>(layout->itemAt(0))->smallest = result.smallestContent;
  const QRect inner = result.content;
  layout->setContentsMargins(inner.left(), inner.top(), result.size.width() - inner.right() - 1,
                             result.size.height() - inner.bottom() - 1);
  layout->invalidate();
  layout->activate();
  window->update();
  if (!content)
    return;
  wanted.place = content->geometry();
  m_laidOut = std::make_unique<LaidOut>(std::move(wanted));
  watchContent(true);
}

void ArrowedWindowPrivate::layOutAroundTip() {
  const QPoint before = tip;
  layOut();
  if (currentArrow.position != NoArrow && tip != before)
    window->move(window->pos() + before - tip);
}

bool ArrowedWindowPrivate::isOutOfDate() const { return naturalSize(*content) != m_contentSize; }

void ArrowedWindowPrivate::fitOutline(qreal pixelRatio) {
  const bool finerLine = pixelRatio != m_pixelRatio && border.widthF() <= 0;
  m_pixelRatio = pixelRatio;
  if (!content || (!finerLine && !std::exchange(m_outlineOutdated, false)))
    return;
  m_outlineOutdated = false;
  ArrowLayout drawn;
  drawn.bounds = bounds;
  drawn.tip = tip;
  drawn.arrow = currentArrow;
  drawArrow(frame(), drawn);
  outline = drawn.outline;
  m_borderShape = drawn.border;
}

// Qt spreads the filling of a path with many edges over threads. For windows as low as most tooltips waking
// them takes longer than filling, so these are painted in bands with few edges each.
void ArrowedWindowPrivate::paint(QPainter& painter) const {
  constexpr int low = 64;
  constexpr int band = 16;
  const QRect whole = window->rect();
  if (whole.height() * m_pixelRatio > low) {
    paintShape(painter);
    return;
  }
  for (int top = 0; top < whole.height(); top += band) {
    painter.setClipRect(whole.left(), top, whole.width(), band);
    paintShape(painter);
  }
}

void ArrowedWindowPrivate::paintShape(QPainter& painter) const {
  constexpr int nearlyTransparent = 50;
  painter.fillPath(outline, background.alpha() < nearlyTransparent ? QColor(255, 255, 255, 128) : background);
  if (partialBackground) {
    QPainterPath stripe;
    stripe.addRect(partialRect);
    painter.fillPath(outline.intersected(stripe), partialColor);
  }
  painter.fillPath(m_borderShape, border.brush());
}

// --- the shadow

std::unique_ptr<CachedShadowEffect> ArrowedWindowPrivate::makeShadow() {
  auto effect = std::make_unique<CachedShadowEffect>(
      *window, [this](qreal pixelRatio) { return shadowShape(pixelRatio); });
  effect->setBlurRadius(15.0);
  effect->setOffset(0, 0);
  effect->setColor(defaultShadowColor(content ? content->palette() : window->palette()));
  const auto makeRoom = [this] {
    if (window->isWindow() && m_installedShadow)
      layOut();
  };
  QObject::connect(effect.get(), &QGraphicsDropShadowEffect::blurRadiusChanged, window, makeRoom);
  QObject::connect(effect.get(), &QGraphicsDropShadowEffect::offsetChanged, window, makeRoom);
  return effect;
}

QGraphicsDropShadowEffect* ArrowedWindowPrivate::shadow() {
  if (m_installedShadow)
    return m_installedShadow;
  if (!m_spareShadow)
    m_spareShadow = makeShadow();
  return m_spareShadow.get();
}

void ArrowedWindowPrivate::enableShadow(bool enable) {
  if (enable == !m_installedShadow.isNull())
    return;
  if (enable) {
    shadow();
    m_installedShadow = m_spareShadow.release();
    window->setGraphicsEffect(m_installedShadow);
  } else {
    // The window deletes the one it had.
    m_spareShadow = makeShadow();
    m_spareShadow->setLooks(*m_installedShadow);
    window->setGraphicsEffect(nullptr);
  }
  if (window->isWindow())
    layOut();
}

CachedShadowShape ArrowedWindowPrivate::shadowShape(qreal pixelRatio) {
  fitOutline(pixelRatio);
  const int edge = cornerRadius + qCeil(border.widthF()) + 1;
  return {outline, bounds.adjusted(edge, edge, -edge, -edge)};
}

} // namespace Vela::UiBase
