// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>

namespace Vela::UiBase {
class ArrowedWindow;
class FlyoutBase;
class FlyoutCommand;
class WidgetPosCalculator;
} // namespace Vela::UiBase

namespace Workbench {

/// Hosts the flyout of a command in a window with an arrow, beside what stands for the command. Takes the
/// flyout over, and goes with the command.
///
/// @code
/// new FlyoutWindow(*command, *window, [toolBar, command] { return toolBar->widgetForAction(command); });
/// @endcode
class FlyoutWindow : public QObject {
  Q_OBJECT

public:
  /// What stands for the command now. Null, or a widget that cannot be seen, puts the flyout into the corner.
  using Opener = std::function<QWidget*()>;

  /// @param layer  the window over which the flyout is shown; owns the object
  /// @param corner  the widget in whose top left corner the flyout stands when nothing opened it
  FlyoutWindow(Vela::UiBase::FlyoutCommand& command, QWidget& layer, QWidget& corner, Opener opener);
  ~FlyoutWindow() override;

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  class Observer;

  void open();
  void place();
  void returnFocus();

  const Opener m_opener;
  const QPointer<QWidget> m_corner;
  const QPointer<Vela::UiBase::ArrowedWindow> m_window;
  QPointer<QWidget> m_focusBefore; // had the focus before the flyout was opened
  Vela::UiBase::WidgetPosCalculator* m_place;
  std::shared_ptr<Observer> m_observer;
};

} // namespace Workbench
