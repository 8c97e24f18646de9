// SPDX-License-Identifier: MIT
#include "tool_screen.h"

#include <support/test_case.h>
#include <ui_base/commands/command_base.h>

#include <QApplication>
#include <QDialog>

#include <array>
#include <map>
#include <random>
#include <set>

using Vela::Test::RecordingTool;
using Vela::Test::ToolScreen;
using namespace Vela::UiBase;

namespace {

/// Takes all mouse input while it is begun; announces executions with a busy cursor when told to.
class WalkCommand : public CommandBase, public ViewResponder {
  Q_OBJECT

public:
  WalkCommand(CmdsViewController* controller, int number) : CommandBase(controller), m_number(number) {}
  QString commandId() const override { return QStringLiteral("walk%1").arg(m_number); }
  bool onExecuteAsync(bool) override { return true; }
  void tell(void (CommandStateProtocol::*callback)(CommandBase*)) {
    broadcast([&](CommandStateProtocol* observer) { (observer->*callback)(this); });
  }
  void tellExecuting(void (CommandStateProtocol::*callback)(CommandBase*, bool)) {
    broadcast([&](CommandStateProtocol* observer) { (observer->*callback)(this, false); });
  }

  bool mousePress(QMouseEvent*) override { return true; }
  bool mouseMove(QMouseEvent*) override { return true; }
  bool mouseRelease(QMouseEvent*) override { return true; }
  bool mouseDoubleClick(QMouseEvent*) override { return true; }

private:
  const int m_number;
};

/// What a screen is expected to be after each step, said without the words of the code: who operates, what is
/// on the stacks, which press is held back. States and cursors follow from these.
struct Model {
  using Tool = RecordingTool*;

  std::map<int, std::vector<Tool>> stacks;
  std::set<Tool> declining;
  Tool oneShot = nullptr; // takes itself off where its operation ends
  Qt::CursorShape ownCursor = Qt::ArrowCursor;
  Tool operating = nullptr;
  int operatingButton = 0;
  bool byItself = false; // not by a press
  bool rightHeldBack = false;
  bool commandBegun = false;
  Qt::MouseButtons held;
  // A window that is blocked, or whose view is hidden, while a button is held hears only presses until all
  // buttons are up.
  bool deaf = false;

  Tool top(int button) const {
    const auto found = stacks.find(button);
    return found == stacks.end() || found->second.empty() ? nullptr : found->second.back();
  }
  void end() {
    const Tool ended = std::exchange(operating, nullptr);
    if (ended && ended == oneShot)
      stacks[operatingButton].pop_back();
  }
  void loseMouse() {
    end();
    rightHeldBack = false;
  }
  void loseGrab() {
    loseMouse();
    deaf = bool(held);
  }
  void begin(int button) {
    if (Tool tool = top(button); tool && !declining.contains(tool)) {
      operating = tool;
      operatingButton = button;
      byItself = false;
    }
  }

  void beginByItself(Tool tool) {
    end();
    for (const auto& [button, stack] : stacks) {
      if (!stack.empty() && stack.back() == tool)
        operatingButton = button;
    }
    operating = tool;
    byItself = true;
  }

  void press(Qt::MouseButton button) {
    deaf = deaf && held;
    held |= button;
    if (commandBegun)
      return;
    if (operating != top(button))
      end();
    if (button == Qt::RightButton)
      rightHeldBack = true;
    else if (!operating)
      begin(button);
  }
  void release(Qt::MouseButton button) {
    held &= ~Qt::MouseButtons(button);
    if (deaf)
      return;
    rightHeldBack = false;
    endLost();
  }
  void endLost() {
    if (operating && !byItself && !(held & Qt::MouseButton(operatingButton)))
      end();
  }
  void move() {
    if (deaf && held)
      return;
    if (!commandBegun && !operating && held.testFlag(Qt::RightButton) && rightHeldBack &&
        top(Qt::RightButton)) {
      rightHeldBack = false;
      begin(Qt::RightButton);
    }
    if (!held.testFlag(Qt::RightButton))
      rightHeldBack = false;
    endLost();
  }
  void doubleClick(Qt::MouseButton button) {
    press(button);
    release(button);
    if (!commandBegun && operating != top(button))
      end();
  }
  void push(int button, Tool tool) {
    if (operating && operating == top(button))
      end();
    stacks[button].push_back(tool);
  }
  Tool pop(int button) {
    const Tool tool = top(button);
    if (!tool)
      return nullptr;
    if (operating == tool)
      end();
    if (top(button) == tool)
      stacks[button].pop_back();
    return tool;
  }

  QString stateOf(Tool tool) const {
    if (tool == operating)
      return QStringLiteral("operating");
    for (const auto& [button, stack] : stacks) {
      if (std::find(stack.begin(), stack.end(), tool) == stack.end())
        continue;
      const bool waits = button == Qt::LeftButton && operating;
      return tool == stack.back() && !waits ? QStringLiteral("active") : QStringLiteral("suspended");
    }
    return QStringLiteral("inactive");
  }
  Qt::CursorShape cursor() const {
    if (operating)
      return operating->getOperatingCursor().shape();
    const Tool primary = top(Qt::LeftButton);
    return primary ? primary->getIdleCursor().shape() : ownCursor;
  }
};

/// A screen and its model, and the steps that are taken on both.
class Walk {
public:
  explicit Walk(unsigned seed) : m_random(seed) {}

