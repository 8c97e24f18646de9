// SPDX-License-Identifier: MIT
#include "tooltip_ex.h"

#include <ui_base/tooltips/tooltip_manager.h>
#include <ui_base/tooltips/tooltip_picture.h>
#include <ui_base/tooltips/tooltip_text.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QTimer>

namespace Vela::UiBase {

namespace {

constexpr int BORDER = 8;
constexpr int SPACING = 6;
constexpr int TITLE_GAP = 16;

void setPart(QLabel* label, const QString& text) {
  TooltipText::setWrapped(label, text);
  label->setVisible(!text.isEmpty());
}

} // namespace

class TooltipExPrivate {
public:
  explicit TooltipExPrivate(TooltipEx* owner);

  void setAdvanced(QWidget* widget);
  void describe();
  void updateHint();

  TooltipEx* const tooltip;
  QVBoxLayout* const layout;
  QLabel* const title;
  QLabel* const shortcut;
  QLabel* const text;
  QLabel* const hint;
  QPointer<QWidget> advanced;
  QTimer unfoldTimer;
  bool unfolded = false;
};

TooltipExPrivate::TooltipExPrivate(TooltipEx* owner)
    : tooltip(owner),
      layout(new QVBoxLayout(owner)),
      title(new QLabel(owner)),
      shortcut(new QLabel(owner)),
      text(new QLabel(owner)),
      hint(new QLabel(owner)) {
  layout->setContentsMargins(BORDER, BORDER, BORDER, BORDER);
  layout->setSpacing(SPACING);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  auto* const head = new QHBoxLayout;
  head->setSpacing(TITLE_GAP);
  head->addWidget(title, 1);
  head->addWidget(shortcut);
  layout->addLayout(head);
  layout->addWidget(text);
  layout->addWidget(hint);
  title->setObjectName(QStringLiteral("tooltip_title"));
  shortcut->setObjectName(QStringLiteral("tooltip_shortcut"));
  hint->setObjectName(QStringLiteral("tooltip_hint"));
  for (QLabel* const label : {title, shortcut, text, hint})
    label->hide();
  unfoldTimer.setSingleShot(true);
  unfoldTimer.setInterval(TooltipManager::GetInstance().Times().unfold);
  QObject::connect(&unfoldTimer, &QTimer::timeout, owner, [owner] { owner->SetUnfolded(true); });
}

void TooltipExPrivate::setAdvanced(QWidget* widget) {
  if (widget == advanced || widget == tooltip)
    return;
  tooltip->SetUnfolded(false);
  delete advanced;
  advanced = widget;
  if (advanced) {
    layout->insertWidget(layout->indexOf(hint), advanced);
    advanced->hide();
  }
  updateHint();
}

void TooltipExPrivate::describe() {
  tooltip->setAccessibleName(tooltip->AccessibleText());
  tooltip->adjustSize();
}

void TooltipExPrivate::updateHint() {
  const bool more = advanced && !unfolded;
  if (more)
    setPart(hint, TooltipEx::tr("F1 shows more"));
  else
    setPart(hint, tooltip->HasHelp() ? TooltipEx::tr("F1 opens the help") : QString());
  tooltip->adjustSize();
}

TooltipEx::TooltipEx(const QString& title, const QString& text, QWidget* parent)
    : ATooltipEx(parent), d(std::make_unique<TooltipExPrivate>(this)) {
  ApplyLook();
  SetTitle(title);
  TooltipEx::SetText(text);
}

TooltipEx::~TooltipEx() = default;

QString TooltipEx::Title() const { return d->title->text(); }

void TooltipEx::SetTitle(const QString& title) {
  setPart(d->title, title);
  d->describe();
}

QString TooltipEx::Shortcut() const { return d->shortcut->text(); }

void TooltipEx::SetShortcut(const QString& shortcut) {
  setPart(d->shortcut, shortcut);
  d->describe();
}

QString TooltipEx::Text() const { return d->text->text(); }

void TooltipEx::SetText(const QString& text) {
  setPart(d->text, text);
  d->describe();
}

QString TooltipEx::AccessibleText() const {
  QStringList parts{TooltipText::plain(Title()), Shortcut(), TooltipText::plain(Text())};
  parts.removeAll(QString());
  return parts.join(QLatin1Char('\n'));
}

QWidget* TooltipEx::AdvancedWidget() const { return d->advanced; }

void TooltipEx::SetAdvancedWidget(QWidget* widget) { d->setAdvanced(widget); }

void TooltipEx::SetAdvancedPicture(const QIcon& picture, const QSize& size) {
  d->setAdvanced(picture.isNull() ? nullptr : new TooltipPicture(picture, size));
}

int TooltipEx::UnfoldTime() const { return d->unfoldTimer.interval(); }

void TooltipEx::SetUnfoldTime(int milliseconds) {
  if (milliseconds < 0)
    d->unfoldTimer.stop();
  d->unfoldTimer.setInterval(milliseconds);
}

bool TooltipEx::IsUnfolded() const { return d->unfolded; }

void TooltipEx::SetUnfolded(bool unfolded) {
  if (unfolded == d->unfolded || (unfolded && !d->advanced))
    return;
  d->unfoldTimer.stop();
  d->unfolded = unfolded;
  if (d->advanced)
    d->advanced->setVisible(unfolded);
  d->updateHint();
  Q_EMIT UnfoldedChanged(unfolded);
}

void TooltipEx::SetTooltipIndex(int index) {
  ATooltipEx::SetTooltipIndex(index);
  d->updateHint();
}

void TooltipEx::SetTooltipKeyword(const QString& keyword) {
  ATooltipEx::SetTooltipKeyword(keyword);
  d->updateHint();
}

bool TooltipEx::HandleHelpKey() {
  if (!d->advanced || d->unfolded)
    return ATooltipEx::HandleHelpKey();
  SetUnfolded(true);
  return true;
}

void TooltipEx::changeEvent(QEvent* event) {
  ATooltipEx::changeEvent(event);
  if (event->type() == QEvent::LanguageChange)
    d->updateHint();
}

void TooltipEx::enterEvent(QEnterEvent*) { SetUnfolded(true); }

void TooltipEx::hideEvent(QHideEvent*) {
  d->unfoldTimer.stop();
  SetUnfolded(false);
}

void TooltipEx::showEvent(QShowEvent*) {
  if (d->advanced && UnfoldTime() >= 0)
    d->unfoldTimer.start();
}

} // namespace Vela::UiBase
