// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <tqm_mesh_kernel/stepped_dispatcher.h>

#include <core/note_protocol.h>
#include <stdexcept>
#include <typeinfo>

using namespace Taren::Core;
using namespace Vela::Test;

namespace {

class WatchedSubject : public Subject {
public:
  void addObserver(NoteProtocol* observer) override {
    calls += QStringLiteral("add ");
    Subject::addObserver(observer);
  }
  void addObserver(const std::shared_ptr<NoteProtocol>& observer, bool asynchronous) override {
    calls += asynchronous ? QStringLiteral("asynchronous ") : QStringLiteral("synchronous ");
    Subject::addObserver(observer, asynchronous);
  }
  void removeAllObservers() override {
    calls += QStringLiteral("clear ");
    Subject::removeAllObservers();
  }
  QString calls;
};

/// Adds itself in its constructor, when it is not yet of the class it ends as.
class SelfAddingObserver : public QObjectObserver {
public:
  SelfAddingObserver(Subject& subject, const QString& name, Notes& notes, QObject* parent)
      : QObjectObserver(name, notes, parent) {
    subject.addObserver(this);
  }
};

QString unmanaged(const NoteProtocol& observer) {
  return QLatin1String(typeid(observer).name()) +
         QStringLiteral(" needs to be a QObject with its lifetime managed by its parent!");
}

QString textThrownBy(const std::function<void()>& f) {
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
    subject.note(0);
    QCOMPARE(m_dispatcher.pending(MainThreadQoS), std::size_t(1)); // a task also when nobody listens
    const auto synchronous1 = shared("s"), synchronous2 = shared("S");
    const auto asynchronous1 = shared("a"), asynchronous2 = shared("A");
    subject.addObserver(asynchronous1, true);
    subject.addObserver(synchronous1, false);
    subject.addObserver(guarded("g"));
    subject.addObserver(synchronous2, false);
    subject.addObserver(guarded("G"));
    subject.addObserver(asynchronous2, true);
    subject.note(1);
    subject.note(2);
    QCOMPARE(taken(), QStringLiteral("s1 S1 s2 S2"));
    QCOMPARE(m_dispatcher.pending(), std::size_t(3));
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("g1 G1 a1 A1 g2 G2 a2 A2"));
  }

  void anyCallableOfAnObserverWillDo() {
    Subject subject;
    const auto synchronous = shared("s"), asynchronous = shared("a");
    for (int i = 0; i < 2; ++i) {
      subject.addObserver(synchronous, false);
      subject.addObserver(asynchronous, true);
    }
    subject.broadcast(&NoteProtocol::closed);
    subject.broadcast(std::bind(&NoteProtocol::noted, std::placeholders::_1, 1));
    subject.broadcast([count = 2](NoteProtocol* observer) mutable { observer->noted(count++); });
    subject.broadcast(
        [count = std::make_unique<int>(4)](NoteProtocol* observer) { observer->noted(*count); });
    QCOMPARE(taken(), QStringLiteral("s. s. s1 s1 s2 s3 s4 s4"));
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("a. a. a1 a1 a2 a3 a4 a4"));
  }

  void changesCountForTheNextBroadcast_data() { deliveryRows(); }
  void changesCountForTheNextBroadcast() {
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

  void nobodyIsKeptAliveBeyondItsCall_data() { deliveryRows(); }
  void nobodyIsKeptAliveBeyondItsCall() {
    QFETCH(bool, asynchronous);
    Subject subject;
    auto first = shared("a");
    const auto second = shared("b");
    first->atEnd = [this] { m_notes << QStringLiteral("gone"); };
    second->whenCalled = [&] {
      first.reset();
      m_notes << QStringLiteral("b ends");
    };
    subject.addObserver(first, asynchronous);
    subject.addObserver(second, asynchronous);
    subject.addObserver(first, asynchronous);
    note(subject, 1);
    QCOMPARE(taken(), QStringLiteral("a1 b1 gone b ends"));
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

    auto* const grown = new SelfAddingObserver(subject, QStringLiteral("h"), m_notes, &m_parent);
    note(subject, 2);
    QCOMPARE(taken(), QStringLiteral("h2"));
    QCOMPARE(subject.getDelegate(), grown);
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
    note(subject, 1);
    QCOMPARE(taken(), QStringLiteral("s1 s1 g1 g1 s1 o1 s1 o1"));
    subject.removeObserver(observer);
    note(subject, 2);
    QCOMPARE(taken(), QStringLiteral("g2 g2 o2 o2"));
    subject.removeObserver(object);
    note(subject, 3);
    QCOMPARE(taken(), QStringLiteral("o3 o3"));
  }

  void removalGoesByTheObjectNotItsOwner() {
    Subject subject;
    const auto owner = std::make_shared<int>();
    SharedObserver left(QStringLiteral("l"), m_notes), right(QStringLiteral("r"), m_notes);
    const std::shared_ptr<NoteProtocol> oneOwner(owner, &left), sameOwner(owner, &right);
    const std::shared_ptr<NoteProtocol> otherOwner(std::make_shared<int>(), &left);
    for (const auto& observer : {oneOwner, sameOwner, otherOwner})
      subject.addObserver(observer, false);
    subject.removeObserver(otherOwner);
    subject.note(1);
    QCOMPARE(taken(), QStringLiteral("r1"));
  }

  void aPlainObserverMustBeAManagedQObject() {
    Subject subject;
    SharedObserver noObject(QStringLiteral("n"), m_notes);
    QObjectObserver orphan(QStringLiteral("p"), m_notes, nullptr);
    subject.addObserver(guarded("c"));
    QCOMPARE(textThrownBy([&] { subject.addObserver(&noObject); }), unmanaged(noObject));
    QCOMPARE(textThrownBy([&] { subject.removeObserver(&noObject); }), unmanaged(noObject));
    subject.addObserver(&orphan); // the parent counts on removal only
    QCOMPARE(textThrownBy([&] { subject.removeObserver(&orphan); }), unmanaged(orphan));
    note(subject, 1);
    QCOMPARE(taken(), QStringLiteral("c1 p1"));
    orphan.setParent(&m_parent);
    subject.removeObserver(&orphan);
    note(subject, 2);
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
    note(subject, 1);
    QCOMPARE(taken(), QString());
  }

  // Each destructor comes back to the subject, which would hang if a reference went under its lock.
  void observersMayDieInsideEveryCall_data() { deliveryRows(); }
  void observersMayDieInsideEveryCall() {
    QFETCH(bool, asynchronous);
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

  void settingADelegateReplacesTheObservers() {
    WatchedSubject subject;
    const auto delegate = shared("a");
    QVERIFY(!subject.getDelegate());
    subject.setDelegate(guarded("g"));
    subject.setDelegate(delegate, true);
    note(subject, 1);
    subject.setDelegate(delegate, false);
    QCOMPARE(subject.getDelegate(), delegate.get());
    QCOMPARE(delegate.use_count(), 1L);
    QVERIFY_THROWS_EXCEPTION(std::logic_error, subject.setDelegate(delegate.get())); // no QObject
    QVERIFY(!subject.getDelegate());
    subject.setDelegate(delegate, false);
    subject.setDelegate(nullptr);
    QVERIFY(!subject.getDelegate());
    QCOMPARE(taken(), QStringLiteral("a1"));
    QCOMPARE(subject.calls,
             QStringLiteral(
                 "clear add clear asynchronous clear synchronous clear add clear synchronous clear add "));
  }

  // Each row lists observers in order of addition: g guarded, a asynchronous, s synchronous; upper case dies.
  void theDelegateIsTheFirstObserver_data() {
    QTest::addColumn<QString>("observers");
    QTest::addColumn<int>("delegate");
    QTest::addColumn<int>("afterABroadcast");
    QTest::newRow("guarded before all") << "sag" << 2 << 2;
    QTest::newRow("asynchronous before synchronous") << "ssa" << 2 << 2;
    QTest::newRow("dead guarded hides the others until a broadcast") << "Gas" << -1 << 1;
    QTest::newRow("dead asynchronous hides the others until a broadcast") << "Aas" << -1 << 1;
    QTest::newRow("dead synchronous") << "Ss" << -1 << 1;
    QTest::newRow("all dead") << "GAS" << -1 << -1;
  }
  void theDelegateIsTheFirstObserver() {
    QFETCH(QString, observers);
    QFETCH(int, delegate);
    QFETCH(int, afterABroadcast);
    Subject subject;
    std::vector<std::shared_ptr<SharedObserver>> held;
    std::vector<NoteProtocol*> plain;
    for (const QChar kind : std::as_const(observers)) {
      held.push_back(shared("o"));
      plain.push_back(kind.toLower() == QLatin1Char('g') ? guarded("g") : held.back().get());
      if (kind.toLower() == QLatin1Char('g'))
        subject.addObserver(plain.back());
      else
        subject.addObserver(held.back(), kind.toLower() == QLatin1Char('a'));
    }
    for (std::size_t i = 0; i < plain.size(); ++i) {
      if (observers.at(int(i)) == QLatin1Char('G'))
        delete plain[i];
      else if (observers.at(int(i)).isUpper())
        held[i].reset();
    }
    const auto expected = [&plain](int index) { return index < 0 ? nullptr : plain[std::size_t(index)]; };
    QCOMPARE(subject.getDelegate(), expected(delegate));
    subject.note(1);
    QCOMPARE(subject.getDelegate(), expected(afterABroadcast));
  }

private:
  static void deliveryRows() {
    QTest::addColumn<bool>("asynchronous");
    QTest::newRow("synchronous") << false;
    QTest::newRow("asynchronous") << true;
  }
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
