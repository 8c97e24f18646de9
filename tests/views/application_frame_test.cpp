// SPDX-License-Identifier: MIT
#include "recording_controller.h"

#include <support/test_case.h>
#include <tqm_mesh_kernel/kernel.h>
#include <ui_base/views/base_view.h>
#include <ui_base/views/tabbed_app.h>
#include <ui_base/views/vc_command_app.h>

#include <QPointer>

using Vela::Test::RecordingController;
using namespace Taren::Core;
using namespace Vela::UiBase;

namespace {

class PageApp : public TabbedApp {
public:
  using TabbedApp::setRootViewController;
  ERcmStatus Initialize() override { return Init() ? RcmSuccess : RcmFailure; }
  QString ServiceName() const override { return QStringLiteral("pages"); }
};

class DrivenApp : public VCCommandApp {
public:
  QString ServiceName() const override { return QStringLiteral("driven"); }
  QList<CommandBase*> commandsFor(CmdsViewController*) override { return {}; }
  CmdsViewController* commandViewController() const override { return nullptr; }
};

} // namespace

/// Applications as services, and how long the root controller of one lives.
class ApplicationFrameTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void applicationsStartAndEndWithTheKernel() {
    Kernel kernel;
    const auto app = std::make_shared<PageApp>();
    kernel.registerService(app);
    kernel.registerService(std::make_shared<DrivenApp>());
    QCOMPARE(kernel.start(), RcmSuccess);
    QVERIFY(!app->getVC() && !app->Update());
    kernel.stop();
  }

  void rootControllerDiesOnce_data() {
    QTest::addColumn<bool>("hasView");
    QTest::addColumn<QString>("first");
    QTest::newRow("application ends, no view") << false << QStringLiteral("app");
    for (const char* first : {"app", "view", "controller", "another takes its place", "none takes its place"})
      QTest::newRow(first) << true << QString::fromLatin1(first);
  }

  void rootControllerDiesOnce() {
    QFETCH(bool, hasView);
    QFETCH(QString, first);
    QStringList calls;
    const QPointer<BaseView> view = hasView ? new BaseView : nullptr;
    const QPointer<RecordingController> controller = new RecordingController(&calls, view);
    auto app = std::make_unique<PageApp>();
    app->setRootViewController(controller);
    app->setRootViewController(controller);
    QCOMPARE(app->getVC(), controller.data());

    QPointer<BaseViewController> next;
    if (first == QLatin1String("view")) {
      delete view;
    } else if (first == QLatin1String("controller")) {
      delete controller;
    } else if (first != QLatin1String("app")) {
      next = first.startsWith(QLatin1String("another")) ? new BaseViewController : nullptr;
      app->setRootViewController(next);
    }
    if (first != QLatin1String("app"))
      QCOMPARE(app->getVC(), next.data());
    app.reset();
    QVERIFY(!controller && !view && !next);
    QCOMPARE(calls.count(QStringLiteral("~")), 1);
  }

  void rootControllerGoesAlthoughOthersHoldIt() {
    QStringList calls;
    QWidget window;
    const QPointer<BaseView> view = new BaseView(&window); // not the controller's to delete
    auto* const controller = new RecordingController(&calls, view);
    auto held = controller->shared_from_this();
    {
      PageApp app;
      app.setRootViewController(controller);
    }
    QCOMPARE(calls, QStringList{QStringLiteral("~")});
    QVERIFY(view && !view->getViewController());
    held.reset();
    QCOMPARE(calls.size(), 1);
  }
};

VELA_TEST_MAIN(ApplicationFrameTest)
#include "application_frame_test.moc"
