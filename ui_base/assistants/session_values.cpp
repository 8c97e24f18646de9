// SPDX-License-Identifier: MIT
#include "session_values.h"

#include "session_types.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

#include <algorithm>
#include <array>

namespace Vela::UiBase {

namespace {

struct ButtonName {
  const char* name;
  Qt::MouseButton button;
};
constexpr std::array buttonNames{
    ButtonName{"none", Qt::NoButton},     ButtonName{"left", Qt::LeftButton},
    ButtonName{"right", Qt::RightButton}, ButtonName{"middle", Qt::MiddleButton},
    ButtonName{"back", Qt::BackButton},   ButtonName{"forward", Qt::ForwardButton},
};

struct ModifierName {
  const char* name;
  Qt::KeyboardModifier modifier;
};
constexpr std::array modifierTable{
    ModifierName{"shift", Qt::ShiftModifier},   ModifierName{"control", Qt::ControlModifier},
    ModifierName{"alt", Qt::AltModifier},       ModifierName{"meta", Qt::MetaModifier},
    ModifierName{"keypad", Qt::KeypadModifier},
};

constexpr std::array<const char*, 7> outcomeNames{"underway", "succeeded", "declined", "stopped",
                                                  "failed",   "refused",   "abandoned"};

QString fileText(const QString& path, const QDir& folder) {
  const QString relative = folder.relativeFilePath(path);
  const bool below = !QDir::isAbsolutePath(relative) && !relative.startsWith(QLatin1String(".."));
  return below ? relative : path;
}

QJsonValue urlToJson(const QUrl& url, const QDir& folder) {
  if (url.isLocalFile())
    return QJsonObject{{SessionText::FileKey, fileText(url.toLocalFile(), folder)}};
  return QJsonObject{{SessionText::UrlKey, QString::fromLatin1(url.toEncoded())}};
}

// A map that looks like one of the special forms is written within one.
QJsonObject mapToJson(const QVariantMap& map, const QDir& folder) {
  QJsonObject object;
  for (auto entry = map.cbegin(); entry != map.cend(); ++entry)
    object.insert(entry.key(), SessionText::toJson(*entry, folder));
  const bool looksSpecial = object.size() == 1 && object.begin().key().startsWith(u'$');
  return looksSpecial ? QJsonObject{{SessionText::MapKey, object}} : object;
}

QVariantMap mapFromJson(const QJsonObject& object, const QDir& folder) {
  QVariantMap map;
  for (auto entry = object.begin(); entry != object.end(); ++entry)
    map.insert(entry.key(), SessionText::fromJson(entry.value(), folder));
  return map;
}

QString number(float value) { return QString::number(double(value), 'g', 9); }

void flatten(const QString& prefix, const QVariantMap& values, SessionState& state) {
  for (auto entry = values.cbegin(); entry != values.cend(); ++entry) {
    const QString name = prefix + entry.key();
    if (entry->typeId() != QMetaType::QString && entry->canConvert<QVariantMap>())
      flatten(name + u'.', entry->toMap(), state);
    else if (const QJsonValue value = SessionText::toJson(*entry, QDir::root()); !value.isNull())
      state.insert(name, value);
  }
}

} // namespace

QJsonValue SessionText::toJson(const QVariant& value, const QDir& folder) {
  if (value.typeId() == QMetaType::QUrl)
    return urlToJson(value.toUrl(), folder);
  if (const auto object = SessionTypes::toJson(value))
    return *object;
  if (value.typeId() == QMetaType::QString)
    return value.toString();
  if (value.canConvert<QVariantMap>())
    return mapToJson(value.toMap(), folder);
  if (value.canConvert<QVariantList>()) {
    QJsonArray array;
    const QVariantList list = value.toList();
    for (const QVariant& element : list)
      array.append(toJson(element, folder));
    return array;
  }
  return QJsonValue::fromVariant(value);
}

bool SessionText::canBeWritten(const QVariant& value) {
  const auto all = [](const auto& values) {
    return std::all_of(values.cbegin(), values.cend(), &SessionText::canBeWritten);
  };
  if (value.typeId() != QMetaType::QString && value.canConvert<QVariantMap>())
    return all(value.toMap());
  if (value.typeId() != QMetaType::QString && !SessionTypes::toJson(value) &&
      value.canConvert<QVariantList>())
    return all(value.toList());
  return value.isNull() || !toJson(value, QDir::root()).isNull();
}

QVariant SessionText::fromJson(const QJsonValue& value, const QDir& folder) {
  if (value.isArray()) {
    QVariantList list;
    const QJsonArray array = value.toArray();
    for (const auto& element : array)
      list.append(fromJson(element, folder));
    return list;
  }
  if (!value.isObject())
    return value.toVariant();
  const QJsonObject object = value.toObject();
  if (object.size() == 1 && object[FileKey].isString())
    return QUrl::fromLocalFile(QDir::cleanPath(folder.absoluteFilePath(object[FileKey].toString())));
  if (object.size() == 1 && object[UrlKey].isString())
    return QUrl::fromEncoded(object[UrlKey].toString().toLatin1());
  if (const auto typed = SessionTypes::fromJson(object))
    return *typed;
  const bool isQuoted = object.size() == 1 && object[MapKey].isObject();
  return mapFromJson(isQuoted ? object[MapKey].toObject() : object, folder);
}

QString SessionText::text(const QJsonValue& value) {
  const QByteArray array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
  return QString::fromUtf8(array.mid(1, array.size() - 2));
}

QString SessionText::word(const QString& name) {
  const auto isPlain = [](QChar c) { return !c.isSpace() && c.isPrint() && c != u'"' && c != u'\\'; };
  static const QString special = QStringLiteral("#({=");
  const bool plain =
      !name.isEmpty() && !special.contains(name.front()) && std::all_of(name.cbegin(), name.cend(), isPlain);
  return plain ? name : text(name);
}

QString SessionText::commandName(const QString& id, int manager) {
  return manager == 0 ? word(id) : QStringLiteral("%1 in %2").arg(word(id), QString::number(manager));
}

QString SessionText::line(const SessionStep& step, const QDir& folder) {
  const bool isCommand = step.kind == SessionStep::Command;
  const ToolOperation& operation = step.operation;
  QStringList words;
  if (isCommand) {
    words = {QStringLiteral("command"), commandName(step.command, step.manager)};
    if (step.checked)
      words += *step.checked ? QStringLiteral("on") : QStringLiteral("off");
  } else {
    words = {QStringLiteral("operation"), word(operation.command), word(operation.action),
             buttonName(operation.button)};
    if (operation.modifiers != Qt::NoModifier)
      words += modifierNames(operation.modifiers);
    for (const QVector3D& at : operation.positions)
      words += QStringLiteral("(%1, %2, %3)").arg(number(at.x()), number(at.y()), number(at.z()));
  }
  const QVariantMap& values = isCommand ? step.inputs : operation.values;
  if (!values.isEmpty())
    words += text(toJson(values, folder));
  return words.join(u' ') + u'\n';
}

QString SessionText::lines(const SessionState& state) {
  QString lines;
  for (auto entry = state.cbegin(); entry != state.cend(); ++entry)
    lines += QStringLiteral("  %1 = %2\n").arg(word(entry.key()), text(*entry));
  return lines;
}

SessionState SessionText::changes(const SessionState& before, const SessionState& after) {
  SessionState changed;
  for (auto entry = before.cbegin(); entry != before.cend(); ++entry) {
    if (!entry->isNull() && !after.contains(entry.key()))
      changed.insert(entry.key(), QJsonValue());
  }
  for (auto entry = after.cbegin(); entry != after.cend(); ++entry) {
    if (before.value(entry.key(), QJsonValue()) != *entry)
      changed.insert(entry.key(), *entry);
  }
  return changed;
}

void SessionText::apply(const SessionState& changes, SessionState& state) { state.insert(changes); }

QString SessionText::buttonName(Qt::MouseButton button) {
  const auto found = std::ranges::find(buttonNames, button, &ButtonName::button);
  return QString::fromLatin1(found == buttonNames.end() ? "none" : found->name);
}

std::optional<Qt::MouseButton> SessionText::button(const QString& name) {
  const auto found = std::ranges::find_if(
      buttonNames, [&](const ButtonName& known) { return name == QLatin1String(known.name); });
  return found == buttonNames.end() ? std::nullopt : std::optional(found->button);
}

QString SessionText::modifierNames(Qt::KeyboardModifiers modifiers) {
  QStringList names;
  for (const ModifierName& known : modifierTable) {
    if (modifiers.testFlag(known.modifier))
      names += QString::fromLatin1(known.name);
  }
  return names.join(u'+');
}

std::optional<Qt::KeyboardModifiers> SessionText::modifiers(const QString& names) {
  Qt::KeyboardModifiers modifiers;
  const QStringList list = names.split(u'+');
  for (const QString& name : list) {
    const auto found = std::ranges::find_if(
        modifierTable, [&](const ModifierName& known) { return name == QLatin1String(known.name); });
    if (found == modifierTable.end())
      return std::nullopt;
    modifiers |= found->modifier;
  }
  return modifiers;
}

QString SessionText::outcomeName(ERunOutcome outcome) {
  return QString::fromLatin1(outcomeNames.at(std::size_t(outcome)));
}

std::optional<ERunOutcome> SessionText::outcome(const QString& name) {
  const auto found =
      std::ranges::find(outcomeNames, name, [](const char* known) { return QLatin1String(known); });
  return found == outcomeNames.end() ? std::nullopt
                                     : std::optional(ERunOutcome(found - outcomeNames.begin()));
}

SessionState sessionState(const QVariantMap& values) {
  SessionState state;
  flatten({}, values, state);
  return state;
}

} // namespace Vela::UiBase
