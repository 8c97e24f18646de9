// SPDX-License-Identifier: MIT
#include "command_palette_p.h"

#include "command_palette_delegate.h"
#include "readable_placeholder.h"

#include <ui_base/commands/command_name.h>
#include <ui_base/core/language.h>
#include <ui_base/views/base_view.h>
#include <ui_base/views/cmds_view_controller.h>
#include <vlk_common_res/styles.h>

#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace Vela::UiBase {

namespace {

constexpr int distance = 16;     // px, from the edges of the parent
constexpr int noticeTime = 5000; // ms

bool isInSight(const CmdMgr& manager) {
  const auto* const controller = dynamic_cast<const CmdsViewController*>(&manager);
  return !controller || (controller->getView() && controller->getView()->isVisible());
}

} // namespace

CommandPalettePrivate::CommandPalettePrivate(CommandPalette& palette)
    : q(palette), openAction(new QAction(&palette)) {}

void CommandPalettePrivate::build() {
  if (field)
    return;
  field = new QLineEdit(&q);
  list = new QListView(&q);
  nothing = new QLabel(&q);
  list->setModel(&model);
  list->setItemDelegate(new CommandPaletteDelegate(list));
  list->setUniformItemSizes(true);
  list->setFocusPolicy(Qt::NoFocus);
  list->setFrameShape(QFrame::NoFrame);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  nothing->setAlignment(Qt::AlignCenter);
  nothing->setWordWrap(true);

  auto* const layout = new QVBoxLayout(&q);
  layout->setContentsMargins(8, 8, 8, 8);
  layout->setSpacing(8);
  layout->addWidget(field);
  layout->addWidget(list, 1);
  layout->addWidget(nothing, 1);

  QObject::connect(field, &QLineEdit::textChanged, &q, [this] { search(); });
  const auto chooseClicked = [this] { choose(list->currentIndex()); };
  QObject::connect(list, &QListView::clicked, &q, chooseClicked, Qt::QueuedConnection);
  keepTranslated(&q, [this] { retranslate(); });
  QObject::connect(&Vela::Resource::Styles::Instance(), &Vela::Resource::Styles::changed, &q,
                   [this] { applyStyles(); });
  applyStyles();
}

void CommandPalettePrivate::retranslate() {
  field->setPlaceholderText(CommandPalette::tr("Find a command"));
  field->setAccessibleName(CommandPalette::tr("Name of the command"));
  list->setAccessibleName(CommandPalette::tr("Commands found"));
}

void CommandPalettePrivate::applyStyles() {
  const auto& styles = Vela::Resource::Styles::Instance();
  q.setPalette(styles.widgetPalette());
  q.setFont(styles.FontLabel());
  field->setStyleSheet(styles.DialogGeneral());
  makePlaceholderReadable(*field);
  q.update();
}

void CommandPalettePrivate::place() {
  const QRect room = q.parentWidget()->rect().adjusted(distance, distance, -distance, -distance);
  QRect place(QPoint(), q.sizeHint().boundedTo(room.size()).expandedTo(q.minimumSizeHint()));
  place.moveCenter(q.parentWidget()->rect().center());
  q.setGeometry(place);
}

QList<std::shared_ptr<CmdMgr>> CommandPalettePrivate::managersToOffer() const {
  QList<std::shared_ptr<CmdMgr>> toOffer;
  for (const Offered& known : managers) {
    const auto manager = known.manager.lock();
    if (manager && (known.offer == OfferAlways || isInSight(*manager)))
      toOffer.append(manager);
  }
  return toOffer;
}

void CommandPalettePrivate::search() {
  model.showCommands(field->text(), usage);
  showNothingFound();
  chooseRow(0);
}

void CommandPalettePrivate::showNothingFound() {
  const bool isEmpty = model.rowCount() == 0;
  nothing->setText(CommandPalette::tr("No command is called like that."));
  nothing->setVisible(isEmpty);
  list->setVisible(!isEmpty);
}

