// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <tqm_mesh_kernel/stepped_dispatcher.h>

#include <core/note_protocol.h>
#include <stdexcept>

using namespace Taren::Core;
using namespace Vela::Test;

class BroadcasterTest : public TestCase {
  Q_OBJECT

private Q_SLOTS:
  void cleanup() {
    m_dispatcher.runAll();
    m_notes.clear();
    qDeleteAll(m_parent.children());
  }

  void guardedThenAsynchronousInOneTaskSynchronousAtOnce() {
    Subject subject;
    const auto both = shared("b"), synchronous = shared("s"), asynchronous = shared("a");
    QObjectObserver* const object = guarded("g");
    subject.addObserver(asynchronous, true);
    for (int i = 0; i < 2; ++i) { // added twice is called twice
      subject.addObserver(both, false);
      subject.addObserver(both, true);
      subject.addObserver(object);
    }
    subject.addObserver(synchronous, false);
    subject.note(1);
    subject.note(2);
    QCOMPARE(taken(), QStringLiteral("b1 b1 s1 b2 b2 s2"));
    QCOMPARE(m_dispatcher.pending(MainThreadQoS), std::size_t(2));
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("g1 g1 a1 b1 b1 g2 g2 a2 b2 b2"));
    subject.removeObserver(both); // and removed at once
    subject.removeObserver(object);
    note(subject, 3);
    QCOMPARE(taken(), QStringLiteral("s3 a3"));
  }

  void changesCountForTheNextBroadcast() {
    for (const bool asynchronous : {false, true}) {
      Subject subject;
      const auto first = shared("a"), second = shared("b"), late = shared("c");
      subject.addObserver(first, asynchronous);
      subject.addObserver(second, asynchronous);
      first->whenCalled = [&] {
        subject.removeObserver(first);
        subject.removeObserver(second);
        subject.addObserver(late, asynchronous);
      };
      note(subject, 1);
      QCOMPARE(taken(), QStringLiteral("a1 b1"));
      note(subject, 2);
      QCOMPARE(taken(), QStringLiteral("c2"));

      subject.addObserver(guarded("g"));
      subject.note(3);
      subject.removeAllObservers(); // the task is on its way
      m_dispatcher.runAll();
      QCOMPARE(taken(), asynchronous ? QStringLiteral("g3 c3") : QStringLiteral("c3 g3"));
    }
  }

  void aDestroyedObserverIsNeverCalled() {
    Subject subject;
    const auto first = shared("a");
    auto synchronous = shared("s"), asynchronous = shared("t");
    QObjectObserver* const object = guarded("g");
    QObjectObserver* const next = guarded("h");
    subject.addObserver(first, false);
    subject.addObserver(synchronous, false);
    subject.addObserver(asynchronous, true);
    subject.addObserver(next);
    subject.addObserver(object);
    first->whenCalled = [&] { synchronous.reset(); };
    next->whenCalled = [&] { delete object; };
    subject.note(1);
    asynchronous.reset();
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("a1 h1"));
  }

  // While a base class of the observer ends, its guard is still set.
  void whoIsBeingDestroyedIsNeitherCalledNorTheDelegate() {
    Subject subject;
    QObjectObserver* const dying = guarded("g");
    NoteProtocol* asked = dying;
    subject.setDelegate(dying);
    subject.note(1);
    dying->afterObserver = [&] {
      m_dispatcher.runAll();
      asked = subject.getDelegate();
    };
    delete dying;
    QCOMPARE(taken(), QString());
    QVERIFY(!asked);
  }

  void aPlainObserverMustBeAManagedQObject() {
    Subject subject;
    SharedObserver noObject(QStringLiteral("n"), m_notes);
    QObjectObserver orphan(QStringLiteral("p"), m_notes, nullptr);
    QVERIFY_THROWS_EXCEPTION(std::logic_error, subject.addObserver(&noObject));
    subject.addObserver(&orphan); // the parent counts on removal only
    QVERIFY_THROWS_EXCEPTION(std::logic_error, subject.removeObserver(&orphan));
    note(subject, 1);
    QCOMPARE(taken(), QStringLiteral("p1"));
  }

  // Each destructor comes back to the subject, which would hang if a reference went under its lock.
  void observersMayDieInsideEveryCall() {
    for (const bool asynchronous : {false, true}) {
      Subject subject;
      const auto added = [&](const char* name) {
        auto observer = shared(name);
        observer->atEnd = [&subject] {
          subject.removeAllObservers();
          subject.note(9);
        };
        subject.addObserver(observer, asynchronous);
        return observer;
      };
      subject.removeObserver(std::shared_ptr<NoteProtocol>(added("r")));
      auto called = added("c");
      called->whenCalled = [&called] { called.reset(); };
      note(subject, 1);
      QVERIFY(!called);
      QCOMPARE(taken(), QStringLiteral("c1"));
    }
  }

  void theSubjectMayDieAndBroadcastsNest() {
    auto subject = std::make_unique<Subject>();
    const auto first = shared("a"), second = shared("b"), asynchronous = shared("t");
    subject->addObserver(first, false);
    subject->addObserver(second, false);
    subject->addObserver(asynchronous, true);
    first->whenCalled = [&, calls = 0]() mutable {
      if (++calls == 1)
        subject->note(2);
      else
        subject.reset();
    };
    subject->note(1);
    QVERIFY(!subject);
    QCOMPARE(taken(), QStringLiteral("a1 a2 b2 b1"));
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("t1 t2"));
  }

  void aThrowingObserverOrARefusedTaskHarmsNobodyElse() {
    Subject subject;
    const auto observer = shared("s"), asynchronous = shared("a");
    subject.addObserver(observer, false);
    subject.addObserver(asynchronous, true);
    observer->whenCalled = [] { throw std::runtime_error("no"); };
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, subject.note(1));
    observer->whenCalled = {};
    m_dispatcher.setRefusing(true);
    subject.note(2);
    m_dispatcher.setRefusing(false);
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("s1 s2 a1"));
  }

  // A dead observer hides those of its kind until a broadcast has swept it away.
  void theDelegateIsTheFirstLivingObserver() {
    Subject subject;
    auto asynchronous = shared("a"), last = shared("l");
    subject.addObserver(asynchronous, true);
    subject.addObserver(last, true);
    QObjectObserver* const object = guarded("g");
    subject.addObserver(object);
    QCOMPARE(subject.getDelegate(), object);
    delete object;
    asynchronous.reset();
    QVERIFY(!subject.getDelegate());
    note(subject, 1);
    QCOMPARE(subject.getDelegate(), last.get());
    subject.setDelegate(shared("s"), false);
    note(subject, 2);
    QCOMPARE(taken(), QStringLiteral("l1")); // the delegate took the place of all, and is gone
  }

private:
  std::shared_ptr<SharedObserver> shared(const char* name) {
    return std::make_shared<SharedObserver>(QLatin1String(name), m_notes);
  }
  QObjectObserver* guarded(const char* name) {
    return new QObjectObserver(QLatin1String(name), m_notes, &m_parent);
  }
  void note(Subject& subject, int value) {
    subject.note(value);
    m_dispatcher.runAll();
  }
  QString taken() { return std::exchange(m_notes, {}).join(QLatin1Char(' ')); }

  SteppedDispatcher m_dispatcher;
  ScopedDispatcher m_installed{m_dispatcher};
  Notes m_notes;
  QObject m_parent;
};

VELA_TEST_MAIN(BroadcasterTest)
#include "broadcaster_test.moc"
