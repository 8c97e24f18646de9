// SPDX-License-Identifier: MIT
#include "recording_controller.h"

#include <support/test_case.h>
#include <ui_base/notifications/notification_bar.h>
#include <ui_base/views/base_view.h>

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSignalSpy>
#include <QTabWidget>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QWindow>
#include <QtTest/qtestspontaneevent.h>

using Vela::Test::RecordingController;
using Vela::Test::settle;
using namespace Vela::UiBase;

namespace {

const QHash<QString, QString> shortNames{{"viewDidLoad", "load"},
                                         {"viewWillAppear", "+"},
                                         {"viewWillDisappear", "-"},
                                         {"viewWillClose", "close"},
                                         {"viewWasLost", "lost"}};

/// A window with the view a; b, c and d are not presented yet. d stands in another window.
class Screen {
public:
  Screen() {
    auto* const layout = new QVBoxLayout(&window);
    for (const QString name : {"a", "b", "c", "d"}) {
      views[name] = new BaseView;
      views[name]->setObjectName(name);
      controllers[name] = new RecordingController(&calls, views[name], name + QLatin1Char(' '));
    }
    layout->addWidget(views["a"]);
    (new QVBoxLayout(&other))->addWidget(views["d"]);
    window.resize(300, 200);
    window.show();
    window.activateWindow();
    [[maybe_unused]] const bool active = QTest::qWaitForWindowActive(&window);
    calls.clear();
  }
  ~Screen() {
    for (const auto& view : std::as_const(views))
      delete view;
  }

  BaseView* view(const QString& name) const { return views[name]; }
  RecordingController* controller(const QString& name) const { return controllers[name]; }
  /// What the controllers heard of their views' lives since the last time: "b load, b +".
  QString story() {
    QStringList told;
    for (const QString& call : std::as_const(calls)) {
      const QString name = shortNames.value(call.mid(2));
      if (!name.isEmpty())
        told += call.left(2) + name;
    }
    calls.clear();
    return told.join(QStringLiteral(", "));
  }
  /// Does steps like "a>b" (a presents b), "b<" (dismiss), and the others below.
  void run(const QString& steps);

  QWidget window;
  QWidget other;
  QStringList calls;
  QHash<QString, QPointer<BaseView>> views;
  QHash<QString, QPointer<RecordingController>> controllers;
  bool inCallback = false;
  bool answer = false; // of the last request to present or dismiss

private:
  void minimise(bool minimised);
};

// A child hears of it from the window system like its window.
void Screen::minimise(bool minimised) {
  QList<QWidget*> widgets = window.findChildren<QWidget*>();
  for (QWidget* const widget : std::as_const(widgets)) {
    if (!widget->isVisible())
      continue;
    QHideEvent hide;
    QShowEvent show;
    QEvent* const event = minimised ? static_cast<QEvent*>(&hide) : &show;
    QSpontaneKeyEvent::setSpontaneous(event);
    QCoreApplication::instance()->notify(widget, event);
  }
}

void Screen::run(const QString& steps) {
  const QStringList list = steps.split(QLatin1Char(' '), Qt::SkipEmptyParts);
  for (const QString& step : list) {
    const QString who = step.left(1);
    const QString what = step.mid(1, 1);
    if (who != "w" && (!view(who) || !controller(who)))
      continue;
    if (who == "w")
      what == "^" ? window.hide() : what == "v" ? window.show() : minimise(what == "_");
    else if (what == ">")
      answer = controller(who)->presentViewController(controller(step.mid(2)), FromLeft);
    else if (what == "<")
      answer = controller(who)->dismissViewController();
    else if (what == "^")
      view(who)->hide();
    else if (what == "v")
      view(who)->show();
    else if (what == "/")
      view(who)->setParent(&other);
    else if (what == "!")
      controller(who)->mayClose = false;
    else if (what == "x")
      delete view(who);
    else if (what == "l" && view(who))
      view(who)->deleteLater();
    else if (what == "X")
      delete controller(who);
    else if (what == "q")
      view(who)->close();
    else if (what == "=")
      view(who)->setViewController(controller(step.mid(2)));
    if (!inCallback)
      settle();
  }
}

/// The widget that would have the focus of a window.
QWidget* focusOf(const QWidget& window) { return window.focusWidget(); }

bool reaches(QWidget& window, Qt::Key key, const QSignalSpy& spy, Qt::KeyboardModifiers modifiers = {}) {
  const qsizetype before = spy.size();
  QTest::keyClick(window.windowHandle(), key, modifiers);
  return spy.size() == before + 1;
}

} // namespace

