// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/notifications/notification.h>
#include <ui_base/ui_base_export.h>

#include <QWidget>

#include <memory>

namespace Vela::UiBase {

class NotificationBarPrivate;

/// Tells the user something without stopping the work: a line of text, or a small widget, that comes, stays
/// for a while and goes. One notification is shown at a time; the others wait.
///
/// - An info replaces an info at once, so that "Mesh loaded" takes the place of "Loading…". Warnings and
/// errors
///   get their full time. A more severe notification is shown at once; the less severe one it interrupts
///   comes back for the time it had left.
/// - The time runs only while the notification can be seen, and stops while the mouse is over it or the
/// keyboard
///   focus is in it.
/// - A message that is already shown or waiting is not queued a second time; its time begins anew.
/// - Showing never takes the keyboard focus. The buttons are reached with Tab; Escape closes a closable
///   notification and the focus returns to where it was.
/// - Assistive technology is told with an alert.
///
/// The bar has no place of its own: put it into a FloatingWidget, or into a layout. It is hidden while there
/// is nothing to tell. All operations belong to the main thread.
///
/// @code
/// auto* host = new Vela::UiBase::FloatingWidget(view);
/// auto* bar = new Vela::UiBase::NotificationBar(view);
/// host->addWidget(bar);
/// bar->showNotification(tr("Mesh saved."), Vela::UiBase::FadeInAndOut, 3000, false, nullptr, nullptr);
/// @endcode
class UI_BASE_EXPORT NotificationBar : public QWidget {
  Q_OBJECT

public:
  /// Hidden until there is something to tell.
  explicit NotificationBar(QWidget* parent = nullptr);
  ~NotificationBar() override;

  /// Shows a plain-text info. `durationMs` is in milliseconds; 0 or less keeps it until it is closed or
  /// replaced. With a receiver and a member (SLOT() or SIGNAL(), without arguments) there is a "Details"
  /// button that calls it. Returns an identifier for hideNotification(), or 0 when the message is empty.
  quint64 showNotification(const QString& message, ENotificationFadeOption fade, int durationMs,
                           bool closable = false, QObject* receiver = nullptr, const char* member = nullptr);

  /// The same for a widget, which the bar takes over and deletes when the notification has ended. A content
  /// that deletes itself ends its notification. Returns 0 for null, for a content that the bar already has,
  /// and for one that the bar lies in.
  quint64 showNotification(QWidget* content, ENotificationFadeOption fade, int durationMs,
                           bool closable = false, QObject* receiver = nullptr, const char* member = nullptr);

  /// Shows a notification with everything that can be said about it.
  quint64 showNotification(const Notification& notification);

  /// Takes back the info, shown or waiting. A warning or an error keeps its time.
  void hideNotification();
  /// Takes back one notification, shown or waiting. False when it has already ended.
  bool hideNotification(quint64 id);
  /// Takes back all notifications.
  void clearNotifications();

  /// True from the moment a notification is shown until its end; not while it fades out.
  bool isNotificationShowing() const;
  /// The identifier of the notification that is shown, or 0.
  quint64 currentNotification() const;
  /// How many notifications wait for their turn.
  int waitingCount() const;

  /// How many may wait; when there are more, the oldest of the least severe is dropped. 8 by default, at
  /// least 1.
  int queueLimit() const;
  /// See queueLimit().
  void setQueueLimit(int limit);

  /// Length of the fade-in and the fade-out in milliseconds; 0 switches them off.
  int fadeDuration() const;
  /// See fadeDuration().
  void setFadeDuration(int milliseconds);
  /// The length that new bars start with; 180 ms by default.
  static int defaultFadeDuration();
  /// See defaultFadeDuration().
  static void setDefaultFadeDuration(int milliseconds);

Q_SIGNALS:
  /// A notification came up, for the first time or again after an interruption.
  void notificationShown(quint64 id);
  /// A notification ended: its time ran out, it was closed, taken back, replaced or dropped. Sent once for
  /// each.
  void notificationEnded(quint64 id);

protected:
  void changeEvent(QEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;

private:
  const std::unique_ptr<NotificationBarPrivate> d;
};

} // namespace Vela::UiBase
