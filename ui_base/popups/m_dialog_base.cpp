// SPDX-License-Identifier: MIT
#include "m_dialog_base.h"

#include "busy_indicator.h"
#include "content_scroller.h"
#include "flyout_base.h"

#include <vlk_common_res/styles.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

using Resource::Styles;

namespace {

constexpr int margin = 20;      // px around title, content and buttons
constexpr int spacing = 14;     // px between them
constexpr int flyoutMargin = 0; // px around a flyout, which has a margin of its own
constexpr int windowFrame = 40; // px that the desktop may need for the title bar of the window

bool isDismissing(QDialogButtonBox::ButtonRole role) {
  return role == QDialogButtonBox::RejectRole || role == QDialogButtonBox::NoRole;
}

bool isAccepting(QDialogButtonBox::ButtonRole role) {
  return role == QDialogButtonBox::AcceptRole || role == QDialogButtonBox::YesRole;
}

/// The first that Tab reaches, in the order of the focus chain; a widget that hands the focus on counts
/// itself.
QWidget* firstControl(QWidget* root) {
  const auto takesFocus = [](const QWidget* widget) {
    return widget->isEnabled() && !widget->isHidden() && (widget->focusPolicy() & Qt::TabFocus);
  };
  if (root->focusProxy() || takesFocus(root))
    return root;
  for (QWidget* widget = root->nextInFocusChain(); widget && widget != root;
       widget = widget->nextInFocusChain()) {
    if (root->isAncestorOf(widget) && widget->isVisibleTo(root) && takesFocus(widget))
      return widget;
  }
  return nullptr;
}

} // namespace

class MDialogBasePrivate {
public:
  explicit MDialogBasePrivate(MDialogBase* owner) : q(owner) {}

  void build();
  void dress();
  QPushButton* button(const QString& text, QDialogButtonBox::ButtonRole role);
  bool isEnabledWhenIdle(const QPushButton* which) const;
  void enable(QPushButton* which, bool on);
  void hold(QWidget* widget);
  void beginBusy();
  void endBusy();
  void fitTheScreen();
  void updateLayouts();
  void focusFirst();
  void giveFocusBack();
  void host(FlyoutBase* flyout);
  void updateFrame();

  MDialogBase* const q;
  QVBoxLayout* column = nullptr;
  QLabel* title = nullptr;
  ContentScroller* scroller = nullptr;
  QHBoxLayout* footer = nullptr;
  QDialogButtonBox* box = nullptr;
  BusyIndicator* indicator = nullptr;
  QList<QPointer<QPushButton>> added;
  QPushButton* applyButton = nullptr; // null when there is none, like the next
  QPushButton* resetButton = nullptr;
  QPointer<QPushButton> defaultButton;
  QPointer<QWidget> content;
  QPointer<QWidget> toolButton;
  QPointer<QWidget> focusBefore;     // had the focus before the dialog was shown
  QPointer<QWidget> focusBeforeBusy; // in the dialog
  QList<QPointer<QWidget>> held;     // disabled while busy, enabled again after
  bool busy = false;
  bool cancelling = false;
  bool cancelled = false; // by the flyout
  bool closing = false;
};

void MDialogBasePrivate::build() {
  column = new QVBoxLayout(q);
  title = new QLabel(q);
  title->setObjectName(QStringLiteral("title_label"));
  title->setTextFormat(Qt::PlainText);
  title->setWordWrap(true);
  scroller = new ContentScroller(q);
  footer = new QHBoxLayout;
  footer->setSpacing(spacing);
  indicator = new BusyIndicator(q);
  box = new QDialogButtonBox(q);
  footer->addStretch(1);
  footer->addWidget(indicator);
  footer->addWidget(box);
  column->addWidget(title);
  column->addWidget(scroller, 1);
  column->addLayout(footer);
  updateFrame();
}

