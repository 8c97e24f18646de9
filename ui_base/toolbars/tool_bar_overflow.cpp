// SPDX-License-Identifier: MIT
#include "tool_bar_overflow.h"

#include "tool_bar_commands.h"
#include "tool_button_accessible.h"

#include <ui_base/core/language.h>
#include <ui_base/popups/placement_sight.h>
#include <ui_base/toolbars/tool_button.h>
#include <ui_base/tooltips/tooltip_reason.h>
#include <vlk_common_res/styles.h>

#include <QAction>
#include <QEvent>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>
#include <QRegularExpression>
#include <QScreen>

#include <array>

namespace Vela::UiBase {

using Resource::Styles;

namespace {

QString entryText(const ToolButton& button) {
  static const QRegularExpression tags(QStringLiteral("<[^>]*>"));
  const QAction* const action = actionOf(button);
  // That of a button that opens a group without a text is an object name.
  QString text = action && (button.Action() || action->text().isEmpty()) ? action->text() : button.text();
  if (text.isEmpty())
    text = button.accessibleName();
  if (text.isEmpty())
    text = button.toolTip().remove(tags);
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
  connect(menu, &QMenu::aboutToHide, this, [this] { announceMenuState(*this); });
  const QPointer<ToolBarOverflow> self(this);
  menu->popup(menuPlace(menu->sizeHint()));
  if (self)
    announceMenuState(*this);
}

// Away from the bar, and never over the button.
QPoint ToolBarOverflow::menuPlace(const QSize& menu) const {
  const bool below = m_orientation == Qt::Horizontal;
  const std::array across{isRightToLeft() ? Left : Right, isRightToLeft() ? Right : Left};
  const std::array sides = below ? std::array{Bottom, Top} : across;
  const Placement::Target target{.reference = {mapToGlobal(QPoint(0, 0)), size()},
                                 .baseOffset = 1,
                                 .alignment = below && isRightToLeft() ? AlignEnd : AlignStart};
  const QRect wanted(Placement::plainPosition(target, sides[0], menu), menu);
  return Placement::plainInSight(wanted, target, sides, screen()->availableGeometry());
}

void ToolBarOverflow::addEntry(QMenu& menu, ToolButton& button) {
  const QAction* const action = button.Action();
  QAction* const entry = menu.addAction(action ? action->icon() : button.icon(), entryText(button));
  entry->setCheckable(button.isCheckable());
  entry->setChecked(button.isChecked());
  entry->setEnabled(button.isEnabled() && !button.IsLocked());
  if (const QString reason = TooltipReason::of(button); !reason.isEmpty()) {
    entry->setToolTip(reason);
    menu.setToolTipsVisible(true);
  }
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
