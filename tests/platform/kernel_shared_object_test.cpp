// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <tqm_mesh_kernel/dispatch.h>
#include <tqm_mesh_kernel/shared_object_internal.h>

#include <thread>

using namespace Taren::Core;
using namespace Taren::Objects;

namespace {

class Shape : public virtual SharedObjectInternal {};

class Picture : public virtual SharedObjectInternal {};

class TexturedMesh : public Shape, public Picture {
public:
  explicit TexturedMesh(std::function<void(TexturedMesh*)> atEnd = {}) : m_atEnd(std::move(atEnd)) {}
  ~TexturedMesh() override {
    beginDestruction();
    if (m_atEnd)
      m_atEnd(this);
  }
  bool canLockSelf() const { return lockSelf() != nullptr; }

private:
  std::function<void(TexturedMesh*)> m_atEnd;
};

class SharedQObject : public QObject, public virtual SharedObjectInternal {
public:
  using QObject::QObject;
  ~SharedQObject() override { beginDestruction(); }
};

} // namespace

class KernelSharedObjectTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void adoptingJoinsTheOwnerThereIs() {
    auto* const plain = new TexturedMesh;
    QVERIFY(!plain->isShared() && !plain->canLockSelf());
    const auto first = adoptShared(plain);
    const auto second = adoptShared(static_cast<Picture*>(plain)); // another base
    QVERIFY(!first.owner_before(second) && !second.owner_before(first));
    QVERIFY(plain->isShared() && plain->canLockSelf());
  }

  void aDyingObjectCannotBeAdopted() {
    int refused = 0;
    bool locked = true;
    const auto atEnd = [&](TexturedMesh* dying) {
      locked = dying->canLockSelf();
      try {
        adoptShared(dying);
      } catch (const std::bad_weak_ptr&) {
        ++refused;
      }
    };
    for (const bool byHand : {true, false}) {
      auto* const mesh = new TexturedMesh(atEnd);
      auto held = adoptShared(mesh);
      if (byHand)
        delete mesh;
      held.reset();
      QVERIFY(!locked);
    }
    { const TexturedMesh neverShared(atEnd); }
    QCOMPARE(refused, 3);
  }

  void aQtParentGivesUpItsChild() {
    auto parent = std::make_unique<QObject>();
    auto child = adoptShared(new SharedQObject(parent.get()));
    QVERIFY(!child->parent());
    parent = std::make_unique<QObject>();
    const QPointer<QObject> watch = child.get();

    // A parent that comes later is an owner again, and deletes by hand.
    child->setParent(parent.get());
    parent.reset();
    QVERIFY(!watch);
    child.reset();
  }

  // Once, also where deletion by hand overtakes the dispatched one.
  void theLastReferenceOnAWorkerDeletesOnTheMainThread() {
    for (const bool byHand : {false, true}) {
      QList<QThread*> where;
      auto mesh = createShared<TexturedMesh>([&where](TexturedMesh*) { where += QThread::currentThread(); });
      TexturedMesh* const plain = mesh.get();
      std::thread([mesh = std::move(mesh)]() mutable { mesh.reset(); }).join();
      QVERIFY(where.isEmpty());
      QVERIFY_THROWS_EXCEPTION(std::bad_weak_ptr, adoptShared(plain));
      if (byHand)
        delete plain;
      Vela::Test::settle();
      QCOMPARE(where, QList{QThread::currentThread()});
    }
  }
};

VELA_TEST_MAIN(KernelSharedObjectTest)
#include "kernel_shared_object_test.moc"
