// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class QWidget;

namespace Vela::UiBase {

class BaseView;

/// Keeps the children of a covered view out of reach, except those that lie in front of it, and popups where
/// it is a window: they are disabled, and stay behind the front, until the view is uncovered. What the
/// application sets meanwhile with setEnabled() holds from then on.
class CoveredChildren : public QObject {
public:
  explicit CoveredChildren(BaseView& covered);
  /// Children of a view that dies are left as they are.
  ~CoveredChildren() override;

  /// Whether a child of a view lies behind what covers the view: it is no window, no popup, and has no place
  /// in that order itself.
  static bool isBehind(const BaseView& covered, const QWidget& child);

  /// Takes in new children, and lets go of those that lie in front now.
  void update();
  void release();

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  bool isCovered(const QWidget& child) const;
  void add(QWidget& child);
  void remove(QWidget& child);
  void raiseFront();

  const QPointer<BaseView> m_view;
  QList<QPointer<QWidget>> m_children;
};

} // namespace Vela::UiBase
