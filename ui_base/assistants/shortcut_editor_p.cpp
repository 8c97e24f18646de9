// SPDX-License-Identifier: MIT
#include "shortcut_editor_p.h"

#include "readable_placeholder.h"
#include "shortcut_scheme.h"

#include <ui_base/commands/command_base.h>
#include <ui_base/commands/command_name.h>

#include <QFileDialog>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QVBoxLayout>

#include <algorithm>

namespace Vela::UiBase {

namespace {

QString namesOf(const QList<ShortcutUse>& uses) {
  QStringList names;
  for (const ShortcutUse& use : uses)
    names.append(QStringLiteral("\"%1\"").arg(use.name));
  return names.join(QLatin1String(", "));
}

bool areCommands(const QList<ShortcutUse>& uses) {
  return std::all_of(uses.cbegin(), uses.cend(), [](const auto& use) { return !use.commandId.isEmpty(); });
}

} // namespace

ShortcutEditorPrivate::ShortcutEditorPrivate(ShortcutEditor& editor, ShortcutScheme& shortcuts)
    : q(editor),
      scheme(shortcuts),
      model(shortcuts),
      search(new QLineEdit(&editor)),
      list(new QTreeView(&editor)),
      name(new QLabel(&editor)),
      keys(new QKeySequenceEdit(&editor)),
      message(new QLabel(&editor)) {
  search->setPlaceholderText(ShortcutEditor::tr("Find a command"));
  search->setAccessibleName(ShortcutEditor::tr("Find a command"));
  search->setClearButtonEnabled(true);
  q.setFocusProxy(search);
  list->setModel(&model);
  list->setAccessibleName(ShortcutEditor::tr("Commands"));
  list->setRootIsDecorated(false);
  list->setUniformRowHeights(true);
  list->setTabKeyNavigation(false);
  keys->setAccessibleName(ShortcutEditor::tr("Keys"));
  name->setBuddy(keys);
  message->setWordWrap(true);
  message->setTextFormat(Qt::PlainText);
  layOut();
  connectAll();
  model.find({});
  list->setCurrentIndex(model.index(0, 0));
}

void ShortcutEditorPrivate::applyStyles() {
  const auto fields = q.findChildren<QLineEdit*>();
  for (QLineEdit* const field : fields)
    makePlaceholderReadable(*field);
}

void ShortcutEditorPrivate::layOut() {
  auto* const column = new QVBoxLayout(&q);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(search);
  column->addWidget(list, 1);
  list->setMinimumSize(460, 220);
  list->header()->setSectionResizeMode(ShortcutModel::NameColumn, QHeaderView::Stretch);
  auto* const recording = new QHBoxLayout;
  column->addWidget(name);
  column->addLayout(recording);
  recording->addWidget(keys, 1);
  useButton = addButton(*recording, ShortcutEditor::tr("&Use Keys"), &ShortcutEditorPrivate::use);
  clearButton = addButton(*recording, ShortcutEditor::tr("&Clear"), &ShortcutEditorPrivate::clear);
  resetButton = addButton(*recording, ShortcutEditor::tr("&Reset"), &ShortcutEditorPrivate::reset);
  column->addWidget(message);
  auto* const files = new QHBoxLayout;
  column->addLayout(files);
  addButton(*files, ShortcutEditor::tr("&Import…"), &ShortcutEditorPrivate::askImport);
  addButton(*files, ShortcutEditor::tr("&Export…"), &ShortcutEditorPrivate::askExport);
  addButton(*files, ShortcutEditor::tr("Save &Page…"), &ShortcutEditorPrivate::askSheet);
  files->addStretch(1);
  resetAllButton = addButton(*files, ShortcutEditor::tr("Reset &All"), &ShortcutEditorPrivate::resetAll);
}

QPushButton* ShortcutEditorPrivate::addButton(QBoxLayout& row, const QString& text,
                                              void (ShortcutEditorPrivate::*act)()) {
  auto* const button = new QPushButton(text, &q);
  button->setAutoDefault(false);
  row.addWidget(button);
  QObject::connect(button, &QPushButton::clicked, &q, [this, act] { (this->*act)(); });
  return button;
}

void ShortcutEditorPrivate::connectAll() {
  QObject::connect(search, &QLineEdit::textChanged, &q, [this](const QString& typed) {
    model.find(typed);
    list->setCurrentIndex(model.index(0, 0));
    showCurrent();
  });
  QObject::connect(list->selectionModel(), &QItemSelectionModel::currentRowChanged, &q,
                   [this] { showCurrent(); });
  // The field itself tells of keys only when no more have followed for a while.
  if (const auto* const shown = keys->findChild<QLineEdit*>())
    QObject::connect(shown, &QLineEdit::textChanged, &q, [this] { showRecorded(); });
  QObject::connect(keys, &QKeySequenceEdit::keySequenceChanged, &q, [this] { showRecorded(); });
  // When what it stands in has got its sheet.
  QObject::connect(
      &Vela::Resource::Styles::Instance(), &Vela::Resource::Styles::changed, &q, [this] { applyStyles(); },
      Qt::QueuedConnection);
  QObject::connect(&scheme, &ShortcutScheme::changed, &q, [this] { showCurrent(); });
}

std::shared_ptr<CommandBase> ShortcutEditorPrivate::current() const {
  return model.commandAt(list->currentIndex().row());
}

QList<QKeySequence> ShortcutEditorPrivate::recorded() const {
  return keys->keySequence().isEmpty() ? QList<QKeySequence>() : QList{keys->keySequence()};
}

void ShortcutEditorPrivate::showCurrent() {
  const auto command = current();
  const QList<QKeySequence> present = command ? scheme.shortcuts(*command) : QList<QKeySequence>();
  const QSignalBlocker quiet(keys);
  keys->setKeySequence(present.isEmpty() ? QKeySequence() : present.first());
  keys->setEnabled(command != nullptr);
  name->setText(command ? ShortcutEditor::tr("Press the keys for \"%1\":").arg(nameInSentence(*command))
                        : ShortcutEditor::tr("No command is called like that."));
  clearButton->setEnabled(!present.isEmpty());
  resetButton->setEnabled(command && scheme.isChanged(command->commandId()));
  resetAllButton->setEnabled(scheme.isAnyChanged());
  showRecorded();
}

void ShortcutEditorPrivate::showRecorded() {
  const auto command = current();
  const bool isNew = command && !recorded().isEmpty() && recorded() != scheme.shortcuts(*command);
  const auto met = command ? scheme.metBy(*command, recorded()) : QList<ShortcutUse>();
  useButton->setText(met.isEmpty() || !areCommands(met) ? ShortcutEditor::tr("&Use Keys")
                                                        : ShortcutEditor::tr("Take &Over"));
  useButton->setEnabled(isNew && areCommands(met));
  if (met.isEmpty())
    say({});
  else if (areCommands(met))
    say(ShortcutEditor::tr("These keys belong to %1.").arg(namesOf(met)));
  else
    say(ShortcutEditor::tr("These keys are taken: %1. Choose others.").arg(namesOf(met)));
}

void ShortcutEditorPrivate::takeAway(const ShortcutUse& use, const QKeySequence& wanted) {
  const auto commands = scheme.commands();
  for (CommandBase* const other : commands) {
    if (other->commandId() != use.commandId)
      continue;
    QList<QKeySequence> left = scheme.shortcuts(*other);
    left.removeIf([&](const QKeySequence& held) {
      return held.matches(wanted) != QKeySequence::NoMatch || wanted.matches(held) != QKeySequence::NoMatch;
    });
    scheme.setShortcuts(*other, left);
    return;
  }
}

void ShortcutEditorPrivate::use() {
  const auto command = current();
  const QList<QKeySequence> wanted = recorded();
  if (!command || wanted.isEmpty())
    return;
  const auto met = scheme.metBy(*command, wanted);
  if (!areCommands(met))
    return;
  const QPointer<ShortcutEditor> self(&q); // what hears of a change may close it
  ShortcutScheme& shortcuts = scheme;
  for (const ShortcutUse& use : met) {
    if (self)
      takeAway(use, wanted.first());
  }
  if (self)
    shortcuts.setShortcuts(*command, wanted);
}

void ShortcutEditorPrivate::clear() {
  if (const auto command = current())
    scheme.setShortcuts(*command, {});
}

void ShortcutEditorPrivate::reset() {
  if (const auto command = current())
    scheme.reset(command->commandId());
}

void ShortcutEditorPrivate::resetAll() { scheme.resetAll(); }

void ShortcutEditorPrivate::askImport() {
  const QString file = QFileDialog::getOpenFileName(&q, ShortcutEditor::tr("Import Shortcuts"), {},
                                                    ShortcutEditor::tr("Shortcuts (*.json)"));
  if (!file.isEmpty())
    q.importFrom(file);
}

void ShortcutEditorPrivate::askExport() {
  const QString file = QFileDialog::getSaveFileName(&q, ShortcutEditor::tr("Export Shortcuts"),
                                                    QStringLiteral("shortcuts.json"),
                                                    ShortcutEditor::tr("Shortcuts (*.json)"));
  if (!file.isEmpty())
    q.exportTo(file);
}

void ShortcutEditorPrivate::askSheet() {
  const QString file =
      QFileDialog::getSaveFileName(&q, ShortcutEditor::tr("Save Page"), QStringLiteral("shortcuts.pdf"),
                                   ShortcutEditor::tr("Pages (*.pdf)"));
  if (!file.isEmpty())
    q.saveSheet(file);
}

} // namespace Vela::UiBase
