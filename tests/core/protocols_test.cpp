// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <tqm_mesh_kernel/stepped_dispatcher.h>
#include <ui_base/core/cmd_mgr_protocol.h>
#include <ui_base/core/command_state_protocol.h>
#include <ui_base/core/dynamic_command_group_state_protocol.h>
#include <ui_base/core/present_view_protocol.h>
#include <ui_base/core/tool_state_protocol.h>

#include <QString>

using namespace Taren::Core;
using namespace Vela::UiBase;

namespace {

/// An observer that overrides nothing.
template <class P>
class Observer : public QObject, public P {
public:
  using QObject::QObject;
};

/// Calls every callback of the protocol's default observer in each way of delivery.
template <class P, class F>
int callsOfEachDelivery(const F& callEverything) {
  SteppedDispatcher dispatcher;
  const ScopedDispatcher installed(dispatcher);
  int calls = 0;
  const auto count = [&](P* observer) {
    callEverything(observer);
    ++calls;
  };
  QObject parent;
  const auto observer = std::make_shared<P>();
  auto* const object = new Observer<P>(&parent);

  class Announcer : public Delegator<P> {
  public:
    using Delegator<P>::delegate;
  };
  Announcer announcer;
  announcer.setDelegate(observer, false);
  announcer.delegate(count);
  announcer.setDelegate(object);
  announcer.delegate(count);

  Broadcaster<P> broadcaster;
  broadcaster.addObserver(observer, true);
  broadcaster.addObserver(object);
  broadcaster.broadcast(count);
  broadcaster.removeObserver(object);
  broadcaster.removeObserver(observer);
  broadcaster.broadcast(count);

  P copy(*observer);
  copy = *object;
  callEverything(&copy);
  dispatcher.runAll();
  return calls;
}

} // namespace

class ProtocolsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void commandState() {
    QCOMPARE(callsOfEachDelivery<CommandStateProtocol>([](CommandStateProtocol* observer) {
               observer->commandBegan(nullptr);
               observer->commandEnded(nullptr);
               observer->commandBeganExecuting(nullptr, true);
               observer->commandEndedExecuting(nullptr, false);
             }),
             4);
  }

  void dynamicCommandGroupState() {
    QCOMPARE(
        callsOfEachDelivery<DynamicCommandGroupStateProtocol>([](DynamicCommandGroupStateProtocol* observer) {
          observer->commandGroupBegan(nullptr);
          observer->commandGroupEnded(nullptr);
        }),
        4);
  }

  void cmdMgr() {
    QCOMPARE(callsOfEachDelivery<CmdMgrProtocol>([](CmdMgrProtocol* observer) {
               observer->commandAdded(nullptr, nullptr);
               observer->commandRemoved(nullptr, QStringLiteral("open"));
             }),
             4);
  }

  void toolState() {
    QCOMPARE(callsOfEachDelivery<ToolStateProtocol>([](ToolStateProtocol* observer) {
               observer->toolActivated(nullptr);
               observer->toolDeactivated(nullptr);
               observer->toolBeganOperating(nullptr);
               observer->toolEndedOperating(nullptr);
               observer->toolSuspended(nullptr);
               observer->toolResumed(nullptr);
               observer->toolCursorChange(nullptr);
             }),
             4);
  }

  void presentView() {
    QCOMPARE(callsOfEachDelivery<PresentViewProtocol>([](PresentViewProtocol* observer) {
               QVERIFY(!observer->presentViewController(nullptr, NoTransition));
               QVERIFY(!observer->dismissViewController());
             }),
             4);
  }
};

VELA_TEST_MAIN(ProtocolsTest)
#include "protocols_test.moc"
