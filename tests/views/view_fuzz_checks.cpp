// SPDX-License-Identifier: MIT
#include "view_fuzz_actors.h"

#include <support/test_case.h>

#include <algorithm>
#include <set>

namespace Vela::Test {

using namespace UiBase;

void ViewFuzz::check() {
  const auto views = m_views;
  for (const View& view : views) {
    if (!view)
      continue;
    checkPresentation(*view);
    checkCursor(*view);
    checkChildren(*view);
    if (CmdsViewController* const controller = controllerOf(view))
      checkTools(*controller);
  }
  checkFocus();
  if (QApplication::overrideCursor())
    report(QStringLiteral("a busy cursor is left"));
}

void ViewFuzz::checkPresentation(const BaseView& view) {
  const QList<PresentedView> layers = view.presentation();
  int appeared = 0;
  int fronts = 0;
  bool found = false;
  const QWidget* const focus = QApplication::focusWidget();
  for (const PresentedView& layer : layers) {
    found |= layer.view == &view;
    appeared += layer.appeared;
    fronts += !layer.covered;
    if (layer.covered && layer.appeared)
      report(QStringLiteral("a covered view has appeared"));
    if (layer.presenter && layer.presenter->isVisible() && layer.view->isVisible() &&
        layer.view->geometry() != layer.presenter->rect())
      report(QStringLiteral("a presented view is not as large as its presenter"));
    const bool isOwn = layer.controller && layer.controller->getView() == layer.view;
    if (!layer.covered && isOwn && layer.controller->isLoaded() && layer.view->isVisible() &&
        !layer.appeared && !layer.view->window()->isMinimized())
      report(QStringLiteral("the view in front has not appeared"));
    if (focus && layer.covered && layer.view && layer.view->isAncestorOf(focus)) {
      const auto* within = focus;
      while (within != layer.view && !qobject_cast<const BaseView*>(within))
        within = within->parentWidget();
      if (within == layer.view)
        report(QStringLiteral("the focus is in a covered view"));
    }
    if (focus && layer.covered && layer.view == focus)
      report(QStringLiteral("a covered view has the focus"));
  }
  if (!found)
    report(QStringLiteral("a view is not in its own presentation"));
  if (appeared > 1 || fronts > 1)
    report(QStringLiteral("%1 views have appeared, %2 are in front").arg(appeared).arg(fronts));
  std::set<const BaseViewController*> seen;
  for (const auto* presenter = view.getViewController(); presenter; presenter = presenter->presenter()) {
    if (!seen.insert(presenter).second)
      return report(QStringLiteral("presenters present one another"));
  }
}

void ViewFuzz::checkTools(CmdsViewController& controller) {
  int operating = 0;
  const auto held = controller.heldTools();
  for (const HeldTool& entry : held) {
    operating += entry.tool->isOperating();
    if (entry.tool->getDelegate() != &controller)
      report(QStringLiteral("a tool lies on two stacks"));
    if (std::count_if(held.begin(), held.end(), [&](const auto& other) { return other.tool == entry.tool; }) >
        1)
      report(QStringLiteral("a tool lies twice on a stack"));
  }
  if (operating > 1)
    report(QStringLiteral("%1 tools operate").arg(operating));
  for (const HeldTool& entry : held) {
    const bool waits = entry.button == LeftButton && operating > 0;
    const bool rests = controller.getTool(entry.button) == entry.tool && !waits;
    if (!entry.tool->isOperating() && entry.tool->isActive() != rests)
      report(QStringLiteral("the tool of button %1 is %2")
                 .arg(entry.button)
                 .arg(QLatin1String(!rests                      ? "active"
                                    : entry.tool->isSuspended() ? "suspended"
                                                                : "inactive")));
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
  if (view.cursor().shape() != expected)
    report(QStringLiteral("the cursor is %1, not %2").arg(view.cursor().shape()).arg(expected));
}

void ViewFuzz::checkChildren(const BaseView& view) {
  const QList<PresentedView> layers = view.presentation();
  const bool covered = std::any_of(layers.begin(), layers.end(), [&view](const PresentedView& layer) {
    return layer.view == &view && layer.covered;
  });
  const QLineEdit& editor = *static_cast<const FuzzView&>(view).editor;
  if (view.isVisible() && editor.isEnabled() != (view.isEnabled() && !covered))
    report(QStringLiteral("the child of view %1 is %2")
               .arg(static_cast<const FuzzView&>(view).number)
               .arg(QLatin1String(covered ? "covered and enabled" : "disabled")));
  if (editor.isVisible() != view.isVisible())
    report(QLatin1String("a child is not seen as its view is"));
  if (!view.window()->isMinimized() &&
      (view.hasMouseTracking() != view.isVisible() || view.acceptDrops() != view.isVisible()))
    report(QLatin1String("a view does not follow the mouse as it is seen"));
}

// A window that shows a view which can take the focus is never without one.
void ViewFuzz::checkFocus() {
  const QWidget* const window = QApplication::activeWindow();
  if (!window || window->focusWidget())
    return;
  for (const View& view : m_views) {
    if (view && view->window() == window && view->isVisible() && view->isEnabled())
      return report(QStringLiteral("nothing has the focus"));
  }
}

// What is left when it is quiet again is as good as new.
void ViewFuzz::checkUse() {
  m_bytes = Bytes(nullptr, 0);
  m_depth = MaxDepth;
  m_tabs->setEnabled(true);
  m_window.setWindowState(Qt::WindowNoState);
  m_window.show();
  m_window.windowHandle()->resize(300,
                                  300); // the offscreen platform forgot it while the window was minimised
  m_window.activateWindow();
  loseRelease();
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
    if (tool->getDelegate() == &controller && controller.getTool(LeftButton) == tool &&
        (!tool->isActive() || controller.popTool(LeftButton) != tool || tool->getDelegate()))
      report(QStringLiteral("a free tool cannot be used"));
  }
  BaseView& view = *controller.getView();
  const QPointer<FuzzView> over = new FuzzView(nullptr, Qt::ArrowCursor, ++m_made);
  m_views.emplace_back(over.data());
  auto* const other = new FuzzController(over, m_made);
  if (!controller.presentViewController(other, FromRight) || other->presenter() != &controller ||
      (view.isVisible() && !other->hasAppeared()))
    report(QStringLiteral("a view cannot be presented"));
  check();
  if (!other->dismissViewController())
    report(QStringLiteral("a view cannot be dismissed"));
  settle();
  if (over)
    report(QStringLiteral("a dismissed view is left"));
  check();
  const QList<PresentedView> layers = view.presentation();
  if (!view.isVisible() || view.window() != &m_window || layers.constLast().view != &view ||
      view.childAt(100, 100))
    return;
  const int before = controller.presses;
  const QPoint at = view.mapTo(&m_window, QPoint(100, 100));
  if (m_window.childAt(at) != &view)
    return;
  QTest::mouseClick(m_window.windowHandle(), Qt::LeftButton, {}, at);
  loseRelease();
  if (controller.presses == before) // twice where a view around it has the same controller
    report(QStringLiteral("a press is not heard"));
}

} // namespace Vela::Test
