// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/arrow_param.h>

#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>

namespace Vela::UiBase {

/// The widgets that stand beside a flyout. They are siblings of its host, which is the window that shows the
/// flyout or else the flyout itself, and go where it goes.
class FlyoutSubWidgets : public QObject {
public:
  explicit FlyoutSubWidgets(QWidget& flyout) : m_flyout(flyout) {}
  ~FlyoutSubWidgets() override;

  void add(QWidget* widget, EDirection side);
  /// @return whether something changed: the widget was added, and stood otherwise.
  bool setShown(QWidget* widget, bool shown);
  bool isAnyShown() const;
  /// The flyout was shown, hidden, or has another parent.
  void follow();

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  struct SubWidget {
    QPointer<QWidget> widget;
    EDirection side;
    bool shown = false;
  };

  void publish();
  void place(const SubWidget& sub) const;

  QWidget& m_flyout;
  QPointer<QWidget> m_host;
  QList<SubWidget> m_widgets;
};

} // namespace Vela::UiBase
