// SPDX-License-Identifier: MIT
#include "view_fuzz_actors.h"

#include <QCoreApplication>
#include <QDialog>
#include <QEventLoop>
#include <QTimer>

namespace Vela::Test {

using namespace UiBase;

namespace {

const char* const actNames[ACTS] = {"delete view", "delete controller", "delete itself", "present",
                                    "dismiss",     "reattach",          "reparent",      "nested loop",
                                    "dialog",      "close view",        "hide or show",  "push tool",
                                    "pop tool",    "begin operation",   "end operation"};

} // namespace

void ViewFuzz::callOut(CmdsViewController* controller, InteractiveTool* itself) {
  if (m_depth >= MaxDepth || m_bytes.next(4) != 3)
    return;
  ++m_depth;
  act(Act(m_bytes.next(ACTS)), m_bytes.next(3) ? controller : anyController(), itself);
  --m_depth;
}

// Views may be deleted, moved and wait for events where they hand on input, and where their controllers hear
// of them without Qt; while Qt shows, hides or focuses one after the other it holds on to all of them.
void ViewFuzz::endView(BaseView* view, QObject* object) {
  const bool isHeld = m_events > 0 || m_deletes > 0 || (keepsWindows && view && view->isWindow());
  if (isHeld && object)
    return object->deleteLater();
  const QScopedValueRollback deletes(m_deletes, m_deletes + 1); // not what it stands in
  delete object;
}

void ViewFuzz::act(Act act, CmdsViewController* controller, InteractiveTool* itself) {
  const bool movesViews = act == Reparent || act == NestedLoop || act == Dialog; // or lets deleted ones die
  if (!controller || (movesViews && (m_events > 0 || keepsWindows)))
    return;
  hits()[std::size_t(act)] += m_depth > 0;
  note(QLatin1String(actNames[act]), controller);
  const bool showsViews =
      act == Present || act == Dismiss || act == Reparent || act == CloseView || act == HideOrShow;
  const QScopedValueRollback walk(m_events, m_events + showsViews);
  const QPointer<BaseView> view = controller->getView();
  const auto button = std::array{NoButton, LeftButton, RightButton, MiddleButton}[m_bytes.next(4)];
  switch (act) {
  case DeleteView:
    return endView(view, view);
  case DeleteController:
    return endView(view, controller);
  case DeleteItself:
    for (const HeldTool& held : controller->heldTools()) {
      if (held.tool.get() == itself && controller->getTool(held.button) == held.tool)
        controller->popTool(held.button);
    }
    return;
  case Present:
    return present(*controller);
  case Dismiss:
    controller->dismissViewController();
    return;
  case Reattach:
    return reattach(*controller);
  case Reparent:
    return view ? reparent(*view) : void();
  case NestedLoop: {
    QEventLoop loop;
    QTimer::singleShot(0, &loop, &QEventLoop::quit);
    loop.exec();
    return;
  }
  case Dialog:
    return openDialog();
  case CloseView:
    controller->close();
    return;
  case HideOrShow:
    return view && view->isVisible() ? controller->hide() : controller->show();
  case PushTool:
    if (m_tools.size() < 8 && view)
      m_tools.push_back(std::make_shared<FuzzTool>(view, int(m_tools.size())));
    if (!m_tools.empty())
      controller->pushTool(button, m_tools[std::size_t(m_bytes.next(int(m_tools.size())))]);
    return;
  case PopTool:
    controller->popTool(button);
    return;
  case BeginOperation:
    if (const auto tool = controller->getTool(button))
      static_cast<FuzzTool&>(*tool).startOperation();
    return;
  case EndOperation:
    return controller->endRunningOperation();
  case ACTS:
    return;
  }
}

void ViewFuzz::present(BaseViewController& controller) {
  CmdsViewController* const other = anyController();
  note(QStringLiteral("…this one:"), other);
  const bool isWindow = other && other->getView() && other->getView()->isWindow();
  if (other && !(keepsWindows && isWindow))
    controller.presentViewController(other, FromRight);
}

void ViewFuzz::reattach(CmdsViewController& controller) {
  BaseView* const view = m_bytes.next(4) ? anyView() : nullptr;
  note(QStringLiteral("…to the view of"), controllerOf(view));
  controller.setView(view);
}

// Into a tab, or on its own.
void ViewFuzz::reparent(BaseView& view) {
  const QPointer<BaseView> alive(&view);
  view.setParent(m_bytes.next(3) ? m_tabs->widget(m_bytes.next(2)) : nullptr);
  if (alive)
    view.show();
}

void ViewFuzz::openDialog() {
  QDialog dialog(&m_window);
  dialog.setModal(true);
  dialog.show();
  QCoreApplication::processEvents();
}

} // namespace Vela::Test
