// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <tqm_mesh_kernel/i_dispatcher.h>

#include <core/note_protocol.h>
#include <cstdlib>
#include <new>

using namespace Taren::Core;
using namespace Vela::Test;

namespace {
thread_local int allocations = 0;
}

void* operator new(std::size_t size) {
  ++allocations;
  if (void* const memory = std::malloc(size ? size : 1))
    return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

/// Keeps tasks in room made beforehand, so that what is counted is the broadcaster's.
class RoomyDispatcher : public IDispatcher {
public:
  RoomyDispatcher() { m_tasks.reserve(16); }
  bool dispatchAsync(std::function<void()> task, EQualityOfService) override {
    m_tasks.push_back(std::move(task));
    return true;
  }
  bool dispatchSync(const std::function<void()>&, EQualityOfService) override { return false; }
  void runAll() {
    for (const auto& task : m_tasks)
      task();
    m_tasks.clear();
  }

private:
  std::vector<std::function<void()>> m_tasks;
};

class Counter : public QObject, public NoteProtocol {
public:
  using QObject::QObject;
  void noted(int value) override { sum += value; }
  int sum = 0;
};

int allocationsOf(Subject& subject) {
  const int before = allocations;
  const double weight = 1, factor = 1; // more than a std::function holds by itself
  subject.broadcast([value = 1, weight, factor](NoteProtocol* observer) {
    observer->noted(static_cast<int>(value * weight * factor));
  });
  return allocations - before;
}

} // namespace

class BroadcastAllocationsTest : public TestCase {
  Q_OBJECT

private Q_SLOTS:
  void aBroadcastToAThousandOfEachKind() {
    constexpr int each = 1000;
    RoomyDispatcher dispatcher;
    const ScopedDispatcher installed(dispatcher);
    Subject subject;
    QObject parent;
    const auto observer = std::make_shared<Counter>();
    auto* const object = new Counter(&parent);
    for (int i = 0; i < each; ++i)
      subject.addObserver(observer, false);
    QCOMPARE(allocationsOf(subject), 0);
    for (int i = 0; i < each; ++i) {
      subject.addObserver(observer, true);
      subject.addObserver(object);
    }
    observer->sum = 0;
    for (int round = 1; round <= 3; ++round) {
      const int counted = allocationsOf(subject);
      QVERIFY2(counted <= 2, qPrintable(QString::number(counted)));
      dispatcher.runAll();
      QCOMPARE(observer->sum + object->sum, round * 3 * each);
    }
  }
};

VELA_TEST_MAIN(BroadcastAllocationsTest)
#include "broadcast_allocations_test.moc"
