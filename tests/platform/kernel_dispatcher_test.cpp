// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <tqm_mesh_kernel/dispatch.h>

#include <atomic>
#include <stdexcept>
#include <thread>

using namespace Taren::Core;

namespace {

class EventCounter : public QObject {
public:
  explicit EventCounter(QEvent::Type type) : m_type(type) { qApp->installEventFilter(this); }
  int count() const { return m_count; }

  bool eventFilter(QObject*, QEvent* event) override {
    m_count += event->type() == m_type;
    return false;
  }

private:
  QEvent::Type m_type;
  int m_count = 0;
};

/// What workers turn to on the main thread. Called by name, so that what crosses the threads is Qt's own.
class Desk : public QObject {
  Q_OBJECT

public:
  Q_INVOKABLE void answer() { ++answers; }
  Q_INVOKABLE void fail() { throw std::runtime_error("no answer"); }
  int answers = 0;
};

enum Place { Main, Worker, Plain };

} // namespace

class KernelDispatcherTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void manyTasksCostOneWakeUp() {
    EventCounter wakeUps(QEvent::User);
    int ran = 0;
    for (int i = 0; i < 1000; ++i)
      QVERIFY(dispatchAsync([&ran] { ++ran; }, MainThreadQoS));
    Vela::Test::settle();
    QCOMPARE(ran, 1000);
    // The second one is for the rest of the batch, in case a task had turned an event loop.
    QVERIFY(wakeUps.count() <= 2);
  }

  void aTaskWithAnEventLoopKeepsTheOrder() {
    QStringList order;
    QEventLoop dialog;
    const auto dispatchNote = [&order](const char* text) {
      dispatchAsync([&order, text] { order << QLatin1String(text); }, MainThreadQoS);
    };
    const auto open = [&] {
      order << QStringLiteral("open");
      dispatchNote("queued by it");
      dispatchAsync([&dialog] { dialog.quit(); }, MainThreadQoS);
      dialog.exec();
      order << QStringLiteral("closed");
    };
    dispatchNote("first");
    dispatchAsync(open, MainThreadQoS);
    dispatchNote("follower");
    dispatchNote("last");
    Vela::Test::settle();
    QCOMPARE(order.join(", "), "first, open, follower, last, queued by it, closed");
  }

  void aTaskThatQueuesItselfLeavesTheEventLoopRunning() {
    std::function<void()> again;
    bool stop = false;
    again = [&] {
      if (!stop)
        dispatchAsync(again, MainThreadQoS);
    };
    again();
    bool turned = false;
    QMetaObject::invokeMethod(
        this, [&turned] { turned = true; }, Qt::QueuedConnection);
    QTRY_VERIFY(turned);
    stop = true;
    Vela::Test::settle();
  }

  void whatATaskHoldsEndsWithIt() {
    auto held = std::make_shared<int>();
    bool goneBeforeTheNext = false;
    const std::weak_ptr<int> watch = held;
    dispatchAsync([held = std::move(held)] {}, MainThreadQoS);
    dispatchAsync([&] { goneBeforeTheNext = watch.expired(); }, MainThreadQoS);
    Vela::Test::settle();
    QVERIFY(goneBeforeTheNext);
  }

  void syncRunsWhereTheTaskBelongs() {
    for (const Place from : {Main, Worker, Plain}) {
      for (const int qos : {MainThreadQoS, HighQoS, NormalQoS, LowQoS}) {
        std::thread::id caller;
        std::thread::id runner;
        std::atomic<bool> done{false};
        const auto call = [&] {
          caller = std::this_thread::get_id();
          done = dispatchSync([&] { runner = std::this_thread::get_id(); }, EQualityOfService(qos));
        };
        std::jthread thread;
        if (from == Plain)
          thread = std::jthread(call);
        else
          from == Main ? call() : void(dispatchAsync(call, NormalQoS));
        QTRY_VERIFY(done);
        QCOMPARE(caller == runner, from == (qos == MainThreadQoS ? Main : Worker));
        QCOMPARE(runner == std::this_thread::get_id(), qos == MainThreadQoS);
      }
    }
  }

  void theWaitingMainThreadServesItsQueue() {
    QStringList order;
    dispatchAsync([&order] { order << QStringLiteral("waited before"); }, MainThreadQoS);
    const auto innermost = [&order] { order << QStringLiteral("worker again"); };
    const auto onMain = [&] {
      order << QStringLiteral("main");
      QVERIFY(dispatchSync(innermost, HighQoS));
    };
    QVERIFY(dispatchSync([&] { QVERIFY(dispatchSync(onMain, MainThreadQoS)); }, LowQoS));
    QCOMPARE(order.join(", "), "waited before, main, worker again");
  }

  void theWaitingMainThreadServesQueuedCallsAndNothingElseOfQt() {
    QPointer<QObject> deleted = new QObject;
    deleted->deleteLater();
    QTimer timer;
    QSignalSpy timeouts(&timer, &QTimer::timeout);
    timer.start(0);
    EventCounter others(QEvent::Type(QEvent::User + 1));
    QCoreApplication::postEvent(this, new QEvent(QEvent::Type(QEvent::User + 1)));
    QTest::ignoreMessage(QtWarningMsg, "A dispatched task failed: no answer");
    Desk desk;
    const auto call = [&desk] {
      QMetaObject::invokeMethod(&desk, "fail", Qt::QueuedConnection);
      for (int i = 0; i < 3; ++i)
        QMetaObject::invokeMethod(&desk, "answer", Qt::BlockingQueuedConnection);
    };
    QVERIFY(dispatchSync(call, NormalQoS));
    QCOMPARE(desk.answers, 3);
    QVERIFY(deleted && timeouts.isEmpty() && others.count() == 0);
    QTRY_VERIFY(!deleted && !timeouts.isEmpty() && others.count() == 1);
  }

  void workerTasksMayWaitForOneAnother() {
    for (const auto& [one, other] : {std::pair(NormalQoS, NormalQoS), std::pair(LowQoS, HighQoS)}) {
      auto arrived = std::make_shared<std::atomic<int>>(0);
      auto met = std::make_shared<std::atomic<int>>(0);
      const auto meet = [arrived, met] {
        ++*arrived;
        while (*arrived < 2)
          std::this_thread::yield();
        ++*met;
      };
      dispatchAsync(meet, one);
      dispatchAsync(meet, other);
      QTRY_COMPARE(met->load(), 2);
    }
  }

  void whatATaskThrowsIsLogged() {
    for (const auto place : {MainThreadQoS, NormalQoS}) {
      QTest::ignoreMessage(QtWarningMsg, "A dispatched task failed: the mesh is empty");
      QTest::ignoreMessage(QtWarningMsg, "A dispatched task failed with an unknown exception");
      std::atomic<bool> next{false};
      auto what = std::make_shared<int>(7);
      const std::weak_ptr<int> thrown = what;
      QVERIFY(dispatchSync([] { throw std::runtime_error("the mesh is empty"); }, place));
      dispatchAsync([what = std::move(what)] { throw std::shared_ptr<int>(what); }, place);
      dispatchAsync(std::function<void()>(), place); // does nothing
      dispatchAsync([&next] { next = true; }, place);
      QTRY_VERIFY(next);
      QTRY_VERIFY(thrown.expired()); // caught and logged: a worker may have been overtaken by the next one
    }
  }
};

VELA_TEST_MAIN(KernelDispatcherTest)
#include "kernel_dispatcher_test.moc"
