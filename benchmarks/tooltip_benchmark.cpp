// SPDX-License-Identifier: MIT
#include "comparison.h"

#include <ui_base/tooltips/tooltip_manager.h>
#include <ui_base/tooltips/tooltip_object.h>

#include <QApplication>
#include <QToolTip>
#include <QWidget>

#include <benchmark/benchmark.h>

#include <array>
#include <malloc.h>
#include <memory>
#include <vector>

using namespace Vela::UiBase;

namespace {

/// A window with a widget in it, on the screen.
class Scene {
public:
  Scene() {
    window.resize(600, 400);
    widget.setGeometry(250, 200, 60, 30);
    window.show();
    window.activateWindow();
    QCoreApplication::processEvents();
  }

  QWidget window;
  QWidget widget{&window};
};

const QString& nextText() {
  static const std::array texts{QStringLiteral("Fit the mesh to the view"),
                                QStringLiteral("Turn the mesh about its centre of gravity")};
  static std::size_t turn = 0;
  return texts[++turn % texts.size()];
}

// Each text takes the place of the one before, in the same window: the best case. Until it has been painted.
void ToolTip_NewText(benchmark::State& state) {
  Scene scene;
  const QPoint position = scene.widget.mapToGlobal(QPoint(10, 10));
  for (auto _ : state) {
    QToolTip::showText(position, nextText(), &scene.widget);
    QCoreApplication::processEvents();
  }
}
BENCHMARK(ToolTip_NewText);

// Until it has been painted, and is gone again.
void measure(benchmark::State& state, bool newText, bool rich) {
  Scene scene;
  TooltipObject tooltip(QStringLiteral("benchmark"));
  if (rich)
    tooltip.SetTooltipType(RichTooltip);
  tooltip.SetTooltipText(nextText());
  tooltip.AttachTo(&scene.widget);
  for (auto _ : state) {
    if (newText)
      tooltip.SetTooltipText(nextText());
    tooltip.ShowTooltip();
    QCoreApplication::processEvents();
    tooltip.HideTooltip();
    QCoreApplication::processEvents();
  }
}

void Tooltip_SameText(benchmark::State& state) { measure(state, false, false); }
BENCHMARK(Tooltip_SameText);
void Tooltip_NewText(benchmark::State& state) { measure(state, true, false); }
BENCHMARK(Tooltip_NewText);
void Tooltip_RichNewText(benchmark::State& state) { measure(state, true, true); }
BENCHMARK(Tooltip_RichNewText);

// What a widget's tooltip costs before it is shown; the count of bytes is reported beside the time.
template <bool withObject>
void makeWidgets(benchmark::State& state) {
  constexpr int count = 1000;
  const QString group = QStringLiteral("benchmark");
  const QString& text = nextText();
  std::size_t bytes = 0;
  for (auto _ : state) {
    const std::size_t before = mallinfo2().uordblks;
    std::vector<std::unique_ptr<QWidget>> widgets(count);
    for (auto& widget : widgets) {
      widget = std::make_unique<QWidget>();
      if constexpr (withObject) {
        auto* const tooltip = new TooltipObject(group, widget.get());
        tooltip->SetTooltipText(text);
        tooltip->AttachTo(widget.get());
      } else {
        widget->setToolTip(text);
      }
    }
    bytes = (mallinfo2().uordblks - before) / count;
  }
  state.SetItemsProcessed(state.iterations() * count);
  state.counters["bytes_each"] = static_cast<double>(bytes);
}
BENCHMARK(makeWidgets<false>)->Name("Widget_WithToolTip");
BENCHMARK(makeWidgets<true>)->Name("Widget_WithTooltipObject");

} // namespace

int main(int argc, char** argv) {
  // Otherwise on Xvfb or a desktop, as the environment says.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  return Vela::Benchmarks::run(argc, argv,
                               {{"Tooltip_SameText", "ToolTip_NewText", 1},
                                {"Tooltip_NewText", "ToolTip_NewText"},
                                {"Tooltip_RichNewText", "ToolTip_NewText"},
                                {"Widget_WithTooltipObject", "Widget_WithToolTip"}});
}
