// SPDX-License-Identifier: MIT
#include "flyout_base.h"

#include "busy_indicator.h"
#include "content_scroller.h"
#include "flyout_base_p.h"
#include "flyout_host.h"
#include "popup_window.h"

#include <vlk_common_res/strings.h>
#include <vlk_common_res/styles.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QPainter>
#include <QPushButton>

#include <utility>

namespace Vela::UiBase {

using Resource::Styles;

namespace {

constexpr int cornerRadius = 6; // px, of a flyout that paints its own background

} // namespace

FlyoutBase::FlyoutBase(const QString& title, QWidget* mainPanel, QWidget* toolButton, bool apply, bool reset,
                       bool cancel, bool close, QWidget* parent)
    : FlyoutBase(title, mainPanel, panelButtons(apply, reset, cancel, close), parent) {
  d->toolButton = toolButton;
}

FlyoutBase::FlyoutBase(const QString& title, QWidget* mainPanel, PanelButtons buttons, QWidget* parent)
    : QWidget(parent), d(std::make_unique<FlyoutBasePrivate>(this)) {
  FlyoutBasePrivate::makeAccessible();
  setProperty(Resource::String::WIDGET_PROPERTY_ISFLYOUT(), true);
  setFocusPolicy(Qt::ClickFocus);
  setMouseTracking(true);
  d->build(mainPanel, buttons);
  SetTitle(title);
  connect(&Styles::Instance(), &Styles::changed, this, [this] {
    if (d->styled)
      d->applyStyles();
  });
  connect(this, &FlyoutBase::ESCKeyReleased, this, &FlyoutBase::OnESCKeyReleased);
  connect(this, &FlyoutBase::CloseFlyout, this, [this] { d->open = false; });
}

FlyoutBase::~FlyoutBase() = default;

QString FlyoutBase::Title() const { return d->title->text(); }

void FlyoutBase::SetTitle(const QString& title) {
  d->title->setText(title);
  setAccessibleName(title);
}

void FlyoutBase::SetApplyText(const QString& text) {
  if (d->applyButton)
    d->applyButton->setText(text);
}

QWidget* FlyoutBase::MainPanel() const { return d->mainPanel; }

QWidget* FlyoutBase::ToolButton() const {
  auto* const host = dynamic_cast<FlyoutHost*>(d->toolButton.data());
  return host ? host->CurrentHost() : d->toolButton.data();
}

void FlyoutBase::SetToolButton(QWidget* button) { d->toolButton = button; }

bool FlyoutBase::IsApplyButtonEnabled() const { return d->applyButton && d->applyEnabled; }

bool FlyoutBase::IsResetButtonEnabled() const { return d->resetButton && d->resetEnabled; }

void FlyoutBase::EnableApplyButton(bool enable) {
  d->applyEnabled = enable;
  d->updateEnabled();
}

void FlyoutBase::EnableResetButton(bool enable) {
  d->resetEnabled = enable;
  d->updateEnabled();
}

void FlyoutBase::AddSubWidget(QWidget* widget, EDirection side) { d->subWidgets.add(widget, side); }

void FlyoutBase::ShowSubWidget(QWidget* widget, bool show) {
  if (d->subWidgets.setShown(widget, show))
    Q_EMIT SubWidgetVisibilityChanged(show);
}

void FlyoutBase::SetSizeLimit(const QSize& limit) {
  if (!d->scroller || std::exchange(d->sizeLimit, limit) == limit)
    return;
  d->ensureStyled();
  d->scroller->setLimitWithin(*layout(), limit);
}

QSize FlyoutBase::sizeHint() const {
  d->ensureStyled();
  return QWidget::sizeHint();
}

QSize FlyoutBase::minimumSizeHint() const {
  d->ensureStyled();
  return QWidget::minimumSizeHint();
}

bool FlyoutBase::IsSubWidgetVisible() const { return isVisible() && d->subWidgets.isAnyShown(); }

void FlyoutBase::ShowPartialBackground(const QRect& region, const QColor& color) {
  d->partialBackground = region;
  d->partialColor = color;
  update();
  Q_EMIT SetPartialBackgroundColor(true, region.translated(pos()), color);
}

void FlyoutBase::HidePartialBackground() {
  d->partialBackground = {};
  update();
  Q_EMIT SetPartialBackgroundColor(false, {}, {});
}

bool FlyoutBase::KeepOpenInView() const { return d->keepOpenInView; }

void FlyoutBase::SetKeepOpenInView(bool keep) { d->keepOpenInView = keep; }

bool FlyoutBase::IsBusy() const { return d->busy; }

// A control that is disabled would hand the focus to whatever comes next, even outside.
void FlyoutBase::SetBusy(bool busy) {
  if (d->busy == busy)
    return;
  d->busy = busy;
  const QPointer<FlyoutBase> self(this);
  if (busy && FocusKeeper::isIn(*this)) {
    d->focusBeforeBusy = QApplication::focusWidget();
    setFocus();
  }
  if (self)
    d->updateEnabled();
  if (!self)
    return;
  d->indicator->setVisible(busy);
  d->announceBusy();
  if (QWidget* const before = busy ? nullptr : std::exchange(d->focusBeforeBusy, nullptr);
      before && hasFocus())
    before->setFocus();
  if (!self || d->busy != busy)
    return;
  if (busy)
    Q_EMIT FlyoutBusy();
  else
    Q_EMIT FlyoutIdle();
}

void FlyoutBase::Apply() {
  if (IsApplyButtonEnabled() && !d->busy)
    Q_EMIT ApplyChanges();
}

void FlyoutBase::Reset() {
  if (IsResetButtonEnabled() && !d->busy)
    Q_EMIT ResetValues();
}

void FlyoutBase::Cancel() {
  if (!d->open)
    return;
  const QPointer<FlyoutBase> self(this);
  Q_EMIT CancelChanges();
  if (self)
    CloseMe();
}

void FlyoutBase::CloseMe() {
  if (!d->open)
    return;
  const QPointer<FlyoutBase> self(this);
  Q_EMIT CloseFlyout();
  if (self)
    hide();
}

void FlyoutBase::OnESCKeyReleased() {
  if (!d->busy)
    Cancel();
}

void FlyoutBase::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
  case Qt::Key_Escape:
    d->watchEscape();
    break;
  case Qt::Key_Return:
  case Qt::Key_Enter:
    if (d->applyButton)
      Apply();
    else
      QWidget::keyPressEvent(event); // a dialog around has a use for it
    break;
  default:
    QWidget::keyPressEvent(event);
  }
}

