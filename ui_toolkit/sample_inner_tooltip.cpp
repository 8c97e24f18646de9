// SPDX-License-Identifier: MIT
#include "sample_inner_tooltip.h"

#include "toolkit_look.h"

#include <vlk_common_res/icons.h>

#include <QLabel>
#include <QVBoxLayout>

namespace Vela::UiToolkit {

SampleInnerTooltip::SampleInnerTooltip(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("SampleInnerTooltip"));
  setWindowTitle(tr("Sample Inner Tooltip"));
  auto* const column = new QVBoxLayout(this);
  auto* const text = new QLabel(tr("<html><head/><body><p>This is the advanced part of the tooltip! <br "
                                   "/><br /><b>Here is a sample image:</b></p></body></html>"),
                                this);
  text->setObjectName(QStringLiteral("label_text"));
  m_picture = new QLabel(this);
  m_picture->setObjectName(QStringLiteral("label_picture"));
  m_picture->setAccessibleName(tr("Sample image"));
  column->addWidget(text);
  column->addWidget(m_picture);
  applyToolkitLook(*this);
  loadPicture();
}

SampleInnerTooltip::~SampleInnerTooltip() = default;

void SampleInnerTooltip::loadPicture() {
  m_picture->setPixmap(
      Resource::Icons::picture(QStringLiteral(":/resources/images/sys_sample.png"), devicePixelRatioF()));
}

void SampleInnerTooltip::showEvent(QShowEvent* event) {
  loadPicture();
  QWidget::showEvent(event);
}

} // namespace Vela::UiToolkit
