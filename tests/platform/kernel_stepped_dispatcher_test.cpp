// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <tqm_mesh_kernel/dispatch.h>
#include <tqm_mesh_kernel/stepped_dispatcher.h>

#include <thread>

using namespace Taren::Core;

class KernelSteppedDispatcherTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void cleanup() { m_order.clear(); }

  void stepsInOrderOfArrivalOrByQualityOfService() {
    SteppedDispatcher dispatcher;
    const ScopedDispatcher installed(dispatcher);
    add("a", NormalQoS);
    add("b", MainThreadQoS);
    add("c", MainThreadQoS);
    std::thread([this] { add("d", NormalQoS); }).join();
    Vela::Test::settle();
    QCOMPARE(m_order, QString());
    QCOMPARE(dispatcher.pending(), std::size_t(4));
    QCOMPARE(dispatcher.pending(NormalQoS), std::size_t(2));

    QVERIFY(dispatcher.step(MainThreadQoS));
    QCOMPARE(m_order, QStringLiteral("b"));
    QVERIFY(!dispatcher.step(LowQoS));
    QVERIFY(dispatcher.step());
    QCOMPARE(m_order, QStringLiteral("ba"));
    dispatcher.runAll();
    QCOMPARE(m_order, QStringLiteral("bacd"));
    QVERIFY(!dispatcher.step());
  }

  void theDispatcherBeforeComesBack() {
    SteppedDispatcher outer;
    const ScopedDispatcher installedOuter(outer);
    {
      SteppedDispatcher inner;
      const ScopedDispatcher installedInner(inner);
      add("inner", MainThreadQoS);
      QCOMPARE(inner.pending(), std::size_t(1));
    }
    add("outer", MainThreadQoS);
    QCOMPARE(outer.pending(), std::size_t(1));
  }

private:
  void add(const char* name, EQualityOfService qos) {
    QVERIFY(dispatchAsync([this, name] { m_order += QLatin1String(name); }, qos));
  }

  QString m_order;
};

VELA_TEST_MAIN(KernelSteppedDispatcherTest)
#include "kernel_stepped_dispatcher_test.moc"
