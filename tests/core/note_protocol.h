// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/delegator.h>

#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>
#include <utility>

namespace Vela::Test {

/// A protocol of an application's own, which the library knows nothing of.
class NoteProtocol {
public:
  virtual ~NoteProtocol() = default;
  virtual void noted(int) {}
};

using Notes = QStringList;

/// Writes its name into the notes with each call, then does what it is told to.
class SharedObserver : public NoteProtocol {
public:
  SharedObserver(QString name, Notes& notes) : m_name(std::move(name)), m_notes(notes) {}
  ~SharedObserver() override {
    if (atEnd)
      atEnd();
  }
  void noted(int value) override {
    m_notes << m_name + QString::number(value);
    if (whenCalled)
      whenCalled();
  }

  std::function<void()> whenCalled;
  std::function<void()> atEnd;

private:
  QString m_name;
  Notes& m_notes;
};

/// A base class that has something to do, like a widget, after the observer made from it has ended.
class EndingObject : public QObject {
public:
  using QObject::QObject;
  ~EndingObject() override {
    if (afterObserver)
      afterObserver();
  }
  std::function<void()> afterObserver;
};

/// An observer that is a QObject. The protocol is not its first base, so the two faces have different
/// addresses.
class QObjectObserver : public EndingObject, public SharedObserver {
public:
  QObjectObserver(const QString& name, Notes& notes, QObject* parent)
      : EndingObject(parent), SharedObserver(name, notes) {}
};

class Subject : public Taren::Core::Delegator<NoteProtocol> {
public:
  void note(int value) {
    delegate([value](NoteProtocol* observer) { observer->noted(value); });
  }
};

} // namespace Vela::Test
