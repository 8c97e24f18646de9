// SPDX-License-Identifier: MIT
#include <support/rows.h>
#include <support/test_case.h>
#include <ui_base/popups/placement_sight.h>

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
  void plainPopups() {
    const auto kept = [](const Placement::Target& target, const QList<EDirection>& sides, const QSize& size) {
      return Placement::keepInSight(Placement::plainStances(target, sides, size), target, area).rect;
    };
    constexpr QRect middle(140, 90, 20, 20);
    QCOMPARE(kept({.reference = middle}, {Bottom, Top}, {40, 30}), QRect(130, 119, 40, 30));
    QCOMPARE(kept({.reference = {140, 0, 20, 180}}, {Bottom}, {40, 35}), QRect(130, 180, 40, 35));
    // An owner that may be covered as a whole sets no limit.
    QCOMPARE(kept({.reference = {140, 180, 20, 20}, .baseOffset = -30}, {Bottom}, {40, 35}),
             QRect(130, 165, 40, 35));
    // An offset is for the side that was wanted.
    const QPoint offset(0, 20);
    QCOMPARE(kept({.reference = middle, .additionalOffset = offset}, {Bottom, Top}, {40, 30}),
             QRect(130, 139, 40, 30));
    QCOMPARE(kept({.reference = {140, 180, 20, 20}, .additionalOffset = offset}, {Bottom, Top}, {40, 30}),
             QRect(130, 150, 40, 30));
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
