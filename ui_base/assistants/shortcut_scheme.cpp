// SPDX-License-Identifier: MIT
#include "shortcut_scheme.h"

#include "ambiguous_key.h"

#include <ui_base/commands/cmd_mgr.h>
#include <ui_base/commands/command_walk.h>
#include <ui_base/core/application_events.h>
#include <ui_base/views/base_view.h>

#include <QActionEvent>
#include <QApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPointer>
#include <QShortcutEvent>

namespace Vela::UiBase {

namespace {

constexpr const char* defaultProperty = "vela_default_shortcuts";
constexpr QLatin1String jsonKey("shortcuts");
constexpr QLatin1String conflictsKey("always conflict"); // beside identifiers, which have no blanks

QStringList textOf(const QList<QKeySequence>& shortcuts) {
  QStringList texts;
  for (const QKeySequence& keys : shortcuts)
    texts.append(keys.toString(QKeySequence::PortableText));
  texts.removeAll(QString());
  return texts;
}

QList<QKeySequence> keysOf(const QStringList& texts) {
  QList<QKeySequence> shortcuts;
  for (const QString& text : texts)
    shortcuts.append(QKeySequence::fromString(text, QKeySequence::PortableText));
  return shortcuts;
}

/// Whether a value of a file is a list of keys, and each of them is known; it may be empty.
bool hasKeys(const QVariant& value) {
  const QStringList given = value.toStringList();
  return value.canConvert<QStringList>() && textOf(keysOf(given)).size() == given.size();
}

QVariantList conflictsOf(const ShortcutRules& rules) {
  QVariantList conflicts;
  const auto met = rules.met();
  for (const auto& [one, other] : met)
    conflicts.append(QStringList{one, other});
  return conflicts;
}

void noteConflicts(const QVariantList& conflicts, ShortcutRules& rules) {
  for (const QVariant& pair : conflicts) {
    const QStringList ids = pair.toStringList();
    if (ids.size() == 2)
      rules.noteMet(ids[0], ids[1]);
  }
}

} // namespace

QString ShortcutScheme::noShortcutTag() { return QStringLiteral("no_shortcut"); }

ShortcutScheme::ShortcutScheme(QObject* parent) : QObject(parent) {
  ApplicationEvents::watch(*this, {QEvent::ActionAdded, QEvent::Show, QEvent::Shortcut});
}

ShortcutScheme::~ShortcutScheme() = default;

void ShortcutScheme::addManager(CmdMgr* manager) {
  if (!manager)
    return;
  m_managers.append(manager->shared_from_this());
  applyAll();
}

QList<std::shared_ptr<CmdMgr>> ShortcutScheme::managers() const {
  QList<std::shared_ptr<CmdMgr>> living;
  for (const auto& known : m_managers) {
    if (auto manager = known.lock())
      living.append(std::move(manager));
  }
  return living;
}

QList<CommandBase*> ShortcutScheme::commands() const {
  QList<CommandBase*> commands;
  QSet<const CommandBase*> seen; // some stand in several groups
  const auto add = [&](CommandBase& command) {
    if (dynamic_cast<CommandGroup*>(&command) || seen.contains(&command) || command.hasTag(noShortcutTag()))
      return;
    seen.insert(&command);
    commands.append(&command);
  };
  const auto known = managers();
  for (const auto& manager : known)
    visitCommands(std::as_const(*manager).commandBag(), add);
  return commands;
}

QList<QKeySequence> ShortcutScheme::defaultShortcuts(const CommandBase& command) {
  const QVariant known = command.property(defaultProperty);
  return known.isValid() ? known.value<QList<QKeySequence>>() : command.shortcuts();
}

QList<QKeySequence> ShortcutScheme::shortcuts(const CommandBase& command) const {
  const auto change = m_changes.constFind(command.commandId());
  return change == m_changes.cend() ? defaultShortcuts(command) : keysOf(*change);
}

void ShortcutScheme::put(const CommandBase& command, const QList<QKeySequence>& shortcuts) {
  if (textOf(shortcuts) == textOf(defaultShortcuts(command)))
    m_changes.remove(command.commandId());
  else
    m_changes.insert(command.commandId(), textOf(shortcuts));
}

void ShortcutScheme::setShortcuts(const CommandBase& command, const QList<QKeySequence>& shortcuts) {
  put(command, shortcuts);
  applyAll();
  Q_EMIT changed();
}

void ShortcutScheme::reset(const QString& commandId) {
  if (!m_changes.remove(commandId))
    return;
  applyAll();
  Q_EMIT changed();
}

void ShortcutScheme::resetAll() { restore({}); }

QVariantMap ShortcutScheme::values() const {
  QVariantMap values;
  for (auto it = m_changes.cbegin(); it != m_changes.cend(); ++it)
    values.insert(it.key(), it.value());
  if (const QVariantList conflicts = conflictsOf(m_rules); !conflicts.isEmpty())
    values.insert(conflictsKey, conflicts);
  return values;
}

void ShortcutScheme::restore(const QVariantMap& values) {
  m_changes.clear();
  noteConflicts(values.value(conflictsKey).toList(), m_rules);
  for (auto it = values.cbegin(); it != values.cend(); ++it) {
    const QStringList given = it.value().toStringList();
    const QStringList known = textOf(keysOf(given));
    if (it.key() != conflictsKey && it.value().canConvert<QStringList>() &&
        known.isEmpty() == given.isEmpty())
      m_changes.insert(it.key(), known);
  }
  applyAll();
  Q_EMIT changed();
}

QByteArray ShortcutScheme::toJson() const {
  return QJsonDocument(QJsonObject{{jsonKey, QJsonObject::fromVariantMap(values())}}).toJson();
}

QString ShortcutScheme::readJson(const QByteArray& json) {
  QJsonParseError error;
  const QJsonDocument document = QJsonDocument::fromJson(json, &error);
  if (document.isNull())
    return tr("This is no file of shortcuts: %1").arg(error.errorString());
  const QJsonValue shortcuts = document.object().value(jsonKey);
  if (!shortcuts.isObject())
    return tr("This is no file of shortcuts: it has no list of them.");
  const QVariantMap values = shortcuts.toObject().toVariantMap();
  for (auto it = values.cbegin(); it != values.cend(); ++it) {
    if (it.key() != conflictsKey && !hasKeys(*it))
      return tr("This is no file of shortcuts: what stands at “%1” are no keys.").arg(it.key());
  }
  restore(values);
  return {};
}

QList<ShortcutUse> ShortcutScheme::metBy(const CommandBase& command,
                                         const QList<QKeySequence>& shortcuts) const {
  const QList<ShortcutUse> wanted = usesOf(command, shortcuts);
  QList<ShortcutUse> others = libraryKeys();
  const auto known = commands();
  for (const CommandBase* const other : known) {
    if (other != &command)
      others += usesOf(*other);
  }
  QList<const QWidget*> windows;
  for (const ShortcutUse& use : wanted) {
    for (const auto& place : use.places) {
      if (place && !windows.contains(place->window()))
        windows.append(place->window());
    }
  }
  for (const QWidget* const window : std::as_const(windows))
    others += usesBesideCommands(*window);
  QList<ShortcutUse> met;
  for (const ShortcutUse& use : wanted)
    met += m_rules.metBy(use, others);
  return met;
}

/// A command in no widget takes no keys, so one that the user gives some goes to its view.
void ShortcutScheme::apply(CommandBase& command) {
  if (!command.property(defaultProperty).isValid())
    command.setProperty(defaultProperty, QVariant::fromValue(command.shortcuts()));
  const QList<QKeySequence> wanted = shortcuts(command);
  if (wanted != command.shortcuts())
    command.setShortcuts(wanted);
  BaseView* const view = command.getView();
  if (view && isChanged(command.commandId()) && !wanted.isEmpty() && command.associatedObjects().isEmpty())
    view->addAction(&command);
}

/// One that is being constructed may have neither an identifier nor its shortcuts yet.
void ShortcutScheme::applyLater(QAction& action) {
  const QPointer<CommandBase> command(dynamic_cast<CommandBase*>(&action));
  if (!command || command->property(defaultProperty).isValid())
    return;
  const auto applyTo = [this, command] {
    if (command)
      apply(*command);
  };
  QMetaObject::invokeMethod(this, applyTo, Qt::QueuedConnection);
}

void ShortcutScheme::applyAll() {
  QList<QPointer<CommandBase>> known;
  const auto all = commands();
  for (CommandBase* const command : all)
    known.append(command);
  for (const auto& command : std::as_const(known)) { // what hears of a change may delete others
    if (command)
      apply(*command);
  }
}

bool ShortcutScheme::tellAmbiguous(const QKeySequence& keys) {
  const auto before = m_rules.met();
  const QPointer<ShortcutScheme> self(this);
  const QString message = tellAmbiguousKey(keys, m_rules);
  if (self && m_rules.met() != before)
    Q_EMIT changed();
  if (self && !message.isEmpty())
    Q_EMIT ambiguous(message);
  return !message.isEmpty();
}

bool ShortcutScheme::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ActionAdded) {
    applyLater(*static_cast<QActionEvent*>(event)->action());
  } else if (event->type() == QEvent::Show && qobject_cast<BaseView*>(watched)) {
    QMetaObject::invokeMethod(this, &ShortcutScheme::applyAll, Qt::QueuedConnection); // it may bring commands
  } else if (event->type() == QEvent::Shortcut && static_cast<QShortcutEvent*>(event)->isAmbiguous()) {
    return tellAmbiguous(static_cast<QShortcutEvent*>(event)->key());
  }
  return false;
}

} // namespace Vela::UiBase
