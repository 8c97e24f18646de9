// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <tqm_mesh_kernel/dispatch.h>
#include <ui_base/core/shared_object.h>

#include <atomic>
#include <core/note_protocol.h>
#include <thread>
#include <vector>

using namespace Taren::Core;
using namespace Vela::Test;

namespace {

constexpr int soakMs = 500;
constexpr int backlog = 500; // how much may be handed over and not yet done

std::atomic<int> calls{0};
std::atomic<int> strayCalls{0};

/// Knows whether it is alive when it is called, and where.
class Listener : public NoteProtocol {
public:
  ~Listener() override { m_life = 0; }
  void noted(int) override {
    ++calls;
    if (m_life != alive)
      ++strayCalls;
  }

private:
  static constexpr int alive = 0x5afe;
  std::atomic<int> m_life{alive};
};

class MainThreadListener : public QObject, public Listener {
public:
  explicit MainThreadListener(QObject* parent) : QObject(parent) {}
  void noted(int value) override {
    if (QThread::currentThread() != thread())
      ++strayCalls;
    Listener::noted(value);
  }
};

/// Announces from workers and is released there.
class Job : public virtual Taren::Objects::SharedObject<Job>, public Broadcaster<NoteProtocol> {
public:
  explicit Job(std::atomic<int>& deleted) : m_deleted(deleted) {}
  ~Job() override {
    beginDestruction();
    if (QThread::currentThread() != qApp->thread())
      ++strayCalls;
    ++m_deleted;
  }
  void run() {
    ++m_progress;
    broadcast([self = shared_from_this()](NoteProtocol* observer) { observer->noted(self->m_progress); });
  }

private:
  std::atomic<int>& m_deleted;
  std::atomic<int> m_progress{0};
};

} // namespace

class ThreadsTest : public TestCase {
  Q_OBJECT

private Q_SLOTS:
  void init() {
    calls = 0;
    strayCalls = 0;
  }

  void observersComeAndGoWhileOthersBroadcast() {
    Subject subject;
    const QDeadlineTimer end(soakMs);
    std::atomic<int> running{0};
    const auto loop = [&](const std::function<void(int)>& body) {
      ++running;
      return std::jthread([&, body] {
        for (int i = 0; !end.hasExpired(); ++i) {
          body(i);
          if (i % 64 == 0)
            dispatchSync([] {}, MainThreadQoS); // the queue of tasks has no limit
        }
        --running;
      });
    };
    const auto addAndRemove = [&](int i) {
      const auto listener = std::make_shared<Listener>();
      subject.addObserver(listener, i % 2 == 0);
      subject.addObserver(listener, false);
      if (i % 3 == 0)
        subject.note(i);
      if (i % 5 != 0)
        subject.removeObserver(listener); // otherwise it dies while it is registered
    };
    const auto replace = [&](int i) {
      if (i % 16 == 0)
        subject.setDelegate(std::make_shared<Listener>(), i % 32 == 0);
      else if (i % 16 == 8)
        subject.removeAllObservers();
      static_cast<void>(subject.getDelegate());
    };
    std::vector<std::jthread> threads;
    threads.push_back(loop([&](int i) { subject.note(i); }));
    threads.push_back(loop(addAndRemove));
    threads.push_back(loop(addAndRemove));
    threads.push_back(loop(replace));

    QObject parent;
    for (int i = 0; running > 0; ++i) {
      auto* const listener = new MainThreadListener(&parent);
      subject.addObserver(listener);
      QCoreApplication::processEvents();
      subject.note(i);
      if (i % 2)
        subject.removeObserver(listener);
      delete listener;
    }
    settle();
    QCOMPARE(strayCalls.load(), 0);
  }

  void tasksOfEveryKindFromEverywhere() {
    const QDeadlineTimer end(soakMs);
    std::atomic<int> handedOver{0};
    std::atomic<int> ran{0};
    std::atomic<int> running{4};
    int ranOnTheMainThread = 0; // a race unless each of these tasks runs there
    const auto work = [&](EQualityOfService qos) {
      return [&, qos] {
        ++ran;
        if (qos == MainThreadQoS)
          ++ranOnTheMainThread;
      };
    };
    const auto relay = [&](EQualityOfService qos) {
      return [&, qos] {
        handedOver += 2;
        dispatchAsync(work(qos), qos);
        dispatchSync(work(qos), qos);
        ++ran; // itself, last: when as many ran as were handed over, nothing is on its way
      };
    };
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < 4; ++thread) {
      threads.emplace_back([&, thread] {
        for (int i = thread; !end.hasExpired(); ++i) {
          handedOver += 2;
          relay(EQualityOfService(i % 4))();
          dispatchAsync(relay(EQualityOfService(i / 4 % 4)), EQualityOfService(HighQoS + i % 3));
          while (handedOver - ran > backlog)
            std::this_thread::yield();
        }
        --running;
      });
    }
    while (running > 0)
      QCoreApplication::processEvents();
    threads.clear();
    QTRY_COMPARE(ran.load(), handedOver.load());
    QVERIFY(ranOnTheMainThread > 0);
  }

  void jobsAnnounceAndEndOnWorkers() {
    const QDeadlineTimer end(soakMs);
    QObject parent;
    auto* const onMain = new MainThreadListener(&parent);
    const auto anywhere = std::make_shared<Listener>();
    std::atomic<int> deleted{0};
    int made = 0;
    for (; !end.hasExpired(); ++made) {
      auto job = Taren::Objects::createShared<Job>(deleted);
      job->addObserver(onMain);
      job->addObserver(anywhere, made % 2 == 0);
      dispatchAsync([job] { job->run(); }, NormalQoS);
      if (made % 3 == 0)
        dispatchAsync([job] { job->run(); }, HighQoS);
      job.reset();
      do
        QCoreApplication::processEvents();
      while (made - deleted > backlog);
    }
    QTRY_COMPARE(deleted.load(), made);
    QVERIFY(calls >= 2 * made);
    QCOMPARE(strayCalls.load(), 0);
  }
};

VELA_TEST_MAIN(ThreadsTest)
#include "threads_test.moc"
