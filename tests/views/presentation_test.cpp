// SPDX-License-Identifier: MIT
#include "presentation_screen.h"

#include <QChildEvent>
#include <QDialog>
#include <QTabWidget>
#include <QVBoxLayout>

#include <functional>
#include <utility>

using Vela::Test::settle;
using Screen = Vela::Test::PresentationScreen;
using namespace Vela::UiBase;

namespace {

/// Calls back once when something in it is taken away.
class Place : public QWidget {
public:
  std::function<void()> left;

protected:
  void childEvent(QChildEvent* event) override {
    if (event->removed() && left)
      std::exchange(left, nullptr)();
  }
};

} // namespace

/// Who is told what when views are presented, and what the calls answer.
class PresentationTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void appearingIsToldInOrder_data();
  void appearingIsToldInOrder();
  void whatAViewLeavesCannotPresentOverIt();
  void presentationCanBeAskedFor();
  void requestsSayWhetherTheyWereDone();
  void dismissalWaitsForTheAnswer();
  void viewHiddenBeforeItIsSeenDoesNotCover();
  void closingWindowAsksItsViews_data();
  void closingWindowAsksItsViews();
};

void PresentationTest::appearingIsToldInOrder_data() {
  QTest::addColumn<QString>("story");
  const auto row = [](const char* steps, const char* story) { QTest::newRow(steps) << QString(story); };
  row("a>b b<", "a -, b load, b +, a +, b close, b -");
  row("b~ a>b b< a>b", "a -, b load, b +, a +, b close, b -, a -, b load, b +");
  row("a>b bq", "a -, b load, b +, b close, b -, a +");
  row("a>b bx", "a -, b load, b +, b lost, a +");
  row("a>b bX", "a -, b load, b +, a +");
  row("a>b b^ bv b<", "a -, b load, b +, b -, a +, a -, b +, a +, b close, b -");
  row("a>b b>c c< b<", "a -, b load, b +, b -, c load, c +, b +, c close, c -, a +, b close, b -");
  row("a>b b>c c! b<", "a -, b load, b +, b -, c load, c +, a +, c close, a -");
  row("a>b b>c b! b<", "a -, b load, b +, b -, c load, c +, a +, c close, b close, c load, a -");
  row("a>b a>c b< c<", "a -, b load, b +, b -, c load, c +, b close, a +, c close, c -");
  row("a>b d>b", "a -, b load, b +, b -, a +, d -");
  row("c@a a>b b<", "c load, c +, a -, c -, b load, b +, a +, b close, b -, c +");
  row("a>b c@a c^ cv b<", "a -, b load, b +, c load, a +, b close, b -, c +");
  row("a>b c@b b^", "a -, b load, b +, c load, c +, b -, c -, a +");
  row("c@a c>d a>b d< b<",
      "c load, c +, c -, d load, d +, a -, d -, b load, b +, d close, a +, b close, b -, c +");
  row("w^ a>b b< wv", "a -, a +");
  row("a>b w_ w= b<", "a -, b load, b +, b -, b +, a +, b close, b -");
  row("a=b", "a -, a lost");
  row("a>b b=c", "a -, b load, b +, b -, b lost");
  row("a>b c=a a>d", "a -, b load, b +"); // over c, which is hidden: told of a already
}

void PresentationTest::appearingIsToldInOrder() {
  Screen screen;
  std::vector<std::shared_ptr<BaseViewController>> held;
  for (const auto& controller : std::as_const(screen.controllers))
    held.push_back(controller->shared_from_this());
  screen.run(QTest::currentDataTag());
  QTEST(screen.story(), "story");
}

void PresentationTest::whatAViewLeavesCannotPresentOverIt() {
  const Screen screen;
  Place place;
  screen.view("b")->setParent(&place); // never seen: Qt does not announce that it is moved
  place.left = [&screen] {
    QVERIFY(!screen.controller("b")->presentViewController(screen.controller("a"), FromLeft));
  };
  QVERIFY(screen.controller("a")->presentViewController(screen.controller("b"), FromLeft));
  QVERIFY(!place.left);
  QCOMPARE(screen.view("b")->parentWidget(), screen.view("a"));
}