void CommandPalettePrivate::choose(const QModelIndex& index) {
  if (!index.isValid())
    return;
  const auto command = model.commandAt(index.row());
  const auto manager = model.managerAt(index.row());
  if (!command || !manager)
    q.dismiss();
  else if (model.showsWaysOut())
    take(model.wayAt(index.row()), command, manager);
  else if (command->isEnabled())
    run(command);
  else
    offerWaysOut(index.row(), *command, *manager);
}

/// When the key or click is over, so that the command finds the window as it was before.
void CommandPalettePrivate::run(const std::shared_ptr<CommandBase>& command) {
  q.dismiss();
  usage.note(command->commandId());
  const std::weak_ptr<CommandBase> weak = command;
  const auto trigger = [weak] {
    if (const auto chosen = weak.lock(); chosen && chosen->isEnabled())
      chosen->trigger();
  };
  QMetaObject::invokeMethod(command.get(), trigger, Qt::QueuedConnection);
}

void CommandPalettePrivate::offerWaysOut(int row, CommandBase& command, const CmdMgr& manager) {
  QList<WayOut> ways = waysOut(manager, command);
  if (awaited && awaited->command() == &command) {
    ways.removeIf([](const WayOut& way) { return way.kind == WayOut::RunWhenFree; });
    ways.append(
        {WayOut::CallOff, {}, CommandPalette::tr("Do not run \"%1\" any more").arg(nameInSentence(command))});
  }
  if (ways.isEmpty())
    return;
  model.showWaysOut(row, ways);
  chooseRow(0);
}

void CommandPalettePrivate::take(const WayOut& way, const std::shared_ptr<CommandBase>& command,
                                 const std::shared_ptr<CmdMgr>& manager) {
  const WayOut chosen = way; // closing it forgets the rows
  q.dismiss();
  switch (chosen.kind) {
  case WayOut::RunWhenFree:
    await(command);
    break;
  case WayOut::CallOff:
    if (awaited)
      awaited->cancel();
    break;
  default:
    takeWayOut(chosen, *manager);
    break;
  }
}

void CommandPalettePrivate::await(const std::shared_ptr<CommandBase>& command) {
  if (awaited)
    awaited->cancel();
  awaited = new DeferredRun(command, &q);
  usage.note(command->commandId());
  if (auto* const controller = command->getViewController()) {
    const QString message = CommandPalette::tr("\"%1\" runs as soon as it is available.");
    controller->showNotification(message.arg(nameInSentence(*command)), FadeInAndOut, noticeTime, true);
  }
}

bool CommandPalettePrivate::handleKey(const QKeyEvent& key) {
  switch (key.key()) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
    choose(list->currentIndex());
    return true;
  case Qt::Key_Escape:
    goBack();
    return true;
  case Qt::Key_Down:
    chooseRow(list->currentIndex().row() + 1);
    return true;
  case Qt::Key_Up:
    chooseRow(list->currentIndex().row() - 1);
    return true;
  case Qt::Key_PageDown:
    choosePage(1);
    return true;
  case Qt::Key_PageUp:
    choosePage(-1);
    return true;
  case Qt::Key_Tab:
  case Qt::Key_Backtab:
    return true; // there is nothing else to go to
  default:
    break;
  }
  const QKeySequence pressed(key.keyCombination());
  if (!openAction->shortcuts().contains(pressed))
    return false;
  q.dismiss();
  return true;
}

void CommandPalettePrivate::goBack() {
  if (model.showsWaysOut())
    search();
  else
    q.dismiss();
}

void CommandPalettePrivate::choosePage(int direction) {
  const int rowHeight = std::max(1, list->sizeHintForRow(0));
  const int page = std::max(1, list->viewport()->height() / rowHeight);
  const int row = list->currentIndex().row() + direction * page;
  chooseRow(std::clamp(row, 0, std::max(0, model.rowCount() - 1)));
}

/// Beyond the one end it goes on at the other.
void CommandPalettePrivate::chooseRow(int row) {
  const int count = model.rowCount();
  if (count > 0)
    list->setCurrentIndex(model.index((row + count) % count, 0));
}

void CommandPalettePrivate::closeIfLeft() {
  const QWidget* const now = q.window()->focusWidget();
  if (now && !q.isAncestorOf(now))
    q.dismiss();
}

} // namespace Vela::UiBase
