// SPDX-License-Identifier: MIT
#include "comparison.h"

#include <ui_base/popups/placement_choice.h>
#include <ui_base/popups/widget_pos_calculator.h>

#include <QApplication>
#include <QDeadlineTimer>
#include <QWidget>

#include <benchmark/benchmark.h>

#include <array>

using namespace Vela::UiBase;

namespace {

constexpr QRect area(30, 30, 740, 540);
constexpr std::array sides{Bottom, Top, Left, Right};

void Nothing(benchmark::State& state) {
  for (auto _ : state)
    benchmark::ClobberMemory();
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(Nothing);

auto verifier(PlacementSearch& search) {
  return [&search](const QPoint& position, const QRect& popup, QPoint& adjust) {
    search.setFreeArea(area);
    return Placement::verify(popup.translated(position), area, adjust);
  };
}

void Plain_AllSidesRefused(benchmark::State& state) {
  const Placement::Target target{.reference = {380, 290, 40, 20}};
  PlacementSearch search;
  const auto verify = verifier(search);
  EDirection side = Top;
  QRect popup(0, 0, 900, 700);
  for (auto _ : state) {
    benchmark::DoNotOptimize(popup);
    benchmark::DoNotOptimize(Placement::choosePlain(target, popup, sides, verify, side, search));
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(Plain_AllSidesRefused);

// With every slid arrow looked at again, so that all twelve pairs and the first once more are tried.
void Arrowed_AllPairsRefused(benchmark::State& state) {
  const Placement::Target target{.reference = {380, 290, 40, 20}};
  PlacementSearch search;
  const auto verify = verifier(search);
  const auto layOut = [](SArrowParam&, QSize& size, QPoint& tip) {
    size = {900, 700};
    tip = {450, 0};
    return true;
  };
  EDirection side = Top;
  const QList<ArrowPair> pairs = Placement::arrowPairs({}, true, {sides.begin(), sides.end()});
  for (auto _ : state) {
    Placement::ArrowedChoice choice(target, true, layOut, verify, side, search);
    benchmark::DoNotOptimize(choice.choose(pairs));
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(Arrowed_AllPairsRefused);

void Arrowed_PairsListed(benchmark::State& state) {
  const QList<EDirection> all(sides.begin(), sides.end());
  for (auto _ : state)
    benchmark::DoNotOptimize(Placement::arrowPairs({}, true, all));
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(Arrowed_PairsListed);

/// A button in a panel of the active window, and a popup over the window.
class Screen {
public:
  explicit Screen(const QSize& popupSize) {
    window.resize(800, 600);
    panel.setGeometry(300, 200, 200, 200);
    button.setGeometry(80, 90, 40, 20);
    popup.resize(popupSize);
    window.show();
    window.activateWindow();
    const QDeadlineTimer patience(5000);
    while (!window.isActiveWindow() && !patience.hasExpired())
      QCoreApplication::processEvents();
    calculator.SetWidget(&popup);
    calculator.SetRefWidget(&button);
    calculator.SetDirection(Bottom);
  }

  QWidget window;
  QWidget panel{&window};
  QWidget button{&panel};
  QWidget popup{&window};
  WidgetPosCalculator calculator{nullptr};
};

/// No more than what any placement has to ask for.
void Popup_RectanglesRead(benchmark::State& state) {
  Screen screen({100, 50});
  for (auto _ : state) {
    benchmark::DoNotOptimize(QApplication::activeWindow()->rect());
    benchmark::DoNotOptimize(screen.popup.property("sub_widgets"));
    const QWidget* const parent = screen.popup.parentWidget();
    benchmark::DoNotOptimize(screen.button.rect().translated(screen.button.mapToGlobal(QPoint(0, 0)) -
                                                             parent->mapToGlobal(QPoint(0, 0))));
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(Popup_RectanglesRead);

void measurePlaced(benchmark::State& state, const QSize& popup) {
  const Screen screen(popup);
  QPoint position;
  for (auto _ : state) {
    screen.calculator.GetPosition(position, QRect(), false, QPoint());
    benchmark::DoNotOptimize(position);
  }
  state.SetItemsProcessed(state.iterations());
}

void Popup_Placed(benchmark::State& state) { measurePlaced(state, {100, 50}); }
BENCHMARK(Popup_Placed);

void Popup_PlacedNowhere(benchmark::State& state) { measurePlaced(state, {900, 700}); }
BENCHMARK(Popup_PlacedNowhere);

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  using Kind = Vela::Benchmarks::Comparison::Kind;
  return Vela::Benchmarks::run(argc, argv,
                               {{"Plain_AllSidesRefused", "Nothing", 100, Kind::ExtraTime},
                                {"Arrowed_AllPairsRefused", "Nothing", 1000, Kind::ExtraTime},
                                {"Arrowed_PairsListed", "Nothing", 1000, Kind::ExtraTime},
                                {"Popup_Placed", "Popup_RectanglesRead", 2},
                                {"Popup_PlacedNowhere", "Popup_RectanglesRead", 2}});
}
