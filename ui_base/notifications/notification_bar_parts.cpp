// SPDX-License-Identifier: MIT
// What a notification bar consists of, and what of a notification it shows where.
#include "notification_bar_p.h"

#include <ui_base/notifications/notification_button.h>
#include <ui_base/notifications/notification_icon.h>
#include <ui_base/notifications/notification_label.h>

#include <QHBoxLayout>
#include <QPalette>

namespace Vela::UiBase {

void NotificationBarPrivate::buildParts() {
  constexpr int shadow = NotificationMetrics::ShadowExtent;
  m_icon = new NotificationIcon(bar);
  m_label = new NotificationLabel(bar);
  m_actionButton = new NotificationButton(bar);
  m_closeButton = new NotificationButton(bar);
  connect(m_actionButton, &QAbstractButton::clicked, this, &NotificationBarPrivate::runAction);
  connect(m_closeButton, &QAbstractButton::clicked, this, &NotificationBarPrivate::finish);

  m_layout = new QHBoxLayout(bar);
  m_layout->setContentsMargins(shadow + 14, shadow + 7, shadow + 8, shadow + 7);
  m_layout->setSpacing(6);
  m_layout->addWidget(m_icon);
  m_layout->addSpacing(4);
  m_layout->addWidget(m_label, 1);
  m_layout->addSpacing(4);
  m_layout->addWidget(m_actionButton);
  m_layout->addWidget(m_closeButton);
}

void NotificationBarPrivate::fillParts(const NotificationEntry& entry) {
  if (hasFocusInside() && !(m_closeButton->hasFocus() && entry.closable))
    giveFocusBack();
  m_icon->setVisible(!entry.hasContent || entry.severity != NotificationInfo);
  m_label->setVisible(!entry.hasContent);
  m_label->setText(entry.message);
  m_closeButton->setVisible(entry.closable);
  m_actionButton->setVisible(entry.hasLiveAction());
  showContent(entry.content);
  watchReceiver(entry);
  retranslate();
  applyLook();
}

void NotificationBarPrivate::showContent(QWidget* content) {
  if (m_content == content)
    return;
  if (m_content) {
    m_layout->removeWidget(m_content);
    m_content->hide();
  }
  m_content = content;
  if (content) {
    m_layout->insertWidget(m_layout->indexOf(m_label) + 1, content, 1);
    content->show();
  }
}

void NotificationBarPrivate::watchReceiver(const NotificationEntry& entry) {
  disconnect(m_receiverWatch);
  if (!entry.hasLiveAction())
    return;
  m_receiverWatch = connect(entry.receiver, &QObject::destroyed, this, [this] {
    if (m_actionButton->hasFocus())
      giveFocusBack();
    m_actionButton->hide();
  });
}

void NotificationBarPrivate::retranslate() {
  m_closeButton->setToolTip(NotificationBar::tr("Close"));
  m_closeButton->setAccessibleName(NotificationBar::tr("Close notification"));
  if (const NotificationEntry* entry = queue.current()) {
    const QString text = entry->action ? entry->action->text() : QString();
    m_actionButton->setText(text.isEmpty() ? NotificationBar::tr("Details") : text);
    describe(*entry);
  }
}

void NotificationBarPrivate::describe(const NotificationEntry& entry) {
  const QString text = entry.content ? entry.content->accessibleName() : entry.message;
  switch (entry.severity) {
  case NotificationInfo:
    bar->setAccessibleName(text);
    break;
  case NotificationWarning:
    bar->setAccessibleName(NotificationBar::tr("Warning: %1").arg(text));
    break;
  case NotificationError:
    bar->setAccessibleName(NotificationBar::tr("Error: %1").arg(text));
    break;
  }
}

void NotificationBarPrivate::applyLook() {
  const ENotificationSeverity severity = queue.current() ? queue.current()->severity : NotificationInfo;
  look = NotificationLook::of(severity);
  m_icon->setSeverity(severity, look);
  m_label->setTextColor(look.text);
  m_actionButton->setColor(look.accent);
  m_closeButton->setColor(look.text);
  // For the text of a content.
  QPalette palette = bar->palette();
  palette.setColor(QPalette::Window, look.background);
  palette.setColor(QPalette::WindowText, look.text);
  bar->setPalette(palette);
  bar->update();
}

} // namespace Vela::UiBase
