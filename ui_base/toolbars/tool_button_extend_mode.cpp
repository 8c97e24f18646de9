// SPDX-License-Identifier: MIT
#include "tool_button_with_button_menu.h"
#include "tool_button_with_button_menu_p.h"

#include <ui_base/core/live_pointer.h>

#include <utility>

namespace Vela::UiBase {

namespace {

// A bar still has a button that is being destroyed.
using Guarded = QList<LivePointer<ToolButton>>;

Guarded buttonsOf(const ToolBar* bar) {
  const QList<ToolButton*> all = bar ? bar->Buttons() : QList<ToolButton*>();
  return Guarded(all.cbegin(), all.cend());
}

} // namespace

// --- what it has to do with the other buttons

void ToolButtonWithButtonMenuPrivate::controlSubButtons() {
  const Guarded subs = extendModeEnabled ? buttonsOf(subToolBar()) : Guarded();
  for (const LivePointer<ToolButton>& each : subs) {
    if (auto* const sub = qobject_cast<ToolButtonWithWidgetMenu*>(each.data()))
      sub->SetExtendController(button);
  }
}

void ToolButtonWithButtonMenuPrivate::letSubButtonsGo() {
  const Guarded subs = buttonsOf(subToolBar());
  for (const LivePointer<ToolButton>& each : subs) {
    auto* const sub = qobject_cast<ToolButtonWithWidgetMenu*>(each.data());
    if (sub && sub->ExtendController() == button)
      sub->SetExtendController(nullptr);
  }
}

void ToolButtonWithButtonMenuPrivate::lockOthers(bool lock) {
  const Guarded others = buttonsOf(liveToolBar());
  for (const LivePointer<ToolButton>& other : others) {
    if (!other || other == button)
      continue;
    other->d->lockForExtendMode(lock);
    if (!lock)
      other->UpdateLicenseLock();
  }
}

void ToolButtonWithButtonMenuPrivate::showSubIcon(const QIcon& icon) {
  subIcon = icon;
  if (!icon.isNull())
    button->setIcon(icon);
}

// --- entering and leaving

void ToolButtonWithButtonMenu::SetExtendMode(bool extend) {
  if (!GetMenu())
    return;
  const QPointer<ToolButtonWithButtonMenu> self(this);
  own()->extendModeEnabled = extend;
  if (!extend && IsInExtendMode())
    OnExitExtendMode();
  if (!self)
    return;
  own()->controlSubButtons();
  if (extend)
    return;
  const Guarded subs = buttonsOf(GetMenu());
  for (const LivePointer<ToolButton>& each : subs) {
    if (auto* const sub = qobject_cast<ToolButtonWithWidgetMenu*>(each.data()))
      sub->SetExtendController(nullptr); // whosever it is
  }
}

bool ToolButtonWithButtonMenu::IsExtendModeEnabled() const { return own()->extendModeEnabled; }

bool ToolButtonWithButtonMenu::IsInExtendMode() const {
  return own()->extend != ToolButtonWithButtonMenuPrivate::NotExtended;
}

ToolButton* ToolButtonWithButtonMenu::ExtendedButton() const { return own()->extendedButton; }

void ToolButtonWithButtonMenu::OnEnterExtendMode(ToolButton* button) {
  using State = ToolButtonWithButtonMenuPrivate;
  if (!button || own()->extend == State::LeavingExtended)
    return;
  if (own()->extend == State::Extended && own()->extendedButton == button)
    return;
  const QPointer<ToolButtonWithButtonMenu> self(this);
  const QPointer<ToolButton> sub(button);
  if (IsInExtendMode())
    OnExitExtendMode();
  if (!self || !sub)
    return;
  own()->extend = State::Extended; // the button stays checked while its menu goes
  RecordExtendedButton(sub);
  d->adoptIcon();
  own()->ownIcon = d->source;
  sub->d->adoptIcon();
  own()->showSubIcon(sub->d->source);
  HideMenu();
  if (!self || own()->extend != State::Extended)
    return;
  own()->lockOthers(true);
  for (const LivePointer<ToolButton>& each : buttonsOf(GetMenu())) {
    if (each)
      each->EnableTooltip(false);
  }
  own()->rebuildArrow();
  if (isCheckable())
    setChecked(true);
}

void ToolButtonWithButtonMenu::RecordExtendedButton(ToolButton* button) {
  disconnect(own()->extendedDeath);
  own()->extendedButton = button;
  own()->extendController = qobject_cast<ToolButtonWithWidgetMenu*>(button);
  own()->extendedDeath = connect(button, &QObject::destroyed, this, [this] {
    own()->extendedButton.clear();
    own()->extendController.clear();
    OnExitExtendMode();
  });
  EnableTooltip(false);
}

void ToolButtonWithButtonMenu::OnExitExtendMode() {
  using State = ToolButtonWithButtonMenuPrivate;
  if (own()->extend == State::LeavingExtended)
    return; // from one of those who are told
  const QPointer<ToolButtonWithButtonMenu> self(this);
  const bool wasExtended = own()->extend == State::Extended;
  if (wasExtended) {
    own()->extend = State::LeavingExtended;
    own()->noteClosing();
    own()->endStandingIn();
  }
  if (self && isCheckable() && !d->dying)
    setChecked(false);
  if (!self)
    return;
  own()->extend = State::NotExtended;
  own()->rebuildArrow();
  if (wasExtended && own()->clearSelectionOnHide)
    own()->clearSelection();
  if (self && wasExtended)
    Q_EMIT ButtonMenuCleared();
}

void ToolButtonWithButtonMenuPrivate::endStandingIn() {
  auto* const self = static_cast<ToolButtonWithButtonMenu*>(button);
  const QPointer<ToolButtonWithButtonMenu> guard(self);
  QObject::disconnect(extendedDeath);
  lockOthers(false);
  subIcon = QIcon();
  self->setIcon(ownIcon);
  self->IconState(self->Hovered());
  self->EnableTooltip(true);
  const Guarded subs = buttonsOf(subToolBar());
  for (const LivePointer<ToolButton>& each : subs) {
    if (each)
      each->EnableTooltip(true);
  }
  if (ToolButtonWithWidgetMenu* const opener = extendController)
    opener->HideMenu();
  if (!guard)
    return;
  extendController.clear();
  extendedButton.clear();
}

} // namespace Vela::UiBase