/// Who is in front of a base view, and what follows from it.
class PresentationTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void appearingIsToldInOrder_data();
  void appearingIsToldInOrder();
  void callbacksMayDoAnything_data();
  void callbacksMayDoAnything();
  void presentationCanBeAskedFor();
  void requestsSayWhetherTheyWereDone_data();
  void requestsSayWhetherTheyWereDone();
  void inputEndsAtTheFront();
  void childrenBehindAreDisabledByARecordOfTheirOwn();
  void shortcutsReachOnlyTheFront();
  void screenReadersFindOnlyTheFront();
  void focusIsRememberedAndGivenBack_data();
  void focusIsRememberedAndGivenBack();
  void tabAndClicksGoToTheFront();
  void tabSwitchKeepsFocusOfEachPage();
  void notificationIsSeenOverAppearedViewsOnly();
  void presenterKeepsItsSize();
  void closingWindowAsksItsViews_data();
  void closingWindowAsksItsViews();
};

void PresentationTest::appearingIsToldInOrder_data() {
  QTest::addColumn<QString>("steps");
  QTest::addColumn<QString>("story");
  const auto row = [](const char* steps, const char* story) {
    QTest::newRow(steps) << QString::fromLatin1(steps) << QString::fromLatin1(story);
  };
  row("a>b b<", "a -, b load, b +, a +, b close, b -");
  row("b! a>b b<", "a -, b load, b +, a +, b close, a -");
  row("a>b bq", "a -, b load, b +, b close, b -, a +");
  row("a>b bx", "a -, b load, b +, b lost, a +");
  row("a>b b/", "a -, b load, b +, b -, a +");
  row("a>b bX", "a -, b load, b +, a +");
  row("a>b b^ bv b<", "a -, b load, b +, b -, a +, a -, b +, a +, b close, b -");
  row("a>b a>b b<", "a -, b load, b +, a +, b close, b -");
  row("a>b b>c c< b<", "a -, b load, b +, b -, c load, c +, b +, c close, c -, a +, b close, b -");
  row("a>b b>c b<", "a -, b load, b +, b -, c load, c +, a +, c close, b close, c -");
  row("a>b b>c c! b<", "a -, b load, b +, b -, c load, c +, a +, c close, a -");
  row("a>b b>c b! b<", "a -, b load, b +, b -, c load, c +, a +, c close, b close, c load, a -");
  row("a>b a>c b< c<", "a -, b load, b +, b -, c load, c +, b close, a +, c close, c -");
  row("a>b a>c c< b<", "a -, b load, b +, b -, c load, c +, b +, c close, c -, a +, b close, b -");
  row("a>b a>c a>b", "a -, b load, b +, b -, c load, c +, c -, b +");
  row("a>b a>c c^", "a -, b load, b +, b -, c load, c +, c -, b +");
  row("a>b d>b", "a -, b load, b +, b -, a +, d -");
  row("a>b w^ wv b<", "a -, b load, b +, b -, b +, a +, b close, b -");
  row("w^ a>b wv", "a -, b load, b +");
  row("w^ a>b b< wv", "a -, a +");
  row("a>b w_ w= b<", "a -, b load, b +, b -, b +, a +, b close, b -");
  row("w_ w=", "a -, a +");
  row("a^ av", "a -, a +");
  row("d>b b<", "d -, d +");
  row("a=b", "a -, a lost");
  row("a>b b=c", "a -, b load, b +, b -, b lost");
  row("a>b c=b", "a -, b load, b +, b -, a +");
  row("a>b c=a a>d", "a -, b load, b +"); // over c, which is hidden: told of a already
  row("a>b a=b", "a -, b load, b +, b -, b +, a lost");
}

void PresentationTest::appearingIsToldInOrder() {
  QFETCH(const QString, steps);
  Screen screen;
  std::vector<std::shared_ptr<BaseViewController>> held;
  for (const auto& controller : std::as_const(screen.controllers))
    held.push_back(controller->shared_from_this());
  screen.run(steps);
  QTEST(screen.story(), "story");
}