// A release whose press went to something else, such as a list that it closed, is not meant for the flyout.
// Some controls, such as spin boxes, let the press through and keep the release.
bool FlyoutBase::eventFilter(QObject* watched, QEvent* event) {
  if (watched != d->escapeTarget || event->type() != QEvent::KeyRelease)
    return QWidget::eventFilter(watched, event);
  const auto* const key = static_cast<QKeyEvent*>(event);
  if (key->key() != Qt::Key_Escape || key->isAutoRepeat())
    return QWidget::eventFilter(watched, event);
  d->forgetEscape();
  Q_EMIT ESCKeyReleased();
  return true;
}

void FlyoutBase::showEvent(QShowEvent* event) {
  if (event->spontaneous())
    return;
  d->open = true;
  d->forgetEscape();
  const QPointer<FlyoutBase> self(this);
  d->subWidgets.follow();
  if (self)
    d->takeFocus();
}

// Before a window that hosts it goes and hands the focus on.
void FlyoutBase::setVisible(bool visible) {
  const QPointer<FlyoutBase> self(this);
  if (!visible && isVisible())
    d->giveFocusBack();
  if (visible)
    d->ensureStyled();
  if (self)
    QWidget::setVisible(visible);
  if (self && visible)
    hideLeftWindow(*this);
}

void FlyoutBase::hideEvent(QHideEvent* event) {
  if (event->spontaneous())
    return;
  const QPointer<FlyoutBase> self(this);
  d->subWidgets.follow();
  if (self)
    d->giveFocusBack();
}

void FlyoutBase::resizeEvent(QResizeEvent*) { Q_EMIT FlyoutResized(); }

void FlyoutBase::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::ParentChange)
    d->subWidgets.follow();
}

void FlyoutBase::paintEvent(QPaintEvent*) {
  if (!d->paintsItself())
    return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Styles& styles = Styles::Instance();
  painter.setPen(styles.ColorActionPanelBorder());
  painter.setBrush(palette().color(QPalette::Window));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
  if (!d->partialBackground.isEmpty())
    painter.fillRect(QRect(1, d->partialBackground.top(), width() - 2, d->partialBackground.height()),
                     d->partialColor);
}

} // namespace Vela::UiBase
