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

template <class P>
class Announcer : public Delegator<P> {
public:
  using Delegator<P>::delegate;
};

/// Calls every callback of an observer that overrides nothing in each way of delivery.
template <class P, class F>
int callsOfEachDelivery(const F& callEverything) {
  struct Observer : QObject, P {};
  SteppedDispatcher dispatcher;
  const ScopedDispatcher installed(dispatcher);
  int calls = 0;
  const auto count = [&](P* observer) {
    callEverything(observer);
    ++calls;
  };
  const auto observer = std::make_shared<P>();
  Observer object;
  Announcer<P> announcer;
  announcer.setDelegate(observer, false);
  announcer.delegate(count);
  Broadcaster<P> broadcaster;
  broadcaster.addObserver(observer, true);
  broadcaster.addObserver(&object);
  broadcaster.broadcast(count);
  dispatcher.runAll();
  return calls;
}

} // namespace

class ProtocolsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void everyProtocolIsAnnouncedAndNothingNeedsToBeOverridden() {
    QCOMPARE(callsOfEachDelivery<CommandStateProtocol>([](CommandStateProtocol* observer) {
               observer->commandBegan(nullptr);
               observer->commandEnded(nullptr);
               observer->commandBeganExecuting(nullptr, true);
               observer->commandEndedExecuting(nullptr, false);
             }),
             3);
    using GroupProtocol = DynamicCommandGroupStateProtocol;
    QCOMPARE(callsOfEachDelivery<GroupProtocol>([](GroupProtocol* observer) {
               observer->commandGroupBegan(nullptr);
               observer->commandGroupEnded(nullptr);
             }),
             3);
    QCOMPARE(callsOfEachDelivery<CmdMgrProtocol>([](CmdMgrProtocol* observer) {
               observer->commandAdded(nullptr, nullptr);
               observer->commandRemoved(nullptr, QStringLiteral("open"));
             }),
             3);
    QCOMPARE(callsOfEachDelivery<ToolStateProtocol>([](ToolStateProtocol* observer) {
               observer->toolActivated(nullptr);
               observer->toolDeactivated(nullptr);
               observer->toolBeganOperating(nullptr);
               observer->toolEndedOperating(nullptr);
               observer->toolSuspended(nullptr);
               observer->toolResumed(nullptr);
               observer->toolCursorChange(nullptr);
             }),
             3);
    QCOMPARE(callsOfEachDelivery<PresentViewProtocol>([](PresentViewProtocol* observer) {
               QVERIFY(!observer->presentViewController(nullptr, NoTransition));
               QVERIFY(!observer->dismissViewController());
             }),
             3);
  }
};

VELA_TEST_MAIN(ProtocolsTest)
#include "protocols_test.moc"
