// SPDX-License-Identifier: MIT
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <support/rows.h>
#include <ui_base/popups/arrowed_window.h>
#include <ui_base/toolbars/action_panel.h>
#include <ui_base/toolbars/tool_button_with_button_menu.h>
#include <workbench/panels/unit_button.h>

#include <algorithm>

using namespace Workbench;
using namespace Vela::UiBase;
using Bench = Test::WorkbenchFixture;
using Vela::Test::click;
using Vela::Test::moveMouse;
using Vela::Test::settle;

namespace {

using Open = std::function<void(Bench&)>;

QRect globalRect(const QWidget& widget) { return {widget.mapToGlobal(QPoint(0, 0)), widget.size()}; }

/// What has opened: windows of their own, and what lies over the view.
QWidgetList opened(Bench& bench) {
  QWidgetList all;
  for (QWidget* const widget : QApplication::allWidgets()) {
    const bool isBar =
        qobject_cast<ToolBar*>(widget) && widget != bench.bars().mainBar() && widget != bench.bars().panel();
    const bool hasOpened = widget->isWindow() || isBar || qobject_cast<ArrowedWindow*>(widget);
    if (hasOpened && widget->isVisible() && widget != &bench.window())
      all += widget;
  }
  return all;
}

bool allLieRight(Bench& bench) {
  const QWidgetList all = opened(bench);
  return std::all_of(all.begin(), all.end(), [&bench](const QWidget* popup) {
    const QRect area = popup->isWindow() ? bench.window().screen()->geometry() : globalRect(bench.window());
    return area.contains(globalRect(*popup)) &&
           popup->devicePixelRatioF() == bench.window().devicePixelRatioF();
  });
}

} // namespace

/// The workbench on two screens: one of 1x at the origin, and one of 2x above and to the left of it.
class ScreensTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void whatOpensStaysWithItsWindow_data() {
    const Vela::Test::Rows<Open> row("open");
    row("menu", [](Bench& bench) { bench.press(Qt::Key_H, Qt::AltModifier); });
    row("sub-menu", [](Bench& bench) {
      bench.press(Qt::Key_T, Qt::AltModifier);
      bench.press(Qt::Key_Up);
      bench.press(Qt::Key_Right);
    });
    row("menu of a button", [](Bench& bench) { click(*bench.window().findChild<UnitButton*>()); });
    row("tooltip", [](Bench& bench) { moveMouse(*bench.bars().mainBar()->Buttons().first()); });
    row("flyout", [](Bench& bench) { bench.press(Qt::Key_M, Qt::ControlModifier | Qt::AltModifier); });
    row("sub-toolbar",
        [](Bench& bench) { click(*bench.bars().panel()->findChild<ToolButtonWithButtonMenu*>()); });
  }
  void whatOpensStaysWithItsWindow() {
    QFETCH(Open, open);
    QCOMPARE(QGuiApplication::screens().size(), 2);
    Bench bench({700, 500});
    bench.show(Test::blob(8));
    // In corners of its own screen, and where that meets the other.
    for (const QPoint& place : {QPoint(-1270, -190), QPoint(-705, 95), QPoint(0, 0), QPoint(575, 295)}) {
      bench.window().move(place);
      settle();
      open(bench);
      QTRY_VERIFY(!opened(bench).isEmpty());
      settle();
      QVERIFY(allLieRight(bench));
      bench.window().move(place.x() < 0 ? QPoint(20, 20) : QPoint(-1000, -100));
      settle();
      QVERIFY(allLieRight(bench)); // or has closed
      for (int i = 0; i < 3 && !opened(bench).isEmpty(); ++i)
        bench.press(Qt::Key_Escape);
      moveMouse(bench.view());
      QTRY_VERIFY(opened(bench).isEmpty());
    }
  }
};

VELA_TEST_MAIN(ScreensTest)
#include "screens_test.moc"
