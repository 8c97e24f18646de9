// SPDX-License-Identifier: MIT
#include "application_event_relay.h"
#include "base_view.h"
#include "base_view_p.h"
#include "covered_children.h"
#include "presentation.h"
#include "view_focus.h"

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

void Presentation::willShow(BaseView& view, bool takesFocus) {
  const auto self = shared_from_this();
  const QPointer<BaseView> shown(&view);
  if (Layer* const layer = find(view))
    layer->unmapped = false;
  if (takesFocus)
    focusFront();
  cover();
  if (shown && front() == shown)
    tellCovered(); // it is told itself when it is loaded
}

void Presentation::didLoad(BaseView& view) {
  const auto self = shared_from_this();
  const QPointer<BaseView> loaded(&view);
  if (front() == &view && view.isVisible() && !liesCovered())
    tell(view, Told::Appeared);
  settle();
  const auto controller = loaded ? loaded->ownController() : nullptr;
  if (!controller || told(*loaded) != Told::Nothing || of(*loaded)->mayNotify(*loaded))
    return;
  controller->m_told = Told::Disappeared; // it is covered, and there is nothing to tell
  controller->reachChanged();
}

void Presentation::willHide(BaseView& view, bool unmapped) {
  Layer* const layer = find(view);
  if (!layer)
    return;
  layer->unmapped = unmapped;
  const auto behind = [&view](const Layer& other) {
    return other.view && other.view->isVisible() && !isWithin(other.view, &view);
  };
  const auto above = m_layers.cbegin() + (layer - m_layers.data()) + 1;
  const bool mayAppear =
      told(view) == Told::Nothing && std::none_of(above, m_layers.cend(), behind) && !liesCovered();
  if (told(view) == Told::Appeared || mayAppear)
    tell(view, Told::Disappeared);
}

void Presentation::didHide(BaseView& view, bool hadFocus) {
  const auto self = shared_from_this();
  const QPointer<BaseView> hidden(&view);
  cover();
  if (hidden && hadFocus)
    passFocusOn(view);
  settle();
}

void Presentation::reparented(BaseView& view) {
  view.d->focusElsewhere = false; // where it stood
  const Layer* const layer = find(view);
  if (layer && !isBase(view) && (!layer->presenter || layer->presenter != view.parentWidget()))
    end(view);
  ApplicationEventRelay::giveFocusBack(); // Qt took it from a view in a page that is not seen
}

// Qt takes the focus away from what is disabled and does not give it back.
void Presentation::enabledChanged(BaseView& view) {
  if (front() == &view && view.isEnabled() && view.isVisible() && !view.window()->focusWidget())
    focusFront();
}

void Presentation::controllerWillChange(BaseView& view) {
  if (told(view) == Told::Appeared)
    tell(view, Told::Disappeared);
}

// A presented view that nobody can dismiss any more does not stay in the way.
void Presentation::controllerChanged(BaseView& view) {
  const auto self = shared_from_this();
  if (view.ownController() || isBase(view))
    return settle();
  const QPointer<BaseView> left(&view);
  view.hide();
  if (left)
    of(*left)->end(*left);
}

void Presentation::viewDies(BaseView& view) {
  if (!isBase(view))
    end(view);
  const std::shared_ptr<Presentation> own = of(view);
  for (Layer& layer : own->m_layers) {
    if (layer.presenter == &view)
      layer.presenter = nullptr;
  }
  if (Layer* const layer = own->find(view)) {
    layer->cover = nullptr;
    layer->view = nullptr;
  }
  if (holdsFocus(view)) // also in a page that is not seen
    passFocusOn(view);
}

// A controller that was given to another view hears of that one.
Presentation::Told Presentation::told(const BaseView& view) {
  const auto controller = view.ownController();
  return controller ? controller->m_told : Told::Nothing;
}

void Presentation::tell(BaseView& view, Told what) {
  const std::shared_ptr<BaseViewController> controller = view.ownController();
  if (!controller || std::exchange(controller->m_told, what) == what)
    return;
  const QPointer<BaseViewController> listener(controller.get()); // it may be deleted by hand
  if (what == Told::Appeared)
    controller->viewWillAppear();
  else
    controller->viewWillDisappear();
  if (listener)
    listener->reachChanged();
}

