// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <tqm_mesh_kernel/stepped_dispatcher.h>

#include <core/note_protocol.h>
#include <stdexcept>
#include <typeinfo>

using namespace Taren::Core;
using namespace Vela::Test;

namespace {

class Subject : public Broadcaster<NoteProtocol> {
public:
  void note(int value) {
    broadcast([value](NoteProtocol* observer) { observer->noted(value); });
  }
};

QString unmanaged(const NoteProtocol& observer) {
  return QLatin1String(typeid(observer).name()) +
         QStringLiteral(" needs to be a QObject with its lifetime managed by its parent!");
}

template <class F>
QString textThrownBy(const F& f) {
  try {
    f();
  } catch (const std::logic_error& error) {
    return QString::fromUtf8(error.what());
  }
  return {};
}

} // namespace

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
    const auto synchronous1 = shared("s"), synchronous2 = shared("S");
    const auto asynchronous1 = shared("a"), asynchronous2 = shared("A");
    subject.addObserver(asynchronous1, true);
    subject.addObserver(synchronous1, false);
    subject.addObserver(guarded("g"));
    subject.addObserver(synchronous2, false);
    subject.addObserver(guarded("G"));
    subject.addObserver(asynchronous2, true);

    subject.note(1);
    QCOMPARE(taken(), QStringLiteral("s1 S1"));
    QCOMPARE(m_dispatcher.pending(), std::size_t(1));
    QCOMPARE(m_dispatcher.pending(MainThreadQoS), std::size_t(1));
    subject.note(2);
    QCOMPARE(taken(), QStringLiteral("s2 S2"));
    QVERIFY(m_dispatcher.step());
    QCOMPARE(taken(), QStringLiteral("g1 G1 a1 A1"));
    QVERIFY(m_dispatcher.step());
    QCOMPARE(taken(), QStringLiteral("g2 G2 a2 A2"));
    QVERIFY(!m_dispatcher.step());
  }

  void everyBroadcastHandsOverOneTask() {
    Subject subject;
    subject.note(1);
    QCOMPARE(m_dispatcher.pending(MainThreadQoS), std::size_t(1));
    const auto synchronous = shared("s");
    subject.addObserver(synchronous, false);
    subject.note(2);
    QCOMPARE(m_dispatcher.pending(MainThreadQoS), std::size_t(2));
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("s2"));
  }

  void anyCallableOfAnObserverWillDo() {
    Subject subject;
    const auto observer = shared("s");
    subject.addObserver(observer, false);
    subject.broadcast(&NoteProtocol::closed);
    subject.broadcast(std::function<void(NoteProtocol*)>([](NoteProtocol* o) { o->noted(1); }));
    subject.broadcast(std::bind(&NoteProtocol::noted, std::placeholders::_1, 2));
    QCOMPARE(taken(), QStringLiteral("s. s1 s2"));
  }

  void changesDuringABroadcastCountForTheNextOne_data() {
    QTest::addColumn<bool>("asynchronous");
    QTest::newRow("synchronous") << false;
    QTest::newRow("asynchronous") << true;
  }
  void changesDuringABroadcastCountForTheNextOne() {
    QFETCH(bool, asynchronous);
    Subject subject;
    const auto first = shared("a"), second = shared("b"), late = shared("c");
    subject.addObserver(first, asynchronous);
    subject.addObserver(second, asynchronous);
    first->whenCalled = [&] {
      subject.removeObserver(first);
      subject.removeObserver(second);
      subject.addObserver(late, asynchronous);
    };
    subject.note(1);
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("a1 b1"));
    subject.note(2);
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("c2"));
  }

  void changesAfterABroadcastDoNotReachItsTask() {
    Subject subject;
    const auto asynchronous = shared("a"), late = shared("l");
    subject.addObserver(asynchronous, true);
    subject.addObserver(guarded("g"));
    subject.note(1);
    subject.removeAllObservers();
    subject.addObserver(late, true);
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("g1 a1"));
    subject.note(2);
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("l2"));
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

  void anObserverAddedTwiceIsCalledTwiceAndRemovedAtOnce() {
    Subject subject;
    const auto observer = shared("s"), other = shared("o");
    QObjectObserver* const object = guarded("g");
    for (int i = 0; i < 2; ++i) {
      subject.addObserver(observer, false);
      subject.addObserver(observer, true);
      subject.addObserver(other, true);
      subject.addObserver(object);
    }
    subject.note(1);
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("s1 s1 g1 g1 s1 o1 s1 o1"));
    subject.removeObserver(observer);
    subject.note(2);
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("g2 g2 o2 o2"));
    subject.removeObserver(object);
    subject.note(3);
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("o3 o3"));
  }

  void removalTellsObjectsOfOneOwnerApart() {
    struct Pair {
      SharedObserver left, right;
    };
    Subject subject;
    const auto pair = std::shared_ptr<Pair>(
        new Pair{SharedObserver(QStringLiteral("l"), m_notes), SharedObserver(QStringLiteral("r"), m_notes)});
    const std::shared_ptr<NoteProtocol> left(pair, &pair->left);
    const std::shared_ptr<NoteProtocol> right(pair, &pair->right);
    subject.addObserver(left, false);
    subject.addObserver(right, false);
    subject.removeObserver(left);
    subject.note(1);
    QCOMPARE(taken(), QStringLiteral("r1"));
  }

  void aPlainObserverMustBeAManagedQObject() {
    Subject subject;
    SharedObserver noObject(QStringLiteral("n"), m_notes);
    QObjectObserver orphan(QStringLiteral("p"), m_notes, nullptr);
    QObjectObserver* const child = guarded("c");
    subject.addObserver(child);
    QCOMPARE(textThrownBy([&] { subject.addObserver(&noObject); }), unmanaged(noObject));
    QCOMPARE(textThrownBy([&] { subject.removeObserver(&noObject); }), unmanaged(noObject));
    // The parent counts on removal only.
    QCOMPARE(textThrownBy([&] { subject.addObserver(&orphan); }), QString());
    QCOMPARE(textThrownBy([&] { subject.removeObserver(&orphan); }), unmanaged(orphan));
    subject.note(1);
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("c1 p1"));
    orphan.setParent(&m_parent);
    subject.removeObserver(&orphan);
    subject.note(2);
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("c2"));
    orphan.setParent(nullptr);
  }

  void nullIsIgnored() {
    Subject subject;
    subject.addObserver(nullptr);
    subject.addObserver(nullptr, true);
    subject.addObserver(std::shared_ptr<NoteProtocol>(), false);
    subject.removeObserver(nullptr);
    subject.removeObserver(std::shared_ptr<NoteProtocol>());
    subject.note(1);
    m_dispatcher.runAll();
    QCOMPARE(taken(), QString());
  }

  // Each destructor comes back to the subject, which would hang if a reference went under its lock.
  void observersMayDieInsideEveryCall() {
    Subject subject;
    const auto comeBack = [&subject] {
      subject.removeAllObservers();
      subject.note(9);
    };
    auto removed = shared("r");
    removed->atEnd = comeBack;
    subject.addObserver(removed, false);
    subject.removeObserver(std::shared_ptr<NoteProtocol>(std::move(removed)));

    auto called = shared("c");
    called->atEnd = comeBack;
    called->whenCalled = [&called] { called.reset(); };
    subject.addObserver(called, false);
    subject.note(1);
    QVERIFY(!called);
    QCOMPARE(taken(), QStringLiteral("c1"));

    auto later = shared("l");
    later->atEnd = comeBack;
    later->whenCalled = [&later] { later.reset(); };
    subject.addObserver(later, true);
    subject.note(2);
    m_dispatcher.runAll();
    QVERIFY(!later);
    QCOMPARE(taken(), QStringLiteral("l2"));
  }

  void anObserverThatEndsInItsCallIsNotCalledAgain_data() {
    QTest::addColumn<bool>("asynchronous");
    QTest::newRow("synchronous") << false;
    QTest::newRow("asynchronous") << true;
  }
  void anObserverThatEndsInItsCallIsNotCalledAgain() {
    QFETCH(bool, asynchronous);
    Subject subject;
    auto observer = shared("o");
    const auto last = shared("l");
    observer->whenCalled = [&observer] { observer.reset(); };
    observer->atEnd = [this] { m_notes << QStringLiteral("gone"); };
    subject.addObserver(observer, asynchronous);
    subject.addObserver(observer, asynchronous);
    subject.addObserver(last, asynchronous);
    subject.note(1);
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("o1 gone l1"));
  }

  void theSubjectMayDieMeanwhile() {
    auto subject = std::make_unique<Subject>();
    const auto first = shared("a"), second = shared("b"), asynchronous = shared("t");
    subject->addObserver(first, false);
    subject->addObserver(second, false);
    subject->addObserver(asynchronous, true);
    first->whenCalled = [&] { subject.reset(); };
    subject->note(1);
    QVERIFY(!subject);
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("a1 b1 t1"));
  }

  void broadcastsNest() {
    Subject subject;
    const auto first = shared("a"), second = shared("b"), asynchronous = shared("t");
    subject.addObserver(first, false);
    subject.addObserver(second, false);
    subject.addObserver(asynchronous, true);
    first->whenCalled = [&] {
      first->whenCalled = {};
      subject.note(2);
    };
    subject.note(1);
    QCOMPARE(taken(), QStringLiteral("a1 a2 b2 b1"));
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("t1 t2"));
  }

  void whatASynchronousObserverThrowsReachesTheBroadcaster() {
    Subject subject;
    const auto observer = shared("s");
    subject.addObserver(observer, false);
    observer->whenCalled = [] { throw std::runtime_error("no"); };
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, subject.note(1));
    observer->whenCalled = {};
    subject.note(2);
    QCOMPARE(taken(), QStringLiteral("s1 s2"));
  }

  void aRefusedTaskLeavesTheSynchronousObservers() {
    Subject subject;
    const auto synchronous = shared("s"), asynchronous = shared("a");
    subject.addObserver(synchronous, false);
    subject.addObserver(asynchronous, true);
    m_dispatcher.setRefusing(true);
    subject.note(1);
    m_dispatcher.setRefusing(false);
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("s1"));
  }

private:
  std::shared_ptr<SharedObserver> shared(const char* name) {
    return std::make_shared<SharedObserver>(QLatin1String(name), m_notes);
  }
  QObjectObserver* guarded(const char* name) {
    return new QObjectObserver(QLatin1String(name), m_notes, &m_parent);
  }
  QString taken() { return std::exchange(m_notes, {}).join(QLatin1Char(' ')); }

  SteppedDispatcher m_dispatcher;
  ScopedDispatcher m_installed{m_dispatcher};
  Notes m_notes;
  QObject m_parent;
};

VELA_TEST_MAIN(BroadcasterTest)
#include "broadcaster_test.moc"
