// SPDX-License-Identifier: MIT
#include "comparison.h"

#include <ui_base/views/base_view.h>
#include <ui_base/views/base_view_controller.h>

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

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  using Kind = Vela::Benchmarks::Comparison::Kind;
  return Vela::Benchmarks::run(argc, argv,
                               {{"Press_ViewAndController/1", "Press_Widget", 30, Kind::ExtraTime},
                                {"Press_ViewAndController/100", "Press_Widget", 30, Kind::ExtraTime},
                                {"Press_ViewAndController/100", "Press_ViewAndController/1", 1.05}});
}
