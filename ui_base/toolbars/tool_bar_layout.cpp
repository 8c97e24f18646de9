// SPDX-License-Identifier: MIT
#include "tool_bar_content.h"
#include "tool_bar_overflow.h"
#include "tool_bar_p.h"
#include "tool_bar_paths.h"
#include "tool_bar_placer.h"

#include <ui_base/popups/cached_shadow_effect.h>
#include <vlk_common_res/styles.h>

#include <QPainter>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

using Resource::Styles;

namespace {

ButtonPopupParams popupsAwayFrom(Qt::ToolBarArea area, int distance) {
  ButtonPopupParams params;
  params.distance = distance;
  switch (area) {
  case Qt::LeftToolBarArea:
    params.direction = Right;
    params.arrow.position = ArrowLeft;
    break;
  case Qt::RightToolBarArea:
    params.direction = Left;
    params.arrow.position = ArrowRight;
    break;
  case Qt::BottomToolBarArea:
    params.direction = Top;
    params.arrow.position = ArrowBottom;
    break;
  default:
    params.direction = Bottom;
    params.arrow.position = ArrowTop;
    break;
  }
  return params;
}

bool isVisibleColor(const QColor& color) { return !color.isValid() || color.alpha() > 0; }

QColor orShared(const QColor& color, const QColor& shared) { return color.isValid() ? color : shared; }

} // namespace

// --- layout and place

void ToolBarPrivate::applyLayout() {
  if (area == Qt::LeftToolBarArea || area == Qt::RightToolBarArea || area == Qt::TopToolBarArea ||
      area == Qt::BottomToolBarArea)
    content->setOrientation(toolBar->Orientation());
  content->setSpacing(params.buttonSpacing, params.groupSpacing);
  content->setGroupMargins(params.groupMargins);
  pathsChanged();
}

void ToolBarPrivate::contentChanged() {
  const QPointer<ToolBar> self(toolBar);
  sizeOutOfDate = true;
  toolBar->updateGeometry();
  if (toolBar->isVisible())
    toolBar->AdjustToolBarSize(true);
  if (!self)
    return;
  pathsChanged();
  Q_EMIT toolBar->LayoutChanged();
}

QSize ToolBarPrivate::sizeFor(const QSize& needed) const { return needed.grownBy(params.mainMargins); }

QSize ToolBarPrivate::limited(QSize size) const {
  const QWidget* const parent = toolBar->isWindow() ? nullptr : toolBar->parentWidget();
  if (!parent)
    return size;
  const QPoint start = params.centered ? QPoint() : params.offset;
  const QSize room = parent->size() - QSize(start.x(), start.y());
  if (toolBar->Orientation() == Qt::Horizontal)
    size.setWidth(std::min(size.width(), std::max(room.width(), toolBar->minimumSizeHint().width())));
  else
    size.setHeight(std::min(size.height(), std::max(room.height(), toolBar->minimumSizeHint().height())));
  return size;
}

void ToolBarPrivate::fitContent() {
  const QRect inner = toolBar->rect().marginsRemoved(params.mainMargins);
  const bool horizontal = toolBar->Orientation() == Qt::Horizontal;
  const QSize needed = content->neededSize();
  const bool narrow = horizontal ? needed.width() > inner.width() : needed.height() > inner.height();
  if (narrow && !overflow) {
    overflow = new ToolBarOverflow([this] { return content->leftOut(); },
                                   [this](ToolButton& button) {
                                     ensureVisible(button);
                                     button.click();
                                   },
                                   toolBar);
    overflow->installEventFilter(toolBar);
    overflow->setEnabled(!toolBar->IsLocked());
  }
  const bool overflows = content->fit(inner, overflow ? overflow->length() : 0);
  if (overflow) {
    QRect place = inner;
    if (!horizontal)
      place.setTop(inner.bottom() + 1 - overflow->length());
    else if (toolBar->isRightToLeft())
      place.setWidth(overflow->length());
    else
      place.setLeft(inner.right() + 1 - overflow->length());
    overflow->setOrientation(toolBar->Orientation());
    overflow->setGeometry(place);
    overflow->setVisible(overflows);
  }
  pathsChanged();
}

