// SPDX-License-Identifier: MIT
#include "command_palette.h"

#include "command_palette_p.h"

#include <ui_base/commands/cmd_mgr.h>
#include <ui_base/core/language.h>
#include <vlk_common_res/styles.h>

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QPainter>

namespace Vela::UiBase {

using Vela::Resource::Styles;

CommandPalette::CommandPalette(QWidget* parent)
    : QWidget(parent), d(std::make_unique<CommandPalettePrivate>(*this)) {
  hide();
  keepTranslated(this, [this] {
    setAccessibleName(tr("Find a command"));
    d->openAction->setText(tr("Find Command…"));
    dismiss(); // its rows are of the language before
  });
  if (parent)
    parent->addAction(d->openAction);
  connect(d->openAction, &QAction::triggered, this, &CommandPalette::open);
}

CommandPalette::~CommandPalette() = default;

void CommandPalette::addManager(CmdMgr* manager, EOffer offer) {
  if (manager)
    d->managers.append({manager->shared_from_this(), offer});
}

void CommandPalette::removeManager(const CmdMgr* manager) {
  d->managers.removeIf([&](const auto& known) { return known.manager.lock().get() == manager; });
}

QAction* CommandPalette::openAction() const { return d->openAction; }

CommandUsage& CommandPalette::usage() const { return d->usage; }

CommandBase* CommandPalette::awaitedCommand() const { return d->awaited ? d->awaited->command() : nullptr; }

QSize CommandPalette::sizeHint() const { return {560, 320}; }

void CommandPalette::open() {
  if (isVisible() || !parentWidget() || !parentWidget()->isVisible())
    return;
  d->build();
  d->focusBefore = window()->focusWidget();
  d->model.setManagers(d->managersToOffer());
  const QSignalBlocker quiet(d->field);
  d->field->clear();
  d->search();
  d->place();
  show();
  raise();
  d->field->setFocus(Qt::ShortcutFocusReason);
  qApp->installEventFilter(this);
}

void CommandPalette::dismiss() { hide(); }

bool CommandPalette::event(QEvent* event) {
  // Keys that the field does not want stop here.
  if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
    event->accept();
    return true;
  }
  return QWidget::event(event);
}

bool CommandPalette::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  if (watched == parent() && type == QEvent::Resize)
    d->place();
  if (watched == d->field && type == QEvent::ShortcutOverride) {
    event->accept(); // a wrong key runs nothing
    return true;
  }
  if (watched == d->field && type == QEvent::KeyPress)
    return d->handleKey(static_cast<QKeyEvent&>(*event));
  if (watched == d->field && type == QEvent::FocusOut)
    QMetaObject::invokeMethod(
        this, [this] { d->closeIfLeft(); }, Qt::QueuedConnection);
  const auto* const pressed = type == QEvent::MouseButtonPress ? qobject_cast<QWidget*>(watched) : nullptr;
  if (pressed && pressed->window() == window() && pressed != this && !isAncestorOf(pressed))
    dismiss();
  return QWidget::eventFilter(watched, event);
}

void CommandPalette::hideEvent(QHideEvent* event) {
  if (event->spontaneous())
    return; // the window is minimised
  hide();   // also when its parent is hidden
  qApp->removeEventFilter(this);
  const QPointer<QWidget> before = std::exchange(d->focusBefore, nullptr);
  const QWidget* const now = window()->focusWidget();
  if (before && before->isVisible() && before->isEnabled() && (!now || now == this || isAncestorOf(now)))
    before->setFocus(Qt::OtherFocusReason);
}

void CommandPalette::paintEvent(QPaintEvent*) {
  const auto& styles = Styles::Instance();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(styles.ColorActionPanelBorder());
  painter.setBrush(styles.ColorWindowBack());
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
}

} // namespace Vela::UiBase
