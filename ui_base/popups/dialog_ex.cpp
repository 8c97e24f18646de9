// SPDX-License-Identifier: MIT
#include "dialog_ex.h"

#include "dialog_message.h"

#include <ui_base/core/language.h>
#include <vlk_app_service/application_service.h>
#include <vlk_app_service/config_manager.h>

#include <QAccessible>
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>

#include <utility>

namespace Vela::UiBase {

namespace {

Services::ConfigManager& config() { return Services::ApplicationService::GetInstance().GetConfigManager(); }

bool isRejecting(QDialogButtonBox::ButtonRole role) { return role == QDialogButtonBox::RejectRole; }

int resultOf(QDialogButtonBox::ButtonRole role) {
  const bool no = isRejecting(role) || role == QDialogButtonBox::NoRole;
  return no ? QDialog::Rejected : QDialog::Accepted;
}

} // namespace

class DialogExPrivate {
public:
  struct Named {
    QPointer<QPushButton> button;
    QString name;
    QDialogButtonBox::ButtonRole role;
  };

  explicit DialogExPrivate(DialogEx* owner) : q(owner) {}

  const Named* find(const QString& name) const;
  const Named* find(const QPushButton* button) const;
  QList<QPushButton*> buttonsWith(QDialogButtonBox::ButtonRole role) const;
  QPushButton* escape() const;
  void answer(QPushButton* button, QDialogButtonBox::ButtonRole role);
  bool answerFromMemory();
  void ensureButton();

