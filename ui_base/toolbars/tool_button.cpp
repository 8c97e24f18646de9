// SPDX-License-Identifier: MIT
#include "tool_button.h"

#include "tool_button_accessible.h"
#include "tool_button_p.h"
#include "tool_button_with_widget_menu.h"

#include <ui_base/commands/command_base.h>
#include <vlk_common_res/styles.h>

#include <QActionEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointingDevice>
#include <QSignalBlocker>

#include <utility>

namespace Vela::UiBase {

using Resource::Styles;

namespace {

// Making an event moves the point of its device, which is not to be the mouse.
const QPointingDevice* forwardingDevice() {
  static const QPointingDevice device(QStringLiteral("forwarded mouse"), -1, QInputDevice::DeviceType::Mouse,
                                      QPointingDevice::PointerType::Generic,
                                      QInputDevice::Capability::Position, 1, 3);
  return &device;
}

void forward(const QMouseEvent& event, QWidget* receiver) {
  if (!receiver)
    return;
  const QPointF position = receiver->mapFromGlobal(event.globalPosition());
  QCoreApplication::postEvent(
      receiver, new QMouseEvent(event.type(), position, event.scenePosition(), event.globalPosition(),
                                event.button(), event.buttons(), event.modifiers(), forwardingDevice()));
}

bool pressesButton(const QKeyEvent& event) {
  const int key = event.key();
  return key == Qt::Key_Space || key == Qt::Key_Select || key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

const QString ToolButton::COMMANDID_PROPERTY = QString::fromLatin1(CMDID_PROP);

// --- construction

ToolButton::ToolButton(QWidget* parent) : ToolButton(*new ToolButtonPrivate, parent) {
  Initialize(nullptr, nullptr);
}

ToolButton::ToolButton(QAction* action, ToolBar* toolBar, QWidget* parent)
    : ToolButton(*new ToolButtonPrivate, parent) {
  Initialize(action, toolBar);
}

ToolButton::ToolButton(ToolButtonPrivate& state, QWidget* parent) : QToolButton(parent), d(&state) {
  d->button = this;
}

ToolButton::~ToolButton() = default;

void ToolButton::Initialize(QAction* action, ToolBar* toolBar) {
  makeToolBarsAccessible();
  setFocusPolicy(Qt::NoFocus);
  setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Preferred);
  // The toolbar is told of every mouse event by forward().
  setAttribute(Qt::WA_NoMousePropagation);
  setCheckable(false);
  setChecked(false);
  d->applySharedStyle();
  connect(&Styles::Instance(), &Styles::changed, this, [this] {
    d->applySharedStyle();
    d->renewPictures();
  });
  connect(this, &QAbstractButton::clicked, this, &ToolButton::OnClicked);
  connect(this, &QAbstractButton::toggled, this, &ToolButton::OnToggled);
  if (!action || !toolBar)
    return;
  d->action = action;
  d->toolBar = toolBar;
  addAction(action);
  setDefaultAction(action);
  d->mirror();
  d->wrapIcon();
  connect(action, &QAction::changed, this, [this] {
    if (d->action)
      d->takeName(*d->action);
  });
  d->takeName(*action);
  if (const auto* const command = dynamic_cast<const CommandBase*>(action))
    setProperty(CMDID_PROP, command->commandId());
  InitializeTooltipObject();
  UpdateLicenseLock();
}

void ToolButton::InitializeTooltipObject() {
  if (!d->toolBar)
    return;
  d->tooltipObject = std::make_unique<TooltipObject>(d->toolBar->TooltipGroup());
  d->tooltipObject->AttachTo(this);
  RefreshTooltip();
}

QAction* ToolButton::Action() const { return d->action; }

ToolBar* ToolButton::OwningToolBar() const { return d->liveToolBar(); }

TooltipObject* ToolButton::GetTooltipObject() const { return d->tooltipObject.get(); }

void ToolButton::SetExtendMode(bool) {}

// --- clicks

void ToolButton::SuppressClickedHandler(bool suppress) { d->suppressClickedHandler = suppress; }

bool ToolButton::ClickedHandlerRequested() const { return d->clickedHandlerRequested; }

void ToolButton::RequestClick() {
  ++d->pendingClicks;
  const auto click = [this, self = QPointer(this)] {
    --d->pendingClicks;
    d->leaveExtendModes();
    if (self)
      OnClicked(false);
  };
  QMetaObject::invokeMethod(this, click, Qt::QueuedConnection);
}

QWidget* ToolButton::CurrentHost() { return this; }

// The first thing a click does: the action is toggled and triggered before clicked() is emitted.
void ToolButton::nextCheckState() {
  if (d->locked)
    return;
  d->clickedHandlerRequested = true;
  QToolButton::nextCheckState();
}

void ToolButton::OnClicked(bool) {
  if (d->locked) {
    d->clickedHandlerRequested = false; // what the click started has locked the button
    d->forgetClick();
    d->endUnopenedFlyout();
    return;
  }
  const QPointer<ToolButton> self(this);
  Q_EMIT ToolButtonClicked();
  if (!self)
    return;
  d->clickedHandlerRequested = false;
  if (std::exchange(d->suppressClickedHandler, false))
    d->forgetClick();
  else
    ClickedHandler();
}

void ToolButton::ClickedHandler() {}

void ToolButton::OnToggled(bool checked) {
  if (checked)
    return;
  const QPointer<ToolButton> self(this);
  const bool handled = d->clickedHandlerRequested && !d->suppressClickedHandler; // which closes the menu
  auto* const menuButton = qobject_cast<ToolButtonWithMenu*>(this);
  if (menuButton && isCheckable() && d->hideMenuWhenUnchecked && !handled) {
    if (ToolBar* const bar = OwningToolBar(); bar && bar->GetActiveButton() == menuButton)
      Q_EMIT bar->CloseFlyout();
    if (self)
      menuButton->HideMenu();
  }
  if (self)
    IconState(Hovered());
}

void ToolButton::SetHideMenuWhenUnchecked(bool hide) { d->hideMenuWhenUnchecked = hide; }

// --- enabled and shown

void ToolButton::SetCallbackHandler(QAction* action, IToolButtonCallbackHandler* handler) {
  if (!action || !handler)
    return;
  auto& handlers = d->callbackHandlers[action];
  if (!handlers.contains(handler))
    handlers.append(handler);
}

void ToolButton::RemoveCallbackHandler(IToolButtonCallbackHandler* handler) {
  for (auto& handlers : d->callbackHandlers)
    handlers.removeAll(handler);
}

void ToolButton::EnableActions() {
  // One that opens the toolbar of a group carries its action without being bound to it.
  const QPointer<QAction> action = d->action ? d->action.data() : actions().value(0);
  const QList<IToolButtonCallbackHandler*> handlers = d->callbackHandlers.value(action);
  if (!action || handlers.isEmpty())
    return;
  const QPointer<ToolButton> self(this);
  bool enable = true;
  for (IToolButtonCallbackHandler* const handler : handlers) {
    if (!d->callbackHandlers.value(action).contains(handler))
      continue; // taken away by one before
    enable = (*handler)(action);
    if (!self || !action)
      return;
    if (!enable)
      break;
  }
  action->setEnabled(enable);
  if (self)
    setEnabled(enable);
}

bool ToolButton::IsActionAssociated(QAction*) const { return false; }

void ToolButton::SetShowCallbackHandler(IToolButtonShowCallbackHandler* handler) {
  d->showCallbackHandler = handler;
  const QPointer<ToolButton> self(this);
  if (handler && !(*handler)(this) && self)
    hide();
}

void ToolButton::UpdateVisibility() {
  if (d->showCallbackHandler)
    setVisible(true);
}

void ToolButton::setVisible(bool visible) {
  const QPointer<ToolButton> self(this);
  const bool shows = visible && (!d->showCallbackHandler || (*d->showCallbackHandler)(this));
  if (self)
    QToolButton::setVisible(shows);
}

void ToolButton::showEvent(QShowEvent*) {
  UpdateLicenseLock();
  if (d->lockLabel)
    d->lockLabel->setVisible(d->locked);
}

void ToolButton::actionEvent(QActionEvent* event) {
  if (d->dying)
    return; // a parent that is going cannot be asked for other buttons
  if (event->type() != QEvent::ActionChanged || event->action() != d->action) {
    QToolButton::actionEvent(event);
    return;
  }
  // Qt makes the button anew from its action; what was set on the button itself is to last.
  const bool ownCheckable = isCheckable() && !d->mirrored.checkable && !d->action->isCheckable();
  const bool ownChecked = isChecked();
  if (!testAttribute(Qt::WA_ForceDisabled))
    d->heldDisabled = false;
  else if (d->mirrored.enabled)
    d->heldDisabled = true;
  QToolButton::actionEvent(event);
  if (!d->action)
    return;
  d->mirror();
  if (ownCheckable) {
    const QSignalBlocker noToggling(this);
    setCheckable(true);
    setChecked(ownChecked);
  }
  if (d->heldDisabled)
    setEnabled(false);
  if (d->normalPixmap.isNull())
    d->wrapIcon();
  else
    IconState(d->iconActive);
  const bool ownTooltip = d->tooltipObject && d->tooltipObject->Text() != d->tooltipText;
  if (!ownTooltip && d->tooltipText != d->action->toolTip())
    RefreshTooltip();
}

// --- mouse and keyboard

bool ToolButton::event(QEvent* event) {
  const QEvent::Type type = event->type();
  const bool mouse = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
                     type == QEvent::MouseButtonDblClick || type == QEvent::MouseMove;
  if (mouse && !isEnabled())
    forward(*static_cast<QMouseEvent*>(event), d->toolBar);
  const bool handled = QToolButton::event(event);
  if (type == QEvent::ScreenChangeInternal)
    d->renewPictures();
  return handled;
}

void ToolButton::enterEvent(QEnterEvent* event) {
  IconState(true);
  QToolButton::enterEvent(event);
}

void ToolButton::leaveEvent(QEvent* event) {
  IconState(isChecked());
  QToolButton::leaveEvent(event);
}

void ToolButton::mouseMoveEvent(QMouseEvent* event) {
  forward(*event, d->toolBar);
  if (d->locked)
    return;
  // While a button is held down the mouse neither enters nor leaves.
  const bool active = rect().contains(event->position().toPoint()) || isChecked();
  if (active != d->iconActive)
    IconState(active);
  QToolButton::mouseMoveEvent(event);
}

void ToolButton::mousePressEvent(QMouseEvent* event) {
  forward(*event, d->toolBar);
  if (!d->locked)
    QToolButton::mousePressEvent(event);
}

void ToolButton::mouseReleaseEvent(QMouseEvent* event) {
  forward(*event, d->toolBar);
  if (!d->locked)
    QToolButton::mouseReleaseEvent(event);
}

void ToolButton::keyPressEvent(QKeyEvent* event) {
  if (!d->locked || !pressesButton(*event))
    QToolButton::keyPressEvent(event);
}

void ToolButton::keyReleaseEvent(QKeyEvent* event) {
  if (!d->locked || !pressesButton(*event))
    QToolButton::keyReleaseEvent(event);
}

} // namespace Vela::UiBase
