// SPDX-License-Identifier: MIT
#include "view_stage.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QWheelEvent>
#include <QWindow>

using Vela::Test::RecordingController;
using Vela::Test::settle;
using Vela::Test::ViewStage;
using Vela::UiBase::BaseView;

namespace {

const QStringList inputNames{"mousePress", "mouseRelease", "mouseDoubleClick",
                             "keyPress",   "keyRelease",   "QWidget"};

/// Writes down what QWidget gets of a view: its handlers of input ignore the event.
class DeclinedInput : public QObject {
public:
  explicit DeclinedInput(QStringList& calls) : m_calls(calls) {}
  bool eventFilter(QObject* watched, QEvent* event) override {
    static const QList<QEvent::Type> types{QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                                           QEvent::MouseButtonDblClick, QEvent::KeyPress, QEvent::KeyRelease};
    if (!types.contains(event->type()))
      return false;
    event->setAccepted(true);
    watched->event(event);
    if (!event->isAccepted())
      m_calls.append(QStringLiteral("QWidget"));
    return true;
  }

private:
  QStringList& m_calls;
};

void play(ViewStage& stage, const QString& script) {
  QWindow* const window = stage.view->windowHandle();
  const QPoint at(10, 10);
  const QStringList words = script.split(QLatin1Char(' '));
  for (const QString& word : words) {
    if (word == "press")
      QTest::mousePress(window, Qt::LeftButton, {}, at);
    else if (word == "release")
      QTest::mouseRelease(window, Qt::LeftButton, {}, at);
    else if (word == "move")
      QTest::mouseMove(window, at + QPoint(1, 1));
    else if (word == "double")
      QTest::mouseDClick(window, Qt::LeftButton, {}, at);
    else if (word == "wait")
      QTest::lastMouseTimestamp += ulong(QApplication::doubleClickInterval()) + 1;
    else
      QTest::keyClick(window, Qt::Key_A);
  }
}

} // namespace

class BaseViewTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void inputGoesToControllerAndThenToWidget_data();
  void inputGoesToControllerAndThenToWidget();
  void everyKindOfInputReachesItsHandler();
  void altReleaseIsSynthesizedOnDeactivation_data();
  void altReleaseIsSynthesizedOnDeactivation();
  void lifeIsToldInOrder();
  void resizeFollowsParentOnlyWhenInstalledAsItsFilter();
};

void BaseViewTest::inputGoesToControllerAndThenToWidget_data() {
  QTest::addColumn<QString>("controller");
  QTest::addColumn<QString>("script");
  QTest::addColumn<QString>("told");
  const auto row = [](const char* controller, const char* script, const char* told) {
    QTest::addRow("%s: %s", controller, script)
        << QString::fromLatin1(controller) << QString::fromLatin1(script) << QString::fromLatin1(told);
  };
  row("consumes", "press release", "mousePress mouseRelease");
  row("consumes", "double wait press release",
      "mousePress mouseRelease mouseDoubleClick QWidget mousePress mouseRelease");
  row("declines", "press key release",
      "mousePress QWidget keyPress QWidget keyRelease QWidget mouseRelease QWidget");
  row("none", "press key release", "QWidget QWidget QWidget QWidget");
}

