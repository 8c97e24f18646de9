// SPDX-License-Identifier: MIT
#pragma once

#include <QHBoxLayout>
#include <QList>

class QToolButton;

namespace Vela::UiBase {

/// The row of a menu bar. Where the bar is too narrow, the last items stand past its end, out of sight but
/// not hidden, and a button for them takes the end of the bar.
class MenuBarLayout : public QHBoxLayout {
public:
  /// @param overflowButton not in the row; both are children of the bar.
  MenuBarLayout(QWidget* bar, QToolButton* overflowButton);

  bool overflows(const QWidget* item) const;

  /// No wider than the button: a bar never keeps its window from being narrow.
  QSize minimumSize() const override;
  void setGeometry(const QRect& rect) override;

private:
  void placeWhatFits(const QRect& rect);

  QToolButton* const m_button;
  QList<const QWidget*> m_past; // compared only
};

} // namespace Vela::UiBase
