// SPDX-License-Identifier: MIT
#include <support/rows.h>
#include <support/test_case.h>
#include <ui_base/popups/placement_sight.h>

#include <array>

using namespace Vela::UiBase;
using Placement::KeptStance;
using Placement::Stance;
using Vela::Test::Rows;

namespace {

constexpr QRect area(0, 0, 300, 200);

/// A window of 100 x 60 whose arrow, in the middle of an edge, meets the middle of the reference.
Stance arrowed(const Placement::Target& target, EDirection side) {
  constexpr QSize size(100, 60);
  const bool level = side == Top || side == Bottom;
  const QPoint middle = target.reference.center() - QPoint(50, 30);
  const QPoint beside = Placement::plainPosition(target, side, size);
  return {.side = side,
          .rect = {level ? QPoint(middle.x(), beside.y()) : QPoint(beside.x(), middle.y()), size},
          .arrowed = true,
          .tip = level ? 50 : 30,
          .firstTip = 4,
          .lastTip = level ? 95 : 55};
}

/// What is beside a reference in an area, on its roomiest side.
bool hasRoomBeside(const QRect& reference, const QRect& room, const QSize& popup) {
  const bool wide = popup.width() <= room.width();
  const bool high = popup.height() <= room.height();
  return (wide && (reference.top() - room.top() >= popup.height() ||
                   room.bottom() - reference.bottom() >= popup.height())) ||
         (high && (reference.left() - room.left() >= popup.width() ||
                   room.right() - reference.right() >= popup.width()));
}

} // namespace

class PlacementSightTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void plainPopups_data() {
    const Rows<QRect, QList<EDirection>, QSize, QRect, QPoint> row("reference", "sides", "size", "expected",
                                                                   "offset");
    constexpr QRect middle(140, 90, 20, 20);
    const QList<EDirection> all{Bottom, Top, Left, Right};
    row("where it is wanted", middle, all, {40, 30}, {130, 119, 40, 30}, {});
    row("another side has room", middle, all, {40, 95}, {90, 53, 40, 95}, {});
    row("moved along the edge", {0, 90, 20, 20}, {Bottom}, {80, 30}, {0, 119, 80, 30}, {});
    row("moved to the reference", {140, 0, 20, 165}, {Bottom}, {40, 35}, {130, 165, 40, 35}, {});
    row("never over it", {140, 0, 20, 180}, {Bottom}, {40, 35}, {130, 180, 40, 35}, {});
    row("the least hidden", {140, 90, 20, 100}, {Bottom, Top}, {400, 95}, {0, -5, 400, 95}, {});
    row("an offset of its own side", middle, {Bottom, Top}, {40, 30}, {130, 99, 40, 30}, {0, -20});
    row("not of the others", {140, 180, 20, 20}, {Bottom, Top}, {40, 30}, {130, 150, 40, 30}, {0, 20});
    row("the reference is out of sight", {-500, 90, 20, 20}, {Left, Right}, {40, 30}, {0, 85, 40, 30}, {});
  }
  void plainPopups() {
    QFETCH(QRect, reference);
    QFETCH(QList<EDirection>, sides);
    QFETCH(QPoint, offset);
    QFETCH(QSize, size);
    const Placement::Target target{.reference = reference, .additionalOffset = offset};
    const KeptStance kept =
        Placement::keepInSight(Placement::plainStances(target, sides, size), target, area);
    QTEST(kept.rect, "expected");
    QCOMPARE(kept.isWhole(), area.contains(kept.rect));
  }

  void arrowsSlide_data() {
    const Rows<QRect, EDirection, QPoint, int> row("reference", "side", "place", "slide");
    row("fits", {140, 90, 20, 20}, Bottom, {99, 119}, 0);
    row("slid", {20, 90, 20, 20}, Bottom, {0, 119}, -21);
    row("points at another spot", {0, 90, 7, 20}, Bottom, {0, 119}, -46);
    row("at the end of the slide", {290, 90, 10, 20}, Top, {200, 20}, 44);
    row("cannot leave the reference", {-60, 90, 20, 20}, Bottom, {-45, 119}, -46);
    row("upright", {100, 190, 20, 10}, Right, {129, 140}, 24);
  }
  void arrowsSlide() {
    QFETCH(QRect, reference);
    QFETCH(EDirection, side);
    const Placement::Target target{.reference = reference};
    const std::array stances{arrowed(target, side)};
    const KeptStance kept = Placement::keepInSight(stances, target, area);
    QTEST(kept.rect.topLeft(), "place");
    QTEST(kept.slide, "slide");
  }

  void lastResort() {
    const Placement::Target target{.reference = {10, 10, 280, 170}};
    const QList<EDirection> sides{Bottom, Top, Left, Right};
    const auto keep = [&](const QSize& size) {
      return Placement::keepInside(Placement::plainStances(target, sides, size), target, area).rect;
    };
    QCOMPARE(keep({60, 40}), QRect(120, 160, 60, 40)); // covers 20 rows at the bottom, 30 at the top
    QCOMPARE(keep({400, 300}), QRect(0, 0, 400, 300));
    QCOMPARE(Placement::keepInSight({}, target, area).index, -1);
    // An arrow that cannot slide stays where it is on its window.
    Stance stance = arrowed(target, Right);
    stance.lastTip = stance.firstTip - 1;
    QCOMPARE(Placement::keepInside(std::array{stance}, target, area).slide, 0);
  }

  // All owners along the edges and in the corners, of windows of all sizes.
  void everywhereInSight_data() {
    const Rows<QSize> row("window");
    row("tiny", {90, 40});
    row("small", {300, 200});
    row("large", {3840, 2160});
  }
  void everywhereInSight() {
    QFETCH(QSize, window);
    const QRect room({}, window);
    for (int x = 0; x <= 12; ++x) {
      for (int y = 0; y <= 12; ++y) {
        if (x % 12 != 0 && y % 12 != 0)
          continue;
        for (const QSize& owner : {QSize(12, 12), QSize(24, 24), QSize(80, 24)}) {
          const QRect reference(
              QPoint((window.width() - owner.width()) * x / 12, (window.height() - owner.height()) * y / 12),
              owner);
          for (const QSize& popup : {QSize(20, 15), QSize(100, 60), QSize(150, 300), QSize(900, 60)})
            keepsInSight(room, reference, popup);
        }
      }
    }
  }

