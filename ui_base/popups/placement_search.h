// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/arrow_param.h>
#include <ui_base/ui_base_export.h>

#include <QCoreApplication>
#include <QMargins>
#include <QRect>
#include <QVarLengthArray>

#include <optional>

class QDebug;

namespace Vela::UiBase {

/// What became of a place that was tried.
enum EPlacementOutcome : int {
  PlacementRefused = 0,
  PlacementAccepted = 1,   ///< Taken: it passed the verification.
  PlacementSlid = 2,       ///< Taken unseen after its arrow was slid.
  PlacementLastResort = 3, ///< Taken because nothing better was left.
  PlacementNoLayout = 4,   ///< The window could not lay out this arrow.
};

/// One place that was tried.
struct PlacementCandidate {
  EDirection side = Top;
  EArrowPosition arrow = NoArrow;
  int arrowOffset = 0;          ///< In pixels along the window's edge.
  QRect rect = {};              ///< The popup there, in the coordinates the search was made in.
  bool coversReference = false; ///< Refused because it did; asked only of slid arrows.
  EPlacementOutcome outcome = PlacementRefused;

  /// Whether this is where the popup went.
  bool isTaken() const {
    return outcome == PlacementAccepted || outcome == PlacementSlid || outcome == PlacementLastResort;
  }
};

/// Why a popup stands where it stands: every place that was tried, in order, and what was wrong with it.
///
/// A value that lives on the stack for searches of usual length. Printable with qDebug(), and in words for
/// users.
///
/// @code
/// QPoint position;
/// calculator->GetPosition(position, QRect(), true, QPoint());
/// qDebug() << calculator->LastSearch();
/// @endcode
class UI_BASE_EXPORT PlacementSearch {
  Q_DECLARE_TR_FUNCTIONS(Vela::UiBase::PlacementSearch)

public:
  using Candidates = QVarLengthArray<PlacementCandidate, 14>;

  /// What the popup points at, in global coordinates.
  const QRect& reference() const { return m_reference; }
  /// Where popups may stand; none when nothing limits them.
  const std::optional<QRect>& freeArea() const { return m_freeArea; }
  /// Everything that was tried, in order.
  const Candidates& candidates() const { return m_candidates; }
  /// The candidate that was taken; null when there was none. Valid until the search is changed.
  const PlacementCandidate* taken() const;
  /// How far a candidate reaches beyond each edge of the free area, in pixels; 0 where it does not.
  QMargins beyond(const PlacementCandidate& candidate) const;

  /// A line for the reference, the free area and each candidate, in the user's language.
  QString toString() const;

  /// For who searches: forgets everything and starts anew.
  void begin(const QRect& reference) {
    m_reference = reference;
    m_freeArea.reset();
    m_candidates.clear();
  }
  /// Where there is room, in global coordinates; nothing when nobody was asked.
  void setFreeArea(const std::optional<QRect>& area) { m_freeArea = area; }
  /// Appends a candidate and returns its index.
  qsizetype add(const PlacementCandidate& candidate) {
    m_candidates.append(candidate);
    return m_candidates.size() - 1;
  }
  /// Marks the candidate that is taken, and how.
  void take(qsizetype index, EPlacementOutcome outcome) { m_candidates[index].outcome = outcome; }

private:
  QRect m_reference;
  std::optional<QRect> m_freeArea;
  Candidates m_candidates;
};

UI_BASE_EXPORT QDebug operator<<(QDebug debug, const PlacementSearch& search);

} // namespace Vela::UiBase
