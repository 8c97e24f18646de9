// SPDX-License-Identifier: MIT
#include <support/rows.h>
#include <support/test_case.h>
#include <ui_base/popups/placement.h>
#include <ui_base/popups/placement_choice.h>

#include <algorithm>
#include <random>

using namespace Vela::UiBase;
using Vela::Test::Rows;

namespace {

constexpr QRect owner(100, 50, 31, 20); // to (130, 69), its centre at (115, 59)

/// A window of a fixed size whose arrow ends at its edge, as far as it can be told without a widget. An arrow
/// slides while its anchor stays in the window, so the wrong axis takes it inwards.
class PlainWindow {
public:
  explicit PlainWindow(const QSize& size) : m_size(size) {}

  bool layOut(SArrowParam& arrow, QSize& size, QPoint& tip) {
    laidOut.append(arrow);
    if (refused.contains(arrow.position))
      return false;
    size = m_size;
    tip = anchor(arrow.position);
    const QPoint slid = tip + (arrow.offsetAlongX ? QPoint(arrow.offset, 0) : QPoint(0, arrow.offset));
    if (QRect(QPoint(), size).contains(slid))
      tip = slid;
    return true;
  }

  QList<EArrowPosition> refused;
  QList<SArrowParam> laidOut;

private:
  QPoint anchor(EArrowPosition position) const {
    const auto isOneOf = [position](const QList<EArrowPosition>& list) { return list.contains(position); };
    const QRect edge({}, m_size);
    return {isOneOf({ArrowLeft, ArrowTopLeft, ArrowBottomLeft})      ? edge.left()
            : isOneOf({ArrowRight, ArrowTopRight, ArrowBottomRight}) ? edge.right()
                                                                     : m_size.width() / 2,
            isOneOf({ArrowTop, ArrowTopLeft, ArrowTopRight})            ? edge.top()
            : isOneOf({ArrowBottom, ArrowBottomLeft, ArrowBottomRight}) ? edge.bottom()
                                                                        : m_size.height() / 2};
  }

  const QSize m_size;
};

/// A search in a free area, and what came out of it.
struct Search {
  QRect area;
  Placement::Target target;
  bool verifySlid = false;
  EDirection side = AnyDirection;
  PlacementSearch record{};

  auto verifier() {
    return [this](const QPoint& position, const QRect& popup, QPoint& adjust) {
      record.setFreeArea(area);
      return Placement::verify(popup.translated(position), area, adjust);
    };
  }
  QRect plain(const QList<EDirection>& sides, const QSize& size) {
    return {Placement::choosePlain(target, QRect(QPoint(), size), sides, verifier(), side, record), size};
  }
  QPoint arrowed(const QList<ArrowPair>& pairs, PlainWindow& window) {
    const auto layOut = [&](SArrowParam& arrow, QSize& size, QPoint& tip) {
      return window.layOut(arrow, size, tip);
    };
    const auto verify = verifier();
    return Placement::ArrowedChoice(target, verifySlid, layOut, verify, side, record).choose(pairs);
  }
  /// One character a candidate: refused, Accepted, Slid, Last resort, no layout (-).
  QString outcomes() const {
    QString text;
    for (const PlacementCandidate& candidate : record.candidates())
      text += QLatin1Char("rASL-"[candidate.outcome]);
    return text;
  }
};

QList<ArrowPair> pairsOf(const QList<EArrowPosition>& positions) {
  QList<SArrowParam> arrows;
  for (const EArrowPosition position : positions)
    arrows.append(SArrowParam{.position = position});
  return Placement::arrowPairs(arrows, false, {});
}

} // namespace

class PlacementSearchTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void arrowedPositions_data() {
    // The tip in a window of 80 x 60.
    const Rows<EDirection, EArrowPosition, QPoint, QPoint, QPoint> row("side", "position", "tip", "expected",
                                                                       "fixedAngle");
    row("below, top", Bottom, ArrowTop, {40, 0}, {75, 79}, {75, 79});
    row("below, top right", Bottom, ArrowTopRight, {77, 3}, {-87, 76}, {38, 76});
    row("above, bottom left", Top, ArrowBottomLeft, {2, 57}, {138, -18}, {113, -18});
    row("right, top left", Right, ArrowTopLeft, {1, 2}, {139, 77}, {139, 57});
    row("left, bottom right", Left, ArrowBottomRight, {78, 57}, {11, -67}, {11, 2});
  }
  void arrowedPositions() {
    QFETCH(EDirection, side);
    QFETCH(EArrowPosition, position);
    QFETCH(QPoint, tip);
    // The additional offset is not for arrows.
    const Placement::Target target{.reference = owner, .additionalOffset = {500, 500}};
    const auto place = [&](bool fixedAngle) {
      return Placement::arrowedPosition(
          target, {SArrowParam{.position = position, .fixedAngle = fixedAngle}, side}, {0, 0, 80, 60}, tip);
    };
    QTEST(place(false), "expected");
    QTEST(place(true), "fixedAngle");
  }

  void arrowedSearch_data() {
    const Rows<QRect, QList<EArrowPosition>, bool, QString, QPoint, EDirection> row(
        "reference", "arrows", "verifySlid", "outcomes", "position", "side"); // of a window of 200 x 100
    constexpr QRect left(40, 300, 40, 20);
    constexpr QRect right(700, 300, 40, 20);
    constexpr QRect high(80, 4, 41, 10);
    row("fits", right, {ArrowRight}, false, "A", {490, 259}, Left);
    row("slid", left, {ArrowTop, ArrowLeft}, false, "rS", {30, 329}, Bottom);
    row("slid and seen to fit", left, {ArrowTop, ArrowLeft}, true, "rA", {30, 329}, Bottom);
    row("slid inwards, over the reference", right, {ArrowLeft, ArrowRight}, false, "rS", {619, 259}, Right);
    row("seen to cover the reference", right, {ArrowLeft, ArrowRight}, true, "rrA", {490, 259}, Left);
    row("nothing better, but not over it", right, {ArrowLeft}, true, "rrL", {749, 259}, Right);
    row("nothing better, but slid", high, {ArrowTop}, true, "rL", {30, 23}, Bottom);
    row("none but the first, slid", high, {ArrowTop, ArrowBottom}, true, "rrrrrL", {30, 23}, Bottom);
  }
  void arrowedSearch() {
    QFETCH(QRect, reference);
    QFETCH(QList<EArrowPosition>, arrows);
    QFETCH(bool, verifySlid);
    Search search{.area = {30, 30, 740, 540}, .target = {.reference = reference}, .verifySlid = verifySlid};
    PlainWindow window({200, 100});
    QTEST(search.arrowed(pairsOf(arrows), window), "position");
    QTEST(search.outcomes(), "outcomes");
    QTEST(search.side, "side");
  }

  void arrowsThatCannotBeLaidOut() {
    Search search{.area = {30, 30, 740, 540}, .target = {.reference = {40, 300, 40, 20}}};
    PlainWindow window({200, 100});
    window.refused = {ArrowTop, ArrowLeft};
    QCOMPARE(search.arrowed(pairsOf({ArrowTop, ArrowLeft}), window), QPoint());
    QCOMPARE(search.outcomes(), "---");
  }

  void howFarOutsideAPopupIs_data() {
    const Rows<QRect, QPoint> row("popup", "outside"); // of an area of 200 x 200
    row("nowhere", {0, 0, 200, 200}, {});
    row("left", {-1, 0, 100, 100}, {-1, 0});
    row("right", {0, 0, 201, 100}, {1, 0});
    row("above, at the right", {100, -1, 100, 100}, {0, -1});
    row("below", {0, 0, 100, 201}, {0, 1});
    row("left, as far as an arrow slides", {-90, 0, 100, 50}, {-30, 0});
    row("below, as far as an arrow slides", {0, 190, 50, 100}, {0, 30});
  }
  void howFarOutsideAPopupIs() {
    QFETCH(QRect, popup);
    QPoint outside;
    const bool isInside = Placement::verify(popup, {0, 0, 200, 200}, outside);
    QTEST(outside, "outside");
    QCOMPARE(isInside, outside.isNull());
  }

  void searchesInWords() {
    PlacementSearch search;
    search.begin({1, 2, 3, 4});
    search.setFreeArea(QRect(0, 0, 9, 9));
    search.add({.rect = {0, 0, 9, 9}, .outcome = PlacementAccepted});
    search.add({.side = Left, .arrow = ArrowTop, .rect = {-1, -1, 11, 11}, .coversReference = true});
    search.add({.arrow = ArrowRight, .arrowOffset = 1, .rect = {-1, 0, 1, 1}, .outcome = PlacementNoLayout});
    QCOMPARE(QDebug::toString(search),
             QStringLiteral("PlacementSearch\nReference: 3 × 4 at (1, 2)\nFree area: 9 × 9 at (0, 0)\n"
                            "1. above, 9 × 9 at (0, 0), taken\n"
                            "2. left, arrow at the top, 11 × 11 at (-1, -1), refused, 1 px too far left,"
                            " 1 px too far right, 1 px too high, 1 px too low, covers the reference\n"
                            "3. above, arrow at the right, slid by 1 px, the window has no such arrow"));
  }

  void insideWheneverACandidateIs() {
    std::mt19937 random(1); // of a fixed seed
    const auto number = [&](int from, int to) { return std::uniform_int_distribution<>(from, to)(random); };
    const QList<EDirection> sides = Placement::fullPriorityList({EDirection(number(0, 3))});
    const QList<ArrowPair> pairs = Placement::arrowPairs({}, true, sides);
    int found = 0;
    for (int i = 0; i < 2000; ++i) {
      const QSize size(number(20, 500), number(20, 400));
      const QRect reference(number(0, 700), number(0, 500), number(1, 100), number(1, 100));
      Search search{.area = {30, 30, 740, 540},
                    .target = {.reference = reference, .baseOffset = number(1, 20)},
                    .verifySlid = true};
      const auto isInside = [&](const QRect& place) { return search.area.contains(place); };

      const QRect plain = search.plain(sides, size);
      QCOMPARE(isInside(plain), std::ranges::any_of(sides, [&](EDirection side) {
                 return isInside({Placement::plainPosition(search.target, side, size), size});
               }));

      PlainWindow window(size);
      const bool anyInside = std::ranges::any_of(pairs, [&](ArrowPair pair) {
        QSize laidOut;
        QPoint tip;
        window.layOut(pair.first, laidOut, tip);
        const QRect popup(QPoint(), laidOut);
        return isInside(popup.translated(Placement::arrowedPosition(search.target, pair, popup, tip)));
      });
      const QRect place(search.arrowed(pairs, window), size);
      QVERIFY(isInside(place) || !anyInside);
      QVERIFY(!place.intersects(reference));
      found += anyInside;

      QCOMPARE(std::ranges::count_if(search.record.candidates(), &PlacementCandidate::isTaken), 1);
      const PlacementCandidate& taken = *search.record.taken();
      QCOMPARE(taken.rect, place);
      QCOMPARE(taken.side, search.side);
      QCOMPARE(window.laidOut.constLast().position, taken.arrow);
      QCOMPARE(window.laidOut.constLast().offset, taken.arrowOffset);
    }
    QVERIFY(found > 100);
  }
};

VELA_TEST_MAIN(PlacementSearchTest)
#include "placement_search_test.moc"
