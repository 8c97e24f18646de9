// SPDX-License-Identifier: MIT
#include "progress_content.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace Workbench {
namespace {

constexpr int BarWidth = 140;

} // namespace

ProgressContent::ProgressContent(const QString& text, QWidget* parent)
    : QWidget(parent), m_bar(new QProgressBar(this)), m_cancel(new QPushButton(tr("Cancel"), this)) {
  const QString working = tr("%1…").arg(text);
  setAccessibleName(working);
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(new QLabel(working, this));
  layout->addWidget(m_bar);
  layout->addWidget(m_cancel);
  m_bar->setAccessibleName(text);
  m_bar->setFixedWidth(BarWidth);
  m_bar->setRange(0, 100);
  m_cancel->setFocusPolicy(Qt::TabFocus);
  m_cancel->setToolTip(tr("Leave the mesh as it is (Escape)"));
  connect(m_cancel, &QPushButton::clicked, this, [this] {
    m_cancel->setEnabled(false);
    Q_EMIT cancelled();
  });
}

void ProgressContent::setFraction(double fraction) { m_bar->setValue(int(fraction * 100)); }

} // namespace Workbench
