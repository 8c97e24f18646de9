// SPDX-License-Identifier: MIT
#include "m_dialog_base.h"

#include "busy_indicator.h"
#include "content_scroller.h"
#include "flyout_base.h"
#include "m_dialog_base_p.h"

#include <vlk_common_res/styles.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

using Resource::Styles;

namespace {

bool isAccepting(QDialogButtonBox::ButtonRole role) {
  return role == QDialogButtonBox::AcceptRole || role == QDialogButtonBox::YesRole;
}

} // namespace

MDialogBase::MDialogBase(QWidget* parent) : QDialog(parent), d(std::make_unique<MDialogBasePrivate>(this)) {
  d->build();
  d->applyStyles();
  connect(&Styles::Instance(), &Styles::changed, this, [this] { d->applyStyles(); });
}

MDialogBase::MDialogBase(const QString& title, QWidget* content, bool apply, bool reset, bool cancel,
                         bool close, QWidget* parent)
    : MDialogBase(title, content, panelButtons(apply, reset, cancel, close), parent) {}

MDialogBase::MDialogBase(const QString& title, QWidget* content, PanelButtons buttons, QWidget* parent)
    : MDialogBase(parent) {
  SetTitle(title);
  SetContent(content);
  if (buttons & ApplyButton) {
    d->applyButton = d->ownButton(QT_TR_NOOP("Apply"), QDialogButtonBox::ApplyRole);
    connect(d->applyButton, &QPushButton::clicked, this, &MDialogBase::Apply);
    SetDefaultButton(d->applyButton);
  }
  if (buttons & ResetButton) {
    d->resetButton = d->ownButton(QT_TR_NOOP("Reset"), QDialogButtonBox::ResetRole);
    connect(d->resetButton, &QPushButton::clicked, this, &MDialogBase::Reset);
  }
  if (buttons & CancelButton)
    connect(d->ownButton(QT_TR_NOOP("Cancel"), QDialogButtonBox::RejectRole), &QPushButton::clicked, this,
            &MDialogBase::Cancel);
  if (buttons & CloseButton) {
    QPushButton* const closeButton = d->ownButton(QT_TR_NOOP("Close"), QDialogButtonBox::RejectRole);
    connect(closeButton, &QPushButton::clicked, this, &MDialogBase::CloseMe);
    if (!(buttons & ApplyButton))
      SetDefaultButton(closeButton);
  }
}

// The flyout closes when its content goes, after this has.
MDialogBase::~MDialogBase() {
  if (FlyoutBase* const flyout = Flyout())
    flyout->disconnect(this);
}

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
  else if (MDialogBasePrivate::isDismissing(role))
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
  resize(width(),
         std::min(std::max(height, needed), available.height() - MDialogBasePrivate::windowFrame.height()));
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
