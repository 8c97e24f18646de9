// SPDX-License-Identifier: MIT
#include "recording_tool.h"

#include <support/test_case.h>
#include <ui_base/tools/tool_stack.h>

#include <QMouseEvent>

#include <array>

using Taren::Objects::createShared;
using Vela::Test::RecordingTool;
using namespace Vela::UiBase;

namespace {

/// Writes down what the tools tell it, then follows the rules of every stack.
class RecordingStack : public ToolStack {
public:
  QStringList reports;
  std::function<void(const QString&)> onReport;

  void toolActivated(InteractiveTool* tool) override { note(tool, "activated"); }
  void toolDeactivated(InteractiveTool* tool) override { note(tool, "deactivated"); }
  void toolSuspended(InteractiveTool* tool) override { note(tool, "suspended"); }
  void toolResumed(InteractiveTool* tool) override { note(tool, "resumed"); }
  void toolCursorChange(InteractiveTool* tool) override { note(tool, "cursor"); }
  void toolBeganOperating(InteractiveTool* tool) override {
    note(tool, "began");
    ToolStack::toolBeganOperating(tool);
  }
  void toolEndedOperating(InteractiveTool* tool) override {
    note(tool, "ended");
    ToolStack::toolEndedOperating(tool);
  }

private:
  void note(InteractiveTool* tool, const char* what) {
    const QString report = static_cast<RecordingTool*>(tool)->name() + QLatin1Char(' ') + what;
    reports.append(report);
    if (const auto act = onReport)
      act(report);
  }
};

QMouseEvent mouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons,
                  const QPointF& position = {}) {
  return QMouseEvent(type, position, position, position, button, buttons, Qt::NoModifier);
}

std::shared_ptr<RecordingTool> makeTool(const QString& name) {
  return std::make_shared<RecordingTool>(name, std::make_shared<QStringList>());
}

using Tools = QHash<QString, std::shared_ptr<RecordingTool>>;

/// "L+a" pushes tool a on the left button's stack, "L-" pops; "a:…" calls an operation of the tool.
void play(ToolStack& stack, Tools& tools, const QString& word) {
  if (word == "reset")
    return stack.resetTools();
  const auto key = word[0] == 'L' ? LeftButton : word[0] == 'R' ? RightButton : MiddleButton;
  const QString change = word.mid(2);
  if (word[1] == '-')
    return void(stack.popTool(key));
  const QString name = word[1] == '+' ? change : word.left(1);
  std::shared_ptr<RecordingTool>& tool = tools[name];
  if (!tool)
    tool = makeTool(name);
  if (word[1] == '+')
    return stack.pushTool(key, tool);
  const QHash<QString, void (RecordingTool::*)()> changes{{"activate", &RecordingTool::activate},
                                                          {"deactivate", &RecordingTool::deactivate},
                                                          {"suspend", &RecordingTool::suspend},
                                                          {"resume", &RecordingTool::resume},
                                                          {"startOperation", &RecordingTool::startOperation},
                                                          {"endOperation", &RecordingTool::endOperation}};
  ((*tool).*changes.value(change))();
}

} // namespace

class ToolStackTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void changeActsInOneStateOnly();
  void operationFollowsItsButton();
  void toolsHearOfTheirPlace_data();
  void toolsHearOfTheirPlace();
  void resettingFollowsOperationsOfItsReports();
  void clearingReleasesWithoutDeactivating();
  void reportsAndDyingToolsFindAStackThatEnds();
  void laterObserverHearsAToolThatIsGone();
};

void ToolStackTest::changeActsInOneStateOnly() {
  const QStringList reaches{"L+a a:deactivate", "L+a", "L+a a:suspend", "L+a a:startOperation"};
  const std::tuple<const char*, int, const char*> changes[] = {
      {"a:activate", 0, "a activated"},   {"a:deactivate", 1, "a deactivated"},
      {"a:suspend", 1, "a suspended"},    {"a:resume", 2, "a resumed"},
      {"a:startOperation", 1, "a began"}, {"a:endOperation", 3, "a ended"}};
  for (const auto& [change, from, told] : changes) {
    for (int state = 0; state < reaches.size(); ++state) {
      const auto stack = createShared<RecordingStack>();
      Tools tools;
      for (const QString& word : reaches[state].split(' '))
        play(*stack, tools, word);
      const auto stateOf = [](const auto& a) {
        return std::array{a->isActive(), a->isSuspended(), a->isOperating()};
      };
      const auto before = stateOf(tools["a"]);
      stack->reports.clear();
      play(*stack, tools, change);
      QVERIFY2(stack->reports.value(0) == (state == from ? told : ""), change);
      QVERIFY2((stateOf(tools["a"]) != before) == (state == from), change);
    }
  }
}