void PresentationTest::callbacksMayDoAnything_data() {
  QTest::addColumn<QString>("steps");
  QTest::addColumn<QString>("who");
  QTest::addColumn<QString>("call");
  QTest::addColumn<QString>("act");
  const QStringList calls = shortNames.keys();
  for (const QString& call : calls) {
    for (const char* act :
         {"al", "aX", "bl", "bX", "b<", "bq", "b^", "a^", "b/", "a>b", "a>c", "c=b", "d>b"}) {
      for (const char* who : {"a", "b"}) {
        const QString name = QStringLiteral("%1 %2: %3").arg(who, call, QLatin1String(act));
        QTest::newRow(qPrintable(name)) << QStringLiteral("a>b b^ bv b>c c< w_ w= b< a^ av a>c")
                                        << QString::fromLatin1(who) << call << QString::fromLatin1(act);
      }
    }
  }
}

// Each act at the first call and at the second.
void PresentationTest::callbacksMayDoAnything() {
  QFETCH(const QString, steps);
  QFETCH(const QString, who);
  QFETCH(const QString, call);
  QFETCH(const QString, act);
  for (int skipped = 0; skipped < 2; ++skipped) {
    Screen screen;
    int left = skipped;
    screen.controller(who)->on[call] = [&] {
      if (left-- == 0) {
        const QScopedValueRollback nested(screen.inCallback, true);
        screen.run(act);
      }
    };
    const QStringList list = steps.split(QLatin1Char(' '));
    for (const QString& step : list) {
      screen.run(step);
      int appeared = 0;
      const QList<PresentedView> order =
          screen.view("a") ? screen.view("a")->presentation() : QList<PresentedView>();
      for (const PresentedView& each : order) {
        appeared += each.appeared;
        QVERIFY(!each.appeared || !each.covered);
      }
      QVERIFY(appeared <= 1);
      if (!order.isEmpty() && screen.view("a")->isVisible())
        QVERIFY2(focusOf(screen.window), qPrintable(step));
    }
  }
}

void PresentationTest::presentationCanBeAskedFor() {
  Screen screen;
  screen.run(QStringLiteral("a>b b>c"));
  const QList<PresentedView> order = screen.view("b")->presentation();
  QCOMPARE(order.size(), 3);
  for (int i = 0; i < 3; ++i) {
    const QString name = QStringLiteral("abc").mid(i, 1);
    QCOMPARE(order[i].view, screen.views[name]);
    QCOMPARE(order[i].controller.data(), screen.controller(name));
    QCOMPARE(order[i].presenter.data(), i ? order[i - 1].view.data() : nullptr);
    QCOMPARE(order[i].direction, i ? FromLeft : NoTransition);
    QCOMPARE(order[i].covered, i < 2);
    QCOMPARE(order[i].appeared, i == 2);
  }
  screen.run(QStringLiteral("b/"));
  QCOMPARE(screen.view("a")->presentation().size(), 1);
  QCOMPARE(screen.view("c")->presentation().size(), 2);
  QCOMPARE(screen.controller("c")->presenter(), screen.controller("b"));
  QVERIFY(!screen.controller("b")->presenter());
  screen.run(QStringLiteral("c=b")); // b's view keeps the controller, which is no longer that of this view
  QVERIFY(!screen.controller("b")->presenter());
}

void PresentationTest::requestsSayWhetherTheyWereDone_data() {
  QTest::addColumn<QString>("steps");
  QTest::addColumn<bool>("answer");
  QTest::newRow("itself") << "a>a" << false;
  QTest::newRow("what holds it") << "a>b b>a" << false;
  QTest::newRow("a second time") << "a>b a>b" << true;
  QTest::newRow("elsewhere") << "a>b d>b" << true;
  QTest::newRow("refused dismissal") << "b! a>b b<" << false;
  QTest::newRow("never presented") << "b<" << true;
  QTest::newRow("dismissed a second time after a refusal") << "b! a>b b< b<" << false;
}

void PresentationTest::requestsSayWhetherTheyWereDone() {
  QFETCH(const QString, steps);
  Screen screen;
  screen.run(steps);
  QTEST(screen.answer, "answer");
  for (const auto& controller : std::as_const(screen.controllers)) {
    if (!controller)
      continue;
    QCOMPARE(controller->transitionDirection(), controller->presenter() ? FromLeft : NoTransition);
    QCOMPARE(controller->presenter() != nullptr,
             controller->getView()->presentation().constFirst().view != controller->getView());
  }
  // A view that has closed is about to be deleted and is not presented once more.
  RecordingController* const b = screen.controller("b");
  if (b && !b->presenter() && screen.view("b")->isHidden()) {
    screen.view("b")->close();
    QVERIFY(!screen.controller("a")->presentViewController(b, FromLeft));
  }
}

