// SPDX-License-Identifier: MIT
// Stands beside the program of docs/first_steps.md, does what a user would do with it, and ends it: with 0
// when each of the four steps did what the page says.
#include <support/test_case.h>
#include <ui_base/notifications/notification_bar.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/tool_button.h>
#include <ui_base/views/base_view.h>

using namespace Vela::UiBase;

namespace {

bool check(bool isTrue, const char* what) {
  if (!isTrue)
    qWarning("first steps: %s", what);
  return isTrue;
}

/// Without the bar and the notification above it.
QImage curveIn(QWidget& view) { return view.grab({0, 120, 640, 360}).toImage(); }

bool drive() {
  BaseView* view = nullptr;
  const auto isShown = [&view] {
    view = qobject_cast<BaseView*>(QApplication::activeWindow());
    return view && view->windowHandle()->isExposed();
  };
  if (!check(QTest::qWaitFor(isShown), "the window is shown"))
    return false;

  auto* const bar = view->findChild<ToolBar*>();
  if (!check(bar && bar->Buttons().size() == 1, "the bar has a button"))
    return false;
  const QImage before = curveIn(*view);
  QWindow* const window = view->windowHandle();
  QTest::mousePress(window, Qt::LeftButton, {}, {300, 300});
  QTest::mouseMove(window, {320, 300});
  QTest::mouseMove(window, {360, 300});
  QTest::mouseRelease(window, Qt::LeftButton, {}, {360, 300});
  const QImage turned = curveIn(*view);
  if (!check(turned != before, "a drag turns the curve"))
    return false;

  QTest::keyClick(window, Qt::Key_W, Qt::ControlModifier);
  const auto isTold = [view] {
    const auto* const notification = view->findChild<NotificationBar*>();
    return notification && notification->accessibleName().contains(QLatin1String("Wound"));
  };
  return check(QTest::qWaitFor(isTold), "Ctrl+W runs the command, and it says so") &&
         check(curveIn(*view) != turned, "the curve is another");
}

void start() {
  QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(drive() ? 0 : 1); });
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(start)
