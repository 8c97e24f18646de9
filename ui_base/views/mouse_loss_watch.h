// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QObject>
#include <QPointer>

#include <functional>

class QWidget;

namespace Vela::UiBase {

/// Notices that a view whose mouse button is held will not hear of the release: the focus or the window's
/// activation goes elsewhere, a dialog blocks the window, or the view is disabled. A view that is hidden or
/// closes tells its controller itself.
class MouseLossWatch : public QObject {
public:
  explicit MouseLossWatch(std::function<void()> lost);

  /// Watches a view, and the window it stands in now.
  void start(QWidget* view);
  void stop();

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  bool isLoss(const QObject* watched, QEvent::Type type) const;

  const std::function<void()> m_lost;
  QPointer<QWidget> m_view;
  QPointer<QWidget> m_window;
};

} // namespace Vela::UiBase