void PresentationTest::presentationCanBeAskedFor() {
  Screen screen;
  screen.run(QStringLiteral("a>b b>c"));
  const QList<PresentedView> order = screen.view("b")->presentation();
  QCOMPARE(order.size(), 3);
  for (int i = 0; i < 3; ++i) {
    QCOMPARE(order[i].view, screen.views[QStringLiteral("abc").at(i)]);
    QCOMPARE(order[i].presenter.data(), i ? order[i - 1].view.data() : nullptr);
    QCOMPARE(order[i].direction, i ? FromLeft : NoTransition);
    QCOMPARE(order[i].appeared, i == 2);
  }
  screen.run(QStringLiteral("b/"));
  QCOMPARE(screen.view("a")->presentation().size(), 1);
  QCOMPARE(screen.view("c")->presentation().size(), 2);
  screen.run(QStringLiteral("a>d dX")); // nobody could dismiss it
  QCOMPARE(screen.view("a")->presentation().size(), 1);
  QCOMPARE(screen.controller("c")->presenter(), screen.controller("b"));
  QVERIFY(!screen.controller("b")->presenter());
}

void PresentationTest::requestsSayWhetherTheyWereDone() {
  const std::pair<const char*, bool> requests[] = {{"a>a", false},    {"a>b b>a", false},
                                                   {"a>b d>b", true}, {"b! a>b b<", false},
                                                   {"b<", true},      {"b! a>b b< b<", false}};
  for (const auto& [steps, answer] : requests) {
    Screen screen;
    screen.run(steps);
    QVERIFY2(screen.answer == answer, steps);
  }
  Screen screen;
  QTabWidget tabs;
  tabs.addTab(screen.view("b"), "b");
  tabs.addTab(screen.view("c"), "c");
  tabs.show();
  screen.controller("c")->on["viewWillAppear"] = [&] { screen.run("d>b"); }; // as b leaves the tabs
  QVERIFY(screen.controller("a")->presentViewController(screen.controller("b"), FromLeft) && !screen.answer);
  const auto held = screen.controller("b")->shared_from_this();
  screen.view("b")->close(); // it is about to be deleted
  QVERIFY(!screen.controller("a")->presentViewController(screen.controller("b"), FromLeft));
}

void PresentationTest::dismissalWaitsForTheAnswer() {
  Screen screen;
  screen.run(QStringLiteral("a>b"));
  auto* const b = screen.controller("b");
  bool inner = true;
  b->on["viewWillClose"] = [&] { inner = b->dismissViewController() || screen.window.close(); };
  QVERIFY(b->dismissViewController() && !inner);
  QCOMPARE(screen.story(), QStringLiteral("a -, b load, b +, a +, b close, b -"));
}

void PresentationTest::viewHiddenBeforeItIsSeenDoesNotCover() {
  for (const char* call : {"viewDidMove", "viewDidResize"}) {
    Screen screen;
    screen.controller("b")->on[call] = [&] { screen.view("b")->hide(); };
    screen.run(QStringLiteral("a>b"));
    QVERIFY(!screen.view("b")->isVisible());
    QCOMPARE(screen.story(), QStringLiteral("a -, b -, a +"));
  }
}

void PresentationTest::closingWindowAsksItsViews_data() {
  QTest::addColumn<QString>("kind");
  QTest::addColumn<QString>("refusing");
  QTest::addColumn<QString>("story");
  for (const char* kind : {"window", "dialog", "escaped dialog", "view"}) {
    const auto row = [&](const char* refusing, const char* story) {
      QTest::addRow("%s: %s", kind, refusing) << kind << refusing << story;
    };
    row("nobody", "c close, b close, a close, c -");
    row("c", "c close");
    row("a", "c close, b close, a close, b load, c load");
  }
  QTest::addRow("dialog refuses") << "dialog"
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
  const std::unique_ptr<QWidget> window(kind.endsWith("dialog") ? new QDialog
                                        : kind == "view"        ? new BaseView
                                                                : new QWidget);
  window->setAttribute(Qt::WA_DeleteOnClose, false);
  (new QVBoxLayout(window.get()))->addWidget(screen.view("a"));
  if (refusing == "window")
    window->installEventFilter(&refusal); // before there is a view to be seen
  window->show();
  screen.run(QStringLiteral("a>b a>c"));
  if (screen.controllers.contains(refusing))
    screen.controller(refusing)->mayClose = false;
  screen.calls.clear();
  if (kind.startsWith("escaped"))
    QTest::keyClick(window->windowHandle(), Qt::Key_Escape);
  else
    QCOMPARE(window->close(), refusing == "nobody");
  settle();
  QTEST(screen.story(), "story");
  QCOMPARE(window->isVisible(), refusing != "nobody");
}

VELA_TEST_MAIN(PresentationTest)
#include "presentation_test.moc"
