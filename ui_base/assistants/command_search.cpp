// SPDX-License-Identifier: MIT
#include "command_search.h"

#include "command_usage.h"

#include <ui_base/commands/cmd_mgr.h>
#include <ui_base/commands/command_group.h>
#include <ui_base/commands/command_name.h>

#include <algorithm>
#include <bit>
#include <utility>

namespace Vela::UiBase {

namespace {

constexpr int contextMalus = 350; // a group or an identifier that matches tells less than a name

/// As people write umlauts on a keyboard without them.
QString spelledOut(QString text) {
  static const std::pair<char16_t, QLatin1String> ways[] = {
      {u'ä', QLatin1String("ae")}, {u'ö', QLatin1String("oe")}, {u'ü', QLatin1String("ue")},
      {u'Ä', QLatin1String("Ae")}, {u'Ö', QLatin1String("Oe")}, {u'Ü', QLatin1String("Ue")},
      {u'ø', QLatin1String("oe")}, {u'å', QLatin1String("aa")}, {u'Å', QLatin1String("Aa")}};
  for (const auto& [letter, spelling] : ways)
    text.replace(QChar(letter), spelling);
  return text;
}

QString nameOf(const CommandBase& command, const QString& id) {
  const QString name = nameInSentence(command);
  return name.isEmpty() ? id : name;
}

/// "Vela::SmoothMeshCommand" says "Smooth Mesh", also when the texts are translated.
QString wordsOf(const QString& id) {
  QString words = id.mid(id.lastIndexOf(u':') + 1);
  if (words.endsWith(QLatin1String("Command")))
    words.chop(7);
  return words;
}

CommandSearch::Entry newEntry(const std::shared_ptr<CommandBase>& command,
                              const std::shared_ptr<CmdMgr>& manager, const QString& path) {
  CommandSearch::Entry entry;
  entry.command = command;
  entry.manager = manager;
  entry.source = command->text();
  entry.id = command->commandId();
  entry.name = nameOf(*command, entry.id);
  entry.path = path;
  entry.title = MatchText(entry.name);
  if (const QString spelled = spelledOut(entry.name); spelled != entry.name)
    entry.spelled = MatchText(spelled);
  if (const QString original = nameInSentence(command->translatableText().source()); original != entry.name)
    entry.original = MatchText(original);
  entry.context = MatchText(path + u' ' + wordsOf(entry.id));
  return entry;
}

int qualityOf(const MatchText& typed, const CommandSearch::Entry& entry) {
  int quality = matchQuality(typed, entry.title);
  for (const MatchText* const other : {&entry.spelled, &entry.original}) {
    if (other->wordCount() > 0)
      quality = std::max(quality, matchQuality(typed, *other));
  }
  if (quality < bestQuality - contextMalus)
    quality = std::max(quality, matchQuality(typed, entry.context) - contextMalus);
  return quality;
}

/// Grows by the same for each doubling, so that a favourite rises but does not bury a better answer.
int bonusFor(int count) { return 15 * static_cast<int>(std::bit_width(static_cast<unsigned>(count))); }

} // namespace

void CommandSearch::clear() {
  m_before = std::move(m_entries);
  m_entries.clear();
  m_entries.reserve(m_before.size());
  m_collected.clear();
}

CommandSearch::Entry CommandSearch::entryFor(const std::shared_ptr<CommandBase>& command,
                                             const std::shared_ptr<CmdMgr>& manager, const QString& path) {
  const size_t position = m_entries.size();
  Entry* const before = position < m_before.size() ? &m_before[position] : nullptr;
  const bool isSame = before && before->command.lock() == command && before->path == path &&
                      before->source == command->text() && !before->source.isEmpty();
  if (!isSame)
    return newEntry(command, manager, path);
  before->manager = manager;
  return std::move(*before);
}

void CommandSearch::collect(const std::shared_ptr<CmdMgr>& manager) {
  if (manager)
    collect(std::as_const(*manager).commandBag(), manager, {});
}

void CommandSearch::collect(const CommandBag& bag, const std::shared_ptr<CmdMgr>& manager,
                            const QString& path) {
  for (int i = 0; i < bag.count(); ++i) {
    const auto command = bag.sharedCommandAt(i);
    if (const auto* const group = dynamic_cast<const CommandGroup*>(command.get())) {
      const QString name = nameInSentence(*group);
      const QString within =
          path.isEmpty() || name.isEmpty() ? path + name : path + QStringLiteral(" › ") + name;
      collect(group->commandBag(), manager, group->isVirtualGroup() ? path : within);
    } else if (command->isVisible() && !m_collected.contains(command.get())) {
      m_collected.insert(command.get());
      m_entries.push_back(entryFor(command, manager, path));
    }
  }
}

QList<int> CommandSearch::find(const QString& typed, const CommandUsage& usage) const {
  const MatchText wanted(typed);
  std::vector<std::pair<int, int>> answers; // quality, position
  for (size_t i = 0; i < m_entries.size(); ++i) {
    const Entry& entry = m_entries[i];
    const int quality = qualityOf(wanted, entry);
    if (quality > 0)
      answers.emplace_back(quality + bonusFor(usage.count(entry.id)), static_cast<int>(i));
  }
  std::ranges::stable_sort(answers, std::ranges::greater(), &std::pair<int, int>::first);
  QList<int> positions;
  for (const auto& answer : answers)
    positions.append(answer.second);
  return positions;
}

} // namespace Vela::UiBase
