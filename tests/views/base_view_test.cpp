// SPDX-License-Identifier: MIT
#include "recording_controller.h"

#include <support/test_case.h>
#include <ui_base/views/base_view.h>

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QPointer>
#include <QWheelEvent>
#include <QWindow>

using Vela::Test::RecordingController;
using Vela::Test::settle;
using Vela::UiBase::BaseView;

namespace {

const QList<QEvent::Type> handledTypes{QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                                       QEvent::MouseButtonDblClick, QEvent::KeyPress, QEvent::KeyRelease};

/// A view that writes down what QWidget gets because the controller declined it.
class NotingView : public BaseView {
public:
  using BaseView::BaseView;
  QStringList* calls = nullptr;

protected:
  bool event(QEvent* event) override {
    event->setAccepted(true); // QWidget's handlers of input ignore the event
    const bool handled = BaseView::event(event);
    const bool input = handledTypes.contains(event->type());
    if (calls && input && !event->isAccepted())
      calls->append(QStringLiteral("QWidget"));
    return handled;
  }
};

struct Fixture {
  QStringList calls;
  QPointer<NotingView> view = new NotingView;
  RecordingController* controller = new RecordingController(&calls, view);

  Fixture() {
    view->resize(200, 100);
    view->show();
    [[maybe_unused]] const bool exposed = QTest::qWaitForWindowExposed(view);
    settle();
    calls.clear();
  }
  ~Fixture() { delete view; }

  QWindow* window() const { return view->windowHandle(); }
  /// What was called since the last time, moves and the like left out.
  QStringList taken(const QStringList& names) {
    QStringList found;
    for (const QString& call : std::as_const(calls)) {
      if (names.contains(call))
        found.append(call);
    }
    calls.clear();
    return found;
  }
};

} // namespace

class BaseViewTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void clickReachesControllerOnceEach();
  void secondPressOfDoubleClickIsHandedOnAsDoubleClickOnly();
  void doubleClickAfterDragIsDropped();
  void declinedInputGoesToWidget();
  void withoutControllerInputGoesToWidget();
  void everyKindOfInputReachesItsHandler();
  void altReleaseIsSynthesizedOnDeactivation_data();
  void altReleaseIsSynthesizedOnDeactivation();
  void lifeIsToldInOrder();
  void showingAgainOnlyAppears();
  void refusedCloseKeepsViewOpen();
  void resizeFollowsParentOnlyWhenInstalledAsItsFilter();
  void viewMayDieInEveryHandler_data();
  void viewMayDieInEveryHandler();
};

void BaseViewTest::clickReachesControllerOnceEach() {
  Fixture f;
  QTest::mouseClick(f.window(), Qt::LeftButton, {}, QPoint(10, 10));
  QCOMPARE(f.taken({"mousePress", "mouseRelease", "QWidget"}), QStringList({"mousePress", "mouseRelease"}));
}

void BaseViewTest::secondPressOfDoubleClickIsHandedOnAsDoubleClickOnly() {
  Fixture f;
  QTest::mouseDClick(f.window(), Qt::LeftButton, {}, QPoint(10, 10));
  QCOMPARE(f.taken({"mousePress", "mouseRelease", "mouseDoubleClick"}),
           QStringList({"mousePress", "mouseRelease", "mouseDoubleClick"}));
  QTest::mouseClick(f.window(), Qt::LeftButton, {}, QPoint(60, 60), QApplication::doubleClickInterval() + 1);
  QCOMPARE(f.taken({"mousePress", "mouseRelease", "mouseDoubleClick"}),
           QStringList({"mousePress", "mouseRelease"}));
}

