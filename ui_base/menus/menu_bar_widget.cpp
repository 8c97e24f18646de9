// SPDX-License-Identifier: MIT
#include "menu_bar_widget.h"

#include "menu_bar_layout.h"
#include "menu_contents.h"

#include <ui_base/core/language.h>
#include <vlk_common_res/styles.h>

#include <QFrame>
#include <QToolButton>

namespace Vela::UiBase {

using Resource::Styles;

MenuBarWidget::MenuBarWidget(const QString& name, QWidget* parent)
    : QWidget(parent),
      m_overflowButton(new QToolButton(this)),
      m_layout(new MenuBarLayout(this, m_overflowButton)) {
  setObjectName(name);
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
  setContextMenuPolicy(Qt::NoContextMenu);
  setContentsMargins(0, 0, 0, 0);
  // Almost invisible, but it takes mouse events.
  QPalette colors = palette();
  colors.setColor(QPalette::Window, QColor(255, 255, 255, 1));
  setPalette(colors);
  setAutoFillBackground(true);
  m_layout->setObjectName(QStringLiteral("layout"));
  m_layout->setSpacing(0);
  m_layout->setContentsMargins(0, 0, 0, 0);
  m_layout->addStretch(1);
  m_overflowButton->setObjectName(QStringLiteral("overflow"));
  m_overflowButton->setText(QStringLiteral("\u00bb"));
  keepTranslated(m_overflowButton, [button = m_overflowButton] {
    button->setToolTip(tr("More of the menu bar"));
    button->setAccessibleName(button->toolTip());
  });
  m_overflowButton->setAutoRaise(true);
  m_overflowButton->setPopupMode(QToolButton::InstantPopup);
  m_overflowButton->setFocusPolicy(Qt::NoFocus);
}

MenuBarWidget::~MenuBarWidget() {
  Q_EMIT goes();
  for (const auto& each : std::as_const(m_items)) {
    if (const auto item = each.toStrongRef(); item && item->parentWidget() == this)
      item->setParent(nullptr);
  }
}

void MenuBarWidget::insertWidget(int index, QWidget* widget) {
  const int end = m_layout->count() - 1; // before the stretch
  m_layout->insertWidget(index < 0 || index > end ? end : index, widget);
  widget->show();
}

void MenuBarWidget::insertItem(int index, const QSharedPointer<QToolButton>& item) {
  m_items.removeIf([](const auto& each) { return each.isNull(); });
  m_items += item;
  insertWidget(index, item.data());
}

void MenuBarWidget::insertSeparator(int index, bool line, int width) {
  auto* const separator = new QFrame(this);
  separator->setObjectName(QStringLiteral("separator"));
  separator->setFrameShape(line ? QFrame::VLine : QFrame::NoFrame);
  if (line) {
    const auto applyStyle = [separator] { separator->setStyleSheet(Styles::Instance().Separator()); };
    connect(&Styles::Instance(), &Styles::changed, separator, applyStyle);
    applyStyle();
  } else if (width >= 0) {
    separator->setFixedWidth(width);
  }
  insertWidget(index, separator);
  if (!line && width < 0)
    takeRoom(separator);
}

void MenuBarWidget::takeRoom(QWidget* widget) {
  const int end = m_layout->count() - 1;
  m_layout->itemAt(end)->spacerItem()->changeSize(0, 0, QSizePolicy::Fixed);
  m_layout->setStretchFactor(widget, 1);
}

void MenuBarWidget::removeItem(QToolButton* item) {
  m_layout->removeWidget(item);
  item->hide();
}

int MenuBarWidget::indexOf(QToolButton* item) const { return m_layout->indexOf(item); }

bool MenuBarWidget::endsWithItem() const {
  return m_layout->count() > 1 &&
         qobject_cast<QToolButton*>(m_layout->itemAt(m_layout->count() - 2)->widget());
}

QList<QToolButton*> MenuBarWidget::items() const {
  QList<QToolButton*> result;
  for (int i = 0; i < m_layout->count(); ++i) {
    if (auto* const item = qobject_cast<QToolButton*>(m_layout->itemAt(i)->widget()))
      result += item;
  }
  return result;
}

bool MenuBarWidget::overflows(const QToolButton* item) const { return m_layout->overflows(item); }

QList<QToolButton*> MenuBarWidget::inSight() const {
  QList<QToolButton*> result = items();
  result.removeIf([this](const QToolButton* each) { return overflows(each); });
  if (!m_overflowButton->isHidden())
    result += m_overflowButton;
  return result;
}

QToolButton* MenuBarWidget::itemAt(const QPoint& global) const {
  const QList<QToolButton*> all = inSight();
  for (QToolButton* const item : all) {
    if (item->isEnabled() && holdsPoint(*item, global))
      return item;
  }
  return nullptr;
}

QToolButton* MenuBarWidget::neighbour(QToolButton* item, int step) const {
  QList<QToolButton*> usable = inSight();
  usable.removeIf(
      [&](QToolButton* each) { return each != item && (each->isHidden() || !each->isEnabled()); });
  if (usable.isEmpty())
    return nullptr;
  const auto from = usable.indexOf(item);
  if (from < 0)
    return step > 0 ? usable.constFirst() : usable.constLast();
  return usable[(from + step + usable.size()) % usable.size()];
}

} // namespace Vela::UiBase
