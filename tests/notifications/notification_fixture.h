// SPDX-License-Identifier: MIT
#pragma once

#include <support/input.h>
#include <support/rows.h>
#include <ui_base/notifications/floating_widget.h>
#include <ui_base/notifications/notification_bar.h>

#include <functional>

/// A shown and active view with a focused widget that stands for the work, and a bar over it.
class NotificationFixture {
public:
  NotificationFixture() : view(new QWidget), work(new QWidget(view)) {
    view->resize(500, 300);
    work->setGeometry(0, 200, 500, 100);
    work->setFocusPolicy(Qt::StrongFocus);
    host = new Vela::UiBase::FloatingWidget(view);
    bar = new Vela::UiBase::NotificationBar(view);
    host->addWidget(bar);
    bar->setFadeDuration(0);
    // Next in the tab order, where Qt itself would leave the focus.
    (new QWidget(view))->setFocusPolicy(Qt::StrongFocus);
    Vela::Test::showActive(*view);
    work->setFocus();
  }
  ~NotificationFixture() { delete view; }
  Q_DISABLE_COPY_MOVE(NotificationFixture)

  quint64 post(Vela::UiBase::ENotificationSeverity severity, const QString& message, int durationMs = 60000) {
    Vela::UiBase::Notification notification;
    notification.severity = severity;
    notification.message = message;
    notification.durationMs = durationMs;
    return bar->showNotification(notification);
  }

  /// What a user can read, by the bar's accessible name; empty when there is nothing to see.
  QString reading() const { return bar->isVisible() ? bar->accessibleName() : QString(); }

  /// The visible button with this text; the closing cross has none.
  QAbstractButton* button(const QString& text) const {
    const auto buttons = bar->findChildren<QAbstractButton*>();
    for (QAbstractButton* candidate : buttons) {
      if (candidate->isVisible() && candidate->text() == text)
        return candidate;
    }
    return nullptr;
  }

  void key(Qt::Key which) const { QTest::keyClick(view->windowHandle(), which); }

  QPointer<QWidget> view;
  QPointer<QWidget> work;
  QPointer<Vela::UiBase::FloatingWidget> host;
  QPointer<Vela::UiBase::NotificationBar> bar;
};

/// Counts the calls of a notification's action.
class ActionReceiver : public QObject {
  Q_OBJECT

public:
  int calls = 0;
  std::function<void()> then;

public Q_SLOTS:
  void onAction() {
    ++calls;
    if (then)
      then();
  }
};