  DialogEx* const q;
  DialogMessage* message = nullptr;
  QCheckBox* remember = nullptr;
  bool asksAsUsual = true; // in words of the library
  QString rememberKey;
  QList<Named> named;
  QString answerName;
  int foldedHeight = 0; // px, before the details were unfolded
};

const DialogExPrivate::Named* DialogExPrivate::find(const QString& name) const {
  for (const Named& candidate : named) {
    if (candidate.button && candidate.name == name)
      return &candidate;
  }
  return nullptr;
}

const DialogExPrivate::Named* DialogExPrivate::find(const QPushButton* button) const {
  for (const Named& candidate : named) {
    if (candidate.button == button)
      return &candidate;
  }
  return nullptr;
}

QList<QPushButton*> DialogExPrivate::buttonsWith(QDialogButtonBox::ButtonRole role) const {
  QList<QPushButton*> found;
  for (QPushButton* const button : q->Buttons()) {
    if (q->ButtonRole(button) == role)
      found.append(button);
  }
  return found;
}

// As desktops have it: what rejects, else the one that says no, else the only one.
QPushButton* DialogExPrivate::escape() const {
  if (const auto rejecting = buttonsWith(QDialogButtonBox::RejectRole); !rejecting.isEmpty())
    return rejecting.constFirst();
  if (const auto refusing = buttonsWith(QDialogButtonBox::NoRole); refusing.size() == 1)
    return refusing.constFirst();
  const QList<QPushButton*> all = q->Buttons();
  return all.size() == 1 ? all.constFirst() : nullptr;
}

void DialogExPrivate::answer(QPushButton* button, QDialogButtonBox::ButtonRole role) {
  const Named* const chosen = find(button);
  // One that was appended without a name answers with what it says, which is not for the settings.
  const QString unnamed =
      button->objectName().isEmpty() ? withoutMnemonic(button->text()) : button->objectName();
  answerName = chosen ? chosen->name : unnamed;
  if (chosen && !rememberKey.isEmpty() && remember->isChecked() && !isRejecting(role))
    config().setValue(rememberKey, chosen->name);
  if (isRejecting(role))
    q->MDialogBase::reject();
  else
    q->done(resultOf(role));
}

// An answer that is none of today's buttons was kept by another version of the application.
bool DialogExPrivate::answerFromMemory() {
  ensureButton();
  const Named* const remembered = find(DialogEx::RememberedAnswer(rememberKey));
  if (!remembered)
    return false;
  answerName = remembered->name;
  q->setResult(resultOf(remembered->role));
  return true;
}

void DialogExPrivate::ensureButton() {
  if (q->Buttons().isEmpty())
    q->AddNamedButton({QStringLiteral("ok"), DialogEx::tr("OK"), QDialogButtonBox::AcceptRole});
}

DialogEx::DialogEx(QWidget* parent) : MDialogBase(parent), d(std::make_unique<DialogExPrivate>(this)) {
  d->message = new DialogMessage;
  SetContent(d->message);
  connect(d->message, &DialogMessage::detailsToggled, this, &DialogEx::onDetailsToggled);
  d->remember = new QCheckBox(this);
  d->remember->hide();
  keepTranslated(this, [this] {
    if (d->asksAsUsual)
      d->remember->setText(tr("Do not ask again"));
  });
  AddFooter(d->remember);
}

DialogEx::DialogEx(EDialogSeverity severity, const QString& title, const QString& text, QWidget* parent)
    : DialogEx(parent) {
  SetTitle(title);
  SetSeverity(severity);
  SetText(text);
}

DialogEx::~DialogEx() = default;

EDialogSeverity DialogEx::Severity() const { return d->message->severity(); }

void DialogEx::SetSeverity(EDialogSeverity severity) { d->message->setSeverity(severity); }

QString DialogEx::Text() const { return d->message->text(); }

void DialogEx::SetText(const QString& text) {
  d->message->setText(text);
  setAccessibleDescription(d->message->spokenText());
}

QString DialogEx::InformativeText() const { return d->message->informativeText(); }

void DialogEx::SetInformativeText(const QString& text) {
  d->message->setInformativeText(text);
  setAccessibleDescription(d->message->spokenText());
}

QString DialogEx::Details() const { return d->message->details(); }

void DialogEx::SetDetails(const QString& details) { d->message->setDetails(details); }

bool DialogEx::AreDetailsShown() const { return d->message->areDetailsShown(); }

void DialogEx::ShowDetails(bool show) { d->message->showDetails(show); }

QPushButton* DialogEx::AddNamedButton(const SDialogButton& button) {
  QPushButton* const made = AddButton(button.text, button.role);
  made->setObjectName(button.name);
  d->named.append({made, button.name, button.role});
  return made;
}

void DialogEx::OnButtonClicked(QPushButton* button, QDialogButtonBox::ButtonRole role) {
  const bool closes = role == QDialogButtonBox::AcceptRole || role == QDialogButtonBox::YesRole ||
                      role == QDialogButtonBox::RejectRole || role == QDialogButtonBox::NoRole ||
                      role == QDialogButtonBox::DestructiveRole;
  if (closes || d->find(button))
    d->answer(button, role);
}

QPushButton* DialogEx::NamedButton(const QString& name) const {
  const DialogExPrivate::Named* const named = d->find(name);
  return named ? named->button.data() : nullptr;
}

QString DialogEx::Answer() const { return d->answerName; }

void DialogEx::SetRememberKey(const QString& key, const QString& text) {
  d->rememberKey = key;
  d->asksAsUsual = text.isEmpty();
  d->remember->setText(d->asksAsUsual ? tr("Do not ask again") : text);
  d->remember->setVisible(!key.isEmpty());
}

QString DialogEx::RememberedAnswer(const QString& key) {
  return key.isEmpty() ? QString() : config().value(key).toString();
}

void DialogEx::ForgetAnswer(const QString& key) { config().remove(key); }

QString DialogEx::Ask(QWidget* parent, EDialogSeverity severity, const QString& title, const QString& text,
                      const QList<SDialogButton>& buttons, const QString& rememberKey) {
  const QPointer<DialogEx> dialog(new DialogEx(severity, title, text, parent));
  for (const SDialogButton& button : buttons)
    dialog->AddNamedButton(button);
  dialog->SetRememberKey(rememberKey);
  dialog->exec();
  if (!dialog)
    return {};
  QString answer = dialog->Answer();
  delete dialog;
  return answer;
}

void DialogEx::setVisible(bool visible) {
  if (visible && !isVisible()) {
    d->ensureButton();
    d->answerName.clear();
    d->remember->setChecked(false);
    // The details come before the buttons but are not what the user is asked for.
    (DefaultButton() ? DefaultButton() : Buttons().constFirst())->setFocus();
  }
  MDialogBase::setVisible(visible);
}

void DialogEx::open() {
  if (!d->answerFromMemory()) {
    MDialogBase::open();
    return;
  }
  // Whoever opens a dialog expects to hear of its end later.
  QMetaObject::invokeMethod(
      this, [this] { MDialogBase::done(result()); }, Qt::QueuedConnection);
}

int DialogEx::exec() { return d->answerFromMemory() ? result() : MDialogBase::exec(); }

void DialogEx::reject() {
  QPushButton* const escape = d->escape();
  if (escape && escape->isEnabled())
    d->answer(escape, ButtonRole(escape));
}

void DialogEx::onDetailsToggled(bool shown) {
  if (!isVisible())
    return;
  if (shown)
    d->foldedHeight = height();
  ChangeHeight(shown ? height() : d->foldedHeight);
}

void DialogEx::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy))
    QGuiApplication::clipboard()->setText(Title() + QLatin1String("\n\n") + d->message->wholeText());
  else
    MDialogBase::keyPressEvent(event);
}

void DialogEx::showEvent(QShowEvent* event) {
  MDialogBase::showEvent(event);
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

} // namespace Vela::UiBase
