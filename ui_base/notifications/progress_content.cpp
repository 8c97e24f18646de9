// SPDX-License-Identifier: MIT
#include "progress_content.h"

#include "notification_button.h"
#include "notification_look.h"

#include <vlk_common_res/styles.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>

namespace Vela::UiBase {

namespace {

constexpr int barWidth = 140;

} // namespace

ProgressContent::ProgressContent(const QString& text, QWidget* parent)
    : QWidget(parent),
      m_text(text),
      m_label(new QLabel(this)),
      m_bar(new QProgressBar(this)),
      m_cancel(new NotificationButton(this)) {
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(m_label, 1);
  layout->addWidget(m_bar);
  layout->addWidget(m_cancel);
  m_label->setTextFormat(Qt::PlainText);
  m_bar->setAccessibleName(text);
  m_bar->setFixedWidth(barWidth);
  m_bar->hide();
  m_cancel->hide();
  connect(m_cancel, &QAbstractButton::clicked, this, &ProgressContent::cancelRequested);
  connect(&Resource::Styles::Instance(), &Resource::Styles::changed, this, &ProgressContent::applyLook);
  retranslate();
  applyLook();
}

void ProgressContent::setFraction(double fraction) {
  m_bar->setVisible(fraction >= 0);
  m_bar->setValue(int(fraction * 100));
}

void ProgressContent::setCancellable(bool cancellable) { m_cancel->setVisible(cancellable); }

void ProgressContent::setCancelling() {
  if (m_cancelling)
    return;
  m_cancelling = true;
  retranslate();
}

void ProgressContent::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::LanguageChange)
    retranslate();
}

void ProgressContent::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && m_cancel->isVisible())
    Q_EMIT cancelRequested();
  else
    QWidget::keyPressEvent(event);
}

void ProgressContent::retranslate() {
  m_label->setText(m_text);
  setAccessibleName(m_text);
  m_cancel->setText(m_cancelling ? tr("Cancelling…") : tr("Cancel"));
  m_cancel->setAccessibleName(m_cancelling ? tr("Cancelling: %1").arg(m_text) : tr("Cancel: %1").arg(m_text));
}

void ProgressContent::applyLook() { m_cancel->setColor(NotificationLook::of(NotificationInfo).accent); }

} // namespace Vela::UiBase
