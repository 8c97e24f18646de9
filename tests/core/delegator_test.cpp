// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <tqm_mesh_kernel/stepped_dispatcher.h>

#include <core/note_protocol.h>
#include <stdexcept>

using namespace Taren::Core;
using namespace Vela::Test;

namespace {

class Subject : public Delegator<NoteProtocol> {
public:
  void note(int value) {
    delegate([value](NoteProtocol* observer) { observer->noted(value); });
  }
};

class WatchedSubject : public Subject {
public:
  void addObserver(NoteProtocol* observer) override {
    calls << QStringLiteral("add");
    Subject::addObserver(observer);
  }
  void addObserver(const std::shared_ptr<NoteProtocol>& observer, bool asynchronous) override {
    calls << (asynchronous ? QStringLiteral("add asynchronous") : QStringLiteral("add synchronous"));
    Subject::addObserver(observer, asynchronous);
  }
  void removeAllObservers() override {
    calls << QStringLiteral("clear");
    Subject::removeAllObservers();
  }

  QStringList calls;
};

} // namespace

class DelegatorTest : public TestCase {
  Q_OBJECT

private Q_SLOTS:
  void cleanup() {
    m_dispatcher.runAll();
    m_notes.clear();
    qDeleteAll(m_parent.children());
  }

  void theNewDelegateReplacesTheOldOne() {
    Subject subject;
    const auto first = shared("a"), second = shared("b");
    subject.addObserver(shared("x"), true);
    subject.setDelegate(first, false);
    QCOMPARE(subject.getDelegate(), first.get());
    subject.setDelegate(second, true);
    QCOMPARE(subject.getDelegate(), second.get());
    subject.note(1);
    QCOMPARE(taken(), QString());
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("b1"));

    QObjectObserver* const object = guarded("g");
    subject.setDelegate(object);
    QCOMPARE(subject.getDelegate(), object);
    subject.note(2);
    m_dispatcher.runAll();
    QCOMPARE(taken(), QStringLiteral("g2"));
  }

  void nullLeavesNoDelegate() {
    Subject subject;
    const auto delegate = shared("a");
    QVERIFY(!subject.getDelegate());
    subject.setDelegate(delegate, false);
    subject.setDelegate(nullptr);
    QVERIFY(!subject.getDelegate());
    subject.setDelegate(delegate, false);
    subject.setDelegate(nullptr, true);
    QVERIFY(!subject.getDelegate());
  }

  void aDelegateThatIsNoQObjectIsRefused() {
    Subject subject;
    const auto delegate = shared("a");
    subject.setDelegate(delegate, false);
    QVERIFY_THROWS_EXCEPTION(std::logic_error, subject.setDelegate(delegate.get()));
    QVERIFY(!subject.getDelegate());
  }

  void settingGoesThroughTheVirtualOperations() {
    WatchedSubject subject;
    subject.setDelegate(guarded("g"));
    subject.setDelegate(shared("a"), true);
    subject.setDelegate(shared("s"), false);
    QCOMPARE(subject.calls.join(QStringLiteral(", ")),
             QStringLiteral("clear, add, clear, add asynchronous, clear, add synchronous"));
  }

  // Each row lists observers in order of addition: g guarded, a asynchronous, s synchronous; upper case dies.
  void theDelegateIsTheFirstObserver_data() {
    QTest::addColumn<QString>("observers");
    QTest::addColumn<int>("delegate");
    QTest::addColumn<int>("afterABroadcast");
    QTest::newRow("guarded before all") << "sag" << 2 << 2;
    QTest::newRow("asynchronous before synchronous") << "ssa" << 2 << 2;
    QTest::newRow("first of its kind") << "ss" << 0 << 0;
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
      if (kind.toLower() == QLatin1Char('g')) {
        plain.push_back(guarded("g"));
        subject.addObserver(plain.back());
      } else {
        plain.push_back(held.back().get());
        subject.addObserver(held.back(), kind.toLower() == QLatin1Char('a'));
      }
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

  void askingKeepsNobodyAlive() {
    Subject subject;
    auto delegate = shared("a");
    subject.setDelegate(delegate, true);
    QVERIFY(subject.getDelegate());
    QCOMPARE(delegate.use_count(), 1L);
    delegate.reset();
    QVERIFY(!subject.getDelegate());
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

VELA_TEST_MAIN(DelegatorTest)
#include "delegator_test.moc"
