// SPDX-License-Identifier: MIT
#include "widget_pos_calculator.h"

#include <ui_base/popups/arrowed_window.h>
#include <ui_base/popups/placement_choice.h>
#include <ui_base/popups/sub_widgets.h>
#include <ui_base/popups/widget_pos_calculator_p.h>

#include <QApplication>
#include <QScopeGuard>

namespace Vela::UiBase {

namespace {

bool verifySlidArrowByDefault = false;

WidgetPosCalculator::SearchObserver& searchObserver() {
  static WidgetPosCalculator::SearchObserver observer;
  return observer;
}

QPoint originOf(const QWidget* parent) { return parent ? parent->mapToGlobal(QPoint(0, 0)) : QPoint(); }

} // namespace

WidgetPosCalculator::WidgetPosCalculator(QObject* parent)
    : WidgetPosCalculator(*new WidgetPosCalculatorPrivate, parent) {}

WidgetPosCalculator::WidgetPosCalculator(WidgetPosCalculatorPrivate& state, QObject* parent)
    : QObject(parent), d(&state) {}

WidgetPosCalculator::~WidgetPosCalculator() = default;

void WidgetPosCalculator::SetWidget(QWidget* widget) { d->widget = widget; }

QWidget* WidgetPosCalculator::Widget() const { return d->widget; }

void WidgetPosCalculator::SetRefWidget(QWidget* widget) {
  d->refWidget = widget;
  d->useRefWidget = true;
}

QWidget* WidgetPosCalculator::RefWidget() const { return d->refWidget; }

void WidgetPosCalculator::SetRefPoint(const QPoint& point) {
  d->refPoint = point;
  d->useRefWidget = false;
}

const QPoint& WidgetPosCalculator::RefWiget() const { return d->refPoint; }

void WidgetPosCalculator::SetBaseOffset(int offset) { d->baseOffset = offset; }

int WidgetPosCalculator::BaseOffset() const { return d->baseOffset; }

void WidgetPosCalculator::SetAlignment(EWidgetsAlign alignment) { d->alignment = alignment; }

EWidgetsAlign WidgetPosCalculator::Alignment() const { return d->alignment; }

void WidgetPosCalculator::SetAdditionalOffset(const QPoint& offset) { d->additionalOffset = offset; }

const QPoint& WidgetPosCalculator::AdditionalOffset() const { return d->additionalOffset; }

void WidgetPosCalculator::SetDirection(EDirection direction) {
  d->directions = {direction};
  d->currentDirection = direction;
  GetFullPriorityDirectionList();
}

void WidgetPosCalculator::SetDirections(const QList<EDirection>& directions) {
  d->directions = directions;
  GetFullPriorityDirectionList();
  d->currentDirection = d->directions.constFirst();
}

EDirection WidgetPosCalculator::Direction(int) const { return d->currentDirection; }

const QList<EDirection>& WidgetPosCalculator::Directions() const { return d->directions; }

void WidgetPosCalculator::SetVerifySlidArrow(bool verify) { d->verifySlidArrow = verify; }

bool WidgetPosCalculator::VerifySlidArrow() const {
  return d->verifySlidArrow.value_or(verifySlidArrowByDefault);
}

void WidgetPosCalculator::SetVerifySlidArrowByDefault(bool verify) { verifySlidArrowByDefault = verify; }

bool WidgetPosCalculator::VerifySlidArrowByDefault() { return verifySlidArrowByDefault; }

const PlacementSearch& WidgetPosCalculator::LastSearch() const { return d->search; }

void WidgetPosCalculator::SetSearchObserver(SearchObserver observer) {
  searchObserver() = std::move(observer);
}

void WidgetPosCalculator::Initialize() {}

void WidgetPosCalculator::GetFullPriorityDirectionList() {
  d->directions = Placement::fullPriorityList(std::move(d->directions));
}

bool WidgetPosCalculator::GetMaxAvailableMovingArea(QRect& area) const {
  const QWidget* const window = QApplication::activeWindow();
  if (!d->widget || !window)
    return false;
  const auto* const arrowedWindow = qobject_cast<ArrowedWindow*>(d->widget);
  const QWidget* const content = arrowedWindow ? arrowedWindow->InternalWidget() : d->widget.data();
  area = Placement::freeArea(window->rect(), SubWidgets::takenBeside(content));
  return true;
}

bool WidgetPosCalculator::GetRefGeometry(QRect& geometry) const {
  const QWidget* const parent = d->widget ? d->widget->parentWidget() : nullptr;
  if (!d->useRefWidget) {
    geometry = Placement::pointReference(d->refPoint - originOf(parent));
    return true;
  }
  const QWidget* const reference = d->refWidget;
  if (!reference)
    return false;
  const QRect rect = reference->rect();
  if (parent)
    geometry = rect.translated(originOf(reference) - originOf(parent));
  else
    geometry = QRect(reference->mapToGlobal(rect.topLeft()), reference->mapToGlobal(rect.bottomRight()));
  return true;
}

bool WidgetPosCalculator::VerifyPosition(const QPoint& position, const QRect& widgetRect,
                                         QPoint& adjust) const {
  QRect area = d->keptArea.value_or(QRect());
  if (!d->widget || (!d->keptArea && !GetMaxAvailableMovingArea(area)))
    return true;
  d->search.setFreeArea(area);
  return Placement::verify(widgetRect.translated(position), area, adjust);
}

void WidgetPosCalculator::PrepareArrowParamPairs(const QList<SArrowParam>& arrows, bool autoDecide) const {
  d->arrowParamPairs = Placement::arrowPairs(arrows, autoDecide, d->directions);
}

QPoint WidgetPosCalculator::GetPosition(const QRect& refRect, const QRect& widgetRect) const {
  QRect area;
  if (GetMaxAvailableMovingArea(area))
    d->keptArea = area;
  const auto forget = qScopeGuard([this] { d->keptArea.reset(); });

  const QList<EDirection> sides = d->directions;
  const auto verify = [this](const QPoint& position, const QRect& popup, QPoint& adjust) {
    return VerifyPosition(position, popup, adjust);
  };
  return Placement::choosePlain(d->target(refRect), widgetRect, sides, verify, d->currentDirection,
                                d->search);
}

QPoint WidgetPosCalculator::GetPosition(const QRect& refRect, const QRect& widgetRect, const QPoint&) const {
  auto* const window = qobject_cast<ArrowedWindow*>(d->widget);
  if (!window) {
    d->search.begin(refRect);
    return {};
  }
  PrepareArrowParamPairs(window->GetArrowParams(), window->AutoDecideArrowPosition());
  if (d->arrowParamPairs.isEmpty())
    return GetPosition(refRect, widgetRect);

  // Laying out the window tells others, who may ask this calculator again.
  const QList<ArrowPair> pairs = d->arrowParamPairs;
  const Placement::Target target = d->target(refRect);
  const auto layOut = [window](SArrowParam& arrow, QSize& size, QPoint& tip) {
    return window->GetArrowWindowSize(arrow, size, tip);
  };
  const auto verify = [this](const QPoint& position, const QRect& popup, QPoint& adjust) {
    return VerifyPosition(position, popup, adjust);
  };
  Placement::ArrowedChoice choice(target, VerifySlidArrow(), layOut, verify, d->currentDirection, d->search);
  return choice.choose(pairs);
}

QPoint WidgetPosCalculator::GetPosition(const QPair<SArrowParam, EDirection>& arrow, const QRect& refRect,
                                        const QRect& widgetRect, const QPoint& arrowPoint) const {
  return Placement::arrowedPosition(d->target(refRect), arrow, widgetRect, arrowPoint);
}

std::optional<QPoint> WidgetPosCalculator::Position(bool arrowed) const {
  QPoint position;
  return GetPosition(position, QRect(), arrowed, QPoint()) ? std::optional(position) : std::nullopt;
}

bool WidgetPosCalculator::GetPosition(QPoint& position, const QRect& widgetRect, bool arrowed,
                                      const QPoint& arrowPoint) const {
  QRect refRect;
  if (!d->widget || !GetRefGeometry(refRect))
    return false;
  const QRect rect = widgetRect.isEmpty() ? d->widget->rect() : widgetRect;
  position = arrowed ? GetPosition(refRect, rect, arrowPoint) : GetPosition(refRect, rect);
  if (const SearchObserver observer = searchObserver())
    observer(*this);
  return true;
}

} // namespace Vela::UiBase
