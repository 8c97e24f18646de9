// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class QWidget;

namespace Vela::UiBase {

class BaseView;

/// Asks the controllers of a widget that is to close and of all views in it, from front to back, whether they
/// may close; each once. When one refuses, those that had agreed and are still seen are loaded again, the
/// last one first.
/// @return whether all agreed. The widget may have died of it.
bool mayClose(QWidget& widget);

/// Watches a window with views that is no view itself. They are asked when it closes: after the window's own
/// answer, which may ask the shutdown delegates that the views are until they agree. The close event of a
/// dialog, and Escape, end the dialog at once, so there the views come first.
class ViewWindow : public QObject {
  Q_OBJECT

public:
  static void watch(QWidget& window);

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  explicit ViewWindow(QWidget& window);

  bool close(QEvent* event);
  void reloadIfStillOpen();

  QWidget& m_window;
  QList<QPointer<BaseView>> m_agreed; // before the dialog answered
  bool m_passesOn = false;
};

} // namespace Vela::UiBase
