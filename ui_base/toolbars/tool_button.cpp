// SPDX-License-Identifier: MIT
#include "tool_button.h"

#include "tool_button_p.h"
#include "tool_button_with_menu.h"

#include <ui_base/commands/command_base.h>
#include <ui_base/commands/flyout_command.h>
#include <ui_base/popups/arrowed_window.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/popups/widget_pos_calculator.h>
#include <vlk_common_res/styles.h>
#include <vlk_license/license_service.h>
#include <vlk_license/lock_badge.h>

#include <QActionEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointingDevice>
#include <QSignalBlocker>

#include <utility>

namespace Vela::UiBase {

using License::LicenseService;
using Resource::Styles;

namespace {

constexpr QSize pictureSize(32, 32); // px; of the pictures that are swapped under the mouse

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

// --- state

ToolButtonPrivate::ToolButtonPrivate() = default;

ToolButtonPrivate::~ToolButtonPrivate() = default;

ToolBar* ToolButtonPrivate::liveToolBar() const {
  return qobject_cast<ToolBar*>(static_cast<QObject*>(toolBar.data()));
}

void ToolButtonPrivate::leaveDyingToolBar() {
  if (!toolBar || liveToolBar())
    return;
  button->disconnect(toolBar);
  toolBar.clear();
}

void ToolButtonPrivate::beginDestruction() {
  dying = true;
  leaveDyingToolBar();
}

bool ToolButtonPrivate::isUnlicensed() const {
  const auto* const command = dynamic_cast<const CommandBase*>(action.data());
  return command && command->isPaidFeature() && !LicenseService::Instance().isUsable();
}

// Begun by a shortcut, it would wait for a panel that does not open.
void ToolButtonPrivate::endUnopenedFlyout() const {
  auto* const command = qobject_cast<FlyoutCommand*>(action.data());
  const FlyoutBase* const flyout = command ? command->flyout() : nullptr;
  if (flyout && !flyout->isVisible())
    command->onFinalize();
}

void ToolButtonPrivate::dress() {
  if (button->styleSheet() != styleSheet)
    return; // it was given another one
  styleSheet = Styles::Instance().ToolButtonOnToolPalette();
  button->setStyleSheet(styleSheet);
}

void ToolButtonPrivate::adoptIcon() {
  const qint64 key = button->icon().cacheKey();
  const bool ours = !normalPixmap.isNull() && (key == activeIcon.cacheKey() || key == normalIcon.cacheKey());
  const bool otherScreen =
      picturesFor != button->iconSize() || !qFuzzyCompare(picturesRatio, button->devicePixelRatioF());
  if (!ours && key != source.cacheKey())
    source = button->icon();
  else if (!otherScreen)
    return;
  normalPixmap = activePixmap = QPixmap();
}

void ToolButtonPrivate::renewPictures() {
  if (normalPixmap.isNull())
    return;
  adoptIcon();
  normalPixmap = activePixmap = QPixmap();
  button->setIcon(source);
  button->IconState(iconActive);
}

void ToolButtonPrivate::mirror() { mirrored = {action->isCheckable(), action->isEnabled()}; }

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
  setFocusPolicy(Qt::NoFocus);
  setMenu(nullptr);
  setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Preferred);
  // The toolbar is told of every mouse event by forward().
  setAttribute(Qt::WA_NoMousePropagation);
  setCheckable(false);
  setChecked(false);
  d->dress();
  connect(&Styles::Instance(), &Styles::changed, this, [this] {
    d->dress();
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
  if (action->text().isEmpty())
    setAccessibleName(action->toolTip());
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

QAction* ToolButton::CreateToolButtonAction(QWidget* parent, const QString& normalIcon,
                                            const QString& activeIcon, const QString& text,
                                            const QString& toolTip, QObject* receiver, const char* member,
                                            bool checkable, bool checked) {
  return CreateToolButtonAction(parent, CreateToolButtonIcon(normalIcon, activeIcon), text, toolTip, receiver,
                                member, checkable, checked);
}

QAction* ToolButton::CreateToolButtonAction(QWidget* parent, const QIcon& icon, const QString& text,
                                            const QString& toolTip, QObject* receiver, const char* member,
                                            bool checkable, bool checked) {
  auto* const action = new QAction(icon, text, parent);
  if (receiver && member)
    connect(action, SIGNAL(triggered()), receiver, member);
  action->setToolTip(toolTip);
  action->setCheckable(checkable);
  action->setChecked(checked);
  return action;
}

QIcon ToolButton::CreateToolButtonIcon(const QString& normalIcon, const QString& activeIcon) {
  QIcon icon;
  if (!normalIcon.isEmpty())
    icon.addFile(normalIcon, QSize(), QIcon::Normal);
  if (!activeIcon.isEmpty())
    icon.addFile(activeIcon, QSize(), QIcon::Active);
  return icon;
}

// --- clicks

void ToolButton::SuppressClickedHandler(bool suppress) { d->suppressClickedHandler = suppress; }

bool ToolButton::ClickedHandlerRequested() const { return d->clickedHandlerRequested; }

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
    d->endUnopenedFlyout();
    return;
  }
  const QPointer<ToolButton> self(this);
  Q_EMIT ToolButtonClicked();
  if (!self)
    return;
  d->clickedHandlerRequested = false;
  if (!std::exchange(d->suppressClickedHandler, false))
    ClickedHandler();
}

void ToolButton::ClickedHandler() {}

void ToolButton::OnToggled(bool checked) {
  if (checked)
    return;
  const QPointer<ToolButton> self(this);
  if (auto* const menuButton = qobject_cast<ToolButtonWithMenu*>(this);
      menuButton && isCheckable() && d->hideMenuWhenUnchecked && !d->clickedHandlerRequested)
    menuButton->HideMenu();
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
  const auto handlers =
      d->action ? d->callbackHandlers.value(d->action) : QList<IToolButtonCallbackHandler*>();
  if (handlers.isEmpty())
    return;
  const QPointer<ToolButton> self(this);
  bool enable = true;
  for (IToolButtonCallbackHandler* const handler : handlers) {
    enable = (*handler)(d->action);
    if (!self || !d->action)
      return;
    if (!enable)
      break;
  }
  d->action->setEnabled(enable);
  if (self)
    setEnabled(enable);
}

bool ToolButton::IsActionAssociated(QAction*) const { return false; }

void ToolButton::SetShowCallbackHandler(IToolButtonShowCallbackHandler* handler) {
  d->showCallbackHandler = handler;
  if (handler && !(*handler)(this))
    hide();
}

void ToolButton::UpdateVisibility() {
  if (d->showCallbackHandler)
    setVisible(true);
}

void ToolButton::setVisible(bool visible) {
  QToolButton::setVisible(visible && (!d->showCallbackHandler || (*d->showCallbackHandler)(this)));
}

void ToolButton::showEvent(QShowEvent* event) {
  QToolButton::showEvent(event);
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
  if (!d->normalPixmap.isNull())
    IconState(d->iconActive);
  const bool ownTooltip = d->tooltipObject && d->tooltipObject->Text() != d->tooltipText;
  if (!ownTooltip && d->tooltipText != d->action->toolTip())
    RefreshTooltip();
}

// --- icons

void ToolButton::SetKeepIcon(bool keep) { d->keepIcon = keep; }

bool ToolButton::KeepIcon() const { return d->keepIcon; }

void ToolButton::InitIcons() {
  d->adoptIcon();
  if (d->source.isNull() || !d->normalPixmap.isNull())
    return;
  d->picturesFor = iconSize();
  d->picturesRatio = devicePixelRatioF();
  const auto render = [this](const QSize& size, QIcon::Mode mode) {
    return d->source.pixmap(size, d->picturesRatio, mode, QIcon::On);
  };
  d->normalPixmap = render(pictureSize, QIcon::Normal);
  d->activePixmap = render(pictureSize, QIcon::Active);
  if (d->activePixmap.isNull())
    d->activePixmap = d->normalPixmap;
  d->normalIcon = QIcon(d->normalPixmap);
  d->activeIcon = QIcon(d->activePixmap);
  for (const QSize& size : {pictureSize, d->picturesFor}) {
    // Scaled pictures are not sharp.
    if (size != pictureSize) {
      d->normalIcon.addPixmap(render(size, QIcon::Normal));
      d->activeIcon.addPixmap(render(size, QIcon::Active));
    }
    d->normalIcon.addPixmap(render(size, QIcon::Disabled), QIcon::Disabled);
  }
}

void ToolButton::IconState(bool hovered) {
  d->iconActive = hovered;
  InitIcons();
  if (!d->keepIcon && !d->normalPixmap.isNull() && !d->activePixmap.isNull())
    setIcon(hovered && isEnabled() ? d->activeIcon : d->normalIcon);
}

bool ToolButton::Hovered() const { return rect().contains(mapFromGlobal(QCursor::pos())); }

void ToolButton::changeEvent(QEvent* event) {
  QToolButton::changeEvent(event);
  // Pictures of icons that follow the palette do not follow it themselves.
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
    d->renewPictures();
}

bool ToolButton::event(QEvent* event) {
  const bool handled = QToolButton::event(event);
  if (event->type() == QEvent::ScreenChangeInternal)
    d->renewPictures();
  return handled;
}

// --- the lock

void ToolButton::SetLocked(bool locked) {
  d->locked = locked;
  if (locked)
    setDown(false);
  EnableTooltip(d->tooltipEnabled);
}

bool ToolButton::IsLocked() const { return d->locked; }

void ToolButton::UpdateLicenseLock() {
  const auto* const command = dynamic_cast<const CommandBase*>(d->action.data());
  if (!command || !command->isPaidFeature())
    return;
  connect(&LicenseService::Instance(), &LicenseService::stateChanged, this, &ToolButton::UpdateLicenseLock,
          Qt::UniqueConnection);
  if (d->isUnlicensed()) {
    SetLocked(true);
    AddLockIcon();
  } else if (d->lockLabel) {
    RemoveLockIcon();
    SetLocked(false);
  }
}

void ToolButton::AddLockIcon() {
  if (d->lockLabel)
    return;
  // A disabled rich tooltip would keep the badge's tooltip from being shown.
  if (d->tooltipObject)
    d->tooltipObject->Detach();
  d->lockLabel = License::attachLockBadge(
      this, QStringLiteral(":/resources/images/lock_normal.png"), QPoint(0, 0),
      tr("This is a paid feature. \nPlease purchase or activate your license first."));
}

void ToolButton::RemoveLockIcon() {
  if (!d->lockLabel)
    return;
  License::removeLockBadge(this);
  if (d->tooltipObject)
    d->tooltipObject->AttachTo(this);
}

// --- tooltips

void ToolButton::EnableTooltip(bool enable) {
  d->tooltipEnabled = enable;
  if (d->tooltipObject)
    d->tooltipObject->SetEnableTooltip(enable && !d->locked);
}

void ToolButton::RefreshTooltip() {
  if (d->action)
    d->tooltipText = d->action->toolTip();
  if (d->tooltipObject)
    d->tooltipObject->SetTooltipText(d->tooltipText.isEmpty() ? QString() : d->tooltipText);
}

void ToolButton::RaiseTooltip() {
  if (d->tooltipObject && d->tooltipObject->IsVisible())
    d->tooltipObject->GetArrowedWindow()->raise();
}

void ToolButton::SetTooltipParameters(const SArrowParam& arrow, EDirection direction, int distance,
                                      EWidgetsAlign alignment, const QPoint& offset) {
  if (d->tooltipObject)
    d->tooltipObject->SetTooltipPlacement(arrow, direction, distance, alignment, offset);
}

void ToolButton::SetPosParameters(WidgetPosCalculator& calculator, EDirection direction, int distance,
                                  EWidgetsAlign alignment, const QPoint& offset) {
  calculator.SetDirection(direction);
  calculator.SetBaseOffset(distance);
  calculator.SetAlignment(alignment);
  calculator.SetAdditionalOffset(offset);
}

// --- mouse and keyboard

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
  if (d->locked) {
    event->accept();
    return;
  }
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