private:
  static void keepsInSight(const QRect& room, const QRect& reference, const QSize& popup) {
    for (int wanted = Left; wanted <= AnyDirection; ++wanted) {
      const auto sides = Placement::fullPriorityList({EDirection(wanted)});
      for (int alignment = AlignStart; alignment <= AlignEnd; ++alignment) {
        const Placement::Target target{.reference = reference, .alignment = EWidgetsAlign(alignment)};
        const auto plain = Placement::plainStances(target, sides, popup);
        const KeptStance kept = Placement::keepInSight(plain, target, room);
        QCOMPARE(kept.isWhole(), hasRoomBeside(reference, room, popup));
        QVERIFY(!kept.isWhole() || room.contains(kept.rect));
        QVERIFY(!kept.rect.intersects(reference));
        const QRect inside = Placement::keepInside(plain, target, room).rect;
        QVERIFY(room.contains(inside) || popup.boundedTo(room.size()) != popup);
      }
      const Placement::Target target{.reference = reference};
      QList<Stance> stances;
      for (const EDirection side : sides)
        stances.append(arrowed(target, side));
      const KeptStance kept = Placement::keepInSight(stances, target, room);
      QVERIFY(!kept.rect.intersects(reference));
      QCOMPARE(kept.isWhole(), hasRoomBeside(reference, room, {100, 60}));
      const bool level = stances.at(kept.index).side == Top || stances.at(kept.index).side == Bottom;
      const int tip = stances.at(kept.index).tip + kept.slide + (level ? kept.rect.left() : kept.rect.top());
      QVERIFY(tip >= (level ? reference.left() : reference.top()));
      QVERIFY(tip <= (level ? reference.right() : reference.bottom()));
    }
  }
};

VELA_TEST_MAIN(PlacementSightTest)
#include "placement_sight_test.moc"