void BaseViewTest::inputGoesToControllerAndThenToWidget() {
  QFETCH(const QString, controller);
  QFETCH(const QString, script);
  ViewStage stage;
  DeclinedInput declined(stage.calls);
  stage.view->installEventFilter(&declined);
  stage.controller->consumes = controller == "consumes";
  if (controller == "none") {
    stage.view->setViewController(nullptr);
    QCOMPARE(stage.calls, QStringList({"viewWillDisappear", "viewWasLost", "~"}));
  }
  stage.calls.clear();
  play(stage, script);
  stage.calls.removeIf([](const QString& call) { return !inputNames.contains(call); });
  QTEST(stage.calls.join(QLatin1Char(' ')), "told");
  play(stage, QStringLiteral("press move release"));
  stage.calls.clear();
  QMouseEvent afterDrag(QEvent::MouseButtonDblClick, {11, 11}, stage.view->mapToGlobal(QPointF(11, 11)),
                        Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(stage.view, &afterDrag);
  QCOMPARE(stage.calls, QStringList());
}

void BaseViewTest::everyKindOfInputReachesItsHandler() {
  ViewStage stage;
  const QPointF at(20, 20);
  QMimeData mime;
  QWheelEvent wheel(at, stage.view->mapToGlobal(at), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QEnterEvent enter(at, at, stage.view->mapToGlobal(at));
  QEvent leave(QEvent::Leave);
  QDragEnterEvent dragEnter(at.toPoint(), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
  QDragMoveEvent dragMove(at.toPoint(), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
  QDragLeaveEvent dragLeave;
  QDropEvent drop(at, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
  for (QEvent* event : std::initializer_list<QEvent*>{&wheel, &enter, &leave, &dragEnter, &dragMove,
                                                      &dragLeave, &dragEnter, &drop}) {
    event->accept(); // else Qt sends no more of a drag
    QCoreApplication::sendEvent(stage.view, event);
  }
  QCOMPARE(stage.calls, QStringList({"mouseWheel", "mouseEnter", "mouseLeave", "mouseDragEnter",
                                     "mouseDragMove", "mouseDragLeave", "mouseDragEnter", "mouseDrop"}));
}

void BaseViewTest::altReleaseIsSynthesizedOnDeactivation_data() {
  QTest::addColumn<QList<int>>("pressed");
  QTest::addColumn<QList<int>>("released");
  QTest::addColumn<int>("synthesized");
  QTest::newRow("alt held") << QList<int>{Qt::Key_Alt} << QList<int>{} << 1;
  QTest::newRow("any key released") << QList<int>{Qt::Key_Alt} << QList<int>{Qt::Key_A} << 0;
  QTest::newRow("another key last") << QList<int>{Qt::Key_Alt, Qt::Key_A} << QList<int>{} << 0;
}

void BaseViewTest::altReleaseIsSynthesizedOnDeactivation() {
  QFETCH(const QList<int>, pressed);
  QFETCH(const QList<int>, released);
  ViewStage stage;
  for (const int key : pressed)
    QTest::keyPress(stage.view->windowHandle(), static_cast<Qt::Key>(key));
  for (const int key : released)
    QTest::keyRelease(stage.view->windowHandle(), static_cast<Qt::Key>(key));
  stage.calls.clear();
  QEvent deactivate(QEvent::ApplicationDeactivate);
  QCoreApplication::sendEvent(QCoreApplication::instance(), &deactivate);
  QVERIFY(!stage.calls.contains("keyRelease")); // it goes through the event queue
  QCoreApplication::sendPostedEvents(stage.view);
  QTEST(int(stage.calls.count("keyRelease")), "synthesized");
}

void BaseViewTest::lifeIsToldInOrder() {
  QStringList calls;
  const QPointer<BaseView> view(new BaseView);
  auto* const controller = new RecordingController(&calls, view);
  QVERIFY(!controller->isLoaded());
  view->show();
  QVERIFY(controller->isLoaded() && view->hasMouseTracking() && view->acceptDrops());
  calls.removeIf(
      [](const QString& call) { return !call.startsWith("view") || call.startsWith("viewDidRes"); });
  calls.removeAll("viewDidMove");
  QCOMPARE(calls, QStringList({"viewDidLoad", "viewWillAppear"}));
  calls.clear();
  view->move(view->pos() + QPoint(10, 10));
  view->resize(view->size() + QSize(10, 10));
  settle();
  QVERIFY(calls.contains("viewDidMove") && calls.contains("viewDidResize"));
  calls.clear();
  QVERIFY(view->close());
  settle();
  QVERIFY(!view);
  QCOMPARE(calls, QStringList({"viewWillClose", "viewWillDisappear", "~"}));
}

void BaseViewTest::resizeFollowsParentOnlyWhenInstalledAsItsFilter() {
  QWidget parent;
  auto* const follower = new BaseView(&parent);
  auto* const other = new BaseView(&parent);
  parent.installEventFilter(follower);
  other->resize(30, 30);
  parent.show();
  parent.resize(400, 300);
  QCOMPARE(follower->size(), QSize(400, 300));
  QCOMPARE(other->size(), QSize(30, 30));
}

VELA_TEST_MAIN(BaseViewTest)
#include "base_view_test.moc"
