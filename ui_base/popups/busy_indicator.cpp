// SPDX-License-Identifier: MIT
#include "busy_indicator.h"

#include <ui_base/core/language.h>
#include <vlk_common_res/icons.h>

#include <QPainter>

namespace Vela::UiBase {

BusyIndicator::BusyIndicator(QWidget* parent) : QWidget(parent) {
  constexpr int size = 16;
  setObjectName(QStringLiteral("busy_label"));
  keepTranslated(this, [this] { setAccessibleName(tr("Working")); });
  setFixedSize(size, size);
  QSizePolicy keepsItsPlace = sizePolicy();
  keepsItsPlace.setRetainSizeWhenHidden(true);
  setSizePolicy(keepsItsPlace);
  hide();
  connect(&m_movie, &QMovie::frameChanged, this, qOverload<>(&QWidget::update));
}

void BusyIndicator::showEvent(QShowEvent*) {
  const QString path = QStringLiteral(":/resources/images/sys_loader-16x16.gif");
  m_movie.setFileName(Resource::Icons::pathForRatio(path, devicePixelRatioF()));
  m_movie.start();
}

void BusyIndicator::hideEvent(QHideEvent*) { m_movie.stop(); }

void BusyIndicator::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(rect(), m_movie.currentPixmap());
}

} // namespace Vela::UiBase
