// SPDX-License-Identifier: MIT
#include "m_dialog_base_p.h"

#include "busy_indicator.h"
#include "content_scroller.h"
#include "flyout_base.h"
#include "leading_label.h"
#include "own_button_text.h"

#include <vlk_common_res/styles.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>

#include <utility>

namespace Vela::UiBase {

using Resource::Styles;

namespace {

constexpr int margin = 20;      // px around title, content and buttons
constexpr int spacing = 14;     // px between them
constexpr int flyoutMargin = 0; // px around a flyout, which has a margin of its own

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

bool MDialogBasePrivate::isDismissing(QDialogButtonBox::ButtonRole role) {
  return role == QDialogButtonBox::RejectRole || role == QDialogButtonBox::NoRole;
}

void MDialogBasePrivate::build() {
  column = new QVBoxLayout(q);
  title = new LeadingLabel(q);
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

void MDialogBasePrivate::applyStyles() {
  const Styles& styles = Styles::Instance();
  const QPointer<QWidget> focused(q->focusWidget());
  q->setPalette(styles.widgetPalette());
  q->setStyleSheet(styles.DialogGeneral());
  // The box hides its buttons and shows them again when the style changes.
  if (focused && q->focusWidget() != focused)
    focused->setFocus(Qt::OtherFocusReason);
}

QPushButton* MDialogBasePrivate::button(const QString& text, QDialogButtonBox::ButtonRole role) {
  QPushButton* const made = box->addButton(text, role);
  if (busy && !isDismissing(role))
    hold(made);
  updateFrame();
  return made;
}

QPushButton* MDialogBasePrivate::ownButton(const char* text, QDialogButtonBox::ButtonRole role) {
  QPushButton* const made = button(QString(), role);
  keepOwnText(made, "Vela::UiBase::MDialogBase", text);
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
  const QSize available = q->screen()->availableSize() - windowFrame;
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

} // namespace Vela::UiBase
