// SPDX-License-Identifier: MIT
#include "placement_search.h"

#include <QDebug>
#include <QStringList>

#include <algorithm>

namespace Vela::UiBase {

namespace {

struct Words {
  Q_DECLARE_TR_FUNCTIONS(Vela::UiBase::PlacementSearch)
};

QString inWords(const QRect& rect) {
  return Words::tr("%1 × %2 at (%3, %4)").arg(rect.width()).arg(rect.height()).arg(rect.x()).arg(rect.y());
}

QString sideInWords(EDirection side) {
  switch (side) {
  case Left:
    return Words::tr("left");
  case Top:
    return Words::tr("above");
  case Right:
    return Words::tr("right");
  case Bottom:
    return Words::tr("below");
  default:
    return Words::tr("anywhere");
  }
}

QString arrowInWords(EArrowPosition arrow) {
  switch (arrow) {
  case ArrowTop:
    return Words::tr("arrow at the top");
  case ArrowBottom:
    return Words::tr("arrow at the bottom");
  case ArrowLeft:
    return Words::tr("arrow at the left");
  case ArrowRight:
    return Words::tr("arrow at the right");
  case ArrowTopLeft:
    return Words::tr("arrow at the top left");
  case ArrowTopRight:
    return Words::tr("arrow at the top right");
  case ArrowBottomRight:
    return Words::tr("arrow at the bottom right");
  case ArrowBottomLeft:
    return Words::tr("arrow at the bottom left");
  default:
    return {};
  }
}

QString outcomeInWords(EPlacementOutcome outcome) {
  switch (outcome) {
  case PlacementAccepted:
    return Words::tr("taken");
  case PlacementSlid:
    return Words::tr("taken after the arrow was slid");
  case PlacementLastResort:
    return Words::tr("taken as the last resort");
  case PlacementNoLayout:
    return Words::tr("the window has no such arrow");
  default:
    return Words::tr("refused");
  }
}

QStringList faultsInWords(const QMargins& beyond, bool coversReference) {
  QStringList faults;
  if (beyond.left() > 0)
    faults += Words::tr("%1 px too far left").arg(beyond.left());
  if (beyond.right() > 0)
    faults += Words::tr("%1 px too far right").arg(beyond.right());
  if (beyond.top() > 0)
    faults += Words::tr("%1 px too high").arg(beyond.top());
  if (beyond.bottom() > 0)
    faults += Words::tr("%1 px too low").arg(beyond.bottom());
  if (coversReference)
    faults += Words::tr("covers the reference");
  return faults;
}

QString inWords(const PlacementCandidate& candidate, const QMargins& beyond) {
  QStringList parts{sideInWords(candidate.side)};
  if (candidate.arrow != NoArrow)
    parts += arrowInWords(candidate.arrow);
  if (candidate.arrowOffset != 0)
    parts += Words::tr("slid by %1 px").arg(candidate.arrowOffset);
  if (candidate.outcome != PlacementNoLayout)
    parts += inWords(candidate.rect);
  parts += outcomeInWords(candidate.outcome);
  parts += faultsInWords(beyond, candidate.coversReference);
  return parts.join(Words::tr(", "));
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
  QStringList lines{
      QCoreApplication::translate("Vela::UiBase::PlacementSearch", "Reference: %1").arg(inWords(m_reference)),
      m_freeArea ? QCoreApplication::translate("Vela::UiBase::PlacementSearch", "Free area: %1")
                       .arg(inWords(*m_freeArea))
                 : QCoreApplication::translate("Vela::UiBase::PlacementSearch", "Free area: no limits")};
  for (qsizetype i = 0; i < m_candidates.size(); ++i)
    lines += QCoreApplication::translate("Vela::UiBase::PlacementSearch", "%1. %2")
                 .arg(i + 1)
                 .arg(inWords(m_candidates[i], beyond(m_candidates[i])));
  return lines.join(QLatin1Char('\n'));
}

QDebug operator<<(QDebug debug, const PlacementSearch& search) {
  const QDebugStateSaver saver(debug);
  debug.nospace().noquote() << "PlacementSearch\n" << search.toString();
  return debug;
}

} // namespace Vela::UiBase
