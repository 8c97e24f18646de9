// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <ui_base/core/shared_object.h>

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
    hasReference = Manager::sharedOrEmpty() != nullptr;
    QVERIFY_THROWS_EXCEPTION(std::bad_weak_ptr, shared_from_this());
  }
  using Controller::shared_from_this;
  static inline bool hasReference = true;
};

} // namespace

class SharedObjectTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void everyBaseFindsTheSameOwnerUntilTheObjectDies() {
    auto screen = createShared<ScreenController>();
    {
      const std::shared_ptr<Controller> controller = screen->shared_from_this();
      const std::shared_ptr<Manager> manager = screen->Manager::shared_from_this();
      QVERIFY(!controller.owner_before(manager) && !manager.owner_before(controller));
    }
    screen.reset();
    QVERIFY(!ScreenController::hasReference);
  }

  void aCopyHasNoReference() {
    const auto shared = createShared<Manager>();
    Manager copy(*shared);
    copy = *shared;
    QVERIFY(!copy.sharedOrEmpty());
    *shared = copy;
    QCOMPARE(shared->shared_from_this(), shared);
  }
};

VELA_TEST_MAIN(SharedObjectTest)
#include "shared_object_test.moc"