void ToolBarPrivate::followParent() {
  if (followedParent == toolBar->parentWidget())
    return;
  if (followedParent)
    followedParent->removeEventFilter(toolBar);
  followedParent = toolBar->parentWidget();
  if (followedParent)
    followedParent->installEventFilter(toolBar);
}

void ToolBarPrivate::followParentSize() {
  placer->update();
  if (placer->isAutomatic())
    autoPositionTimer->start();
  resizeTimer->start();
}

void ToolBarPrivate::ensureVisible(const QAbstractButton& button) {
  if (&button == overflow || !content->scrollTo(button))
    return;
  pathsChanged();
  // The buttons do not move in what holds them. Who scrolls is about to place a menu, or to click.
  QMetaObject::invokeMethod(
      toolBar, [this] { placeMenus(); }, Qt::QueuedConnection);
}

void ToolBarPrivate::placeMenus() const {
  const QList<ToolButtonWithMenu*> menus = toolBar->MenuButtons(true);
  const QList<QPointer<ToolButtonWithMenu>> buttons(menus.cbegin(), menus.cend());
  for (const QPointer<ToolButtonWithMenu>& button : buttons) {
    if (button)
      button->RecalcMenuPosAndMove();
  }
}

// What shows the hidden buttons lies behind them.
QRect ToolBarPrivate::unscrolledRect(const QAbstractButton& button) const {
  const QRect rect(button.mapTo(toolBar, QPoint()), button.size());
  if (&button != overflow)
    return rect;
  constexpr int far = 1 << 20;
  if (toolBar->Orientation() == Qt::Vertical)
    return rect.translated(0, far);
  return rect.translated(toolBar->isRightToLeft() ? -far : far, 0);
}

// --- looks

void ToolBarPrivate::applyPopupDefaults() {
  params.tooltip = popupsAwayFrom(area, 5);
  params.menu = subToolBarParams();
}

ButtonPopupParams ToolBarPrivate::subToolBarParams() const { return popupsAwayFrom(area, 7); }

void ToolBarPrivate::pathsChanged() {
  pathsOutOfDate = true;
  toolBar->update();
}

void ToolBarPrivate::PrepareBackgroundPaths() {
  paths->prepareBackground(toolBar->rect(), content->rects(), area, params);
}

void ToolBarPrivate::UpdateButtonSeparatorPaths() { paths->updateButtonSeparators(content->rects()); }

void ToolBarPrivate::paint(QPainter& painter) {
  if (std::exchange(pathsOutOfDate, false)) {
    PrepareBackgroundPaths();
    UpdateButtonSeparatorPaths();
    updateShadow();
  }
  const Styles& styles = Styles::Instance();
  const QPen border(orShared(params.borderColor, styles.ColorActionPanelBorder()), params.borderWidth);
  const bool bordered = params.borderWidth > 0;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(bordered && !params.borderAroundGroups ? border : QPen(Qt::NoPen));
  painter.setBrush(orShared(params.backColor, styles.ColorToolPaletteMainBack()));
  painter.drawPath(paths->bar);
  painter.setClipRect(content->geometry());
  painter.setPen(bordered && params.borderAroundGroups ? border : QPen(Qt::NoPen));
  painter.setBrush(orShared(params.groupBackColor, styles.ColorActionPanelGroupBack()));
  painter.drawPath(paths->groups);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(orShared(params.separatorColor, styles.ColorToolPaletteButtonSeparator()));
  if (isVisibleColor(params.separatorColor))
    painter.drawPath(paths->buttonSeparators);
  for (const QRect& gap : std::as_const(paths->groupSeparators))
    paintGroupSeparator(painter, gap, toolBar->Orientation());
}

void ToolBarPrivate::updateShadow() {
  if (!shadow)
    return;
  const bool wholeBar = isVisibleColor(params.backColor);
  const int margin = params.cornerRadius + params.borderWidth;
  shadow->setShape(paths->silhouette(wholeBar, isVisibleColor(params.groupBackColor)),
                   wholeBar ? toolBar->rect().adjusted(margin, margin, -margin, -margin) : QRect());
}

} // namespace Vela::UiBase