void PresentationTest::inputEndsAtTheFront() {
  struct Behind : QDialog {
    int presses = 0, keys = 0, wheels = 0;
    void mousePressEvent(QMouseEvent*) override { ++presses; }
    void keyPressEvent(QKeyEvent* event) override {
      ++keys;
      QDialog::keyPressEvent(event);
    }
    void wheelEvent(QWheelEvent*) override { ++wheels; }
  } behind;
  Screen screen;
  (new QVBoxLayout(&behind))->addWidget(screen.view("a"));
  screen.view("b")->setAttribute(Qt::WA_NoSystemBackground);
  behind.resize(300, 200);
  behind.show();
  QVERIFY(QTest::qWaitForWindowActive(&behind));
  QEvent leave(QEvent::Leave);
  QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
  QCoreApplication::sendEvent(screen.view("a"), &enter);
  screen.run(QStringLiteral("a>b b>c"));
  screen.calls.clear();
  QCoreApplication::sendEvent(screen.view("a"), &leave); // who was entered is left
  QCoreApplication::sendEvent(screen.view("b"), &leave);
  QCOMPARE(screen.calls, QStringList{QStringLiteral("a mouseLeave")});
  screen.calls.clear();
  for (const auto& controller : std::as_const(screen.controllers))
    controller->consumes = false;
  const QPoint at = behind.rect().center();
  QTest::mouseClick(behind.windowHandle(), Qt::LeftButton, {}, at);
  QTest::keyClick(behind.windowHandle(), Qt::Key_F9);
  QWheelEvent wheel(at, behind.mapToGlobal(at), {}, QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QSpontaneKeyEvent::setSpontaneous(&wheel); // others do not propagate
  QCoreApplication::instance()->notify(screen.view("c"), &wheel);
  QCOMPARE(behind.presses, 1);
  QCOMPARE(behind.keys, 1);
  QCOMPARE(behind.wheels, 1);
  QVERIFY(screen.calls.contains(QStringLiteral("c mousePress")));
  QVERIFY(screen.calls.filter(QRegularExpression(QStringLiteral("^[ab] "))).isEmpty());
  QTest::keyClick(behind.windowHandle(), Qt::Key_Escape);
  QVERIFY(behind.isHidden());
}

void PresentationTest::childrenBehindAreDisabledByARecordOfTheirOwn() {
  Screen screen;
  auto* const button = new QPushButton(screen.view("a"));
  auto* const disabled = new QPushButton(screen.view("a"));
  auto* const changed = new QPushButton(screen.view("a"));
  disabled->setEnabled(false);
  screen.run(QStringLiteral("a>b"));
  auto* const late = new QPushButton(screen.view("a"));
  QVERIFY(!button->isEnabled() && !late->isEnabled() && screen.view("b")->isEnabled());
  changed->setEnabled(false);
  disabled->setEnabled(true);
  button->setEnabled(true);
  QVERIFY(!button->isEnabled() && !disabled->isEnabled());
  screen.view("a")->setEnabled(false);
  screen.view("a")->setEnabled(true);
  QVERIFY(!button->isEnabled());
  late->setParent(&screen.window);
  QVERIFY(late->isEnabled());
  screen.run(QStringLiteral("b<"));
  QVERIFY(button->isEnabled() && disabled->isEnabled() && !changed->isEnabled());
}

void PresentationTest::shortcutsReachOnlyTheFront() {
  Screen screen;
  QAction behind;
  QAction shared;
  QAction front;
  behind.setShortcut(Qt::Key_F5);
  shared.setShortcut(Qt::Key_F6);
  front.setShortcut(Qt::Key_F7);
  screen.view("a")->addActions({&behind, &shared, &front});
  screen.window.addAction(&shared);
  QSignalSpy behindSpy(&behind, &QAction::triggered);
  QSignalSpy sharedSpy(&shared, &QAction::triggered);
  QAction rival;
  rival.setShortcut(Qt::Key_F7);
  screen.view("b")->addAction(&rival);
  QSignalSpy frontSpy(&front, &QAction::triggered);
  QSignalSpy rivalSpy(&rival, &QAction::triggered);
  QVERIFY(reaches(screen.window, Qt::Key_F5, behindSpy));
  screen.run(QStringLiteral("a>b"));
  QVERIFY(!reaches(screen.window, Qt::Key_F5, behindSpy));
  QVERIFY(reaches(screen.window, Qt::Key_F6, sharedSpy));
  QVERIFY(reaches(screen.window, Qt::Key_F7, rivalSpy));
  QVERIFY(reaches(screen.window, Qt::Key_F7, rivalSpy));
  QCOMPARE(frontSpy.size(), 0);
  screen.run(QStringLiteral("b<"));
  QVERIFY(reaches(screen.window, Qt::Key_F5, behindSpy));
}

void PresentationTest::screenReadersFindOnlyTheFront() {
  Screen screen;
  new QPushButton(screen.view("a"));
  QAccessibleInterface* const a = QAccessible::queryAccessibleInterface(screen.view("a"));
  QCOMPARE(a->childCount(), 1);
  screen.run(QStringLiteral("a>b a>c"));
  QCOMPARE(a->childCount(), 1);
  QCOMPARE(a->child(0)->object(), screen.view("c"));
  QCOMPARE(a->indexOfChild(a->child(0)), 0);
  const QPoint centre = screen.view("a")->mapToGlobal(screen.view("a")->rect().center());
  QCOMPARE(a->childAt(centre.x(), centre.y())->object(), screen.view("c"));
  QVERIFY(!a->child(1));
}

void PresentationTest::focusIsRememberedAndGivenBack_data() {
  QTest::addColumn<QString>("steps");
  QTest::addColumn<QString>("focus"); // a view, or its line edit
  const auto row = [](const char* steps, const char* focus) {
    QTest::newRow(steps) << QString::fromLatin1(steps) << QString::fromLatin1(focus);
  };
  row("", "a edit");
  row("a>b", "b");
  for (const char* gone : {"b<", "bq", "bx", "bX", "b^", "b/", "d>b", "b=c b<"})
    row(qPrintable(QStringLiteral("a>b ") + QLatin1String(gone)),
        strcmp(gone, "b=c b<") == 0 ? "b" : "a edit");
  row("a>b b>c c<", "b");
  row("a>b a>c b<", "c");
  row("b! a>b b<", "b");
  row("w_ w=", "a edit");
  row("a>b w_ w= b<", "a edit");
  row("a^ av", "a edit");
  row("w^ wv", "a edit");
  row("a>b w^ wv", "b");
  row("w^ a>b wv", "b");
}

void PresentationTest::focusIsRememberedAndGivenBack() {
  QFETCH(const QString, steps);
  QFETCH(const QString, focus);
  Screen screen;
  auto* const edit = new QLineEdit(screen.view("a"));
  edit->show();
  auto* const beside = new BaseView;
  screen.window.layout()->addWidget(beside);
  beside->show();
  edit->setFocus();
  screen.run(steps);
  QWidget* const expected =
      focus.endsWith(QLatin1String("edit")) ? static_cast<QWidget*>(edit) : screen.view(focus);
  QCOMPARE(focusOf(screen.window), expected);
  edit->setFocus();
  screen.view("a")->setFocus();
  if (screen.window.isActiveWindow() && screen.view("a")->presentation().constFirst().covered)
    QCOMPARE(focusOf(screen.window), expected);
  screen.run(QStringLiteral("ax"));
  QCOMPARE(focusOf(screen.window), beside);
}

void PresentationTest::tabAndClicksGoToTheFront() {
  Screen screen;
  auto* const outside = new QLineEdit;
  screen.window.layout()->addWidget(outside);
  new QLineEdit(screen.view("a"));
  auto* const inside = new QLineEdit(screen.view("b"));
  screen.run(QStringLiteral("a>b"));
  QCOMPARE(focusOf(screen.window), screen.view("b"));
  QSet<QWidget*> reached;
  for (int i = 0; i < 8; ++i) {
    QTest::keyClick(screen.window.windowHandle(), i < 4 ? Qt::Key_Tab : Qt::Key_Backtab);
    reached.insert(focusOf(screen.window));
  }
  QCOMPARE(reached, (QSet<QWidget*>{screen.view("b"), inside, outside}));
  outside->setFocus();
  QTest::mouseClick(screen.window.windowHandle(), Qt::LeftButton, {},
                    screen.view("b")->mapTo(&screen.window, screen.view("b")->rect().center()));
  QCOMPARE(focusOf(screen.window), screen.view("b"));
}

void PresentationTest::tabSwitchKeepsFocusOfEachPage() {
  Screen screen;
  QTabWidget tabs;
  auto* const left = new BaseView;
  auto* const page = new QWidget;
  (new QVBoxLayout(page))->addWidget(left);
  auto* const right = new BaseView;
  tabs.addTab(page, QStringLiteral("1"));
  tabs.addTab(right, QStringLiteral("2"));
  auto* const leftEdit = new QLineEdit(left);
  auto* const rightEdit = new QLineEdit(right);
  tabs.show();
  QVERIFY(QTest::qWaitForWindowActive(&tabs));
  leftEdit->setFocus();
  tabs.setCurrentIndex(1);
  QVERIFY(right->isAncestorOf(focusOf(tabs)) || focusOf(tabs) == right);
  rightEdit->setFocus();
  tabs.setCurrentIndex(0);
  QCOMPARE(focusOf(tabs), leftEdit);
  tabs.setCurrentIndex(1);
  QCOMPARE(focusOf(tabs), rightEdit);
}

void PresentationTest::notificationIsSeenOverAppearedViewsOnly() {
  Screen screen;
  const auto notify = [&screen](const QString& name) {
    screen.controller(name)->showNotification(QStringLiteral("Saved."), FadeInOnly, 3000, false, nullptr,
                                              nullptr);
    return screen.view(name)->findChild<NotificationBar*>(QString(), Qt::FindChildrenRecursively);
  };
  screen.run(QStringLiteral("a>b"));
  const QPointer<NotificationBar> bar = notify(QStringLiteral("a"));
  QVERIFY(!bar->isVisible());
  QVERIFY(notify(QStringLiteral("b"))->isVisible());
  screen.run(QStringLiteral("b<"));
  QVERIFY(bar->isVisible());
  screen.run(QStringLiteral("a>c"));
  QVERIFY(!bar->isVisible());
}

void PresentationTest::presenterKeepsItsSize() {
  struct Hinting : BaseView {
    QSize sizeHint() const override { return {40, 30}; }
  };
  for (const bool laidOut : {false, true}) {
    Hinting view;
    view.setAttribute(Qt::WA_DeleteOnClose, false);
    if (laidOut)
      (new QVBoxLayout(&view))->addWidget(new QPushButton);
    auto* const controller = new RecordingController(nullptr, &view);
    view.resize(320, 240);
    view.move(50, 60);
    view.show();
    auto* const over = new BaseView;
    controller->presentViewController(new RecordingController(nullptr, over), FromLeft);
    QCOMPARE(view.size(), QSize(320, 240));
    QCOMPARE(over->geometry(), view.rect());
    view.resize(400, 300);
    QCOMPARE(over->geometry(), view.rect());
  }
}

void PresentationTest::closingWindowAsksItsViews_data() {
  QTest::addColumn<QString>("kind");
  QTest::addColumn<QString>("refusing");
  QTest::addColumn<QString>("story");
  const auto rows = [](const char* kind) {
    const auto row = [kind](const char* refusing, const char* story) {
      QTest::addRow("%s: %s", kind, refusing) << kind << refusing << story;
    };
    row("nobody", "c close, b close, a close, c -");
    row("c", "c close");
    row("a", "c close, b close, a close, b load, c load");
  };
  for (const char* kind : {"window", "dialog", "view"})
    rows(kind);
  QTest::newRow("window refuses") << "window"
                                  << "window"
                                  << "";
  QTest::newRow("dialog refuses") << "dialog"
                                  << "window"
                                  << "c close, b close, a close, a load, b load, c load";
}

void PresentationTest::closingWindowAsksItsViews() {
  QFETCH(const QString, kind);
  QFETCH(const QString, refusing);
  struct Refusing : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::Close)
        event->ignore();
      return event->type() == QEvent::Close;
    }
  } refusal;
  Screen screen;
  std::unique_ptr<QWidget> window;
  if (kind == "dialog")
    window = std::make_unique<QDialog>();
  else if (kind == "view")
    window = std::make_unique<BaseView>();
  else
    window = std::make_unique<QWidget>();
  window->setAttribute(Qt::WA_DeleteOnClose, false);
  (new QVBoxLayout(window.get()))->addWidget(screen.view("a"));
  if (refusing == "window")
    window->installEventFilter(&refusal); // before there is a view to be seen
  window->show();
  screen.run(QStringLiteral("a>b a>c"));
  if (screen.controllers.contains(refusing))
    screen.controller(refusing)->mayClose = false;
  screen.calls.clear();
  QCOMPARE(window->close(), refusing == "nobody");
  settle();
  QTEST(screen.story(), "story");
  QCOMPARE(window->isVisible(), refusing != "nobody");
}

VELA_TEST_MAIN(PresentationTest)
#include "presentation_test.moc"
