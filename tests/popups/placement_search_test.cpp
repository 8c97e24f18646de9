// SPDX-License-Identifier: MIT
#include <support/rows.h>
#include <support/test_case.h>
#include <ui_base/popups/placement_choice.h>

#include <algorithm>
#include <random>

using namespace Vela::UiBase;
using Vela::Test::Rows;

namespace {

/// A window of a fixed size whose arrow ends at its edge, as far as it can be told without a widget. An arrow
/// slides while its anchor stays in the window, so the wrong axis takes it inwards.
class PlainWindow {
public:
  explicit PlainWindow(const QSize& size) : m_size(size) {}

  bool layOut(SArrowParam& arrow, QSize& size, QPoint& tip) {
    laidOut.append(arrow);
    if (refused.contains(arrow.position) || (arrow.offset != 0 && !slides))
      return false;
    size = m_size;
    tip = anchor(arrow.position);
    const QPoint slid = tip + (arrow.offsetAlongX ? QPoint(arrow.offset, 0) : QPoint(0, arrow.offset));
    if (QRect(QPoint(), size).contains(slid))
      tip = slid;
    return true;
  }

  QList<EArrowPosition> refused;
  bool slides = true;
  int room = 0; ///< Kept free around it for a shadow.
  QList<SArrowParam> laidOut;

private:
  QPoint anchor(EArrowPosition position) const {
    const auto isOneOf = [position](const QList<EArrowPosition>& list) { return list.contains(position); };
    const QRect edge = QRect({}, m_size).marginsRemoved({room, room, room, room});
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
  void plainSearch_data() {
    const Rows<QSize, QString, EDirection> row("popup", "outcomes", "side");
    row("the first side", {20, 20}, "A", Bottom);
    row("the side that has room", {31, 290}, "rrrA", Right);
    row("no side", {900, 700}, "rrrL", Right);
  }
  void plainSearch() {
    QFETCH(QSize, popup);
    Search search{.area = {30, 30, 740, 540}, .target = {.reference = {60, 300, 40, 20}}};
    const QRect place = search.plain({Bottom, Top, Left, Right}, popup);
    QTEST(search.outcomes(), "outcomes");
    QTEST(search.side, "side");
    QCOMPARE(search.record.taken()->rect, place);
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

  void shadowsDoNotCoverTheReference() {
    Search search{.area = {30, 30, 740, 540}, .target = {.reference = {40, 300, 40, 20}}, .verifySlid = true};
    PlainWindow window({200, 100});
    window.room = 15;
    QCOMPARE(search.arrowed(pairsOf({ArrowTop, ArrowLeft}), window), QPoint(30, 314));
    QCOMPARE(search.outcomes(), "rA");
    search.target.reference.moveLeft(700);
    QCOMPARE(search.arrowed(pairsOf({ArrowLeft, ArrowRight}), window), QPoint(505, 259));
    QCOMPARE(search.outcomes(), "rrA");
    QVERIFY(search.record.candidates()[1].coversReference);
  }

  void arrowsThatCannotBeLaidOut() {
    Search search{.area = {30, 30, 740, 540}, .target = {.reference = {40, 300, 40, 20}}};
    PlainWindow window({200, 100});
    window.refused = {ArrowTop};
    QCOMPARE(search.arrowed(pairsOf({ArrowTop, ArrowLeft}), window), QPoint(89, 259));
    QCOMPARE(search.outcomes(), "-A");

    window.refused = {ArrowTop, ArrowLeft};
    QCOMPARE(search.arrowed(pairsOf({ArrowTop, ArrowLeft}), window), QPoint());
    QCOMPARE(search.outcomes(), "---");
    QCOMPARE(search.record.taken(), nullptr);

    window.refused.clear();
    window.slides = false; // the first comes once more at the end, as it was given
    QCOMPARE(search.arrowed(pairsOf({ArrowTop, ArrowBottom}), window), QPoint(-41, 329));
    QCOMPARE(search.outcomes(), "r-r-L-");
    QCOMPARE(search.side, Bottom);
  }

  void insideWheneverACandidateIs() {
    const unsigned seed = std::random_device()();
    qInfo("seed %u", seed);
    std::mt19937 random(seed);
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
