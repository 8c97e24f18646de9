// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QLabel>
#include <QSize>

namespace Vela::License {

/// The label of a lock badge; keeps the button's own tooltip while its own one is shown.
class LockBadge : public QLabel {
  Q_OBJECT

public:
  explicit LockBadge(QWidget* button);

  static LockBadge* of(QWidget* button);

  void display(const QString& pixmapPath, const QPoint& offset, const QString& lockToolTip);
  void restoreToolTip();

  bool eventFilter(QObject* watched, QEvent* event) override;

protected:
  bool event(QEvent* event) override;

private:
  void updatePixmap();
  void coverToolTip();

  QIcon m_icon;
  QSize m_size; // device-independent
  QString m_lockToolTip;
  QString m_ownToolTip;
  bool m_changingToolTip = false;
};

} // namespace Vela::License
