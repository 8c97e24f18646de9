// SPDX-License-Identifier: MIT
#include "closing_views.h"

#include "base_view.h"
#include "base_view_controller.h"
#include "base_view_p.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDialog>
#include <QKeyEvent>

#include <utility>

namespace Vela::UiBase {

using Views = QList<QPointer<BaseView>>;

/// What mayClose() and the window watch know of views.
class ClosingView {
public:
  static bool isLoaded(const BaseView& view) {
    const auto controller = view.ownController();
    return controller && controller->isLoaded();
  }
  // A view that is being asked already is not asked a second question in the middle of the first.
  static bool agrees(BaseView& view) {
    if (view.d->closing)
      return false;
    const QPointer<BaseView> guard(&view);
    view.d->closing = true;
    const bool agreed = view.ownController()->viewWillClose();
    if (guard)
      guard->d->closing = false;
    return agreed;
  }
  static void reload(const Views& agreed) {
    for (auto view = agreed.crbegin(); view != agreed.crend(); ++view) {
      if (*view && (*view)->isVisible() && !isLoaded(**view) && (*view)->ownController())
        (*view)->ownController()->viewDidLoad();
    }
  }
};

namespace {

// Front to back: what lies in a widget before it, the last child first.
void collect(QWidget& widget, Views& views) {
  const QObjectList& children = widget.children();
  for (auto child = children.crbegin(); child != children.crend(); ++child) {
    if (auto* const inner = qobject_cast<QWidget*>(*child); inner && !inner->isWindow())
      collect(*inner, views);
  }
  if (auto* const view = qobject_cast<BaseView*>(&widget))
    views.append(view);
}

QPointer<BaseView> firstToAsk(QWidget& widget, const Views& asked) {
  Views views;
  collect(widget, views);
  for (const QPointer<BaseView>& view : std::as_const(views)) {
    if (ClosingView::isLoaded(*view) && !asked.contains(view))
      return view;
  }
  return nullptr;
}

bool ask(QWidget& widget, Views& agreed) {
  const QPointer<QWidget> guard(&widget);
  Views asked;
  while (QPointer<BaseView> view = guard ? firstToAsk(*guard, asked) : nullptr) {
    asked.append(view);
    if (!ClosingView::agrees(*view)) {
      ClosingView::reload(agreed);
      agreed.clear();
      return false;
    }
    agreed.append(view);
  }
  return true;
}

// Which hides it without a close event.
bool isEscape(const QWidget& window, const QEvent& event) {
  return event.type() == QEvent::KeyPress && qobject_cast<const QDialog*>(&window) &&
         static_cast<const QKeyEvent&>(event).matches(QKeySequence::Cancel);
}

} // namespace

bool mayClose(QWidget& widget) {
  Views agreed;
  return ask(widget, agreed);
}

ViewWindow::ViewWindow(QWidget& window) : QObject(&window), m_window(window) {}

void ViewWindow::watch(QWidget& window) {
  if (qobject_cast<BaseView*>(&window))
    return;
  auto* watch = window.findChild<ViewWindow*>(QString(), Qt::FindDirectChildrenOnly);
  if (!watch) {
    watch = new ViewWindow(window);
    window.installEventFilter(watch);
  }
}

bool ViewWindow::eventFilter(QObject*, QEvent* event) {
  const bool closes = event->type() == QEvent::Close || isEscape(m_window, *event);
  return closes && !m_passesOn && close(event);
}

bool ViewWindow::close(QEvent* event) {
  const QPointer<ViewWindow> self(this);
  if (qobject_cast<QDialog*>(&m_window)) {
    const bool agreed = ask(m_window, m_agreed);
    if (!agreed)
      event->ignore();
    else if (self)
      QMetaObject::invokeMethod(
          this, [this] { reloadIfStillOpen(); }, Qt::QueuedConnection);
    return !agreed || !self;
  }
  m_passesOn = true;
  QCoreApplication::instance()->notify(&m_window, event); // sendEvent() would forget that it is spontaneous
  if (!self)
    return true;
  m_passesOn = false;
  if (event->isAccepted() && !mayClose(m_window))
    event->ignore();
  return true;
}

void ViewWindow::reloadIfStillOpen() { ClosingView::reload(std::exchange(m_agreed, {})); }

} // namespace Vela::UiBase
