// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/present_view_protocol.h>

#include <QPointer>

namespace Vela::UiBase {

class BaseView;
class BaseViewController;

/// A view in a presentation, as it was when BaseView::presentation() was asked. A plain value; what died
/// since then is null.
struct PresentedView {
  QPointer<BaseView> view;
  QPointer<BaseViewController> controller;
  QPointer<BaseView> presenter; ///< The view that it was presented over; null for the base view.
  ETransitionDirection direction = NoTransition;
  bool appeared = false; ///< Whether viewWillAppear() was the last that its controller heard.
  bool covered = false;  ///< Whether another view lies in front of it, so that no input reaches it.
};

} // namespace Vela::UiBase
