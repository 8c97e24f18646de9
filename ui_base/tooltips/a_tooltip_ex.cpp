// SPDX-License-Identifier: MIT
#include "a_tooltip_ex.h"

#include <ui_base/tooltips/tooltip_reason.h>
#include <ui_base/tooltips/tooltip_text.h>
#include <vlk_common_res/styles.h>

#include <QAccessible>
#include <QAccessibleWidget>
#include <QLabel>
#include <QPalette>
#include <QVBoxLayout>

namespace Vela::UiBase {

using Vela::Resource::Styles;

namespace {

QAccessibleInterface* makeAccessible(const QString& className, QObject* object) {
  auto* const tooltip =
      className == QLatin1String("Vela::UiBase::ATooltipEx") ? qobject_cast<ATooltipEx*>(object) : nullptr;
  return tooltip ? new QAccessibleWidget(tooltip, QAccessible::ToolTip) : nullptr;
}

} // namespace

ATooltipEx::ATooltipEx(QWidget* parent) : QWidget(parent) {
  [[maybe_unused]] static const bool accessible = (QAccessible::installFactory(makeAccessible), true);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  setAttribute(Qt::WA_StyledBackground);
  connect(&Styles::Instance(), &Styles::changed, this, [this] { ApplyLook(); });
}

ATooltipEx::~ATooltipEx() = default;

QString ATooltipEx::AccessibleText() const { return TooltipText::plain(Text()); }

void ATooltipEx::SetReason(const QString& reason) {
  auto* const box = qobject_cast<QVBoxLayout*>(layout());
  if (!box || (!m_reason && reason.isEmpty()))
    return;
  if (!m_reason) {
    m_reason = new QLabel(this);
    m_reason->setObjectName(QStringLiteral("tooltip_reason"));
    m_reason->setTextFormat(Qt::PlainText);
    box->addWidget(m_reason);
  }
  TooltipText::setWrapped(m_reason, reason);
  m_reason->setVisible(!reason.isEmpty());
  setAccessibleName(TooltipReason::composed(AccessibleText(), reason));
  adjustSize();
}

void ATooltipEx::SetTooltipIndex(int index) { m_index = index; }

int ATooltipEx::TooltipIndex() const { return m_index; }

void ATooltipEx::SetTooltipKeyword(const QString& keyword) { m_keyword = keyword; }

QString ATooltipEx::TooltipKeyword() const { return m_keyword; }

bool ATooltipEx::HasHelp() const { return m_index >= 0 || !m_keyword.isEmpty(); }

bool ATooltipEx::HandleHelpKey() {
  if (!HasHelp())
    return false;
  Q_EMIT HelpRequested(m_index, m_keyword);
  return true;
}

void ATooltipEx::ApplyLook() {
  const Styles& styles = Styles::Instance();
  // The window around the content takes its background from this colour.
  QPalette colors = palette();
  colors.setColor(QPalette::Window, styles.ColorToolTipBack());
  setPalette(colors);
  setStyleSheet(styles.DialogToolTip());
}

} // namespace Vela::UiBase
