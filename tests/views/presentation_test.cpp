// SPDX-License-Identifier: MIT
#include "presentation_screen.h"

#include <QDialog>
#include <QPushButton>
#include <QVBoxLayout>

using Vela::Test::RecordingController;
using Vela::Test::settle;
using Screen = Vela::Test::PresentationScreen;
using namespace Vela::UiBase;

/// Who is told what when views are presented, and what the calls answer.
class PresentationTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void appearingIsToldInOrder_data();
  void appearingIsToldInOrder();
  void presentationCanBeAskedFor();
  void requestsSayWhetherTheyWereDone_data();
  void requestsSayWhetherTheyWereDone();
  void dismissalWaitsForTheAnswer();
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

void PresentationTest::dismissalWaitsForTheAnswer() {
  Screen screen;
  screen.run(QStringLiteral("a>b"));
  RecordingController* const b = screen.controller("b");
  bool inner = true;
  b->on["viewWillClose"] = [&] { inner = b->dismissViewController(); }; // while it is asked
  QVERIFY(b->dismissViewController() && !inner);
  QCOMPARE(screen.story(), QStringLiteral("a -, b load, b +, a +, b close, b -"));
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
