// SPDX-License-Identifier: MIT
#include "flyout_base_p.h"

#include "busy_indicator.h"
#include "content_scroller.h"
#include "leading_label.h"
#include "own_button_text.h"

#include <ui_base/popups/m_dialog_base.h>
#include <vlk_common_res/icons.h>
#include <vlk_common_res/styles.h>

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

#include <utility>

namespace Vela::UiBase {

using Resource::Styles;

namespace {

constexpr int margin = 12;  // px around the contents
constexpr int spacing = 10; // px between title, panel and buttons

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

/// A dialog, or a group in the dialog whose content it is.
class FlyoutAccessible : public QAccessibleWidget {
public:
  explicit FlyoutAccessible(FlyoutBase* flyout) : QAccessibleWidget(flyout, QAccessible::Dialog) {}

  QAccessible::Role role() const override {
    const auto* const dialog = qobject_cast<const MDialogBase*>(flyout().window());
    return dialog && dialog->Flyout() == &flyout() ? QAccessible::Grouping : QAccessible::Dialog;
  }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.busy = flyout().IsBusy();
    return state;
  }

private:
  const FlyoutBase& flyout() const { return *static_cast<const FlyoutBase*>(widget()); }
};

QAccessibleInterface* makeInterface(const QString& className, QObject* object) {
  auto* const flyout =
      className == QLatin1String("Vela::UiBase::FlyoutBase") ? qobject_cast<FlyoutBase*>(object) : nullptr;
  return flyout ? new FlyoutAccessible(flyout) : nullptr;
}

} // namespace

void FlyoutBasePrivate::makeAccessible() {
  [[maybe_unused]] static const bool installed = (QAccessible::installFactory(makeInterface), true);
}

void FlyoutBasePrivate::announceBusy() const {
  QAccessible::State changed;
  changed.busy = true;
  QAccessibleStateChangeEvent event(q, changed);
  QAccessible::updateAccessibility(&event);
}

QPushButton* FlyoutBasePrivate::button(const char* text, void (FlyoutBase::*action)()) {
  auto* const made = new QPushButton(q);
  keepOwnText(made, "Vela::UiBase::FlyoutBase", text);
  made->setAutoDefault(true); // Return presses it while it has the focus
  QObject::connect(made, &QPushButton::clicked, q, action);
  return made;
}

QLayout* FlyoutBasePrivate::titleRow(bool close) {
  auto* const row = new QHBoxLayout;
  title = new LeadingLabel(q);
  title->setObjectName(QStringLiteral("title_label"));
  row->addWidget(title, 1);
  if (close) {
    auto* const closeButton = new QToolButton(q);
    closeButton->setObjectName(QStringLiteral("close_button"));
    closeButton->setIcon(Resource::Icons::icon(QStringLiteral("close")));
    keepTranslated(closeButton, [closeButton] {
      closeButton->setAccessibleName(FlyoutBase::tr("Close"));
      closeButton->setToolTip(FlyoutBase::tr("Close"));
    });
    QObject::connect(closeButton, &QToolButton::clicked, q, &FlyoutBase::CloseMe);
    row->addWidget(closeButton);
  }
  return row;
}

QLayout* FlyoutBasePrivate::buttonRow(PanelButtons buttons) {
  auto* const row = new QHBoxLayout;
  if (buttons & ResetButton)
    row->addWidget(resetButton =
                       button(QT_TRANSLATE_NOOP("Vela::UiBase::FlyoutBase", "Reset"), &FlyoutBase::Reset));
  indicator = new BusyIndicator(q);
  row->addStretch(1);
  row->addWidget(indicator);
  if (buttons & CancelButton)
    row->addWidget(button(QT_TRANSLATE_NOOP("Vela::UiBase::FlyoutBase", "Cancel"), &FlyoutBase::Cancel));
  if (buttons & ApplyButton) {
    row->addWidget(applyButton =
                       button(QT_TRANSLATE_NOOP("Vela::UiBase::FlyoutBase", "Apply"), &FlyoutBase::Apply));
    applyButton->setDefault(true);
    applyButton->setAutoDefault(false); // it would stay the default button only until the focus leaves it
  }
  return row;
}

void FlyoutBasePrivate::build(QWidget* panel, PanelButtons buttons) {
  auto* const column = new QVBoxLayout(q);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(spacing);
  column->addLayout(titleRow(buttons.testFlag(CloseButton)));
  if (panel) {
    mainPanel = panel;
    scroller = new ContentScroller(q);
    scroller->setContent(panel);
    column->addWidget(scroller, 1);
  }
  column->addLayout(buttonRow(buttons));
}

// A style sheet that the application has given it stays.
void FlyoutBasePrivate::ensureStyled() {
  if (!std::exchange(styled, true) && q->styleSheet().isEmpty())
    applyStyles();
}

void FlyoutBasePrivate::applyStyles() {
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

void FlyoutBasePrivate::giveFocusBack() { focus.giveBackFrom(*q); }

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

void FlyoutBasePrivate::takeFocus() {
  if (FocusKeeper::isIn(*q))
    return;
  focus.keep();
  QWidget* const control = mainPanel ? firstFocusable(mainPanel) : nullptr;
  (control ? control : q)->setFocus(Qt::TabFocusReason);
}

} // namespace Vela::UiBase
