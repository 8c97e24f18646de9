// SPDX-License-Identifier: MIT
#include "placement_search.h"

#include <QDebug>
#include <QStringList>

#include <algorithm>

namespace Vela::UiBase {

namespace {

QString inWords(const QRect& rect) {
  return PlacementSearch::tr("%1 × %2 at (%3, %4)")
      .arg(rect.width())
      .arg(rect.height())
      .arg(rect.x())
      .arg(rect.y());
}

QString sideInWords(EDirection side) {
  switch (side) {
  case Left:
    return PlacementSearch::tr("left");
  case Top:
    return PlacementSearch::tr("above");
  case Right:
    return PlacementSearch::tr("right");
  case Bottom:
    return PlacementSearch::tr("below");
  default:
    return PlacementSearch::tr("anywhere");
  }
}

QString arrowInWords(EArrowPosition arrow) {
  switch (arrow) {
  case ArrowTop:
    return PlacementSearch::tr("arrow at the top");
  case ArrowBottom:
    return PlacementSearch::tr("arrow at the bottom");
  case ArrowLeft:
    return PlacementSearch::tr("arrow at the left");
  case ArrowRight:
    return PlacementSearch::tr("arrow at the right");
  case ArrowTopLeft:
    return PlacementSearch::tr("arrow at the top left");
  case ArrowTopRight:
    return PlacementSearch::tr("arrow at the top right");
  case ArrowBottomRight:
    return PlacementSearch::tr("arrow at the bottom right");
  case ArrowBottomLeft:
    return PlacementSearch::tr("arrow at the bottom left");
  default:
    return {};
  }
}

QString outcomeInWords(EPlacementOutcome outcome) {
  switch (outcome) {
  case PlacementAccepted:
    return PlacementSearch::tr("taken");
  case PlacementSlid:
    return PlacementSearch::tr("taken after the arrow was slid");
  case PlacementLastResort:
    return PlacementSearch::tr("taken as the last resort");
  case PlacementNoLayout:
    return PlacementSearch::tr("the window has no such arrow");
  default:
    return PlacementSearch::tr("refused");
  }
}

QStringList faultsInWords(const QMargins& beyond, bool coversReference) {
  QStringList faults;
  if (beyond.left() > 0)
    faults += PlacementSearch::tr("%1 px too far left").arg(beyond.left());
  if (beyond.right() > 0)
    faults += PlacementSearch::tr("%1 px too far right").arg(beyond.right());
  if (beyond.top() > 0)
    faults += PlacementSearch::tr("%1 px too high").arg(beyond.top());
  if (beyond.bottom() > 0)
    faults += PlacementSearch::tr("%1 px too low").arg(beyond.bottom());
  if (coversReference)
    faults += PlacementSearch::tr("covers the reference");
  return faults;
}

QString inWords(const PlacementCandidate& candidate, const QMargins& beyond) {
  QStringList parts{sideInWords(candidate.side)};
  if (candidate.arrow != NoArrow)
    parts += arrowInWords(candidate.arrow);
  if (candidate.arrowOffset != 0)
    parts += PlacementSearch::tr("slid by %1 px").arg(candidate.arrowOffset);
  if (candidate.outcome != PlacementNoLayout)
    parts += inWords(candidate.rect);
  parts += outcomeInWords(candidate.outcome);
  parts += faultsInWords(beyond, candidate.coversReference);
  return parts.join(PlacementSearch::tr(", "));
}

} // namespace

const PlacementCandidate* PlacementSearch::taken() const {
  for (const PlacementCandidate& candidate : m_candidates)
    if (candidate.isTaken())
      return &candidate;
  return nullptr;
}

QMargins PlacementSearch::beyond(const PlacementCandidate& candidate) const {
  if (!m_freeArea || candidate.outcome == PlacementNoLayout)
    return {};
  const QRect& rect = candidate.rect;
  return {std::max(0, m_freeArea->left() - rect.left()), std::max(0, m_freeArea->top() - rect.top()),
          std::max(0, rect.right() - m_freeArea->right()), std::max(0, rect.bottom() - m_freeArea->bottom())};
}

QString PlacementSearch::toString() const {
  QStringList lines{tr("Reference: %1").arg(inWords(m_reference)),
                    m_freeArea ? tr("Free area: %1").arg(inWords(*m_freeArea)) : tr("Free area: no limits")};
  for (qsizetype i = 0; i < m_candidates.size(); ++i)
    lines += tr("%1. %2").arg(i + 1).arg(inWords(m_candidates[i], beyond(m_candidates[i])));
  return lines.join(QLatin1Char('\n'));
}

QDebug operator<<(QDebug debug, const PlacementSearch& search) {
  const QDebugStateSaver saver(debug);
  debug.nospace().noquote() << "PlacementSearch\n" << search.toString();
  return debug;
}

} // namespace Vela::UiBase
