// SPDX-License-Identifier: MIT
#include "interactive_tool.h"

#include "tool_stack.h"

#include <ui_base/commands/upstairs.h>

#include <QPixmap>
#include <QPointer>
#include <QScopedPointer>
#include <QWidget>

namespace Vela::UiBase {

class InteractiveToolPrivate {
public:
  explicit InteractiveToolPrivate(BaseView* toolView) : view(Upstairs::asWidget(toolView)) {}

  QScopedPointer<QCursor> idleCursor;
  QCursor operatingCursor = Qt::ArrowCursor;
  MousePress pressEvent;
  QPointer<QWidget> view;
};

InteractiveTool::InteractiveTool(BaseView* view) : d(std::make_unique<InteractiveToolPrivate>(view)) {}

InteractiveTool::~InteractiveTool() = default;

/// @return whether the state was @p from, and is now @p to.
bool InteractiveTool::change(State from, State to) {
  if (m_state != from)
    return false;
  m_state = to;
  return true;
}

// Observers may let go of the tool, and some hear of it later.
void InteractiveTool::report(void (ToolStateProtocol::*callback)(InteractiveTool*)) {
  delegate([this, self = weak_from_this().lock(), callback](ToolStateProtocol* observer) {
    (observer->*callback)(this);
  });
}

bool InteractiveTool::mousePress(QMouseEvent* event) {
  if (!isActive())
    return false;
  d->pressEvent = MousePress(*event);
  startOperation();
  return true;
}

bool InteractiveTool::mouseMove(QMouseEvent* event) {
  return isOperating() && event->buttons().testFlag(d->pressEvent.button());
}

bool InteractiveTool::mouseRelease(QMouseEvent* event) {
  if (!isOperating() || event->button() != d->pressEvent.button())
    return false;
  endOperation();
  return true;
}

bool InteractiveTool::perform(const ToolOperation&) { return false; }

void InteractiveTool::activate() {
  if (change(State::Inactive, State::Active))
    report(&ToolStateProtocol::toolActivated);
}

void InteractiveTool::suspend() {
  if (change(State::Active, State::Suspended))
    report(&ToolStateProtocol::toolSuspended);
}

void InteractiveTool::resume() {
  if (change(State::Suspended, State::Active))
    report(&ToolStateProtocol::toolResumed);
}

void InteractiveTool::deactivate() {
  if (change(State::Active, State::Inactive))
    report(&ToolStateProtocol::toolDeactivated);
}

void InteractiveTool::startOperation() {
  if (!change(State::Active, State::Operating))
    return;
  const auto self = weak_from_this().lock();
  report(&ToolStateProtocol::toolBeganOperating);
  if (isOperating())
    report(&ToolStateProtocol::toolCursorChange);
}

void InteractiveTool::endOperation() {
  d->pressEvent = {};
  if (change(State::Operating, State::Active))
    report(&ToolStateProtocol::toolEndedOperating);
}

const QCursor& InteractiveTool::getIdleCursor() const {
  return d->idleCursor ? *d->idleCursor : d->operatingCursor;
}

const QCursor& InteractiveTool::getOperatingCursor() const { return d->operatingCursor; }

BaseView* InteractiveTool::getView() const { return Upstairs::asView(d->view); }

const MousePress& InteractiveTool::pressEvent() const noexcept { return d->pressEvent; }

void InteractiveTool::setIdleCursor(const QCursor& cursor) {
  d->idleCursor.reset(new QCursor(cursor));
  tellIdleCursor();
}

void InteractiveTool::tellIdleCursor() {
  auto* const stack = isActive() || isOperating() ? dynamic_cast<ToolStack*>(getDelegate()) : nullptr;
  if (stack)
    stack->idleCursorChanged(*this);
}

void InteractiveTool::setOperatingCursor(const QCursor& cursor) {
  d->operatingCursor = cursor;
  if (!d->idleCursor)
    tellIdleCursor();
  if (isOperating())
    report(&ToolStateProtocol::toolCursorChange);
}

QCursor InteractiveTool::loadCursorFromPath(const QString& path, const QPoint& hotSpot) {
  const QPixmap pixmap(path);
  return pixmap.isNull() ? QCursor() : QCursor(pixmap, hotSpot.x(), hotSpot.y());
}

} // namespace Vela::UiBase
