// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class QWidget;

namespace Vela::UiBase {

class BaseView;

/// Watches the application for all views. It passes on to them the events of the application object itself: a
/// filter there for each view would have each of them see every event of the program.
/// Shortcuts it keeps from what is covered by a presented view, a focus that is lost it gives back to a view,
/// and the views of a window that is deactivated or blocked it tells that the mouse is lost.
class ApplicationEventRelay : public QObject {
public:
  /// A view is removed before it dies. Main thread only.
  static void add(BaseView& view);
  static void remove(BaseView& view);
  /// All views that live.
  static QList<BaseView*> views();
  /// Gives the focus of the active window to a view in it, where nothing has it.
  static void giveFocusBack();

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  explicit ApplicationEventRelay(QObject* application);

  bool anyCovered() const;
  bool loseMouse(const QObject& place, const QEvent& event) const;
  void focusChanged(const QWidget* before, const QWidget* now);

  QList<BaseView*> m_views;
  QPointer<BaseView> m_lastFocused; // where a focus that was lost has been
};

} // namespace Vela::UiBase
