// SPDX-License-Identifier: MIT
#include "flyout_base.h"

#include "arrowed_window.h"
#include "busy_indicator.h"
#include "content_scroller.h"
#include "flyout_sub_widgets.h"

#include <vlk_common_res/icons.h>
#include <vlk_common_res/strings.h>
#include <vlk_common_res/styles.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>

#include <utility>

namespace Vela::UiBase {

using Resource::Styles;

namespace {

constexpr int margin = 12;      // px around the contents
constexpr int spacing = 10;     // px between title, panel and buttons
constexpr int cornerRadius = 6; // px, of a flyout that paints its own background

bool takesFocus(const QWidget& widget) { return widget.isEnabled() && (widget.focusPolicy() & Qt::TabFocus); }

/// The first that Tab reaches, or null.
QWidget* firstFocusable(QWidget* root) {
  if (takesFocus(*root))
    return root;
  for (QWidget* widget = root->nextInFocusChain(); widget && widget != root;
       widget = widget->nextInFocusChain()) {
    if (root->isAncestorOf(widget) && widget->isVisibleTo(root) && takesFocus(*widget))
      return widget;
  }
  return nullptr;
}

} // namespace

class FlyoutBasePrivate {
public:
  explicit FlyoutBasePrivate(FlyoutBase* owner) : q(owner), subWidgets(*owner) {}

  void build(QWidget* panel, bool apply, bool reset, bool cancel, bool close);
  QLayout* titleRow(bool close);
  QLayout* buttonRow(bool apply, bool reset, bool cancel);
  QPushButton* button(const QString& text, void (FlyoutBase::*action)());
  void dress();
  void updateEnabled();
  void giveFocusBack();
  void watchEscape();
  void forgetEscape();
  bool holdsFocus() const;
  bool paintsItself() const { return !qobject_cast<ArrowedWindow*>(q->parentWidget()); }

