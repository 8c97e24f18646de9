// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/placement.h>
#include <ui_base/popups/placement_search.h>

#include <span>

namespace Vela::UiBase::Placement {

/// Tries the sides of a reference in order and returns the position on the first that `verify` accepts, or
/// else on the last. `side` is the one in progress, then the one taken; `search` tells afterwards why.
///
/// `verify` is called as bool verify(const QPoint& position, const QRect& popup, QPoint& adjust).
template <class Verify>
QPoint choosePlain(const Target& target, const QRect& popup, std::span<const EDirection> sides,
                   Verify&& verify, EDirection& side, PlacementSearch& search) {
  search.begin(target.reference);
  QPoint position;
  for (const EDirection next : sides) {
    side = next;
    position = plainPosition(target, next, popup.size());
    QPoint adjust;
    const bool accepted = verify(position, popup, adjust);
    search.add({.side = next,
                .rect = popup.translated(position),
                .outcome = accepted ? PlacementAccepted : PlacementRefused});
    if (accepted)
      return position;
  }
  if (!sides.empty())
    search.take(search.candidates().size() - 1, PlacementLastResort);
  return position;
}

/// The same for a window with an arrow: tries pairs of an arrow and a side.
///
/// A candidate that is refused is tried again with its arrow slid as far as it reaches beyond the free area,
/// and is then taken unseen; with `verifySlid` only when it passes the verification and does not cover the
/// reference. When no pair is left, the last one is taken.
///
/// `layOut` is called as bool layOut(SArrowParam& arrow, QSize& size, QPoint& tip): gives the window this
/// arrow and tells its size and where in it the tip is, or false when the window cannot have it.
///
/// @code
/// Placement::ArrowedChoice choice(target, verifySlid, layOut, verify, side, search);
/// window->move(choice.choose(pairs));
/// @endcode
template <class LayOut, class Verify>
class ArrowedChoice {
public:
  /// References are kept: all must outlive the choice. @p side and the record tell the outcome.
  ArrowedChoice(const Target& target, bool verifySlid, LayOut& layOut, Verify& verify, EDirection& side,
                PlacementSearch& search)
      : m_target(target),
        m_verifySlid(verifySlid),
        m_layOut(layOut),
        m_verify(verify),
        m_side(side),
        m_search(search) {}

  /// Tries the pairs in turn. @return where the window goes.
  QPoint choose(std::span<const ArrowPair> pairs) {
    m_search.begin(m_target.reference);
    m_position = {};
    qsizetype lastLaidOut = -1;
    for (const ArrowPair& pair : pairs) {
      m_pair = pair;
      m_side = pair.second;
      if (!layOut())
        continue;
      m_position = m_place.topLeft();
      m_room = roomAroundArrow();
      const bool accepted = isAccepted();
      lastLaidOut = record(accepted ? PlacementAccepted : PlacementRefused);
      if (accepted || takeSlid(pair, &pair == &pairs.back()))
        return m_place.topLeft();
    }
    if (lastLaidOut >= 0)
      m_search.take(lastLaidOut, PlacementLastResort);
    return m_position;
  }

private:
  bool layOut() {
    QSize size;
    if (!m_layOut(m_pair.first, size, m_tip)) {
      record(PlacementNoLayout);
      return false;
    }
    m_popup = QRect(QPoint(), size);
    m_place = m_popup.translated(arrowedPosition(m_target, m_pair, m_popup, m_tip));
    return true;
  }

  /// What the window is larger than body and arrow, as far as a tip at the outermost tells: room for a
  /// shadow.
  int roomAroundArrow() const {
    switch (m_side) {
    case Left:
      return m_popup.right() - m_tip.x();
    case Right:
      return m_tip.x();
    case Bottom:
      return m_tip.y();
    default:
      return m_popup.bottom() - m_tip.y();
    }
  }

  bool isAccepted() {
    m_adjust = {};
    return m_verify(m_place.topLeft(), m_popup, m_adjust);
  }

  qsizetype record(EPlacementOutcome outcome, bool covering = false) {
    return m_search.add({.side = m_side,
                         .arrow = m_pair.first.position,
                         .arrowOffset = m_pair.first.offset,
                         .rect = m_place,
                         .coversReference = covering,
                         .outcome = outcome});
  }

  bool take(EPlacementOutcome outcome) {
    record(outcome);
    return true;
  }

  bool takeSlid(const ArrowPair& pair, bool last) {
    slide(m_pair.first, m_adjust);
    if (!layOut())
      return false;
    if (!m_verifySlid)
      return take(PlacementSlid);
    const bool covering = covers(m_place.adjusted(m_room, m_room, -m_room, -m_room), m_target);
    if (!covering && isAccepted())
      return take(PlacementAccepted);
    if (!covering && last)
      return take(PlacementLastResort);
    record(PlacementRefused, covering);
    return last && takeUnslid(pair);
  }

  /// Rather too far out than over the reference.
  bool takeUnslid(const ArrowPair& pair) {
    m_pair = pair;
    return layOut() && take(PlacementLastResort);
  }

  const Target& m_target;
  const bool m_verifySlid;
  LayOut& m_layOut;
  Verify& m_verify;
  EDirection& m_side;
  PlacementSearch& m_search;

  ArrowPair m_pair;  // as the window has it
  QRect m_popup;     // the window with it, at the origin
  QRect m_place;     // the same where it is to stand
  QPoint m_tip;      // where in it the arrow ends
  int m_room = 0;    // around it, for its shadow
  QPoint m_position; // the last place whose arrow was not slid
  QPoint m_adjust;   // how far its arrow should slide
};

} // namespace Vela::UiBase::Placement
