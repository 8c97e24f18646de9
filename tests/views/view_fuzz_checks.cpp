// SPDX-License-Identifier: MIT
#include "view_fuzz_actors.h"

namespace Vela::Test {

using namespace UiBase;

void ViewFuzz::check() {
  const auto views = m_views;
  for (const View& view : views) {
    checkPresentation(*view);
    checkCursor(*view);
    if (CmdsViewController* const controller = controllerOf(view))
      checkTools(*controller);
  }
  checkFocus();
  never(QApplication::overrideCursor(), "a busy cursor is left");
}

void ViewFuzz::checkPresentation(const BaseView& view) {
  const QWidget* focused = QApplication::focusWidget();
  while (focused && !qobject_cast<const BaseView*>(focused))
    focused = focused->parentWidget();
  int appeared = 0;
  int fronts = 0;
  bool found = false;
  const QList<PresentedView> layers = view.presentation();
  for (const PresentedView& layer : layers) {
    if (layer.view == &view) {
      found = true;
      checkChild(view, layer.covered);
    }
    appeared += layer.appeared;
    fronts += !layer.covered;
    never(layer.covered && layer.appeared, "a covered view has appeared");
    never(layer.covered && focused && layer.view == focused, "a covered view has the focus");
    never(layer.presenter && layer.presenter->isVisible() && layer.view->isVisible() &&
              layer.view->geometry() != layer.presenter->rect(),
          "a presented view is not as large as its presenter");
    const bool isOwn = layer.controller && layer.controller->getView() == layer.view;
    never(!layer.covered && isOwn && layer.controller->isLoaded() && layer.view->isVisible() &&
              !layer.appeared && !layer.view->window()->isMinimized(),
          "the view in front has not appeared");
  }
  never(!found, "a view is not in its own presentation");
  never(appeared > 1, "several views have appeared");
  never(fronts > 1, "several views are in front");
  QSet<const BaseViewController*> seen;
  const auto* presenter = view.getViewController();
  for (; presenter && !seen.contains(presenter); presenter = presenter->presenter())
    seen.insert(presenter);
  never(presenter, "presenters present one another");
}

void ViewFuzz::checkTools(CmdsViewController& controller) {
  int operating = 0;
  QSet<InteractiveTool*> seen;
  const auto held = controller.heldTools();
  for (const HeldTool& entry : held) {
    operating += entry.tool->isOperating();
    never(entry.tool->getDelegate() != &controller, "a tool lies on two stacks");
    never(seen.contains(entry.tool.get()), "a tool lies twice on a stack");
    seen.insert(entry.tool.get());
  }
  never(operating > 1, "several tools operate");
  for (const HeldTool& entry : held) {
    const bool waits = entry.button == LeftButton && operating > 0;
    const bool isReady = controller.getTool(entry.button) == entry.tool && !waits;
    never(!entry.tool->isOperating() && entry.tool->isActive() != isReady,
          "a tool is active where it has to wait, or is not where it is ready");
  }
}

// Its own, unless its controller has tools that are in reach.
void ViewFuzz::checkCursor(const BaseView& view) {
  Qt::CursorShape expected = static_cast<const FuzzView&>(view).ownCursor;
  auto* const controller = dynamic_cast<FuzzController*>(view.getViewController());
  if (controller && (controller->getView() != &view || !controller->wasTold()))
    return;
  if (controller && controller->hasAppeared()) {
    if (const auto operating = controller->getOperatingTool())
      expected = operating->getOperatingCursor().shape();
    else if (const auto primary = controller->getTool(LeftButton))
      expected = primary->getIdleCursor().shape();
  }
  never(view.cursor().shape() != expected, "the cursor is another");
}

void ViewFuzz::checkChild(const BaseView& view, bool isCovered) {
  const QLineEdit& editor = *static_cast<const FuzzView&>(view).editor;
  never(view.isVisible() && editor.isEnabled() != (view.isEnabled() && !isCovered),
        "a child is disabled, or covered and enabled");
  never(editor.isVisible() != view.isVisible(), "a child is not seen as its view is");
  never(!view.window()->isMinimized() &&
            (view.hasMouseTracking() != view.isVisible() || view.acceptDrops() != view.isVisible()),
        "a view does not follow the mouse as it is seen");
}

// A window that shows a view which can take the focus is never without one.
void ViewFuzz::checkFocus() {
  const QWidget* const window = QApplication::activeWindow();
  for (const View& view : m_views)
    never(window && !window->focusWidget() && view->window() == window && view->isVisible() &&
              view->isEnabled(),
          "nothing has the focus");
}

// What is left when it is quiet again is as good as new.
void ViewFuzz::checkUse() {
  m_bytes = Bytes({});
  m_depth = MaxDepth;
  m_tabs->setEnabled(true);
  m_window.setWindowState(Qt::WindowNoState);
  m_window.show();
  m_window.windowHandle()->resize(300, 300); // the offscreen platform forgot it
  m_window.activateWindow();
  holdUnheard(Qt::NoButton);
  QTest::mouseMove(m_window.windowHandle(), {5, 5});
  settle();
  check();
  const auto views = m_views;
  for (const View& view : views) {
    if (FuzzController* const controller = controllerOf(view); controller && controller->getView() == view)
      checkUseOf(*controller);
  }
}

void ViewFuzz::checkUseOf(FuzzController& controller) {
  note(QStringLiteral("use"), &controller);
  controller.endRunningOperation();
  for (const auto& tool : m_tools) {
    if (!tool->getDelegate())
      controller.pushTool(LeftButton, tool);
    never(tool->getDelegate() == &controller && controller.getTool(LeftButton) == tool &&
              (!tool->isActive() || controller.popTool(LeftButton) != tool || tool->getDelegate()),
          "a free tool cannot be used");
  }
  BaseView& view = *controller.getView();
  const QPointer<FuzzView> over = new FuzzView(nullptr, Qt::ArrowCursor, ++m_made);
  m_views.emplace_back(over.data());
  auto* const other = new FuzzController(over, m_made);
  never(!controller.presentViewController(other, FromRight) || other->presenter() != &controller ||
            (view.isVisible() && !other->hasAppeared()),
        "a view cannot be presented");
  check();
  never(!other->dismissViewController(), "a view cannot be dismissed");
  settle();
  never(over, "a dismissed view is left");
  check();
  const QList<PresentedView> layers = view.presentation();
  const QPoint at = view.mapTo(view.window(), QPoint(100, 100));
  if (!view.isVisible() || layers.constLast().view != &view || m_window.childAt(at) != &view)
    return;
  const int before = controller.presses;
  QTest::mouseClick(m_window.windowHandle(), Qt::LeftButton, {}, at);
  holdUnheard(Qt::NoButton);
  // Twice where a view around it has the same controller.
  never(controller.presses == before, "a press is not heard");
}

} // namespace Vela::Test
