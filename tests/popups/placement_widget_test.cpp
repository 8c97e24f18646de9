// SPDX-License-Identifier: MIT
#include <support/input.h>
#include <support/rows.h>
#include <support/test_case.h>
#include <ui_base/popups/arrowed_window.h>
#include <ui_base/popups/placement_search.h>
#include <ui_base/popups/widget_pos_calculator.h>

using namespace Vela::UiBase;

namespace {

/// An active window with a button in a panel, at (380, 290) to (419, 309) of the window.
struct Screen {
  Screen() {
    window.setGeometry(100, 50, 800, 600);
    panel.setGeometry(300, 200, 200, 200);
    button.setGeometry(80, 90, 40, 20);
    Vela::Test::showActive(window);
  }

  QWidget window;
  QWidget panel{&window};
  QWidget button{&panel};
};

QPoint place(const WidgetPosCalculator& calculator, bool arrowed = false) {
  QPoint position(-1, -1);
  return calculator.GetPosition(position, QRect(), arrowed, QPoint()) ? position : QPoint(-9, -9);
}

SArrowParam arrowAt(EArrowPosition position) { return {.position = position}; }

} // namespace

class PlacementWidgetTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void inTheCoordinatesOfThePopupsParent() {
    Screen screen;
    const QPoint origin = screen.window.mapToGlobal(QPoint(0, 0));
    QWidget inWindow(&screen.window);
    QWidget inPanel(&screen.panel);
    QWidget alone;
    for (const auto& [popup, offset] : {std::pair(&inWindow, QPoint()),
                                        std::pair(&inPanel, QPoint(-300, -200)), std::pair(&alone, origin)}) {
      popup->resize(100, 50);
      WidgetPosCalculator calculator;
      calculator.SetDirections({Bottom});
      calculator.SetWidget(popup);
      calculator.SetRefWidget(&screen.button);
      QCOMPARE(place(calculator), QPoint(350, 319) + offset);
      calculator.SetRefPoint(origin + QPoint(380, 290));
      QCOMPARE(place(calculator), QPoint(331, 303) + offset);
      QPoint position;
      QVERIFY(calculator.GetPosition(position, QRect(0, 0, 7, 5), false, QPoint()));
      QCOMPARE(position, QPoint(377, 303) + offset);
      calculator.SetRefWidget(&screen.button);
      QCOMPARE(place(calculator), QPoint(350, 319) + offset);
    }
  }

  void sideWidgetsTakeSpace_data() {
    const Vela::Test::Rows<QVariant, QSize, bool, EDirection> row("direction", "size", "shown", "expected");
    row("below, enough left", 3, {10, 201}, true, Bottom);
    row("below", 3, {10, 202}, true, Top);
    row("below, hidden", 3, {10, 202}, false, Bottom);
    row("an enumerator", QVariant::fromValue(Bottom), {10, 202}, true, Top);
    row("on no side is on the left", {}, {321, 10}, true, Right);
    row("on an unknown side", 7, {400, 400}, true, Bottom);
  }
  void sideWidgetsTakeSpace() {
    QFETCH(QVariant, direction);
    QFETCH(QSize, size);
    QFETCH(bool, shown);
    QFETCH(EDirection, expected);
    Screen screen;
    QWidget side(&screen.window);
    side.resize(size);
    side.setVisible(shown);
    side.setProperty("direction_to", direction);
    QWidget plain(&screen.window);
    plain.resize(100, 50);
    ArrowedWindow arrowed(&screen.window); // the property is its content's
    arrowed.AttachWidget(new QWidget);
    for (QWidget* const popup : {&plain, static_cast<QWidget*>(&arrowed)}) {
      QWidget* const holder = popup == &plain ? popup : arrowed.findChild<QWidget*>();
      holder->setProperty("sub_widgets", QVariant::fromValue(QList<QWidget*>{nullptr, &side}));
      WidgetPosCalculator calculator;
      calculator.SetWidget(popup);
      calculator.SetRefWidget(&screen.button);
      QCOMPARE(calculator.Directions(), QList{Top});
      calculator.SetDirections({Bottom, AnyDirection});
      QPoint position;
      QVERIFY(calculator.GetPosition(position, QRect(0, 0, 100, 50), false, QPoint()));
      QCOMPARE(calculator.Direction(), expected);
    }
  }

  void nothingToPlace() {
    auto screen = std::make_unique<Screen>();
    auto popup = std::make_unique<QWidget>();
    WidgetPosCalculator calculator;
    const auto isUntouched = [&] { return place(calculator) == QPoint(-9, -9); };
    calculator.SetWidget(popup.get());
    QVERIFY(isUntouched());
    calculator.SetRefWidget(&screen->button);
    QVERIFY(!isUntouched());
    screen.reset();
    QTRY_VERIFY(!QApplication::activeWindow());
    QVERIFY(isUntouched());
    calculator.SetRefPoint({-5000, -5000});
    QVERIFY(!isUntouched() && !calculator.LastSearch().freeArea());
    popup.reset();
    QVERIFY(isUntouched());
  }

  void theTipMeetsTheReference() {
    Screen screen;
    ArrowedWindow popup(&screen.window);
    auto* const content = new QWidget;
    content->setFixedSize(200, 100);
    popup.AttachWidget(content);
    WidgetPosCalculator calculator;
    calculator.SetWidget(&popup);
    calculator.SetRefWidget(&screen.button);
    calculator.SetDirection(Bottom);
    QCOMPARE(place(calculator, true).y(), 319); // without an arrow

    popup.SetArrow(arrowAt(ArrowTop));
    const auto tip = [&](int x) {
      screen.panel.move(x, 200);
      const QPoint position = place(calculator, true);
      return position + popup.GetArrowPoint();
    };
    SArrowParam arrow;
    QCOMPARE(tip(300), QPoint(399, 319));
    QVERIFY(popup.GetCurrentArrowParam(arrow) && arrow.offset == 0);
    QCOMPARE(tip(0), QPoint(99, 319));
    QVERIFY(popup.GetCurrentArrowParam(arrow) && arrow.offset < 0 && arrow.offsetAlongX);
    QCOMPARE(calculator.LastSearch().taken()->outcome, PlacementSlid);

    popup.AddArrow(arrowAt(ArrowRight));
    popup.AddArrow(arrowAt(ArrowLeft));
    popup.SetAutoDecideArrowPosition(true);
    calculator.SetVerifySlidArrow(true);
    QCOMPARE(tip(0), QPoint(99, 319));
    QCOMPARE(calculator.LastSearch().taken()->outcome, PlacementAccepted);

    calculator.SetWidget(&screen.panel);
    QCOMPARE(place(calculator, true), QPoint()); // has no arrow
  }
};

VELA_TEST_MAIN(PlacementWidgetTest)
#include "placement_widget_test.moc"
