// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <ui_base/popups/placement_sight.h>

using namespace Vela::UiBase;

namespace {

constexpr QRect area(0, 0, 300, 200);

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

  void sidesThatWereNotAskedFor() {
    QCOMPARE(Placement::fullPriorityList({AnyDirection, Right}),
             QList<EDirection>({Right, Left, Top, Bottom}));
  }
};

VELA_TEST_MAIN(PlacementSightTest)
#include "placement_sight_test.moc"