  void step();
  /// Empty when screen and model agree.
  QString difference() const;
  const QStringList& lastSteps() const { return m_lastSteps; }
  void finish() { m_stage.reset(); }

private:
  struct Stage {
    ToolScreen screen;
    Model model;
    std::vector<std::shared_ptr<RecordingTool>> tools; // also those on no stack
    std::vector<WalkCommand*> commands;
    std::map<WalkCommand*, int> busy;
  };

  int any(int count) { return int(m_random() % unsigned(count)); }
  Qt::MouseButton anyButton() {
    return std::array{Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}[any(3)];
  }
  EToolActivationButton anyStack() {
    return std::array{NoButton, LeftButton, RightButton, MiddleButton}[any(4)];
  }
  void makeStage();
  void makeOneShot(RecordingTool& tool);
  void mouseStep();
  void stackStep();
  void focusStep();
  void commandStep();
  void viewStep();
  void note(const QString& step);

  std::mt19937 m_random;
  std::unique_ptr<Stage> m_stage;
  QStringList m_lastSteps;
};

void Walk::note(const QString& step) {
  m_lastSteps.append(step);
  if (m_lastSteps.size() > 25)
    m_lastSteps.removeFirst();
}

void Walk::makeStage() {
  note("new screen");
  m_stage.reset();
  m_stage = std::make_unique<Stage>();
  ToolScreen& screen = m_stage->screen;
  for (const auto button : {NoButton, LeftButton, RightButton, MiddleButton})
    m_stage->model.stacks[button] = {static_cast<RecordingTool*>(screen.controller->getTool(button).get())};
  for (const char* name : {"left", "right", "middle", "wheel"})
    m_stage->tools.push_back(screen.tool(name));
  const Qt::CursorShape shapes[] = {Qt::CrossCursor, Qt::WaitCursor, Qt::IBeamCursor, Qt::SizeBDiagCursor};
  for (int i = 0; i < 4; ++i) {
    const auto tool =
        screen.makeTool(QString::number(i), shapes[i], Qt::CursorShape(Qt::WhatsThisCursor + i));
    tool->takesPresses = i != 3;
    if (!tool->takesPresses)
      m_stage->model.declining.insert(tool.get());
    m_stage->tools.push_back(tool);
  }
  makeOneShot(*m_stage->tools[4]);
  if (any(2)) {
    m_stage->model.ownCursor = Qt::ForbiddenCursor;
    const auto left = screen.controller->popTool(LeftButton);
    screen.view->setCursor(Qt::ForbiddenCursor);
    screen.controller->pushTool(LeftButton, left);
  }
  for (int i = 0; i < 2; ++i) {
    auto* const command = new WalkCommand(screen.controller, i);
    screen.controller->addCommand(command);
    m_stage->commands.push_back(command);
  }
}

void Walk::makeOneShot(RecordingTool& tool) {
  m_stage->model.oneShot = &tool;
  tool.onEnd = [&tool, this] {
    for (const auto button : {NoButton, LeftButton, RightButton, MiddleButton}) {
      if (m_stage->screen.controller->getTool(button).get() == &tool)
        m_stage->screen.controller->popTool(button);
    }
  };
}

void Walk::mouseStep() {
  auto& [screen, model, tools, commands, busy] = *m_stage;
  const Qt::MouseButton button = anyButton();
  const QString letter = button == Qt::LeftButton ? "L" : button == Qt::RightButton ? "R" : "M";
  const bool held = model.held.testFlag(button);
  QString word;
  switch (any(12)) {
  case 0:
    word = any(2) ? "wh" : "key";
    break;
  case 1:
    if (held || model.deaf)
      return;
    word = letter + letter;
    model.doubleClick(button);
    break;
  case 2:
    if (!held || any(4))
      return;
    word = letter + "?";
    model.held &= ~Qt::MouseButtons(button);
    break;
  case 3:
  case 4:
  case 5:
  case 6:
    word = held ? letter + "-" : letter + "+";
    if (held)
      model.release(button);
    else
      model.press(button);
    break;
  default:
    word = "mv";
    model.move();
  }
  screen.play(word);
  note(word + " [" + screen.told() + "]");
}

void Walk::stackStep() {
  auto& [screen, model, tools, commands, busy] = *m_stage;
  const auto button = anyStack();
  const auto tool = tools[std::size_t(any(int(tools.size())))];
  if (any(20) == 0) {
    note("reset");
    screen.controller->resetTools();
  } else if (any(2)) {
    note(QStringLiteral("push %1 on %2").arg(tool->name()).arg(button));
    if (model.stateOf(tool.get()) == "inactive")
      model.push(button, tool.get());
    screen.controller->pushTool(button, tool);
  } else if (any(8) == 0) {
    note("a tool begins by itself: " + tool->name());
    if (model.stateOf(tool.get()) == "active")
      model.beginByItself(tool.get());
    tool->startOperation();
  } else if (any(2)) {
    note(QStringLiteral("pop from %1").arg(button));
    const auto popped = screen.controller->popTool(button);
    if (popped.get() != model.pop(button))
      qFatal("popped the wrong tool");
  }
}

void Walk::focusStep() {
  auto& [screen, model, tools, commands, busy] = *m_stage;
  if (screen.edit->hasFocus()) {
    note("focus the view");
    screen.view->setFocus();
  } else if (any(40) == 0) {
    note("dialog");
    QDialog dialog(&screen.window);
    dialog.setModal(true);
    dialog.show();
    model.loseGrab();
    dialog.close();
    screen.window.activateWindow();
    screen.view->setFocus();
    QCoreApplication::processEvents();
  } else if (screen.view->hasFocus()) {
    note("focus the line edit");
    screen.edit->setFocus();
    model.loseMouse();
  }
}

void Walk::commandStep() {
  auto& [screen, model, tools, commands, busy] = *m_stage;
  WalkCommand* const command = commands[std::size_t(any(int(commands.size())))];
  switch (any(4)) {
  case 0:
    if (!model.commandBegun) {
      note("command begins");
      commands[0]->tell(&CommandStateProtocol::commandBegan);
      model.commandBegun = true;
      model.loseMouse();
    } else {
      note("command ends");
      commands[0]->tell(&CommandStateProtocol::commandEnded);
      model.commandBegun = false;
    }
    break;
  case 1:
    command->enableExecutionNotification(any(2));
    break;
  case 2:
    // An execution would be offered input too; here only the one that began takes it.
    if (!model.commandBegun)
      break;
    note("execution begins");
    command->tellExecuting(&CommandStateProtocol::commandBeganExecuting);
    busy[command] += command->isExecutionNotificationEnabled() ? 1 : 0;
    break;
  default:
    note("execution ends");
    command->tellExecuting(&CommandStateProtocol::commandEndedExecuting);
    busy[command] = std::max(0, busy[command] - 1);
  }
}

void Walk::viewStep() {
  auto& [screen, model, tools, commands, busy] = *m_stage;
  switch (any(10)) {
  case 0:
    note("delete the view");
    delete screen.view;
    makeStage();
    break;
  case 1:
    note("close the view");
    screen.view->close();
    makeStage();
    break;
  default:
    note("hide and show");
    screen.view->hide();
    screen.view->show();
    model.loseGrab();
  }
}

void Walk::step() {
  if (!m_stage)
    makeStage();
  const int what = any(1000);
  if (what < 2)
    viewStep();
  else if (what < 30)
    focusStep();
  else if (what < 80)
    commandStep();
  else if (what < 200)
    stackStep();
  else
    mouseStep();
}

QString Walk::difference() const {
  const auto& [screen, model, tools, commands, busy] = *m_stage;
  QStringList wrong;
  for (const auto& tool : tools) {
    if (tool->state() != model.stateOf(tool.get()))
      wrong += QStringLiteral("%1 is %2, not %3").arg(tool->name(), tool->state(), model.stateOf(tool.get()));
  }
  if (screen.controller->getOperatingTool().get() != model.operating)
    wrong += QStringLiteral("the wrong tool operates");
  if (screen.cursor() != model.cursor())
    wrong += QStringLiteral("the cursor is %1, not %2").arg(screen.cursor()).arg(model.cursor());
  const bool anyBusy =
      std::any_of(busy.begin(), busy.end(), [](const auto& entry) { return entry.second > 0; });
  if (anyBusy != bool(QApplication::overrideCursor()))
    wrong += QStringLiteral("the busy cursor is wrong");
  return wrong.join(QLatin1String("; "));
}

} // namespace

class ToolWalkTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void noSequenceOfInputLeavesAToolOrACursorWrong();
};

// VELA_WALK_SEED repeats a walk, VELA_WALK_STEPS makes it longer.
void ToolWalkTest::noSequenceOfInputLeavesAToolOrACursorWrong() {
  bool given = false;
  unsigned seed = qEnvironmentVariable("VELA_WALK_SEED").toUInt(&given);
  if (!given)
    seed = std::random_device()();
  const int steps = qEnvironmentVariable("VELA_WALK_STEPS", QStringLiteral("10000")).toInt();
  qInfo("seed %u", seed);
  Walk walk(seed);
  for (int i = 0; i < steps; ++i) {
    walk.step();
    const QString difference = walk.difference();
    QVERIFY2(difference.isEmpty(),
             qPrintable(QStringLiteral("step %1: %2, after %3")
                            .arg(i)
                            .arg(difference, walk.lastSteps().join(QLatin1String(", ")))));
  }
  walk.finish();
  QVERIFY(!QApplication::overrideCursor());
}

VELA_TEST_MAIN(ToolWalkTest)
#include "tool_walk_test.moc"