void ToolStackTest::operationFollowsItsButton() {
  const auto t = makeTool("t");
  auto press = mouse(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, {3, 4});
  QVERIFY(!t->mousePress(&press)); // not active
  t->activate();
  QVERIFY(t->mousePress(&press) && t->isOperating());
  auto second = mouse(QEvent::MouseButtonPress, Qt::RightButton, Qt::LeftButton | Qt::RightButton, {9, 9});
  QVERIFY(!t->mousePress(&second));
  QCOMPARE(t->pressEvent().position(), QPointF(3, 4));
  auto foreign = mouse(QEvent::MouseButtonRelease, Qt::RightButton, Qt::LeftButton);
  auto held = mouse(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton | Qt::RightButton);
  auto lost = mouse(QEvent::MouseMove, Qt::NoButton, Qt::RightButton);
  QVERIFY(!t->mouseRelease(&foreign) && t->mouseMove(&held) && !t->mouseMove(&lost) && t->isOperating());
  auto release = mouse(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
  QVERIFY(t->mouseRelease(&release) && t->isActive() && t->pressEvent().isNull());
  QVERIFY(!t->mouseMove(&held) && !t->mouseRelease(&release));
}

void ToolStackTest::toolsHearOfTheirPlace_data() {
  QTest::addColumn<QString>("script");
  QTest::addColumn<QString>("told");
  QTest::addColumn<QString>("held");
  const auto row = [](const char* name, const char* script, const char* told, const char* held) {
    QTest::newRow(name) << QString(script) << QString(told) << QString(held);
  };
  row("popped", "L+a L+b L-", "a activated, a suspended, b activated, b deactivated, a resumed", "1a");
  row("nothing to pop", "L- M- L+a L- L-", "a activated, a deactivated", "");
  row("popped while it operates", "R+a R+b b:startOperation R-",
      "a activated, a suspended, b activated, b began, b cursor, a resumed", "2a");
  // The left one is back with the first that ends.
  row("two others operate", "L+a R+b M+c b:startOperation c:startOperation b:endOperation c:endOperation",
      "a activated, b activated, c activated, b began, a suspended, b cursor, c began, c cursor, b ended, "
      "a resumed, c ended",
      "1a 2b 4c");
  row("reset", "R+c L+a L+b reset",
      "c activated, a activated, a suspended, b activated, b deactivated, b activated, a resumed, a "
      "deactivated, a activated, a suspended, c deactivated, c activated",
      "1a 1b 2c");
}

void ToolStackTest::toolsHearOfTheirPlace() {
  QFETCH(const QString, script);
  const auto stack = createShared<RecordingStack>();
  Tools tools;
  for (const QString& word : script.split(' '))
    play(*stack, tools, word);
  QTEST(stack->reports.join(", "), "told");
  QStringList held;
  const auto entries = std::as_const(*stack).heldTools();
  for (const HeldTool& entry : entries)
    held += QString::number(entry.button) + static_cast<RecordingTool&>(*entry.tool).name();
  QTEST(held.join(' '), "held");
  for (const auto& tool : std::as_const(tools))
    QVERIFY(tool->getDelegate() || !stack->holds(*tool));
}

void ToolStackTest::resettingFollowsOperationsOfItsReports() {
  for (const QString script : {"L+a R+b", "L+a R+b b:startOperation"}) {
    const auto stack = createShared<RecordingStack>();
    Tools tools;
    for (const QString& word : script.split(' '))
      play(*stack, tools, word);
    const bool begins = !tools["b"]->isOperating();
    stack->onReport = [&](const QString& report) {
      if (report == "a deactivated")
        play(*stack, tools, begins ? "b:startOperation" : "b:endOperation");
    };
    stack->resetTools();
    QCOMPARE(tools["a"]->isSuspended(), begins);
  }
  const auto stack = createShared<RecordingStack>();
  Tools tools;
  play(*stack, tools, "L+a");
  stack->onReport = [&](const QString& report) {
    if (report == "a activated" && stack->popTool(LeftButton))
      stack->pushTool(MiddleButton, tools["a"]);
  };
  stack->resetTools();
  QVERIFY(stack->getTool(MiddleButton) == tools["a"] && tools["a"]->isActive());
}

void ToolStackTest::clearingReleasesWithoutDeactivating() {
  auto stack = createShared<ToolStack>();
  const auto kept = makeTool("kept");
  stack->pushTool(LeftButton, kept);
  stack->clearTools();
  QVERIFY(kept.use_count() == 1 && kept->isActive() && kept->getDelegate());
  stack = nullptr;
  kept->deactivate(); // nobody is left to hear of it
  QVERIFY(!kept->getDelegate());
}

void ToolStackTest::reportsAndDyingToolsFindAStackThatEnds() {
  for (const char* const moment : {"a suspended", "b activated", "b deactivated", "a resumed"}) {
    auto* const stack = new RecordingStack;
    auto held = Taren::Objects::adoptShared(stack);
    Tools tools;
    stack->onReport = [&](const QString& report) {
      if (report != moment)
        return;
      stack->onReport = {};
      delete stack;
      held.reset();
    };
    for (const QString word : {"L+a", "L+b", "L-"}) {
      if (held)
        play(*stack, tools, word);
    }
    QVERIFY(!held);
  }

  const auto stack = createShared<ToolStack>();
  const std::shared_ptr<RecordingTool> asking(new RecordingTool("t", std::make_shared<QStringList>()),
                                              [&dying = *stack](RecordingTool* tool) {
                                                dying.getTool(LeftButton);
                                                delete tool;
                                              });
  stack->pushTool(LeftButton, asking);
}

void ToolStackTest::laterObserverHearsAToolThatIsGone() {
  const auto observer = createShared<RecordingStack>();
  auto t = makeTool("t");
  t->addObserver(observer, true);
  t->activate();
  t = nullptr;
  QTRY_COMPARE(observer->reports, QStringList("t activated"));
}

VELA_TEST_MAIN(ToolStackTest)
#include "tool_stack_test.moc"