void MDialogBasePrivate::updateFrame() {
  const int around = q->Flyout() ? flyoutMargin : margin;
  const bool hasButtons = !box->buttons().isEmpty();
  column->setContentsMargins(around, around, around, around);
  column->setSpacing(spacing);
  title->setVisible(!q->Flyout() && !title->text().isEmpty());
  box->setVisible(hasButtons);
  // A flyout shows itself that it works.
  QSizePolicy policy = indicator->sizePolicy();
  policy.setRetainSizeWhenHidden(hasButtons);
  indicator->setSizePolicy(policy);
}

void MDialogBasePrivate::dress() {
  const Styles& styles = Styles::Instance();
  q->setPalette(styles.widgetPalette());
  q->setStyleSheet(styles.DialogGeneral());
}

QPushButton* MDialogBasePrivate::button(const QString& text, QDialogButtonBox::ButtonRole role) {
  QPushButton* const made = box->addButton(text, role);
  if (busy && !isDismissing(role))
    hold(made);
  updateFrame();
  return made;
}

bool MDialogBasePrivate::isEnabledWhenIdle(const QPushButton* which) const {
  return which && (which->isEnabled() || held.contains(which));
}

void MDialogBasePrivate::enable(QPushButton* which, bool on) {
  if (!which)
    return;
  if (!busy)
    which->setEnabled(on);
  else if (!on)
    held.removeAll(which);
  else if (!held.contains(which))
    held.append(which);
}

void MDialogBasePrivate::hold(QWidget* widget) {
  if (!widget->isEnabled())
    return;
  widget->setEnabled(false);
  held.append(widget);
}

// Sizes are asked for before the first event loop turn brings style sheets and nested layouts up to date.
void MDialogBasePrivate::updateLayouts() {
  const QList<QWidget*> widgets = q->findChildren<QWidget*>();
  for (auto widget = widgets.crbegin(); widget != widgets.crend(); ++widget) {
    (*widget)->ensurePolished();
    if (QLayout* const layout = (*widget)->layout())
      layout->activate();
  }
  scroller->updateGeometry();
}

// The controls come first in a form, whatever the order in which they were made.
void MDialogBasePrivate::focusFirst() {
  if (q->focusWidget())
    return;
  QWidget* const root = q->Flyout() && q->Flyout()->MainPanel() ? q->Flyout()->MainPanel() : content.data();
  QWidget* const control = root ? firstControl(root) : nullptr;
  if (control)
    control->setFocus();
  else if (defaultButton)
    defaultButton->setFocus();
}

// What surrounds the content keeps its size, so the content gets what the screen leaves.
void MDialogBasePrivate::fitTheScreen() {
  updateLayouts();
  const QSize available = q->screen()->availableSize() - QSize(0, windowFrame);
  scroller->setLimitWithin(*column, available);
  if (q->testAttribute(Qt::WA_Resized))
    q->resize(q->size().boundedTo(available));
}

void MDialogBasePrivate::giveFocusBack() {
  QWidget* const before = std::exchange(focusBefore, nullptr);
  if (!before || !before->isVisible() || !before->isEnabled())
    return;
  before->activateWindow();
  before->setFocus(Qt::OtherFocusReason);
}

// A control that is disabled would hand the focus to the next one that is not: the button that dismisses.
void MDialogBasePrivate::beginBusy() {
  if ((focusBeforeBusy = q->focusWidget()))
    q->setFocus();
  if (content && !q->Flyout())
    hold(content);
  const QList<QAbstractButton*> buttons = box->buttons();
  for (QAbstractButton* const made : buttons) {
    if (!isDismissing(box->buttonRole(made)))
      hold(made);
  }
}

void MDialogBasePrivate::endBusy() {
  const QList<QPointer<QWidget>> waiting = std::exchange(held, {});
  for (const QPointer<QWidget>& widget : waiting) {
    if (widget)
      widget->setEnabled(true);
  }
  if (QWidget* const before = std::exchange(focusBeforeBusy, nullptr); before && q->focusWidget() == q)
    before->setFocus();
}