// Those on their way out are told when they are hidden.
BaseView* Presentation::leaving() const {
  for (std::size_t i = 1; i < m_layers.size(); ++i) {
    if (!m_layers[i].presenter)
      return m_layers[i].view;
  }
  return nullptr;
}

/// Tells who is covered that it disappears.
void Presentation::tellCovered() {
  const auto self = shared_from_this();
  const auto appearedBehind = [this]() -> BaseView* {
    const BaseView* const left = leaving();
    const BaseView* const front = liesCovered() ? nullptr : frontBut(left);
    for (const Layer& layer : m_layers) {
      if (layer.view && layer.view != front && told(*layer.view) == Told::Appeared &&
          !(left && isWithin(layer.view, left)))
        return layer.view;
    }
    return nullptr;
  };
  while (BaseView* const behind = appearedBehind())
    tell(*behind, Told::Disappeared);
}

/// Tells who is covered that it disappears, and then the front that it appears.
void Presentation::settle() {
  const auto self = shared_from_this();
  tellCovered();
  BaseView* const front = frontBut(leaving());
  const Layer* const layer = front ? find(*front) : nullptr;
  if (!layer || layer->unmapped || !front->isVisible() || liesCovered())
    return;
  const auto controller = front->ownController();
  if (told(*front) == Told::Disappeared || (controller && controller->isLoaded()))
    tell(*front, Told::Appeared);
}

void Presentation::cover() {
  const auto self = shared_from_this();
  QList<QPointer<BaseView>> views;
  for (const Layer& layer : m_layers)
    views.append(layer.view);
  QList<QPointer<BaseView>> changed;
  for (const QPointer<BaseView>& view : std::as_const(views)) {
    Layer* const layer = view ? find(*view) : nullptr;
    if (!layer)
      continue;
    if (isCovered(*view) != bool(layer->cover))
      changed.append(view);
    if (isCovered(*view)) {
      if (!layer->cover)
        layer->cover = std::make_unique<CoveredChildren>(*view);
      layer->cover->update();
    } else if (const auto cover = std::exchange(layer->cover, nullptr)) {
      cover->release();
    }
  }
  const BaseView* const back = base();
  const BaseView* const top = front();
  if (top != back && holdsFocus(*back) && !holdsFocus(*top))
    focusFront();
  for (const QPointer<BaseView>& view : std::as_const(changed)) {
    if (view)
      settleWithin(*view);
  }
}

/// Tells the views that lie in another one, but are not presented there, that it was covered or uncovered.
void Presentation::settleWithin(const BaseView& place) {
  QList<QPointer<BaseView>> inner;
  const auto views = place.findChildren<BaseView*>();
  for (BaseView* const view : views) {
    if (of(*view) != of(place) && of(*view)->isBase(*view))
      inner.append(view);
  }
  for (const QPointer<BaseView>& view : std::as_const(inner)) {
    if (view)
      of(*view)->settle();
  }
}

void Presentation::raiseOver(const BaseView& presenter) const {
  QList<QPointer<BaseView>> views;
  for (const Layer& layer : m_layers) {
    if (layer.presenter == &presenter)
      views.append(layer.view);
  }
  for (const QPointer<BaseView>& view : std::as_const(views)) {
    if (view)
      view->raise();
  }
}

void Presentation::rememberFocus(BaseView& view) {
  QWidget* const focus = holdsFocus(view) ? view.window()->focusWidget() : view.focusWidget();
  if (Layer* const layer = find(view); layer && focus && canTakeFocus(*focus, view))
    layer->focus = focus;
}

void Presentation::focusFront(const BaseView* gone) {
  BaseView* const view = front();
  if (!view)
    return;
  const auto usable = [view, gone](const QWidget* widget) {
    return widget && canTakeFocus(*widget, *view) && !(gone && isWithin(widget, gone));
  };
  QWidget* focus = nullptr;
  if (Layer* const layer = find(*view))
    focus = std::exchange(layer->focus, nullptr);
  if (!usable(focus))
    focus = view->focusWidget();
  if (!usable(focus))
    focus = view;
  focus->setFocus();
}

} // namespace Vela::UiBase
