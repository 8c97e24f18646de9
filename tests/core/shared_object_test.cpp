// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <ui_base/core/shared_object.h>

#include <QObject>

using namespace Taren::Objects;

namespace {

class Manager : public virtual SharedObject<Manager> {
public:
  ~Manager() override { beginDestruction(); }
};

class Controller : public QObject, public virtual SharedObject<Controller> {
public:
  ~Controller() override { beginDestruction(); }
};

class ScreenController : public virtual Controller, public virtual Manager {
public:
  ~ScreenController() override {
    Controller::beginDestruction();
    if (atEnd)
      atEnd();
  }
  using Controller::shared_from_this;

  std::function<void()> atEnd;
};

class SelfKeeping : public virtual SharedObject<SelfKeeping> {
public:
  explicit SelfKeeping(std::shared_ptr<SelfKeeping>& holder) {
    adoptShared(this).swap(holder);
    sawItself = shared_from_this() == holder;
  }
  ~SelfKeeping() override { beginDestruction(); }
  bool sawItself = false;
};

} // namespace

class SharedObjectTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void everyBaseFindsTheSameOwner() {
    auto screen = createShared<ScreenController>();
    const std::shared_ptr<Controller> controller = screen->shared_from_this();
    const std::shared_ptr<Manager> manager = screen->Manager::shared_from_this();
    QCOMPARE(controller.get(), static_cast<Controller*>(screen.get()));
    QCOMPARE(manager.get(), static_cast<Manager*>(screen.get()));
    QVERIFY(!controller.owner_before(manager) && !manager.owner_before(controller));
    QCOMPARE(screen.use_count(), 3L);
  }

  void anObjectThatIsNotSharedHasNoReference() {
    Manager manager;
    QVERIFY(!manager.sharedOrEmpty());
    QVERIFY_THROWS_EXCEPTION(std::bad_weak_ptr, manager.shared_from_this());
  }

  void aCopyDoesNotTakeTheReferenceAlong() {
    const auto manager = createShared<Manager>();
    Manager copy(*manager);
    QVERIFY(!copy.sharedOrEmpty());
    copy = *manager;
    QVERIFY(!copy.sharedOrEmpty());
    *manager = copy;
    QCOMPARE(manager->shared_from_this(), manager);
  }

  void aDyingObjectHasNoReference_data() {
    QTest::addColumn<bool>("byHand");
    QTest::newRow("by its last reference") << false;
    QTest::newRow("by hand") << true;
  }
  void aDyingObjectHasNoReference() {
    QFETCH(bool, byHand);
    auto screen = createShared<ScreenController>();
    ScreenController* const plain = screen.get();
    int ends = 0;
    plain->atEnd = [&] {
      ++ends;
      QVERIFY(!plain->Manager::sharedOrEmpty());
      QVERIFY_THROWS_EXCEPTION(std::bad_weak_ptr, plain->shared_from_this());
    };
    if (byHand)
      delete plain;
    screen.reset();
    QCOMPARE(ends, 1);
  }

  void aConstructorMayShareItsObject() {
    std::shared_ptr<SelfKeeping> holder;
    const auto made = createShared<SelfKeeping>(holder);
    QVERIFY(made->sawItself);
    QCOMPARE(made, holder);
    QCOMPARE(made.use_count(), 2L);
  }
};

VELA_TEST_MAIN(SharedObjectTest)
#include "shared_object_test.moc"