void MDialogBasePrivate::host(FlyoutBase* flyout) {
  QObject::connect(flyout, &FlyoutBase::ApplyChanges, q, &MDialogBase::ApplyChanges);
  QObject::connect(flyout, &FlyoutBase::ResetValues, q, &MDialogBase::ResetValues);
  QObject::connect(flyout, &FlyoutBase::CancelChanges, q, [this] {
    cancelled = true;
    Q_EMIT q->CancelChanges();
  });
  // While it is busy it only announces the key.
  QObject::connect(flyout, &FlyoutBase::ESCKeyReleased, q, [this] {
    if (q->IsBusy())
      q->reject();
  });
  QObject::connect(flyout, &FlyoutBase::CloseFlyout, q,
                   [this] { q->done(cancelled ? QDialog::Rejected : QDialog::Accepted); });
  if (!flyout->Title().isEmpty())
    q->SetTitle(flyout->Title());
  const QList<QPushButton*> buttons = flyout->findChildren<QPushButton*>();
  for (QPushButton* const made : buttons) {
    if (made->isDefault())
      q->SetDefaultButton(made);
  }
}

MDialogBase::MDialogBase(QWidget* parent) : QDialog(parent), d(std::make_unique<MDialogBasePrivate>(this)) {
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  d->build();
  d->dress();
  connect(&Styles::Instance(), &Styles::changed, this, [this] { d->dress(); });
}

MDialogBase::MDialogBase(const QString& title, QWidget* content, bool apply, bool reset, bool cancel,
                         bool close, QWidget* parent)
    : MDialogBase(parent) {
  SetTitle(title);
  SetContent(content);
  if (apply) {
    d->applyButton = d->button(tr("Apply"), QDialogButtonBox::ApplyRole);
    connect(d->applyButton, &QPushButton::clicked, this, &MDialogBase::Apply);
    SetDefaultButton(d->applyButton);
  }
  if (reset) {
    d->resetButton = d->button(tr("Reset"), QDialogButtonBox::ResetRole);
    connect(d->resetButton, &QPushButton::clicked, this, &MDialogBase::Reset);
  }
  if (cancel)
    connect(d->button(tr("Cancel"), QDialogButtonBox::RejectRole), &QPushButton::clicked, this,
            &MDialogBase::Cancel);
  if (close) {
    QPushButton* const closeButton = d->button(tr("Close"), QDialogButtonBox::RejectRole);
    connect(closeButton, &QPushButton::clicked, this, &MDialogBase::CloseMe);
    if (!apply)
      SetDefaultButton(closeButton);
  }
}

MDialogBase::~MDialogBase() = default;

QString MDialogBase::Title() const { return d->title->text(); }

void MDialogBase::SetTitle(const QString& title) {
  d->title->setText(title);
  setWindowTitle(title);
  setAccessibleName(title);
  d->updateFrame();
}

void MDialogBase::SetApplyText(const QString& text) {
  if (d->applyButton)
    d->applyButton->setText(text);
}

QWidget* MDialogBase::Content() const { return d->content; }

void MDialogBase::SetContent(QWidget* content) {
  if (!content || content == d->content)
    return;
  d->content = content;
  d->scroller->setContent(content);
  if (FlyoutBase* const flyout = Flyout())
    d->host(flyout);
  if (d->busy)
    d->hold(content);
  d->updateFrame();
}

FlyoutBase* MDialogBase::Flyout() const { return qobject_cast<FlyoutBase*>(d->content.data()); }

QWidget* MDialogBase::ToolButton() const { return d->toolButton; }

void MDialogBase::SetToolButton(QWidget* button) { d->toolButton = button; }

void MDialogBase::AddFooter(QWidget* widget) { d->footer->insertWidget(0, widget); }

QPushButton* MDialogBase::AddButton(const QString& text, QDialogButtonBox::ButtonRole role) {
  QPushButton* const made = d->button(text, role);
  d->added.append(made);
  connect(made, &QPushButton::clicked, this, [this, made, role] { OnButtonClicked(made, role); });
  if (isAccepting(role) && !d->defaultButton)
    SetDefaultButton(made);
  return made;
}

void MDialogBase::OnButtonClicked(QPushButton*, QDialogButtonBox::ButtonRole role) {
  if (isAccepting(role))
    accept();
  else if (isDismissing(role))
    reject();
}

