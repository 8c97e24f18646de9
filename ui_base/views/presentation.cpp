// SPDX-License-Identifier: MIT
#include "presentation.h"

#include "base_view.h"
#include "base_view_controller.h"
#include "base_view_p.h"
#include "covered_children.h"
#include "view_focus.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Vela::UiBase {

namespace {

quint64 nextSerial() {
  static quint64 serial = 0;
  return ++serial;
}

} // namespace

Presentation::Presentation(BaseView& base) {
  m_layers.emplace_back();
  m_layers.back().view = &base;
}

Presentation::~Presentation() = default;

bool Presentation::isWithin(const QObject* object, const QObject* ancestor) {
  while (object && object != ancestor)
    object = object->parent();
  return object != nullptr;
}

std::shared_ptr<Presentation> Presentation::of(const BaseView& view) { return view.d->presentation; }

Presentation::Layer* Presentation::find(const BaseView& view) {
  const auto found = std::find_if(m_layers.begin(), m_layers.end(),
                                  [&view](const Layer& layer) { return layer.view == &view; });
  return found == m_layers.end() ? nullptr : &*found;
}

const Presentation::Layer* Presentation::find(const BaseView& view) const {
  return const_cast<Presentation*>(this)->find(view);
}

BaseView* Presentation::base() const { return m_layers.empty() ? nullptr : m_layers.front().view.data(); }

bool Presentation::isBase(const BaseView& view) const { return base() == &view; }

// In a view that another one covers, without a place in that order.
bool Presentation::liesCovered() const {
  const QWidget* inner = base();
  while (inner && !inner->isWindow() && inner->parentWidget()) {
    const auto* const outer = qobject_cast<const BaseView*>(inner->parentWidget());
    if (outer && of(*outer)->isCovered(*outer) && CoveredChildren::isBehind(*outer, *inner))
      return true;
    inner = inner->parentWidget();
  }
  return false;
}

quint64 Presentation::serialOf(const BaseView& view) const {
  const Layer* const layer = find(view);
  return layer ? layer->serial : 0;
}

// The front when a view, and what was presented over that, is left out of account.
BaseView* Presentation::frontBut(const BaseView* left) const {
  BaseView* const back = base();
  for (auto layer = m_layers.rbegin(); back && layer != m_layers.rend(); ++layer) {
    BaseView* const view = layer->view;
    if (view && view != back && view->isVisibleTo(back) && !(left && isWithin(view, left)))
      return view;
  }
  return back;
}

BaseView* Presentation::front() const { return frontBut(nullptr); }

BaseView* Presentation::presenterOf(const BaseView& view) const {
  const Layer* const layer = find(view);
  return layer ? layer->presenter.data() : nullptr;
}

ETransitionDirection Presentation::directionOf(const BaseView& view) const {
  const Layer* const layer = find(view);
  return layer ? layer->direction : NoTransition;
}

bool Presentation::mayNotify(const BaseView& view) const {
  const Layer* const layer = find(view);
  const bool mayAppear = told(view) == Told::Nothing && !isCovered(view) && !liesCovered();
  return layer && (told(view) == Told::Appeared || mayAppear);
}

QList<PresentedView> Presentation::describe() const {
  QList<PresentedView> views;
  const bool allCovered = liesCovered();
  for (const Layer& layer : m_layers) {
    if (const BaseView* const view = layer.view)
      views.append({layer.view, view->getViewController(), layer.presenter, layer.direction,
                    told(*view) == Told::Appeared, allCovered || isCovered(*view)});
  }
  return views;
}

// What hears of the move, as the tabs that show another page instead, must not move it again: Qt would keep
// it as a child of two parents.
bool Presentation::isBeingMoved(const BaseView& view) {
  for (const QWidget* place = &view; place; place = place->parentWidget()) {
    if (const auto* const outer = qobject_cast<const BaseView*>(place); outer && outer->d->moves > 0)
      return true;
  }
  return false;
}

bool Presentation::mayPresent(const BaseView& presenter, const BaseView& view) {
  const bool ends = view.d->dying || view.d->closing || (view.d->closed && view.isHidden());
  const bool presenterEnds = presenter.d->dying || (presenter.d->closed && presenter.isHidden());
  // Qt cannot move a widget out of its own show or hide event, which may be that of another move.
  const bool mayMove = view.parentWidget() == &presenter || !view.d->showingOrHiding;
  return !ends && !presenterEnds && mayMove && view.d->moves == 0 && !isBeingMoved(presenter) &&
         !isWithin(&presenter, &view);
}

// Qt announces only the move of a view that has been seen; what another one leaves may call out too, as tabs
// do.
void Presentation::moveInto(BaseView* presenter, const QPointer<BaseView>& view) {
  const int before = view->d->moves;
  view->d->moves += !view->testAttribute(Qt::WA_WState_Created);
  view->setParent(presenter);
  if (view)
    view->d->moves = before;
}

