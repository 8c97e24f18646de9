// SPDX-License-Identifier: MIT
#include "lock_badge.h"

#include "lock_badge_p.h"

#include <QEvent>
#include <QImageReader>
#include <QScopedValueRollback>

namespace Vela::License {

LockBadge::LockBadge(QWidget* button) : QLabel(button), m_ownToolTip(button->toolTip()) {
  setObjectName(QStringLiteral("lock_badge"));
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  // Style sheets of the button reach the label too.
  setStyleSheet(QStringLiteral("QLabel { background: transparent; border: none; padding: 0; }"));
  button->installEventFilter(this);
}

LockBadge* LockBadge::of(QWidget* button) {
  return button->findChild<LockBadge*>(QString(), Qt::FindDirectChildrenOnly);
}

void LockBadge::display(const QString& pixmapPath, const QPoint& offset, const QString& lockToolTip) {
  m_icon = QIcon(pixmapPath); // takes in the larger "@2x" file, too
  m_size = QImageReader(pixmapPath).size();
  m_lockToolTip = lockToolTip;
  updatePixmap();
  setAccessibleName(lockToolTip);
  setGeometry(QRect(offset, m_size.isValid() ? m_size : QSize(0, 0)));
  raise();
  coverToolTip();
  show();
}

void LockBadge::restoreToolTip() {
  const QScopedValueRollback guard(m_changingToolTip, true);
  parentWidget()->setToolTip(m_ownToolTip);
}

void LockBadge::coverToolTip() {
  const QScopedValueRollback guard(m_changingToolTip, true);
  parentWidget()->setToolTip(m_lockToolTip);
}

void LockBadge::updatePixmap() {
  setPixmap(m_size.isValid() ? m_icon.pixmap(m_size, devicePixelRatioF()) : QPixmap());
}

bool LockBadge::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ToolTipChange && watched == parent() && !m_changingToolTip) {
    m_ownToolTip = parentWidget()->toolTip();
    coverToolTip();
  }
  return QLabel::eventFilter(watched, event);
}

bool LockBadge::event(QEvent* event) {
  switch (event->type()) {
  case QEvent::Show:
  case QEvent::ScreenChangeInternal:
#if QT_VERSION >= QT_VERSION_CHECK(6, 6, 0)
  case QEvent::DevicePixelRatioChange:
#endif
    updatePixmap();
    break;
  default:
    break;
  }
  return QLabel::event(event);
}

QLabel* attachLockBadge(QWidget* button, const QString& pixmapPath, const QPoint& offset,
                        const QString& toolTip) {
  if (button == nullptr)
    return nullptr;
  LockBadge* badge = LockBadge::of(button);
  if (badge == nullptr)
    badge = new LockBadge(button);
  badge->display(pixmapPath, offset, toolTip);
  return badge;
}

void removeLockBadge(QWidget* button) {
  LockBadge* badge = button != nullptr ? LockBadge::of(button) : nullptr;
  if (badge == nullptr)
    return;
  badge->restoreToolTip();
  delete badge;
}

} // namespace Vela::License
