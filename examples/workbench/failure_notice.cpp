// SPDX-License-Identifier: MIT
#include "failure_notice.h"

#include <ui_base/notifications/notification.h>
#include <ui_base/notifications/notification_bar.h>
#include <ui_base/popups/dialog_ex.h>

#include <QAction>
#include <QCoreApplication>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

constexpr int ReadingTime = 10000; // ms

struct NoticeText {
  Q_DECLARE_TR_FUNCTIONS(Workbench::FailureNotice)
};

void showDetails(QWidget* window, const QString& message, const QString& details) {
  auto* const dialog = new DialogEx(DialogError, NoticeText::tr("Error"), message, window);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->SetDetails(details);
  dialog->ShowDetails(true);
  dialog->open();
}

} // namespace

void showFailure(QWidget& view, const QString& message, const QString& details) {
  auto* const bar = view.findChild<NotificationBar*>();
  if (!bar)
    return;
  Notification notification;
  notification.message = message;
  notification.severity = NotificationError;
  notification.durationMs = ReadingTime;
  if (!details.isEmpty()) {
    auto* const show = new QAction(bar); // a receiver with a slot, which goes with the bar
    QObject::connect(show, &QAction::triggered, bar, [bar, message, details, show] {
      showDetails(bar->window(), message, details);
      show->deleteLater();
    });
    notification.receiver = show;
    notification.member = SLOT(trigger());
  }
  bar->showNotification(notification);
}

void clearMessages(const QWidget& view) {
  if (auto* const bar = view.findChild<NotificationBar*>())
    bar->clearNotifications();
}

} // namespace Workbench
