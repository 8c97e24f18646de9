// SPDX-License-Identifier: MIT
#include "recording_tool.h"

#include <support/rows.h>
#include <support/test_case.h>
#include <ui_base/tools/tool_stack.h>

using Taren::Objects::createShared;
using Vela::Test::RecordingTool;
using namespace Vela::UiBase;

namespace {

/// Hands on what the tools tell it, then follows the rules of every stack.
class RecordingStack : public ToolStack {
public:
  using Hear = std::function<void(InteractiveTool*, const QString&)>;
  explicit RecordingStack(const Hear& hears) : m_hear(hears) {}

  void toolActivated(InteractiveTool* tool) override { m_hear(tool, "on"); }
  void toolDeactivated(InteractiveTool* tool) override { m_hear(tool, "off"); }
  void toolSuspended(InteractiveTool* tool) override { m_hear(tool, "wait"); }
  void toolResumed(InteractiveTool* tool) override { m_hear(tool, "back"); }
  void toolCursorChange(InteractiveTool* tool) override { m_hear(tool, "cursor"); }
  void toolBeganOperating(InteractiveTool* tool) override {
    m_hear(tool, "begin");
    ToolStack::toolBeganOperating(tool);
  }
  void toolEndedOperating(InteractiveTool* tool) override {
    m_hear(tool, "end");
    ToolStack::toolEndedOperating(tool);
  }

private:
  const Hear& m_hear; // which may delete the stack
};

/// A stack and the tools a, b and c, driven by scripts: "L+a" pushes tool a on the left button's stack, "L-"
/// pops, "a:on", "a:off", "a:wait", "a:back", "a:begin" and "a:end" change the tool, "reset", "clear" and
/// "delete" the stack. "a:on=L-&M+b" plays what is on the right when the tool next tells what is on the left.
class Stage {
public:
  Stage() {
    for (const char* name : {"a", "b", "c"})
      m_tools[name] = std::make_shared<RecordingTool>(name);
  }

  QStringList told;

  void play(const QString& script) {
    const QStringList words = script.split(' ', Qt::SkipEmptyParts);
    for (const QString& word : words)
      playWord(word);
  }
  /// What lies on the stack, in the words that push it.
  QString held() const {
    QStringList held;
    const auto entries = m_stack ? m_stack->heldTools() : QList<HeldTool>();
    for (const auto& [button, tool] : entries)
      held += m_buttons.key(button) + ('+' + static_cast<RecordingTool&>(*tool).name);
    return held.join(' ');
  }

private:
  void playWord(const QString& word) {
    const QString rest = word.mid(2);
    if (word.contains('='))
      m_hooks[word.section('=', 0, 0)] = word.section('=', 1);
    else if (word[1] == ':')
      std::invoke(m_changes.value(rest), *m_tools[word.left(1)]);
    else if (word[1] == '+')
      m_stack->pushTool(m_buttons[word[0]], m_tools[rest]);
    else if (word[1] == '-')
      m_stack->popTool(m_buttons[word[0]]);
    else if (word == "reset")
      m_stack->resetTools();
    else if (word == "clear")
      m_stack->clearTools();
    else
      delete std::exchange(m_stack, nullptr).get();
  }

  const QHash<QChar, EToolActivationButton> m_buttons{
      {'L', LeftButton}, {'R', RightButton}, {'M', MiddleButton}};
  const QHash<QString, void (RecordingTool::*)()> m_changes{
      {"on", &RecordingTool::activate},          {"off", &RecordingTool::deactivate},
      {"wait", &RecordingTool::suspend},         {"back", &RecordingTool::resume},
      {"begin", &RecordingTool::startOperation}, {"end", &RecordingTool::endOperation}};
  QHash<QString, std::shared_ptr<RecordingTool>> m_tools;
  QHash<QString, QString> m_hooks;
  const RecordingStack::Hear m_hear = [this](InteractiveTool* tool, const QString& what) {
    const QString report = static_cast<RecordingTool*>(tool)->name + ':' + what;
    told += report;
    play(m_hooks.take(report).replace('&', ' '));
  };
  std::shared_ptr<RecordingStack> m_stack = createShared<RecordingStack>(m_hear);
};

} // namespace

class ToolStackTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void toolsHearOfTheirPlace_data() {
    const Vela::Test::Rows<QString, QString, QString> row("script", "told", "held");
    row("active, inactive", "L+a a:on a:back a:end a:off a:off a:wait a:back a:begin a:end", "a:on a:off",
        "L+a");
    row("suspended", "L+a a:wait a:on a:off a:wait a:begin a:end", "a:on a:wait", "L+a");
    row("operating", "L+a a:begin a:on a:off a:wait a:back a:begin", "a:on a:begin a:cursor", "L+a");
    row("popped", "L- M- L+a L+b L- L- L-", "a:on a:wait b:on b:off a:back a:off", "");
    row("popped while it operates", "R+a R+b b:begin R-", "a:on a:wait b:on b:begin b:cursor a:back", "R+a");
    // The left one is back with the first that ends.
    row("two others operate", "L+a R+b M+c b:begin c:begin b:end c:end",
        "a:on b:on c:on b:begin a:wait b:cursor c:begin c:cursor b:end a:back c:end", "L+a R+b M+c");
    row("reset", "R+c L+a L+b reset", "c:on a:on a:wait b:on b:off b:on a:back a:off a:on a:wait c:off c:on",
        "L+a L+b R+c");
    row("operation begins in a reset", "L+a R+b a:off=b:begin reset",
        "a:on b:on a:off b:begin b:cursor a:on a:wait", "L+a R+b");
    row("operation ends in a reset", "L+a R+b b:begin a:off=b:end reset",
        "a:on b:on b:begin a:wait b:cursor a:back a:off b:end a:on b:off b:on", "L+a R+b");
    row("moved in a reset", "L+a a:on=L-&M+a reset", "a:on a:off a:on a:off a:on", "M+a");
    row("cleared", "L+a clear a:off", "a:on a:off", "");
    row("gone as one waits", "L+a a:wait=delete L+b", "a:on a:wait", "");
    row("gone as one is back", "L+a L+b a:back=delete L-", "a:on a:wait b:on b:off a:back", "");
  }

  void toolsHearOfTheirPlace() {
    QFETCH(QString, script);
    Stage stage;
    stage.play(script);
    QTEST(stage.told.join(' '), "told");
    QTEST(stage.held(), "held");
  }

  void operationFollowsItsButton() {
    RecordingTool tool("t");
    const auto takes = [&tool](auto handler, Qt::MouseButtons held, Qt::MouseButton button = Qt::NoButton) {
      QMouseEvent event(QEvent::MouseMove, {}, {}, {}, button, held, {});
      return (tool.*handler)(&event);
    };
    const auto press = &RecordingTool::mousePress;
    const auto move = &RecordingTool::mouseMove;
    const auto release = &RecordingTool::mouseRelease;
    const Qt::MouseButtons both = Qt::LeftButton | Qt::RightButton;
    QVERIFY2(!takes(press, Qt::LeftButton, Qt::LeftButton), "it is not active");
    tool.activate();
    QVERIFY(takes(press, Qt::LeftButton, Qt::LeftButton) && tool.isOperating());
    QVERIFY(!takes(press, both, Qt::RightButton) && !takes(release, Qt::LeftButton, Qt::RightButton));
    QVERIFY(takes(move, both) && !takes(move, Qt::RightButton) && tool.isOperating());
    QVERIFY(takes(release, {}, Qt::LeftButton) && tool.isActive() && tool.pressEvent().isNull());
    QVERIFY(!takes(move, Qt::LeftButton) && !takes(release, {}, Qt::LeftButton));
  }

  void dyingToolFindsAnEmptyStack() {
    const auto stack = createShared<ToolStack>();
    const auto askAndDie = [&dying = *stack](RecordingTool* tool) {
      QVERIFY(!dying.getTool(LeftButton));
      delete tool;
    };
    stack->pushTool(LeftButton, std::shared_ptr<RecordingTool>(new RecordingTool("t"), askAndDie));
  }
};

VELA_TEST_MAIN(ToolStackTest)
#include "tool_stack_test.moc"
