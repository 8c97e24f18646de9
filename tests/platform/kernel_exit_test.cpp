// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <tqm_mesh_kernel/dispatch.h>
#include <tqm_mesh_kernel/shared_object_internal.h>
#include <vlk_app_service/application_service.h>
#include <vlk_app_service/i_app_manager.h>

#include <atomic>
#include <thread>

using namespace Taren::Core;

namespace {

/// An application object for the length of a scope. One program makes several here, as the dispatcher has to
/// bear with each.
struct Application {
  int count = 1;
  char name[5] = "test";
  char* arguments[2] = {name, nullptr};
  QCoreApplication application{count, arguments};
};

struct Mesh : virtual Taren::Objects::SharedObjectInternal {
  explicit Mesh(QThread*& place) : deletedOn(place) {}
  ~Mesh() override {
    beginDestruction();
    deletedOn = QThread::currentThread();
  }
  QThread*& deletedOn;
};

struct AppManager : Vela::Services::IAppManager {
  explicit AppManager(QString& told) : notes(told) {}
  ~AppManager() override { notes += QStringLiteral(", manager gone"); }
  QList<Vela::UiBase::CommandBase*> commandsFor(Vela::UiBase::CmdsViewController*) override { return {}; }
  QString& notes;
};

/// What workers turn to on the main thread. Called by name, so that what crosses the threads is Qt's own.
class Desk : public QObject {
  Q_OBJECT

public:
  explicit Desk(QString& notes) : m_notes(notes) {}
  Q_INVOKABLE void save() { m_notes += QStringLiteral(", saved"); }

private:
  QString& m_notes;
};

/// A service that still has work to do when it ends.
class ClosingService : public IService {
public:
  ClosingService(QString& notes, Desk& desk) : m_notes(notes), m_desk(desk) {}
  ~ClosingService() override {
    m_notes += QCoreApplication::instance() ? QStringLiteral(", service gone") : QStringLiteral(", too late");
  }

  ERcmStatus Initialize() override { return RcmSuccess; }
  void Terminate() override {
    m_notes += QStringLiteral("ended");
    const auto save = [&desk = m_desk] {
      QMetaObject::invokeMethod(&desk, "save", Qt::BlockingQueuedConnection);
    };
    if (dispatchSync(save, NormalQoS))
      dispatchAsync([save] { dispatchAsync(save, NormalQoS); }, MainThreadQoS);
  }
  QString ServiceName() const override { return QStringLiteral("closing"); }

private:
  QString& m_notes;
  Desk& m_desk;
};

} // namespace

class KernelExitTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  // First, as before the first application object nothing has closed yet.
  void tasksWaitForTheApplication() {
    bool ran = false;
    std::thread::id worker;
    QVERIFY(isMainThread());
    QVERIFY(dispatchAsync([&ran] { ran = true; }, MainThreadQoS));
    QVERIFY(dispatchSync([&worker] { worker = std::this_thread::get_id(); }, NormalQoS));
    QVERIFY(worker != std::thread::id() && worker != std::this_thread::get_id());
    QVERIFY(!ran);
    const Application application;
    QCoreApplication::processEvents();
    QVERIFY(ran);
  }

  void theEndServesEveryTaskAndThenRefuses() {
    std::atomic<int> ran{0};
    const auto count = [&ran] { ++ran; };
    {
      const Application application;
      const auto fromMainToWorkerAndBack = [&] {
        ++ran;
        dispatchAsync(
            [&] {
              ++ran;
              dispatchAsync(count, MainThreadQoS);
              dispatchSync(count, MainThreadQoS);
            },
            LowQoS);
      };
      QVERIFY(dispatchAsync(fromMainToWorkerAndBack, MainThreadQoS));
      for (const auto qos : {MainThreadQoS, HighQoS, NormalQoS, LowQoS}) {
        for (int i = 0; i < 50; ++i)
          QVERIFY(dispatchAsync(count, qos));
      }
    }
    QCOMPARE(ran.load(), 204);
    for (const auto qos : {MainThreadQoS, HighQoS, NormalQoS, LowQoS})
      QVERIFY(!dispatchAsync(count, qos));
    QVERIFY(!dispatchSync(count, NormalQoS));
    QCOMPARE(ran.load(), 204);
  }

  void whoHandsOverForeverIsCutOff() {
    for (const auto qos : {MainThreadQoS, NormalQoS}) {
      std::atomic<bool> accepted{true};
      std::function<void()> again = [&] {
        if (!dispatchAsync(again, qos)) // the next one may run before this one is back
          accepted = false;
      };
      {
        const Application application;
        again();
      }
      QVERIFY(!accepted);
    }
  }

  // A task that was accepted runs, however close to the end it came.
  void noAcceptedTaskIsLost() {
    for (int round = 0; round < 5; ++round) {
      std::atomic<int> accepted{0};
      std::atomic<int> ran{0};
      std::vector<std::jthread> pushers;
      {
        const Application application;
        for (const auto qos : {MainThreadQoS, NormalQoS, LowQoS}) {
          pushers.emplace_back([&, qos] {
            while (dispatchAsync([&ran] { ++ran; }, qos))
              ++accepted;
          });
        }
        while (accepted < 30)
          QCoreApplication::processEvents();
      }
      pushers.clear();
      QCOMPARE(ran.load(), accepted.load());
    }
  }

  void objectsReleasedAtTheEndAreDeleted() {
    QThread* duringTheEnd = nullptr;
    QThread* afterTheEnd = nullptr;
    std::shared_ptr<Mesh> survivor;
    {
      const Application application;
      auto mesh = Taren::Objects::createShared<Mesh>(duringTheEnd);
      dispatchAsync([mesh] {}, LowQoS);
      survivor = Taren::Objects::createShared<Mesh>(afterTheEnd);
    }
    QCOMPARE(duringTheEnd, QThread::currentThread());
    std::thread([survivor = std::move(survivor)]() mutable { survivor.reset(); }).join();
    QVERIFY(afterTheEnd);
  }

  // Also when the service is older than the first application object, and for each further one.
  void theApplicationServiceLetsGoBeforeTheDispatcherCloses() {
    auto& service = Vela::Services::ApplicationService::GetInstance();
    QString notes;
    Desk desk(notes);
    for (int i = 0; i < 2; ++i) {
      notes.clear();
      {
        const Application application;
        auto& same = Vela::Services::ApplicationService::GetInstance();
        same.Kernel().registerService(std::make_shared<ClosingService>(notes, desk));
        same.setAppManager(std::make_unique<AppManager>(notes));
        QCOMPARE(same.Kernel().start(), RcmSuccess);
      }
      QCOMPARE(notes, QStringLiteral("ended, saved, service gone, manager gone, saved"));
      QVERIFY(!service.GetAppManager());
      QVERIFY(!service.Kernel().isStarted());
    }
  }
};

QTEST_APPLESS_MAIN(KernelExitTest)
#include "kernel_exit_test.moc"
