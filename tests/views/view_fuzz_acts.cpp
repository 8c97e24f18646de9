// SPDX-License-Identifier: MIT
#include "view_fuzz_actors.h"

namespace Vela::Test {

using namespace UiBase;

namespace {

void runLoop() {
  QEventLoop loop;
  QTimer::singleShot(0, &loop, &QEventLoop::quit);
  loop.exec();
}

void openDialog(QWidget& window) {
  QDialog dialog(&window);
  dialog.setModal(true);
  dialog.show();
  QCoreApplication::processEvents();
}

void openMenu(const QWidget& window) {
  QMenu menu;
  menu.addAction(QStringLiteral("entry"));
  menu.popup(window.mapToGlobal(QPoint(10, 10)));
  QCoreApplication::processEvents();
  menu.close();
}

} // namespace

// One callback in VELA_FUZZ_RATE acts.
void ViewFuzz::callOut(CmdsViewController* controller, InteractiveTool* itself) {
  static const int rate = qEnvironmentVariable("VELA_FUZZ_RATE", QStringLiteral("4")).toInt();
  if (m_depth >= MaxDepth || m_bytes.next(rate) != rate - 1)
    return;
  ++m_depth;
  m_caller = controller;
  act(m_bytes.next(3) ? controller : anyController(), itself);
  --m_depth;
}

// Views may be deleted, moved and wait for events where they hand on input, and where their controllers hear
// of them without Qt; while Qt shows, hides or focuses one after the other it holds on to all of them.
void ViewFuzz::deleteView(BaseView* view) {
  const bool isHeld = events > 0 || m_deletes > 0 || (keepsWindows && view && view->isWindow());
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

void ViewFuzz::takeOff(InteractiveTool* tool) {
  const auto* const controller = tool ? dynamic_cast<FuzzController*>(tool->getDelegate()) : nullptr;
  const QList<HeldTool> held = controller ? controller->heldTools() : QList<HeldTool>();
  for (const HeldTool& entry : held) {
    auto* const holder = dynamic_cast<FuzzController*>(tool->getDelegate());
    if (entry.tool.get() == tool && holder && holder->getTool(entry.button) == entry.tool)
      holder->popTool(entry.button);
  }
}

void ViewFuzz::act(CmdsViewController* controller, InteractiveTool* itself) {
  enum Kind { Plain, Shows = 1, Waits = 2 }; // shows or hides views; moves them, or lets deleted ones die
  auto* const caller = std::exchange(m_caller, nullptr);
  EToolActivationButton button = NoButton;
  const std::tuple<const char*, int, std::function<void()>> acts[] = {
      {"delete view", Plain, [&] { deleteView(controller->getView()); }},
      {"delete controller", Plain, [&] { deleteController(controller); }},
      {"delete itself", Plain, [&] { takeOff(itself); }},
      {"present", Shows, [&] { present(*controller, caller); }},
      {"dismiss", Shows, [&] { controller->dismissViewController(); }},
      {"reattach", Plain, [&] { reattach(*controller); }},
      {"reparent", Shows | Waits, [&] { reparent(controller->getView()); }},
      {"nested loop", Waits, [] { runLoop(); }},
      {"dialog", Waits, [&] { openDialog(m_window); }},
      {"menu", Waits, [&] { openMenu(m_window); }},
      {"close view", Shows, [&] { controller->close(); }},
      {"hide or show", Shows,
       [&] {
         BaseView* const view = controller->getView();
         view && view->isVisible() ? controller->hide() : controller->show();
       }},
      {"push tool", Plain, [&] { pushTool(*controller, button); }},
      {"pop tool", Plain, [&] { controller->popTool(button); }},
      {"clear tools", Plain, [&] { controller->clearTools(); }},
      {"reset tools", Plain, [&] { controller->resetTools(); }},
      {"begin operation", Plain,
       [&] {
         if (const auto tool = controller->getTool(button))
           static_cast<FuzzTool&>(*tool).startOperation();
       }},
      {"end operation", Plain, [&] { controller->endRunningOperation(); }}};
  const auto& [name, kind, run] = acts[m_bytes.next(int(std::size(acts)))];
  if (!controller || ((kind & Waits) && (events > 0 || keepsWindows)))
    return;
  note(QLatin1String(name), controller);
  const QScopedValueRollback walk(events, events + (kind & Shows));
  button = std::array{NoButton, LeftButton, RightButton, MiddleButton}[m_bytes.next(4)];
  run();
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
  const View view = other ? other->getView() : nullptr;
  const View over = controller.getView();
  const bool isHeld = view && (view == m_newHome || view->isAncestorOf(m_newHome) ||
                               (view->isWindow() && (keepsWindows || view->windowHandle() == m_inputWindow)));
  never(other && !isHeld && controller.presentViewController(other, FromRight) &&
            !(view && over && view->parentWidget() == over && view->presentation().size() > 1),
        "said to be presented");
}

void ViewFuzz::reattach(CmdsViewController& controller) {
  BaseView* const view = m_bytes.next(4) ? anyView() : nullptr;
  note(QStringLiteral("…to the view of"), controllerOf(view));
  controller.setView(view);
}

// Into a tab, some of them into a view there or as a tab, or on its own.
void ViewFuzz::reparent(const View& view) {
  if (!view)
    return;
  QWidget* place = m_bytes.next(3) ? m_tabs->widget(m_bytes.next(2)) : nullptr;
  const int number = static_cast<FuzzView&>(*view).number;
  auto* const outer = place ? place->findChild<BaseView*>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
  if (number % 3 == 0 && outer && outer != view && !view->isAncestorOf(outer))
    place = outer;
  note(place ? QStringLiteral("…into a tab") : QStringLiteral("…into a window of its own"));
  const QScopedValueRollback<const QWidget*> moves(m_newHome, place);
  if (place && number % 4 == 1)
    m_tabs->addTab(view, QStringLiteral("view"));
  else
    view->setParent(place);
  if (view)
    view->show();
}

} // namespace Vela::Test
