// SPDX-License-Identifier: MIT
#include "view_fuzz_actors.h"

#include <QCoreApplication>
#include <QDialog>
#include <QEventLoop>
#include <QMenu>
#include <QTimer>

#include <utility>

namespace Vela::Test {

using namespace UiBase;

namespace {

const char* const actNames[ACTS] = {
    "delete view", "delete controller", "delete itself", "present",     "dismiss",         "reattach",
    "reparent",    "nested loop",       "dialog",        "menu",        "close view",      "hide or show",
    "push tool",   "pop tool",          "clear tools",   "reset tools", "begin operation", "end operation"};

} // namespace

// One callback in VELA_FUZZ_RATE acts.
void ViewFuzz::callOut(CmdsViewController* controller, InteractiveTool* itself) {
  static const int rate = qEnvironmentVariable("VELA_FUZZ_RATE", QStringLiteral("4")).toInt();
  if (m_depth >= MaxDepth || m_bytes.next(rate) != rate - 1)
    return;
  ++m_depth;
  m_caller = controller;
  act(Act(m_bytes.next(ACTS)), m_bytes.next(3) ? controller : anyController(), itself);
  --m_depth;
}

// Views may be deleted, moved and wait for events where they hand on input, and where their controllers hear
// of them without Qt; while Qt shows, hides or focuses one after the other it holds on to all of them.
void ViewFuzz::deleteView(BaseView* view) {
  const bool isHeld = m_events > 0 || m_deletes > 0 || (keepsWindows && view && view->isWindow());
  if (isHeld && view)
    return view->deleteLater();
  const QScopedValueRollback deletes(m_deletes, m_deletes + 1); // not what it stands in
  delete view;
}

// At any time.
void ViewFuzz::deleteController(CmdsViewController* controller) {
  const QScopedValueRollback deletes(m_deletes, m_deletes + 1);
  delete controller;
}

void ViewFuzz::takeOff(InteractiveTool& tool) {
  const auto* const controller = dynamic_cast<FuzzController*>(tool.getDelegate());
  const QList<HeldTool> held = controller ? controller->heldTools() : QList<HeldTool>();
  for (const HeldTool& entry : held) {
    auto* const holder = dynamic_cast<FuzzController*>(tool.getDelegate());
    if (entry.tool.get() == &tool && holder && holder->getTool(entry.button) == entry.tool)
      holder->popTool(entry.button);
  }
}

void ViewFuzz::act(Act act, CmdsViewController* controller, InteractiveTool* itself) {
  auto* const caller = std::exchange(m_caller, nullptr);
  const bool movesViews =
      act == Reparent || act == NestedLoop || act == Dialog || act == Menu; // or lets deleted ones die
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
    return deleteView(view);
  case DeleteController:
    return deleteController(controller);
  case DeleteItself:
    if (itself)
      takeOff(*itself);
    return;
  case Present:
    return present(*controller, caller);
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
  case Menu:
    return openMenu();
  case CloseView:
    controller->close();
    return;
  case HideOrShow:
    if (!view || !view->isVisible())
      controller->show();
    else
      controller->hide();
    return;
  case PushTool:
    return pushTool(*controller, button);
  case PopTool:
    controller->popTool(button);
    return;
  case ClearTools:
    return controller->clearTools();
  case ResetTools:
    return controller->resetTools();
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

void ViewFuzz::pushTool(CmdsViewController& controller, EToolActivationButton button) {
  if (m_tools.size() < 8 && controller.getView())
    m_tools.push_back(std::make_shared<FuzzTool>(controller.getView(), int(m_tools.size())));
  if (!m_tools.empty())
    controller.pushTool(button, m_tools[std::size_t(m_bytes.next(int(m_tools.size())))]);
}

void ViewFuzz::present(BaseViewController& controller, CmdsViewController* caller) {
  CmdsViewController* const other = caller && m_bytes.next(2) ? caller : anyController();
  note(QStringLiteral("…this one:"), other);
  const bool isWindow = other && other->getView() && other->getView()->isWindow();
  const QPointer<BaseView> view = other ? other->getView() : nullptr;
  const QPointer<BaseView> over = controller.getView();
  const bool isHeld = view && (view == m_newHome || view->isAncestorOf(m_newHome) ||
                               (isWindow && (keepsWindows || view->windowHandle() == m_inputWindow)));
  if (other && !isHeld && controller.presentViewController(other, FromRight) &&
      !(view && over && view->parentWidget() == over && view->presentation().size() > 1))
    report(QStringLiteral("said to be presented"));
}

void ViewFuzz::reattach(CmdsViewController& controller) {
  BaseView* const view = m_bytes.next(4) ? anyView() : nullptr;
  note(QStringLiteral("…to the view of"), controllerOf(view));
  controller.setView(view);
}

// Into a tab, some of them into a view there or as a tab, or on its own.
void ViewFuzz::reparent(BaseView& view) {
  const QPointer<BaseView> alive(&view);
  QWidget* place = m_bytes.next(3) ? m_tabs->widget(m_bytes.next(2)) : nullptr;
  const int number = static_cast<FuzzView&>(view).number;
  const bool isInner = number % 3 == 0;
  if (auto* const outer =
          place ? place->findChild<BaseView*>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
      isInner && outer && outer != &view && !view.isAncestorOf(outer))
    place = outer;
  note(place ? QStringLiteral("…into a tab") : QStringLiteral("…into a window of its own"));
  const QScopedValueRollback<const QWidget*> moves(m_newHome, place);
  if (place && number % 4 == 1)
    m_tabs->addTab(&view, QStringLiteral("view"));
  else
    view.setParent(place);
  if (alive)
    view.show();
}

void ViewFuzz::openDialog() {
  QDialog dialog(&m_window);
  dialog.setModal(true);
  dialog.show();
  QCoreApplication::processEvents();
}

void ViewFuzz::openMenu() {
  QMenu menu;
  menu.addAction(QStringLiteral("entry"));
  menu.popup(m_window.mapToGlobal(QPoint(10, 10)));
  QCoreApplication::processEvents();
  menu.close();
}

} // namespace Vela::Test
