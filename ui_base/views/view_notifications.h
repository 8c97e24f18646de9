// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>

namespace Vela::UiBase {

class BaseView;
class FloatingWidget;
class NotificationBar;

/// The notifications of a controller: a bar, and the host that carries it over the view, which owns both.
class ViewNotifications {
public:
  ViewNotifications();
  ~ViewNotifications();

  /// The bar, made when there is none. It is seen once the view has appeared.
  NotificationBar& barOver(BaseView& view);
  /// Null when there is none.
  NotificationBar* bar() const;
  void setVisible(bool visible);
  void drop();

private:
  QPointer<NotificationBar> m_bar;
  QPointer<FloatingWidget> m_host;
};

} // namespace Vela::UiBase
