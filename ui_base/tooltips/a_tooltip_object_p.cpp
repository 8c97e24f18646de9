// SPDX-License-Identifier: MIT
#include "a_tooltip_object_p.h"

#include <ui_base/popups/popup_sight.h>
#include <ui_base/tooltips/tooltip_ex.h>
#include <ui_base/tooltips/tooltip_manager.h>
#include <ui_base/tooltips/tooltip_text.h>
#include <vlk_common_res/styles.h>

#include <QApplication>
#include <QCursor>
#include <QLayout>

#include <utility>

namespace Vela::UiBase {

using Vela::Resource::Styles;

namespace {

/// What has been shown may be in the middle of an event, such as the click that ends its tooltip. Until it
/// goes its parent owns it.
void discard(QWidget* widget) {
  if (!widget || !widget->parent()) {
    delete widget;
    return;
  }
  widget->hide();
  widget->deleteLater();
}

} // namespace

ATooltipObjectPrivate::ATooltipObjectPrivate() {
  const TooltipTimes& times = TooltipManager::GetInstance().Times();
  showUpTime = times.showUp;
  dismissTime = times.dismiss;
  checkTime = times.check;
}

ATooltipObjectPrivate::~ATooltipObjectPrivate() {
  if (placing && posCalculator) {
    // It is in the middle of a search that has called who has ended the tooltip.
    posCalculator->SetWidget(nullptr);
    posCalculator.release()->deleteLater();
  }
  discardWindows();
}

void ATooltipObjectPrivate::end() {
  if (std::exchange(ended, true))
    return;
  TooltipManager::GetInstance().RemoveTooltip(object);
  // The windows' last events are not for an object that is going.
  unlink();
  if (tooltipWindow)
    tooltipWindow->removeEventFilter(object);
  discardWindows();
}

void ATooltipObjectPrivate::discardWindows() {
  if (arrowedWindow)
    Styles::Instance().disconnect(arrowedWindow);
  visible = false;
  const QPointer<QWidget> shown(tooltipWindow);
  const QPointer<QWidget> around(arrowedWindow);
  const QPointer<QWidget> pending(pendingControl);
  tooltipWindow.clear();
  arrowedWindow.clear();
  pendingControl.clear();
  discard(shown);
  discard(around);
  discard(pending);
}

QWidget* ATooltipObjectPrivate::reference() const { return nullptr; }

QString ATooltipObjectPrivate::reason() const { return {}; }

void ATooltipObjectPrivate::tellReason() {
  if (auto* const tooltip = qobject_cast<ATooltipEx*>(attachedControl))
    tooltip->SetReason(reason());
}

QString ATooltipObjectPrivate::description() const {
  return pendingControl ? TooltipText::read(pendingControl) : TooltipText::plain(text);
}

// --- the layer

const QWidget* ATooltipObjectPrivate::owner() const {
  const QWidget* const widget = reference();
  return widget || !posCalculator ? widget : posCalculator->RefWidget();
}

QWidget* ATooltipObjectPrivate::ownLayer() const {
  const QWidget* widget = owner();
  if (!widget) // a spot in a view, whose window need not be the active one
    widget = qobject_cast<const QWidget*>(object->parent());
  return widget ? widget->window() : QApplication::activeWindow();
}

bool ATooltipObjectPrivate::ensureLayer() {
  if (layer && !layerFound)
    return true;
  // A widget may have moved to another window since.
  QWidget* const found = TooltipManager::GetInstance().getTooltipLayer(object);
  if (found && found != layer) {
    object->SetTooltipLayer(found);
    layerFound = true;
  }
  return found;
}

// --- the content

bool ATooltipObjectPrivate::ensureContent() {
  const QPointer<ATooltipObject> self(object);
  if (!pendingControl && (make || !text.isNull())) {
    const auto factory = make; // which who is called may replace
    const QPointer<QWidget> made(factory ? factory() : ATooltipObject::CreateTooltipControl(text));
    if (!self || pendingControl) {
      delete made;
      return self;
    }
    pendingControl = made;
    handHelpOn();
  }
  attach();
  return self;
}

bool ATooltipObjectPrivate::setContent(QWidget* control, bool arrowed) {
  const QPointer<ATooltipObject> self(object);
  const QPointer<QWidget> next(control);
  make = nullptr;
  text.clear();
  const QPointer<QWidget> before(pendingControl);
  if (useArrowedWindow != arrowed)
    detach();
  if (!self)
    return false;
  useArrowedWindow = arrowed;
  pendingControl = next;
  handHelpOn();
  attach();
  if (before && before != next)
    before->deleteLater();
  if (self)
    describe();
  return self;
}

void ATooltipObjectPrivate::attach() {
  // The window of a content that has died is still there.
  if (pendingControl == attachedControl && (attachedControl || !tooltipWindow))
    return;
  const QPointer<ATooltipObject> self(object);
  detach();
  if (!self || tooltipWindow)
    return;
  attachedControl = pendingControl;
  if (!attachedControl)
    return;
  if (useArrowedWindow) {
    arrows().AttachWidget(attachedControl);
    if (!self || !attachedControl)
      return;
    tooltipWindow = arrowedWindow;
  } else {
    tooltipWindow = attachedControl;
    tooltipWindow->setParent(layer);
    tooltipWindow->setAttribute(Qt::WA_NoMousePropagation);
  }
  // Else it would be shown together with its layer.
  tooltipWindow->hide();
  tooltipWindow->installEventFilter(object);
  if (posCalculator)
    posCalculator->SetWidget(tooltipWindow);
  link();
}

void ATooltipObjectPrivate::link() {
  links.append(QObject::connect(attachedControl, &QObject::destroyed, object, &ATooltipObject::HideTooltip));
  auto* const tooltip = qobject_cast<ATooltipEx*>(attachedControl);
  if (!tooltip)
    return;
  links.append(QObject::connect(tooltip, &ATooltipEx::HelpRequested, object, &ATooltipObject::HelpRequested));
  links.append(QObject::connect(tooltip, &ATooltipEx::HelpRequested, &TooltipManager::GetInstance(),
                                &TooltipManager::HelpRequested));
  // At once, as it would be seen at its old place otherwise.
  const auto placeAnew = [this] {
    if (isShowing() && !placing)
      place();
  };
  if (auto* const unfolding = qobject_cast<TooltipEx*>(tooltip))
    links.append(QObject::connect(unfolding, &TooltipEx::UnfoldedChanged, object, placeAnew));
}

// Only our own: an application may have connected the same two.
void ATooltipObjectPrivate::unlink() {
  const auto former = std::exchange(links, {});
  for (const QMetaObject::Connection& link : former)
    QObject::disconnect(link);
}

void ATooltipObjectPrivate::detach() {
  if (!tooltipWindow)
    return;
  const QPointer<ATooltipObject> self(object);
  object->HideTooltip();
  if (!self || !tooltipWindow)
    return;
  tooltipWindow->removeEventFilter(object);
  unlink();
  const QPointer<ArrowedWindow> around = tooltipWindow == arrowedWindow ? arrowedWindow : nullptr;
  attachedControl = nullptr;
  tooltipWindow = nullptr;
  if (posCalculator)
    posCalculator->SetWidget(nullptr);
  if (around)
    around->DetachWidget();
}

void ATooltipObjectPrivate::handHelpOn() {
  auto* const tooltip = qobject_cast<ATooltipEx*>(pendingControl);
  if (!tooltip)
    return;
  if (helpIndex >= 0)
    tooltip->SetTooltipIndex(helpIndex);
  if (!helpKeyword.isEmpty())
    tooltip->SetTooltipKeyword(helpKeyword);
}

// --- the place

void ATooltipObjectPrivate::place() {
  const QPointer<ATooltipObject> self(object);
  ++placing;
  const bool arrowed = arrowedWindow && tooltipWindow == arrowedWindow;
  if (QLayout* const layout = attachedControl ? attachedControl->layout() : nullptr)
    layout->activate();
  if (arrowed && arrowedWindow->GetArrowParams().isEmpty())
    arrowedWindow->SetArrow(SArrowParam());
  else if (!arrowed && !tooltipWindow->testAttribute(Qt::WA_Resized))
    tooltipWindow->adjustSize();
  const auto wanted = [this, arrowed] {
    QPoint position = tooltipWindow->pos();
    const QPoint tip = arrowed ? arrowedWindow->GetArrowPoint() : QPoint();
    calculator().GetPosition(position, tooltipWindow->rect(), arrowed, tip);
    return position;
  };
  placeInSight(calculator(), wanted, Qt::ToolTip);
  if (self)
    --placing;
}

void ATooltipObjectPrivate::followSize() {
  if (!visible || placing || placePending)
    return;
  placePending = true;
  // Not while the window is laying itself out.
  const auto placeLater = [this] {
    placePending = false;
    if (isShowing())
      place();
  };
  QMetaObject::invokeMethod(object, placeLater, Qt::QueuedConnection);
}

// --- what is made when it is needed

void ATooltipObjectPrivate::makeTimer(std::unique_ptr<QTimer>& timer, int interval,
                                      void (ATooltipObject::*slot)()) {
  timer = std::make_unique<QTimer>();
  timer->setSingleShot(true);
  timer->setInterval(interval);
  QObject::connect(timer.get(), &QTimer::timeout, object, slot);
}

QTimer& ATooltipObjectPrivate::showUp() {
  if (!showUpTimer)
    makeTimer(showUpTimer, showUpTime, &ATooltipObject::OnTooltipTimerTimeOut);
  return *showUpTimer;
}

QTimer& ATooltipObjectPrivate::dismiss() {
  if (!dismissTimer)
    makeTimer(dismissTimer, dismissTime, &ATooltipObject::OnTooltipDismissTimerTimeOut);
  return *dismissTimer;
}

QTimer& ATooltipObjectPrivate::check() {
  if (!checkTimer) {
    makeTimer(checkTimer, checkTime, &ATooltipObject::OnTooltipCheckTimerTimeOut);
    checkTimer->setSingleShot(false);
  }
  return *checkTimer;
}

// --- timers and handlers

void ATooltipObjectPrivate::startShowUp() {
  const TooltipManager& manager = TooltipManager::GetInstance();
  const bool atOnce = manager.ShowNextAtOnce(group) && manager.IsTooltipShown(group);
  showUp().start(atOnce ? 0 : showUpTime);
}

void ATooltipObjectPrivate::startDismiss() {
  if (overrideDismissTimer)
    dismiss().start();
}

void ATooltipObjectPrivate::stop(const std::unique_ptr<QTimer>& timer) {
  if (timer)
    timer->stop();
}

bool ATooltipObjectPrivate::holdsCursor(const QWidget& widget) {
  const QRect area = widget.rect();
  return QRect(widget.mapToGlobal(area.topLeft()), widget.mapToGlobal(area.bottomRight()))
      .contains(QCursor::pos());
}

void ATooltipObjectPrivate::callHandler(ATooltipObject::IHoverCallbackHandler* handler) {
  if (hoverEventsEnabled && handler)
    (*handler)();
}

} // namespace Vela::UiBase
