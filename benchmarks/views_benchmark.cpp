// SPDX-License-Identifier: MIT
#include "comparison.h"

#include <ui_base/commands/command_base.h>
#include <ui_base/tools/interactive_tool.h>
#include <ui_base/views/base_view.h>
#include <ui_base/views/cmds_view_controller.h>

#include <QApplication>
#include <QMouseEvent>

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

using namespace Vela::UiBase;

namespace {

int handled = 0;

class AcceptingWidget : public QWidget {
protected:
  void mousePressEvent(QMouseEvent* event) override {
    ++handled;
    event->accept();
  }
  void mouseMoveEvent(QMouseEvent* event) override { mousePressEvent(event); }
};

class AcceptingController : public BaseViewController {
public:
  bool mousePress(QMouseEvent*) override {
    ++handled;
    return true;
  }
};

void measure(benchmark::State& state, QWidget& receiver) {
  QMouseEvent press(QEvent::MouseButtonPress, {5, 5}, {5, 5}, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  for (auto _ : state) {
    press.accept();
    QCoreApplication::sendEvent(&receiver, &press);
  }
  benchmark::DoNotOptimize(handled);
  state.SetItemsProcessed(state.iterations());
}

void Press_Widget(benchmark::State& state) {
  AcceptingWidget widget;
  measure(state, widget);
}
BENCHMARK(Press_Widget);

// The argument is how many views are alive.
void Press_ViewAndController(benchmark::State& state) {
  std::vector<std::unique_ptr<BaseView>> others;
  for (int i = 1; i < state.range(0); ++i) {
    others.push_back(std::make_unique<BaseView>());
    others.back()->setViewController(new AcceptingController);
  }
  BaseView view;
  view.setViewController(new AcceptingController);
  measure(state, view);
}
BENCHMARK(Press_ViewAndController)->Arg(1)->Arg(100);

class DragTool : public InteractiveTool {
public:
  using InteractiveTool::InteractiveTool;
  bool mouseMove(QMouseEvent* event) override {
    ++handled;
    return InteractiveTool::mouseMove(event);
  }
};

class InputCommand : public CommandBase, public ViewResponder {
public:
  InputCommand() : CommandBase(nullptr) {}
  QString commandId() const override { return QStringLiteral("input"); }
  bool onExecuteAsync(bool) override { return true; }
  bool mouseMove(QMouseEvent*) override {
    ++handled;
    return true;
  }
  void begin() {
    broadcast([this](CommandStateProtocol* observer) { observer->commandBegan(this); });
  }
};

void measureMove(benchmark::State& state, QWidget& receiver, Qt::MouseButtons buttons) {
  QMouseEvent move(QEvent::MouseMove, {5, 5}, {5, 5}, Qt::NoButton, buttons, Qt::NoModifier);
  for (auto _ : state) {
    move.accept();
    QCoreApplication::sendEvent(&receiver, &move);
  }
  benchmark::DoNotOptimize(handled);
  state.SetItemsProcessed(state.iterations());
}

CmdsViewController& withTools(BaseView& view) {
  auto* const controller = new CmdsViewController(&view);
  for (const auto button : {NoButton, LeftButton, RightButton, MiddleButton})
    controller->pushTool(button, std::make_shared<DragTool>(&view));
  return *controller;
}

void Move_Widget(benchmark::State& state) {
  AcceptingWidget widget;
  measureMove(state, widget, Qt::LeftButton);
}
BENCHMARK(Move_Widget);

// Each button's drag: the tool is the last of its kind that is looked at.
void Move_OperatingTool(benchmark::State& state) {
  BaseView view;
  CmdsViewController& controller = withTools(view);
  const auto button = static_cast<Qt::MouseButton>(state.range(0));
  QMouseEvent press(QEvent::MouseButtonPress, {5, 5}, {5, 5}, button, button, Qt::NoModifier);
  controller.getTool(static_cast<EToolActivationButton>(button))->mousePress(&press);
  measureMove(state, view, button);
}
BENCHMARK(Move_OperatingTool)->Arg(Qt::LeftButton)->Arg(Qt::MiddleButton);

void Move_ExecutingCommand(benchmark::State& state) {
  BaseView view;
  auto* const command = new InputCommand;
  withTools(view).addCommand(command);
  command->begin();
  measureMove(state, view, Qt::LeftButton);
}
BENCHMARK(Move_ExecutingCommand);

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  using Kind = Vela::Benchmarks::Comparison::Kind;
  return Vela::Benchmarks::run(argc, argv,
                               {{"Press_ViewAndController/1", "Press_Widget", 30, Kind::ExtraTime},
                                {"Press_ViewAndController/100", "Press_Widget", 30, Kind::ExtraTime},
                                {"Press_ViewAndController/100", "Press_ViewAndController/1", 1.05},
                                {"Move_OperatingTool/1", "Move_Widget", 30, Kind::ExtraTime},
                                {"Move_OperatingTool/4", "Move_Widget", 30, Kind::ExtraTime},
                                {"Move_ExecutingCommand", "Move_Widget", 60, Kind::ExtraTime}});
}
