// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>

namespace Vela::UiBase {

class BaseView;

/// The one event filter on the application object for all views. It passes on only the events of the
/// application object itself: a filter for each view would have each of them see every event of the program.
/// Shortcuts it keeps from what is covered by a presented view.
class ApplicationEventRelay : public QObject {
public:
  /// A view is removed before it dies. Main thread only.
  static void add(BaseView& view);
  static void remove(BaseView& view);
  /// All views that live.
  static QList<BaseView*> views();

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  explicit ApplicationEventRelay(QObject* application);

  QList<BaseView*> m_views;
};

} // namespace Vela::UiBase
