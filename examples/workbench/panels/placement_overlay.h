// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/placement_search.h>

#include <QPointer>
#include <QWidget>

namespace Vela::UiBase {
class WidgetPosCalculator;
}

namespace Workbench {

/// Draws over a window why the popup that was placed last stands where it stands: what it belongs to, the
/// free area, and each place that was tried, with its number and what was wrong with it. Takes no input.
///
/// It is told of all searches of the process, also while it is hidden. One object at a time.
class PlacementOverlay : public QWidget {
  Q_OBJECT

public:
  /// Made hidden, over all of the window.
  explicit PlacementOverlay(QWidget& window);
  ~PlacementOverlay() override;

  /// The last search for a popup of the window; without candidates before the first one.
  const Vela::UiBase::PlacementSearch& search() const noexcept { return m_search; }

  bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
  /// A popup was placed.
  void searchChanged();

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  void take(const Vela::UiBase::WidgetPosCalculator& calculator);
  QString problems(const Vela::UiBase::PlacementCandidate& candidate) const;
  void paintCandidate(QPainter& painter, qsizetype index) const;

  Vela::UiBase::PlacementSearch m_search;
  QPoint m_origin; // of its coordinates, in those of the window
};

} // namespace Workbench
