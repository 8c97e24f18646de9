// SPDX-License-Identifier: MIT
#include <support/rows.h>
#include <support/test_case.h>
#include <ui_base/popups/placement.h>

using namespace Vela::UiBase;
using Vela::Test::Rows;

namespace {

constexpr QRect reference(100, 50, 31, 20); // to (130, 69), its centre at (115, 59)

SArrowParam arrowAt(EArrowPosition position, bool fixedAngle = false) {
  SArrowParam arrow;
  arrow.position = position;
  arrow.fixedAngle = fixedAngle;
  return arrow;
}

/// Each pair as its arrow and side, two digits: "14" is ArrowTop below.
QString digits(const QList<ArrowPair>& pairs) {
  QStringList all;
  for (const auto& [arrow, side] : pairs)
    all += QString::number(10 * arrow.position + side);
  return all.join(QLatin1Char(' '));
}

} // namespace

class PlacementCoreTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void oppositesComeBeforeTheOtherSides_data() {
    const Rows<QList<EDirection>, QList<EDirection>> row("wanted", "expected");
    row("one", {Bottom}, {Bottom, Top, Left, Right});
    row("no preference", {AnyDirection, AnyDirection}, {Left, Top, Right, Bottom});
    row("two, across", {Right, Top}, {Right, Top, Left, Bottom});
    row("two, opposite", {Left, Right}, {Left, Right, Top, Bottom});
    row("none", {}, {Left, Top, Right, Bottom});
  }
  void oppositesComeBeforeTheOtherSides() {
    QFETCH(QList<EDirection>, wanted);
    QTEST(Placement::fullPriorityList(wanted), "expected");
  }

  void plainPositions_data() {
    const Rows<EDirection, QList<QPoint>> row("side", "startCenterEnd"); // 100 x 41, ten pixels away
    row("left", Left, {{-10, 50}, {-10, 40}, {-10, 28}});
    row("above", Top, {{100, -1}, {66, -1}, {30, -1}});
    row("right", Right, {{140, 50}, {140, 40}, {140, 28}});
    row("below", Bottom, {{100, 79}, {66, 79}, {30, 79}});
    row("no side", AnyDirection, {{0, 0}, {0, 0}, {0, 0}});
  }
  void plainPositions() {
    QFETCH(EDirection, side);
    QFETCH(QList<QPoint>, startCenterEnd);
    constexpr QPoint more(3, -5);
    for (const EWidgetsAlign alignment : {AlignStart, AlignCenter, AlignEnd}) {
      Placement::Target target{.reference = reference, .alignment = alignment};
      QCOMPARE(Placement::plainPosition(target, side, {100, 41}), startCenterEnd[alignment]);
      target.additionalOffset = more;
      QCOMPARE(Placement::plainPosition(target, side, {100, 41}), startCenterEnd[alignment] + more);
    }
  }

  void arrowedPositions_data() {
    // The tip in a window of 80 x 60.
    const Rows<EDirection, EArrowPosition, QPoint, QPoint, QPoint> row("side", "position", "tip", "expected",
                                                                       "fixedAngle");
    row("below, top", Bottom, ArrowTop, {40, 0}, {75, 79}, {75, 79});
    row("below, top left", Bottom, ArrowTopLeft, {2, 3}, {138, 76}, {113, 76});
    row("below, top right", Bottom, ArrowTopRight, {77, 3}, {-87, 76}, {38, 76});
    row("above, bottom", Top, ArrowBottom, {40, 59}, {75, -20}, {75, -20});
    row("above, bottom left", Top, ArrowBottomLeft, {2, 57}, {138, -18}, {113, -18});
    row("above, bottom right", Top, ArrowBottomRight, {77, 57}, {-87, -18}, {38, -18});
    row("right, left", Right, ArrowLeft, {0, 30}, {140, 29}, {140, 29});
    row("right, top left", Right, ArrowTopLeft, {1, 2}, {139, 77}, {139, 57});
    row("right, bottom left", Right, ArrowBottomLeft, {1, 57}, {139, -67}, {139, 2});
    row("left, right", Left, ArrowRight, {79, 30}, {10, 29}, {10, 29});
    row("left, top right", Left, ArrowTopRight, {78, 2}, {11, 77}, {11, 57});
    row("left, bottom right", Left, ArrowBottomRight, {78, 57}, {11, -67}, {11, 2});
    row("no preference is above", AnyDirection, ArrowBottom, {40, 59}, {75, -20}, {75, -20});
    row("no side", EDirection(7), ArrowBottom, {40, 59}, {0, 0}, {0, 0});
  }
  void arrowedPositions() {
    QFETCH(EDirection, side);
    QFETCH(EArrowPosition, position);
    QFETCH(QPoint, tip);
    // The additional offset is not for arrows.
    const Placement::Target target{.reference = reference, .additionalOffset = {500, 500}};
    const auto place = [&](bool fixedAngle, const QPoint& origin) {
      const QRect popup(origin, QSize(80, 60));
      return Placement::arrowedPosition(target, {arrowAt(position, fixedAngle), side}, popup, tip + origin);
    };
    QTEST(place(false, {0, 0}), "expected");
    QTEST(place(true, {0, 0}), "fixedAngle");
    QTEST(place(false, {5, 9}), "expected");
  }

  void verification_data() {
    const Rows<QRect, QPoint> row("popup", "adjust");
    row("fills the area", {30, 30, 200, 100}, {});
    row("much too far left", {-170, 50, 150, 40}, {-80, 0});
    row("too far right", {81, 50, 150, 40}, {1, 0});
    row("much too high", {50, -20, 60, 100}, {0, -30});
    row("too low", {50, 31, 60, 100}, {0, 1});
    row("left counts before top and bottom", {28, 0, 150, 300}, {-2, 0});
    row("left counts before right", {20, 50, 300, 40}, {-10, 0});
    row("the limit of a narrow one is negative", {-10, 50, 50, 40}, {20, 0});
    row("the limit of a low one is negative", {50, 100, 60, 40}, {0, -30});
    row("no room to slide", {-10, 50, 70, 40}, {0, 0});
  }
  void verification() {
    QFETCH(QRect, popup);
    constexpr QRect area(30, 30, 200, 100);
    QPoint adjust;
    QCOMPARE(Placement::verify(popup, area, adjust), area.contains(popup));
    QTEST(adjust, "adjust");
  }

  void arrowPairs_data() {
    const Rows<QList<SArrowParam>, bool, QString> row("given", "autoDecide", "expected");
    const auto all = QStringLiteral("13 53 63 21 81 71 40 60 70 32 52 82");
    row("one, tried once", {arrowAt(ArrowTop)}, false, "13");
    row("the first once more", {arrowAt(ArrowLeft), arrowAt(ArrowBottom)}, false, "32 21 32");
    row("none", {arrowAt(NoArrow), arrowAt(EArrowPosition(9))}, false, "");
    row("decided", {}, true, all + " 13");
    row("given, then decided", {arrowAt(NoArrow), arrowAt(ArrowTopRight)}, true, "60 " + all + " 60");
  }
  void arrowPairs() {
    QFETCH(QList<SArrowParam>, given);
    QFETCH(bool, autoDecide);
    QTEST(digits(Placement::arrowPairs(given, autoDecide, {Bottom, Top, Left, Right})), "expected");
  }

  void covering() {
    Placement::Target target{.reference = reference, .baseOffset = 1};
    QVERIFY(!Placement::covers({131, 50, 10, 10}, target));
    QVERIFY(Placement::covers({130, 50, 10, 10}, target));
    target.baseOffset = -2; // overlaps by three on purpose
    QVERIFY(!Placement::covers({128, 50, 10, 10}, target));
    QVERIFY(Placement::covers({127, 55, 10, 10}, target));
    target.reference = {100, 50, 4, 4};
    QVERIFY(!Placement::covers({0, 0, 500, 500}, target));
  }
};

VELA_TEST_MAIN(PlacementCoreTest)
#include "placement_core_test.moc"