  FlyoutBase* const q;
  QLabel* title = nullptr;
  QPointer<QWidget> mainPanel;
  ContentScroller* scroller = nullptr; // null without a panel
  QSize sizeLimit = {QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
  QPointer<QWidget> toolButton;
  QPushButton* applyButton = nullptr; // null when there is none, like the next
  QPushButton* resetButton = nullptr;
  BusyIndicator* indicator = nullptr;
  bool applyEnabled = true;
  bool resetEnabled = true;
  FlyoutSubWidgets subWidgets;
  QRect partialBackground;
  QColor partialColor;
  bool busy = false;
  bool open = false;
  QPointer<QWidget> focusBefore;     // had the focus before the flyout was shown
  QPointer<QWidget> focusBeforeBusy; // in the flyout
  QPointer<QWidget> escapeTarget;    // has Escape held down
};

QPushButton* FlyoutBasePrivate::button(const QString& text, void (FlyoutBase::*action)()) {
  auto* const made = new QPushButton(text, q);
  made->setAutoDefault(true); // Return presses it while it has the focus
  QObject::connect(made, &QPushButton::clicked, q, action);
  return made;
}

QLayout* FlyoutBasePrivate::titleRow(bool close) {
  auto* const row = new QHBoxLayout;
  title = new QLabel(q);
  title->setObjectName(QStringLiteral("title_label"));
  row->addWidget(title, 1);
  if (close) {
    auto* const closeButton = new QToolButton(q);
    closeButton->setObjectName(QStringLiteral("close_button"));
    closeButton->setIcon(Resource::Icons::icon(QStringLiteral("close")));
    closeButton->setAccessibleName(FlyoutBase::tr("Close"));
    closeButton->setToolTip(FlyoutBase::tr("Close"));
    QObject::connect(closeButton, &QToolButton::clicked, q, &FlyoutBase::CloseMe);
    row->addWidget(closeButton);
  }
  return row;
}

QLayout* FlyoutBasePrivate::buttonRow(bool apply, bool reset, bool cancel) {
  auto* const row = new QHBoxLayout;
  if (reset)
    row->addWidget(resetButton = button(FlyoutBase::tr("Reset"), &FlyoutBase::Reset));
  indicator = new BusyIndicator(q);
  row->addStretch(1);
  row->addWidget(indicator);
  if (cancel)
    row->addWidget(button(FlyoutBase::tr("Cancel"), &FlyoutBase::Cancel));
  if (apply) {
    row->addWidget(applyButton = button(FlyoutBase::tr("Apply"), &FlyoutBase::Apply));
    applyButton->setDefault(true);
  }
  return row;
}

void FlyoutBasePrivate::build(QWidget* panel, bool apply, bool reset, bool cancel, bool close) {
  auto* const column = new QVBoxLayout(q);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(spacing);
  column->addLayout(titleRow(close));
  if (panel) {
    mainPanel = panel;
    scroller = new ContentScroller(q);
    scroller->setContent(panel);
    column->addWidget(scroller, 1);
  }
  column->addLayout(buttonRow(apply, reset, cancel));
}

void FlyoutBasePrivate::dress() {
  const Styles& styles = Styles::Instance();
  q->setStyleSheet(styles.DialogGeneral());
  if (auto* const closeButton = q->findChild<QToolButton*>(QStringLiteral("close_button")))
    closeButton->setStyleSheet(styles.ToolButtonSystemClose());
  QPalette palette = q->palette();
  palette.setColor(QPalette::Window, styles.ColorWindowBack());
  q->setPalette(palette);
}

void FlyoutBasePrivate::updateEnabled() {
  if (mainPanel)
    mainPanel->setEnabled(!busy);
  if (applyButton)
    applyButton->setEnabled(applyEnabled && !busy);
  if (resetButton)
    resetButton->setEnabled(resetEnabled && !busy);
}

void FlyoutBasePrivate::giveFocusBack() {
  const bool held = holdsFocus();
  if (QWidget* const before = std::exchange(focusBefore, nullptr); before && held)
    before->setFocus(Qt::OtherFocusReason);
}

void FlyoutBasePrivate::watchEscape() {
  forgetEscape();
  escapeTarget = QApplication::focusWidget() ? QApplication::focusWidget() : q;
  escapeTarget->installEventFilter(q);
}

void FlyoutBasePrivate::forgetEscape() {
  if (escapeTarget)
    escapeTarget->removeEventFilter(q);
  escapeTarget.clear();
}

bool FlyoutBasePrivate::holdsFocus() const {
  const QWidget* const focus = QApplication::focusWidget();
  return focus && (focus == q || q->isAncestorOf(focus));
}

FlyoutBase::FlyoutBase(const QString& title, QWidget* mainPanel, QWidget* toolButton, bool apply, bool reset,
                       bool cancel, bool close, QWidget* parent)
    : QWidget(parent), d(std::make_unique<FlyoutBasePrivate>(this)) {
  setProperty(Resource::String::WIDGET_PROPERTY_ISFLYOUT(), true);
  setFocusPolicy(Qt::ClickFocus);
  setMouseTracking(true);
  d->toolButton = toolButton;
  d->build(mainPanel, apply, reset, cancel, close);
  SetTitle(title);
  d->dress();
  connect(&Styles::Instance(), &Styles::changed, this, [this] { d->dress(); });
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

QWidget* FlyoutBase::ToolButton() const { return d->toolButton; }

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
  if (d->scroller && std::exchange(d->sizeLimit, limit) != limit)
    d->scroller->setLimitWithin(*layout(), limit);
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

bool FlyoutBase::IsBusy() const { return d->busy; }

// A control that is disabled would hand the focus to whatever comes next, even outside.
void FlyoutBase::SetBusy(bool busy) {
  if (d->busy == busy)
    return;
  d->busy = busy;
  if (busy && d->holdsFocus()) {
    d->focusBeforeBusy = QApplication::focusWidget();
    setFocus();
  }
  d->updateEnabled();
  d->indicator->setVisible(busy);
  if (busy) {
    Q_EMIT FlyoutBusy();
    return;
  }
  if (QWidget* const before = std::exchange(d->focusBeforeBusy, nullptr); before && hasFocus())
    before->setFocus();
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
  QWidget::showEvent(event);
  if (event->spontaneous())
    return;
  d->open = true;
  d->forgetEscape();
  d->subWidgets.follow();
  if (!d->holdsFocus()) {
    d->focusBefore = QApplication::focusWidget();
    QWidget* const control = d->mainPanel ? firstFocusable(d->mainPanel) : nullptr;
    // As if by Tab: fields select what they hold.
    (control ? control : this)->setFocus(Qt::TabFocusReason);
  }
}

// Before a window that hosts it goes and hands the focus on.
void FlyoutBase::setVisible(bool visible) {
  if (!visible && isVisible())
    d->giveFocusBack();
  QWidget::setVisible(visible);
}

void FlyoutBase::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (event->spontaneous())
    return;
  d->subWidgets.follow();
  d->giveFocusBack();
}

void FlyoutBase::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Q_EMIT FlyoutResized();
}

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