QDialogButtonBox::ButtonRole MDialogBase::ButtonRole(QPushButton* button) const {
  return d->box->buttonRole(button);
}

QList<QPushButton*> MDialogBase::Buttons() const {
  QList<QPushButton*> alive;
  for (const QPointer<QPushButton>& button : std::as_const(d->added)) {
    if (button)
      alive.append(button);
  }
  return alive;
}

QPushButton* MDialogBase::DefaultButton() const { return d->defaultButton; }

void MDialogBase::SetDefaultButton(QPushButton* button) {
  d->defaultButton = button;
  if (!button)
    return;
  // One that was the default before it came into the dialog would not tell the dialog.
  button->setDefault(false);
  button->setDefault(true);
}

bool MDialogBase::IsApplyButtonEnabled() const { return d->isEnabledWhenIdle(d->applyButton); }

bool MDialogBase::IsResetButtonEnabled() const { return d->isEnabledWhenIdle(d->resetButton); }

void MDialogBase::EnableApplyButton(bool enable) { d->enable(d->applyButton, enable); }

void MDialogBase::EnableResetButton(bool enable) { d->enable(d->resetButton, enable); }

bool MDialogBase::IsBusy() const { return d->busy || (Flyout() && Flyout()->IsBusy()); }

void MDialogBase::SetBusy(bool busy) {
  if (FlyoutBase* const flyout = Flyout())
    flyout->SetBusy(busy);
  if (d->busy == busy)
    return;
  d->busy = busy;
  d->indicator->setVisible(busy && !Flyout());
  if (busy)
    d->beginBusy();
  else
    d->endBusy();
}

void MDialogBase::ChangeHeight(int height) {
  d->updateLayouts();
  d->column->invalidate();
  d->column->activate();
  const QRect available = screen()->availableGeometry();
  const int needed = d->column->hasHeightForWidth() ? d->column->totalHeightForWidth(width())
                                                    : d->column->totalSizeHint().height();
  resize(width(), std::min(std::max(height, needed), available.height() - windowFrame));
  const int below = geometry().bottom() - available.bottom();
  if (below > 0)
    move(x(), y() - below);
}

void MDialogBase::setVisible(bool visible) {
  if (visible == isVisible()) {
    QDialog::setVisible(visible);
    return;
  }
  if (visible) {
    d->focusBefore = QApplication::focusWidget();
    d->cancelled = false;
    if (Flyout())
      Flyout()->show();
    d->fitTheScreen();
    d->focusFirst();
    QDialog::setVisible(true);
    return;
  }
  const bool active = isActiveWindow();
  const QPointer<MDialogBase> self(this);
  QDialog::setVisible(false);
  if (self && active)
    d->giveFocusBack();
}

void MDialogBase::Apply() {
  if (d->applyButton && d->applyButton->isEnabled())
    Q_EMIT ApplyChanges();
}

void MDialogBase::Reset() {
  if (d->resetButton && d->resetButton->isEnabled())
    Q_EMIT ResetValues();
}

void MDialogBase::Cancel() { reject(); }

void MDialogBase::CloseMe() {
  if (isVisible())
    done(QDialog::Accepted);
}

void MDialogBase::reject() {
  if (d->closing || d->cancelling)
    return;
  if (!isVisible()) {
    done(QDialog::Rejected);
    return;
  }
  const QPointer<MDialogBase> self(this);
  d->cancelling = true;
  if (Flyout() && Flyout()->isVisible())
    Flyout()->Cancel(); // closes both
  else
    Q_EMIT CancelChanges();
  if (!self)
    return;
  d->cancelling = false;
  if (isVisible())
    done(QDialog::Rejected);
}

void MDialogBase::done(int result) {
  if (std::exchange(d->closing, true))
    return;
  const QPointer<MDialogBase> self(this);
  if (isVisible()) {
    Q_EMIT CloseFlyout();
    if (self && Flyout())
      Flyout()->CloseMe();
  }
  if (!self)
    return;
  QDialog::done(result);
  if (self)
    d->closing = false;
}

} // namespace Vela::UiBase
