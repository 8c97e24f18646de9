// SPDX-License-Identifier: MIT
#include "default_tooltip.h"

#include <ui_base/tooltips/tooltip_text.h>

#include <QLabel>
#include <QVBoxLayout>

namespace Vela::UiBase {

namespace {

constexpr int MARGIN = 5;

} // namespace

DefaultTooltip::DefaultTooltip(const QString& text, QWidget* parent)
    : ATooltipEx(parent), m_label(new QLabel(this)) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
  layout->setAlignment(Qt::AlignTop);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->addWidget(m_label);
  m_label->setFocusPolicy(Qt::NoFocus);
  DefaultTooltip::ApplyLook();
  DefaultTooltip::SetText(text);
}

DefaultTooltip::~DefaultTooltip() = default;

void DefaultTooltip::SetText(const QString& text) {
  TooltipText::setWrapped(m_label, text);
  setAccessibleName(AccessibleText());
  adjustSize();
}

QString DefaultTooltip::Text() const { return m_label->text(); }

void DefaultTooltip::ApplyLook() {
  ATooltipEx::ApplyLook();
  m_label->setStyleSheet(styleSheet());
}

} // namespace Vela::UiBase