bool Presentation::present(BaseView& presenter, BaseView& view, ETransitionDirection direction) {
  if (!mayPresent(presenter, view))
    return false;
  const QPointer<BaseView> over(&presenter);
  const QPointer<BaseView> shown(&view);
  if (view.parentWidget() != &presenter && !view.isHidden())
    view.hide(); // first: what hears of it may move either view, and Qt would not notice
  if (!over || !shown || !mayPresent(*over, *shown))
    return false;
  if (shown->parentWidget() != over)
    moveInto(over, shown); // which ends its presentation elsewhere
  if (over && shown)
    shown->setGeometry(over->rect());
  if (!over || !shown || shown->parentWidget() != over || !mayPresent(*over, *shown))
    return false;
  over->installEventFilter(shown);

  const std::shared_ptr<Presentation> order = of(*over);
  if (BaseView* const front = order->front(); front && front != shown)
    order->rememberFocus(*front);
  order->insert(of(*shown)->take(*shown), *over, direction);
  const quint64 serial = order->serialOf(*shown);
  order->raiseOver(*over);
  if (over)
    order->tell(*over, Told::Disappeared);
  return show(shown, serial);
}

// Shows what stands in its place now, unless it was told to leave meanwhile.
bool Presentation::show(const QPointer<BaseView>& view, quint64 serial) {
  const auto stands = [&view, serial] { return view && of(*view)->serialOf(*view) == serial; };
  if (!stands())
    return false;
  const bool wasHidden = view->isHidden();
  if (wasHidden)
    view->show();
  else if (view->isVisible())
    of(*view)->focusFront();
  if (stands())
    of(*view)->cover();
  if (stands())
    of(*view)->settle();
  return stands();
}

bool Presentation::dismiss(BaseView& view) {
  if (view.d->closing)
    return false;
  const QPointer<BaseView> shown(&view);
  const std::shared_ptr<Presentation> order = of(view);
  const QPointer<BaseView> presenter = order->presenterOf(view);
  if (!presenter)
    return close(shown);
  const ETransitionDirection direction = order->directionOf(view);
  const quint64 serial = order->serialOf(view);
  presenter->removeEventFilter(shown);
  BaseView* const next = order->frontBut(shown);
  if (next && (next == presenter || next->isVisible()) && !order->liesCovered())
    order->tell(*next, Told::Appeared);
  if (!shown)
    return true;
  if (order->serialOf(*shown) != serial) // a callback ended the presentation, or began another one
    return !of(*shown)->presenterOf(*shown) && close(shown);

  order->find(*shown)->presenter = nullptr;
  order->find(*shown)->direction = NoTransition;
  const bool closed = close(shown);
  Layer* const layer = shown ? order->find(*shown) : nullptr;
  if (!layer || layer->serial != serial)
    return closed;
  if (closed) {
    order->end(*shown);
    return true;
  }
  layer->presenter = presenter;
  layer->direction = direction;
  if (presenter)
    presenter->installEventFilter(shown);
  order->settle();
  return false;
}

bool Presentation::close(const QPointer<BaseView>& view) { return view->close() || !view; }

Presentation::Layers Presentation::take(BaseView& view) {
  const auto first = std::stable_partition(
      m_layers.begin(), m_layers.end(), [&view](const Layer& layer) { return !isWithin(layer.view, &view); });
  Layers taken(std::make_move_iterator(first), std::make_move_iterator(m_layers.end()));
  m_layers.erase(first, m_layers.end());
  return taken;
}

// In front of all that was presented over the presenter before.
void Presentation::insert(Layers layers, BaseView& presenter, ETransitionDirection direction) {
  Layer& layer = layers.front();
  layer.presenter = &presenter;
  layer.direction = direction;
  layer.serial = nextSerial();
  for (const Layer& each : layers) {
    if (each.view)
      each.view->d->presentation = shared_from_this();
  }
  const auto last = std::find_if(m_layers.rbegin(), m_layers.rend(), [&presenter](const Layer& other) {
    return isWithin(other.view, &presenter);
  });
  m_layers.insert(last.base(), std::make_move_iterator(layers.begin()),
                  std::make_move_iterator(layers.end()));
}

// A view, with what was presented over it, becomes a presentation of its own.
void Presentation::end(BaseView& view) {
  const auto self = shared_from_this();
  const QPointer<BaseView> left(&view);
  if (BaseView* const presenter = presenterOf(view))
    presenter->removeEventFilter(&view);
  const auto own = std::make_shared<Presentation>(view);
  own->m_layers = take(view);
  own->m_layers.front().presenter = nullptr;
  own->m_layers.front().direction = NoTransition;
  own->m_layers.front().serial = 0;
  for (const Layer& layer : own->m_layers) {
    if (layer.view)
      layer.view->d->presentation = own;
  }
  own->cover();
  cover();
  if (const BaseView* const back = base(); back && back->isVisible()) {
    const QWidget* const focus = back->window()->focusWidget();
    if (!focus || isWithin(focus, left))
      focusFront(left);
  }
  settle();
}

} // namespace Vela::UiBase
