// SPDX-License-Identifier: MIT
#include "tool_bar_overflow.h"

#include <ui_base/core/language.h>
#include <ui_base/toolbars/tool_button.h>
#include <vlk_common_res/styles.h>

#include <QAction>
#include <QEvent>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>
#include <QRegularExpression>

namespace Vela::UiBase {

using Resource::Styles;

namespace {

QString entryText(const ToolButton& button) {
  const QAction* const action = button.Action();
  QString text = action ? action->text() : button.text();
  if (text.isEmpty())
    text = button.accessibleName();
  if (text.isEmpty())
    text = button.toolTip().remove(QRegularExpression(QStringLiteral("<[^>]*>")));
  return text;
}

} // namespace

ToolBarOverflow::ToolBarOverflow(Source source, Chooser chooser, QWidget* parent)
    : QToolButton(parent), m_source(std::move(source)), m_choose(std::move(chooser)) {
  setFocusPolicy(Qt::NoFocus);
  keepTranslated(this, [this] {
    setAccessibleName(tr("More buttons"));
    setToolTip(accessibleName());
  });
  setStyleSheet(Styles::Instance().ToolButtonOnToolPalette());
  connect(&Styles::Instance(), &Styles::changed, this,
          [this] { setStyleSheet(Styles::Instance().ToolButtonOnToolPalette()); });
  connect(this, &QAbstractButton::clicked, this, &ToolBarOverflow::open);
  hide();
}

void ToolBarOverflow::setOrientation(Qt::Orientation orientation) {
  m_orientation = orientation;
  update();
}

QSize ToolBarOverflow::sizeHint() const { return {length(), length()}; }

void ToolBarOverflow::open() {
  if (m_menu)
    return;
  auto* const menu = new QMenu(this);
  m_menu = menu;
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setWindowFlag(Qt::NoDropShadowWindowHint);
  menu->setStyleSheet(Styles::Instance().MenuMain());
  const QList<ToolButton*> buttons = m_source();
  for (ToolButton* const button : buttons)
    addEntry(*menu, *button);
  if (hasFocus())
    menu->setActiveAction(menu->actions().value(0));
  menu->popup(mapToGlobal(m_orientation == Qt::Horizontal ? rect().bottomLeft() : rect().topRight()));
}

void ToolBarOverflow::addEntry(QMenu& menu, ToolButton& button) {
  const QAction* const action = button.Action();
  QAction* const entry = menu.addAction(action ? action->icon() : button.icon(), entryText(button));
  entry->setCheckable(button.isCheckable());
  entry->setChecked(button.isChecked());
  entry->setEnabled(button.isEnabled() && !button.IsLocked());
  // After the menu is gone, as the button may open one of its own.
  connect(
      entry, &QAction::triggered, this,
      [this, chosen = QPointer(&button)] {
        if (chosen)
          m_choose(*chosen);
      },
      Qt::QueuedConnection);
}

void ToolBarOverflow::paintEvent(QPaintEvent* event) {
  QToolButton::paintEvent(event);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(QRectF(rect()).center());
  if (m_orientation == Qt::Vertical)
    painter.rotate(90);
  else if (isRightToLeft())
    painter.rotate(180);
  painter.setPen(QPen(Styles::Instance().ColorToolButtonArrow(), 1.5, Qt::SolidLine, Qt::RoundCap));
  QPainterPath chevrons;
  for (const qreal x : {-3.5, 0.5}) {
    chevrons.moveTo(x, -3.5);
    chevrons.lineTo(x + 3.5, 0);
    chevrons.lineTo(x, 3.5);
  }
  painter.drawPath(chevrons);
}

} // namespace Vela::UiBase
