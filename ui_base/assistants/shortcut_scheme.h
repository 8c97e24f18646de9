// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/assistants/shortcut_rules.h>

#include <QHash>
#include <QObject>
#include <QVariantMap>

#include <memory>

class QKeySequence;

namespace Vela::UiBase {

class CmdMgr;
class CommandBase;

/// The shortcuts that the user chose in place of those that the application gave: kept as differences by the
/// identifiers of commands, so that what a later version of the application brings comes through.
///
/// A command gets the user's shortcuts when a manager that holds it is added here, or else when it is put
/// into any widget or a view is shown, as soon as the event loop turns: what it has then counts as the
/// application's choice. With a scheme, a key that means two things at once is told of over the view, where
/// Qt would do nothing; see ambiguous().
///
/// Managers are held weakly. For the main thread; one for an application.
///
/// @code
/// auto* shortcuts = new ShortcutScheme(window);
/// shortcuts->addManager(controller);
/// shortcuts->restore(settings.value("shortcuts").toMap());
/// connect(shortcuts, &ShortcutScheme::changed, window,
///         [&settings, shortcuts] { settings.setValue("shortcuts", shortcuts->values()); });
/// @endcode
class UI_BASE_EXPORT ShortcutScheme : public QObject {
  Q_OBJECT

public:
  /// Without managers and without differences.
  explicit ShortcutScheme(QObject* parent = nullptr);
  ~ShortcutScheme() override;

  /// Null is ignored. @throws std::bad_weak_ptr when the manager is not shared.
  void addManager(CmdMgr* manager);
  /// Those that were added and live.
  QList<std::shared_ptr<CmdMgr>> managers() const;
  /// A tag of commands that get no shortcuts of the user's, as they stand for something else each time:
  /// recent files.
  static QString noShortcutTag();
  /// All commands of the managers that can get shortcuts, those in groups included; groups themselves are
  /// not.
  QList<CommandBase*> commands() const;

  /// The shortcuts of a command, the user's or else the application's.
  static QList<QKeySequence> defaultShortcuts(const CommandBase& command);
  /// See defaultShortcuts().
  QList<QKeySequence> shortcuts(const CommandBase& command) const;
  /// Whether the user has chosen something else than the application.
  bool isChanged(const QString& commandId) const { return m_changes.contains(commandId); }
  /// Whether that is so for any command.
  bool isAnyChanged() const { return !m_changes.isEmpty(); }
  /// The user's choice for a command; an empty list for no shortcut. The application's own choice is no
  /// difference.
  void setShortcuts(const CommandBase& command, const QList<QKeySequence>& shortcuts);
  /// Gives a command what the application chose.
  void reset(const QString& commandId);
  /// Gives every command what the application chose.
  void resetAll();

  /// The differences by identifier, texts that do not depend on the language, and which commands were seen to
  /// conflict: to be kept for the next start.
  QVariantMap values() const;
  /// Replaces the differences. Those of commands that are not known are kept; what names no keys is left out.
  /// What conflicted is added to what is known.
  void restore(const QVariantMap& values);
  /// The differences as a JSON text for a file that people exchange.
  QByteArray toJson() const;
  /// @return empty, or why the text is not such a file, for the user; then nothing changes.
  QString readJson(const QByteArray& json);

  /// The rules of what meets, to add modes to.
  ShortcutRules& rules() { return m_rules; }
  /// The rules of what meets.
  const ShortcutRules& rules() const { return m_rules; }
  /// What a command would meet with these shortcuts: other commands, and what else listens in its window or
  /// in the library.
  QList<ShortcutUse> metBy(const CommandBase& command, const QList<QKeySequence>& shortcuts) const;

Q_SIGNALS:
  /// The differences are others, or a conflict was seen: time to keep values().
  void changed();
  /// A key was pressed that means several commands here, so that none ran. The message is shown over the view
  /// of the first that has one.
  void ambiguous(const QString& message);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void apply(CommandBase& command);
  void applyLater(QAction& action);
  void applyAll();
  bool tellAmbiguous(const QKeySequence& keys);
  void put(const CommandBase& command, const QList<QKeySequence>& shortcuts);

  QList<std::weak_ptr<CmdMgr>> m_managers;
  QHash<QString, QStringList> m_changes; // in portable text
  ShortcutRules m_rules;
};

} // namespace Vela::UiBase
