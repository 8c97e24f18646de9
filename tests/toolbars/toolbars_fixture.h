// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_group.h>
#include <ui_base/core/shared_object.h>

#include <QByteArray>
#include <QEvent>
#include <QIcon>
#include <QPointer>
#include <QString>
#include <QToolButton>

#include <memory>

/// A command that does nothing but count.
class NamedCommand : public Vela::UiBase::CommandBase {
public:
  explicit NamedCommand(const QString& name) : CommandBase(nullptr), m_name(name) { setText(name); }
  QString commandId() const override { return m_name; }
  bool onExecuteAsync(bool) override { return ++runs; }
  using CommandBase::setIsPaidFeature;

  int runs = 0;

private:
  QString m_name;
};

inline QIcon coloredIcon(Qt::GlobalColor color) {
  QPixmap pixmap(32, 32);
  pixmap.fill(color);
  return QIcon(pixmap);
}

inline QColor shownColor(const QToolButton& button) {
  return button.icon().pixmap(32).toImage().pixelColor(16, 16);
}

inline std::shared_ptr<Vela::UiBase::CommandBase> namedCommand(const QString& name) {
  return Taren::Objects::createShared<NamedCommand>(name);
}

/// A group with commands "<name> 0", "<name> 1" and so on.
inline std::shared_ptr<Vela::UiBase::CommandGroup> namedGroup(const QByteArray& name, int commands) {
  const QString text = QString::fromLatin1(name);
  auto group = Taren::Objects::createShared<Vela::UiBase::CommandGroup>(QString(), text, text);
  for (int i = 0; i < commands; ++i)
    group->addCommand(namedCommand(QStringLiteral("%1 %2").arg(text).arg(i)), i);
  return group;
}

/// Ends another object when one gets such an event.
class EndsAnother : public QObject {
public:
  EndsAnother(QWidget* one, QEvent::Type when, QObject* other) : QObject(one), m_when(when), m_other(other) {
    one->installEventFilter(this);
  }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == m_when)
      delete m_other;
    return false;
  }

private:
  QEvent::Type m_when;
  QPointer<QObject> m_other;
};
