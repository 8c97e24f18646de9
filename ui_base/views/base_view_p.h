// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/lifetime.h>

#include <QEvent>

#include <memory>
#include <utility>

namespace Vela::UiBase {

class BaseViewController;
class ControllerInUse;
class Presentation;

/// Exists while somebody goes on with views after what is called out to: Qt, which walks over widgets to hide
/// them, to activate their window or to tell them where the mouse is, or a view whose destructor runs. What
/// would delete a view meanwhile has it deleted later.
class ViewsInUse {
public:
  ViewsInUse() { ++s_count; }
  ~ViewsInUse() { --s_count; }
  ViewsInUse(const ViewsInUse&) = delete;
  ViewsInUse& operator=(const ViewsInUse&) = delete;

  static bool any() { return s_count > 0; }

private:
  static inline int s_count = 0;
};

class BaseViewPrivate {
public:
  /// The release of the button goes elsewhere.
  void forgetClick() {
    doubleClicking = false;
    movedWhilePressed = false;
    pressed = false;
  }

  /// Who was told that the mouse or a drag came in is told that it goes, also when covered meanwhile.
  bool awaits(QEvent::Type end) const {
    return (end == QEvent::Leave && entered) || (end == QEvent::DragLeave && dragEntered);
  }

  bool doubleClicking = false; // a double click was handed on; presses and releases are not
  bool movedWhilePressed = false;
  bool pressed = false;
  int lastKey = Qt::Key_unknown;

  bool entered = false;     // the mouse, and the controller heard of it
  bool dragEntered = false; // a drag, likewise

  bool shown = false;          // since it was hidden last
  int showingOrHiding = 0;     // Qt still works with the view when the event has been handled
  int moves = 0;               // to another parent, that Qt is in the middle of
  bool keptUnmapped = false;   // until it is shown again: it was hidden in its own show event
  bool closing = false;        // it is being asked whether it may close
  bool closed = false;         // it agreed, and is deleted soon
  bool dying = false;          // its destructor runs, and calls out
  bool focusElsewhere = false; // when it was last hidden together with what it stands in

  std::shared_ptr<BaseViewController> controller;
  std::shared_ptr<Presentation> presentation; // never null

  Lifetime lifetime;
  ControllerInUse* inUse = nullptr; // the innermost
};

/// Exists while the controller handles input of its view. A controller that the view lets go of meanwhile is
/// handed over and lives on until that is done: no reference is counted where nothing happens, which locks.
class ControllerInUse {
public:
  explicit ControllerInUse(BaseViewPrivate& view)
      : m_viewLife(view.lifetime),
        m_view(view),
        m_outer(std::exchange(view.inUse, this)),
        m_controller(view.controller.get()) {}
  ~ControllerInUse() {
    if (!viewEnded())
      m_view.inUse = m_outer;
  }
  ControllerInUse(const ControllerInUse&) = delete;
  ControllerInUse& operator=(const ControllerInUse&) = delete;

  bool viewEnded() const { return m_viewLife.ended(); }

  /// The view lets go of a controller.
  static void handOver(const BaseViewPrivate& view, const std::shared_ptr<BaseViewController>& controller) {
    ControllerInUse* outermost = nullptr;
    for (ControllerInUse* use = view.inUse; use; use = use->m_outer) {
      if (use->m_controller == controller.get())
        outermost = use;
    }
    if (outermost)
      outermost->m_kept = controller;
  }

private:
  const Lifetime::Guard m_viewLife;
  BaseViewPrivate& m_view;
  ControllerInUse* const m_outer;
  const BaseViewController* const m_controller;
  std::shared_ptr<BaseViewController> m_kept;
};

} // namespace Vela::UiBase
