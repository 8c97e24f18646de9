// SPDX-License-Identifier: MIT
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
  if (front() == &view && view.isVisible())
    tell(view, Told::Appeared);
  settle();
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
  if (told(view) == Told::Appeared ||
      (told(view) == Told::Nothing && std::none_of(above, m_layers.cend(), behind)))
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
  const bool hadFocus = holdsFocus(view); // also in a page that is not seen
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
  if (own.get() == this && hadFocus)
    passFocusOn(view);
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