void BaseViewTest::doubleClickAfterDragIsDropped() {
  Fixture f;
  f.controller->consumes = false;
  f.view->calls = &f.calls;
  QTest::mousePress(f.window(), Qt::LeftButton, {}, QPoint(10, 10));
  QTest::mouseMove(f.window(), QPoint(11, 11));
  QTest::mouseRelease(f.window(), Qt::LeftButton, {}, QPoint(11, 11));
  f.calls.clear();
  QMouseEvent doubleClick(QEvent::MouseButtonDblClick, QPointF(11, 11), f.view->mapToGlobal(QPointF(11, 11)),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(f.view, &doubleClick);
  QCOMPARE(f.taken({"mouseDoubleClick", "mousePress", "QWidget"}), QStringList());
}

void BaseViewTest::declinedInputGoesToWidget() {
  Fixture f;
  f.controller->consumes = false;
  f.view->calls = &f.calls;
  QTest::mousePress(f.window(), Qt::LeftButton, {}, QPoint(10, 10));
  QTest::keyClick(f.window(), Qt::Key_A);
  QCOMPARE(f.taken({"mousePress", "keyPress", "keyRelease", "QWidget"}),
           QStringList({"mousePress", "QWidget", "keyPress", "QWidget", "keyRelease", "QWidget"}));
  QTest::mouseRelease(f.window(), Qt::LeftButton, {}, QPoint(10, 10));
}

void BaseViewTest::withoutControllerInputGoesToWidget() {
  Fixture f;
  f.view->setViewController(nullptr);
  QCOMPARE(f.calls, QStringList({"viewWillDisappear", "viewWasLost", "~"}));
  f.calls.clear();
  f.view->calls = &f.calls;
  QTest::mouseClick(f.window(), Qt::LeftButton, {}, QPoint(10, 10));
  QTest::keyClick(f.window(), Qt::Key_A);
  QCOMPARE(f.taken({"mousePress", "QWidget"}), QStringList(4, QStringLiteral("QWidget")));
}

void BaseViewTest::everyKindOfInputReachesItsHandler() {
  Fixture f;
  const QPointF at(20, 20);
  QMimeData mime;
  QWheelEvent wheel(at, f.view->mapToGlobal(at), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QEnterEvent enter(at, at, f.view->mapToGlobal(at));
  QEvent leave(QEvent::Leave);
  QDragEnterEvent dragEnter(at.toPoint(), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
  QDragMoveEvent dragMove(at.toPoint(), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
  QDragLeaveEvent dragLeave;
  QDropEvent drop(at, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
  for (QEvent* event : std::initializer_list<QEvent*>{&wheel, &enter, &leave, &dragEnter, &dragMove,
                                                      &dragLeave, &dragEnter, &drop})
    QCoreApplication::sendEvent(f.view, event);
  QCOMPARE(f.calls, QStringList({"mouseWheel", "mouseEnter", "mouseLeave", "mouseDragEnter", "mouseDragMove",
                                 "mouseDragLeave", "mouseDragEnter", "mouseDrop"}));
}

void BaseViewTest::altReleaseIsSynthesizedOnDeactivation_data() {
  QTest::addColumn<QList<int>>("pressed");
  QTest::addColumn<QList<int>>("released");
  QTest::addColumn<bool>("synthesized");
  QTest::newRow("alt held") << QList<int>{Qt::Key_Alt} << QList<int>{} << true;
  QTest::newRow("alt released") << QList<int>{Qt::Key_Alt} << QList<int>{Qt::Key_Alt} << false;
  QTest::newRow("any key released") << QList<int>{Qt::Key_Alt} << QList<int>{Qt::Key_A} << false;
  QTest::newRow("another key last") << QList<int>{Qt::Key_Alt, Qt::Key_A} << QList<int>{} << false;
  QTest::newRow("no key") << QList<int>{} << QList<int>{} << false;
}

void BaseViewTest::altReleaseIsSynthesizedOnDeactivation() {
  QFETCH(const QList<int>, pressed);
  QFETCH(const QList<int>, released);
  QFETCH(const bool, synthesized);
  Fixture f;
  for (const int key : pressed)
    QTest::keyPress(f.window(), static_cast<Qt::Key>(key));
  for (const int key : released)
    QTest::keyRelease(f.window(), static_cast<Qt::Key>(key));
  f.calls.clear();
  QEvent deactivate(QEvent::ApplicationDeactivate);
  QCoreApplication::sendEvent(QCoreApplication::instance(), &deactivate);
  QCOMPARE(f.taken({"keyRelease"}), QStringList()); // it goes through the event queue
  QCoreApplication::sendPostedEvents(f.view);
  QCOMPARE(f.taken({"keyRelease"}).size(), synthesized ? 1 : 0);
}

void BaseViewTest::lifeIsToldInOrder() {
  QStringList calls;
  auto* const view = new BaseView;
  const QPointer<BaseView> alive(view);
  auto* const controller = new RecordingController(&calls, view);
  QVERIFY(!controller->isLoaded());
  view->show();
  QVERIFY(controller->isLoaded());
  QVERIFY(view->hasMouseTracking() && view->acceptDrops());
  calls.removeAll(QStringLiteral("viewDidResize"));
  calls.removeAll(QStringLiteral("viewDidMove"));
  calls.removeAll(QStringLiteral("mouseEnter"));
  QCOMPARE(calls, QStringList({"viewDidLoad", "viewWillAppear"}));
  calls.clear();
  view->move(view->pos() + QPoint(10, 10));
  view->resize(view->size() + QSize(10, 10));
  settle();
  QVERIFY(calls.contains("viewDidMove") && calls.contains("viewDidResize"));
  calls.clear();
  QVERIFY(view->close());
  settle();
  QVERIFY(!alive);
  QCOMPARE(calls, QStringList({"viewWillClose", "viewWillDisappear", "~"}));
}

void BaseViewTest::showingAgainOnlyAppears() {
  Fixture f;
  f.view->hide();
  QVERIFY(!f.view->hasMouseTracking() && !f.view->acceptDrops());
  f.view->show();
  QCOMPARE(f.taken({"viewDidLoad", "viewWillAppear", "viewWillDisappear"}),
           QStringList({"viewWillDisappear", "viewWillAppear"}));
}

void BaseViewTest::refusedCloseKeepsViewOpen() {
  Fixture f;
  f.controller->mayClose = false;
  QVERIFY(!f.view->close());
  settle();
  QVERIFY(f.view && f.view->isVisible() && f.controller->isLoaded());
}

void BaseViewTest::resizeFollowsParentOnlyWhenInstalledAsItsFilter() {
  QWidget parent;
  auto* const follower = new BaseView(&parent);
  auto* const other = new BaseView(&parent);
  parent.installEventFilter(follower);
  other->resize(30, 30);
  parent.resize(320, 240);
  parent.show();
  QVERIFY(QTest::qWaitForWindowExposed(&parent));
  parent.resize(400, 300);
  QCOMPARE(follower->size(), QSize(400, 300));
  QCOMPARE(other->size(), QSize(30, 30));
}

namespace {

/// Deletes its view in the handler that is named.
class DeletingController : public RecordingController {
public:
  DeletingController(BaseView* view, QString handler)
      : RecordingController(nullptr, view), m_handler(std::move(handler)) {}

  bool mouseDoubleClick(QMouseEvent*) override { return deleteIn("mouseDoubleClick"); }
  bool mouseMove(QMouseEvent*) override { return deleteIn("mouseMove"); }
  bool mousePress(QMouseEvent*) override { return deleteIn("mousePress"); }
  bool mouseRelease(QMouseEvent*) override { return deleteIn("mouseRelease"); }
  bool keyPress(QKeyEvent*) override { return deleteIn("keyPress"); }
  bool keyRelease(QKeyEvent*) override { return deleteIn("keyRelease"); }
  bool viewWillClose() override {
    deleteIn("viewWillClose");
    return true;
  }

private:
  bool deleteIn(const char* handler) {
    if (m_handler == QLatin1String(handler))
      delete getView();
    return false;
  }

  QString m_handler;
};

} // namespace

void BaseViewTest::viewMayDieInEveryHandler_data() {
  QTest::addColumn<QString>("handler");
  for (const char* handler : {"mousePress", "mouseRelease", "mouseMove", "mouseDoubleClick", "keyPress",
                              "keyRelease", "viewWillClose"})
    QTest::newRow(handler) << QString::fromLatin1(handler);
}

void BaseViewTest::viewMayDieInEveryHandler() {
  QFETCH(const QString, handler);
  const QPointer<BaseView> view = new BaseView;
  new DeletingController(view, handler);
  view->resize(100, 100);
  view->show();
  QVERIFY(QTest::qWaitForWindowExposed(view));
  const QPointF at(5, 5);
  const auto send = [&](QEvent::Type type, Qt::MouseButtons buttons) {
    if (!view)
      return;
    QMouseEvent event(type, at, view->mapToGlobal(at), Qt::LeftButton, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(view, &event);
  };
  send(QEvent::MouseButtonPress, Qt::LeftButton);
  send(QEvent::MouseButtonRelease, Qt::NoButton);
  send(QEvent::MouseButtonDblClick, Qt::LeftButton);
  send(QEvent::MouseButtonRelease, Qt::NoButton);
  send(QEvent::MouseMove, Qt::NoButton);
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent key(type, Qt::Key_A, Qt::NoModifier);
    if (view)
      QCoreApplication::sendEvent(view, &key);
  }
  if (view)
    view->close();
  settle();
  QVERIFY(!view);
}

VELA_TEST_MAIN(BaseViewTest)
#include "base_view_test.moc"
