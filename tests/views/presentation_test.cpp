// SPDX-License-Identifier: MIT
#include "presentation_screen.h"

using Screen = Vela::Test::PresentationScreen;
using namespace Vela::UiBase;

/// Who is told what when views are presented, and what the calls answer.
class PresentationTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void appearingIsToldInOrder_data() {
    const Vela::Test::Rows<QString> row("story");
    row("b~ a>b b< a>b", "a -, b load, b +, a +, b close, b -, a -, b load, b +");
    row("a>b bx", "a -, b load, b +, b lost, a +");
    row("a>b bX", "a -, b load, b +, a +");
    row("a>b b^ bv b<", "a -, b load, b +, b -, a +, a -, b +, a +, b close, b -");
    row("a>b b>c c! b<", "a -, b load, b +, b -, c load, c +, a +, c close, a -");
    row("a>b b>c b! b<", "a -, b load, b +, b -, c load, c +, a +, c close, b close, c load, a -");
    row("a>b a>c b< c<", "a -, b load, b +, b -, c load, c +, b close, a +, c close, c -");
    row("c@a a>b b<", "c load, c +, a -, c -, b load, b +, a +, b close, b -, c +");
    row("a>b c@a c^ cv b<", "a -, b load, b +, c load, a +, b close, b -, c +");
    row("a>b c@b b^", "a -, b load, b +, c load, c +, b -, c -, a +");
    row("c@a c>d a>b d< b<",
        "c load, c +, c -, d load, d +, a -, d -, b load, b +, d close, a +, b close, b -, c +");
    row("w^ a>b b< wv", "a -, a +");
    row("a>b w_ w= b<", "a -, b load, b +, b -, b +, a +, b close, b -");
    row("a=b", "a -, a lost");
    row("a>b b=c", "a -, b load, b +, b -, b lost");
  }

  void appearingIsToldInOrder() {
    Screen screen;
    screen.run("a& b& c& d&");
    screen.run(QTest::currentDataTag());
    QTEST(screen.story(), "story");
  }

  void callbacksMayAct_data() {
    const Vela::Test::Rows<QString, QString, QString, QString> row("acts", "steps", "story", "answers");
    for (const char* const call : {"moved", "resized"}) { // before it is seen
      row(call, "b^", "a>b", "a -, b -, a +", "1 hidden");
      row(QByteArray(call) + " in a window", "b^", "bv", "b -", " hidden");
    }
    row("load elsewhere", "c=b", "cv bv", "c load, c +, b load, c -, c lost, b +", " seen");
    row("+ when presented", "d>b", "a>b", "a -, b load, b +", "01 seen"); // Qt is about to show it
    row("+ of a", "d>b", "a>b b<", "a -, b load, b +, a +, b -, d -", "110 hidden");
    row("+ of a, deletes", "bx", "a>b b<", "a -, b load, b +, a +, b lost", "11 gone");
    row("+ of a, ends it", "b/", "a>b b<", "a -, b load, b +, a +, b -, b close", "11 gone");
    row("- of a", "b/", "a>b", "a -, a +", "0 hidden");
    row("- of a, deletes", "bx", "a>b", "a -, a +", "0 gone");
    row("- attaches", "b=c", "bv b=d", "b load, b +, b -, b lost", " seen");
    row("- shows", "bv", "bv b/", "b load, b +, b -, b +, b -, b +, b -, b +, b -, b +, b -, b +", " hidden");
    row("- shows when presented", "bv", "bv a>b",
        "b load, b +, b -, b +, b -, b +, b -, b +, b -, b +, b -, b +, b -, b +, a -", "1 seen");
    row("close", "b<", "a>b b<", "a -, b load, b +, a +, b close, b -", "101 gone");
    row("close with its window", "wq", "a>b b<", "a -, b load, b +, a +, b close, b -", "101 gone");
  }

  void callbacksMayAct() {
    Screen screen;
    QFETCH(const QString, acts);
    const QString call = QTest::currentDataTag();
    screen.controller(call.contains("of a") ? "a" : "b")->on[call.section(' ', 0, 0)] = [&] {
      screen.run(acts);
    };
    QFETCH(const QString, steps);
    screen.run(steps);
    QTEST(screen.story(), "story");
    const BaseView* const b = screen.view("b");
    QTEST(screen.answers + (!b ? " gone" : b->isVisible() ? " seen" : " hidden"), "answers");
    QVERIFY(!b || !b->windowHandle() || b->windowHandle()->isVisible() == b->isVisible());
  }

  void requestsSayWhetherTheyWereDone() {
    for (const auto& [steps, answers] : {std::pair{"a>a", "0"},
                                         {"a>b b>a", "10"},
                                         {"a>b d>b", "11"},
                                         {"b<", "1"},
                                         {"b! a>b b< b<", "100"},
                                         {"a& a>b b~ bq a>b", "11"}}) {
      Screen screen;
      screen.run(steps);
      QCOMPARE(screen.answers, QLatin1String(answers));
    }
    Screen screen;
    screen.run("b& a>b");
    screen.view("b")->close(); // it is about to be deleted
    screen.run("a>b");
    QCOMPARE(screen.answers, "10");
  }

  void whatAViewLeavesCannotMoveItElsewhere() {
    struct Place : QWidget {
      std::function<void()> left;
      void childEvent(QChildEvent* event) override {
        if (event->removed() && left)
          std::exchange(left, nullptr)();
      }
    };
    for (const bool seen : {false, true}) { // Qt announces only a move of what was seen
      for (const char* const acts : {"b>a", "d>b"}) {
        Screen screen;
        Place place;
        screen.view("b")->setParent(&place);
        screen.view("b")->show();
        place.setVisible(seen);
        place.left = [&] { screen.run(acts); };
        screen.run("a>b");
        QCOMPARE(screen.answers, "01");
        QCOMPARE(screen.view("b")->parentWidget(), screen.view("a"));
      }
    }
  }

  void presentationCanBeAskedFor() {
    Screen screen;
    screen.run("a>b b>c");
    screen.window.resize(400, 300);
    QCOMPARE(screen.view("c")->geometry(), screen.view("a")->rect());
    QCOMPARE(screen.layers("b"), "a a>b b>c+");
    screen.run("b/");
    QCOMPARE(screen.layers("a"), "a+");
    QCOMPARE(screen.layers("c"), "b b>c");
    screen.run("a>d dX"); // nobody could dismiss it
    QCOMPARE(screen.layers("a"), "a+");
    QVERIFY(screen.controller("c")->presenter() == screen.controller("b"));
    QVERIFY(!screen.controller("b")->presenter());
  }

  void closingWindowAsksItsViews() {
    const std::pair<QWidget* (*)(), const char*> kinds[] = {
        {[] { return new QWidget; }, "wq"},
        {[]() -> QWidget* { return new QDialog; }, "wq"},
        {[]() -> QWidget* { return new QDialog; }, "we"},
        {[]() -> QWidget* { return new BaseView; }, "wq"}};
    for (const auto& [make, end] : kinds) {
      for (const auto& [refusal, story] : {std::pair{"", "c close, b close, a close, c -"},
                                           {"c!", "c close"},
                                           {"a!", "c close, b close, a close, b load, c load"}}) {
        Screen screen(make());
        screen.run("a>b a>c");
        screen.run(refusal);
        for (int turn = 0; turn < 2 && screen.window.isVisible(); ++turn) {
          screen.calls.clear();
          screen.run(end);
          screen.calls.removeAll("c key");
          QCOMPARE(screen.story(), QLatin1String(story));
        }
        QCOMPARE(screen.window.isHidden(), qstrlen(refusal) == 0);
      }
    }
    struct Refusing : QDialog {
      void closeEvent(QCloseEvent* event) override { event->ignore(); }
    };
    Screen screen(new Refusing);
    screen.run("a>b wq");
    QCOMPARE(screen.story(), "a -, b load, b +, b close, a close, a load, b load");
  }
};

VELA_TEST_MAIN(PresentationTest)
#include "presentation_test.moc"
