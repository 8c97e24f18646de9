// SPDX-License-Identifier: MIT
#include "comparison.h"

#include <ui_base/commands/command_group.h>
#include <ui_base/core/shared_object.h>
#include <ui_base/toolbars/tool_bar.h>
#include <vlk_common_res/styles.h>

#include <QApplication>
#include <QBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QToolBar>
#include <QToolButton>
#include <QWindow>

#include <benchmark/benchmark.h>

#include <malloc.h>
#include <memory>

using namespace Vela::UiBase;

namespace {

class NamedCommand : public CommandBase {
public:
  explicit NamedCommand(const QString& name) : CommandBase(nullptr), m_name(name) {
    QPixmap pixmap(24, 24);
    pixmap.fill(Qt::darkGray);
    setIcon(pixmap);
    setText(name);
  }
  QString commandId() const override { return m_name; }
  bool onExecuteAsync(bool) override { return true; }

private:
  QString m_name;
};

using Commands = std::shared_ptr<CommandGroup>;

Commands makeCommands(int count) {
  const QString name = QStringLiteral("benchmark");
  auto group = Taren::Objects::createShared<CommandGroup>(QString(), name, name);
  for (int i = 0; i < count; ++i)
    group->addCommand(Taren::Objects::createShared<NamedCommand>(QString::number(i)), i);
  return group;
}

QWidget* makeToolBar(CommandGroup& commands, QWidget& window) {
  auto* const bar = new ToolBar(&window, Qt::TopToolBarArea);
  bar->AddCommandGroup(&commands);
  bar->SetPos({}); // as long as its buttons, like the others
  bar->resize(bar->sizeHint());
  return bar;
}

QWidget* makeBareButtons(CommandGroup& commands, QWidget& window) {
  const QString sheet = Vela::Resource::Styles::Instance().ToolButtonOnToolPalette();
  auto* const bar = new QWidget(&window);
  auto* const layout = new QHBoxLayout(bar);
  for (int i = 0; i < commands.commandBag().count(); ++i) {
    auto* const button = new QToolButton(bar);
    button->setStyleSheet(sheet);
    button->setIconSize({24, 24});
    button->setMinimumSize(32, 32);
    button->setDefaultAction(commands.commandBag().commandAt(i));
    layout->addWidget(button);
  }
  bar->resize(bar->sizeHint());
  return bar;
}

QWidget* makeQToolBar(CommandGroup& commands, QWidget& window) {
  auto* const bar = new QToolBar(&window);
  for (int i = 0; i < commands.commandBag().count(); ++i)
    bar->addAction(commands.commandBag().commandAt(i));
  bar->resize(bar->sizeHint());
  return bar;
}

// From nothing to the first paint; the count of bytes is reported beside the time.
template <QWidget* (*make)(CommandGroup&, QWidget&)>
void build(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  const Commands commands = makeCommands(count);
  std::size_t bytes = 0;
  for (auto _ : state) {
    state.PauseTiming();
    auto window = std::make_unique<QWidget>();
    window->resize(40 * count, 60);
    const std::size_t before = mallinfo2().uordblks;
    state.ResumeTiming();
    make(*commands, *window);
    state.PauseTiming();
    bytes = (mallinfo2().uordblks - before) / static_cast<std::size_t>(count);
    state.ResumeTiming();
    window->show();
    QCoreApplication::processEvents();
    state.PauseTiming();
    window.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * count);
  state.counters["bytes_each"] = static_cast<double>(bytes);
}
BENCHMARK(build<makeToolBar>)->Name("Build_ToolBar")->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(build<makeBareButtons>)
    ->Name("Build_BareButtons")
    ->Arg(100)
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(build<makeQToolBar>)->Name("Build_QToolBar")->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

// One frame of a slide.
void slide(benchmark::State& state, bool shadow) {
  const Commands commands = makeCommands(20);
  QWidget window;
  window.resize(1000, 300);
  ToolBar bar(&window, Qt::TopToolBarArea);
  bar.EnableShadow(shadow);
  bar.AddCommandGroup(commands.get());
  window.show();
  QCoreApplication::processEvents();
  int step = 0;
  for (auto _ : state) {
    bar.move(100, ++step % 40);
    QCoreApplication::processEvents();
  }
  state.SetItemsProcessed(state.iterations());
}
void Slide_WithShadow(benchmark::State& state) { slide(state, true); }
BENCHMARK(Slide_WithShadow);
void Slide_WithoutShadow(benchmark::State& state) { slide(state, false); }
BENCHMARK(Slide_WithoutShadow);

// A context that enables or disables every command of a visible bar, until it is painted.
template <QWidget* (*make)(CommandGroup&, QWidget&)>
void context(benchmark::State& state) {
  const Commands commands = makeCommands(50);
  QWidget window;
  window.resize(2200, 60);
  make(*commands, window);
  window.show();
  QCoreApplication::processEvents();
  bool enabled = true;
  for (auto _ : state) {
    enabled = !enabled;
    for (int i = 0; i < commands->commandBag().count(); ++i)
      commands->commandBag().commandAt(i)->setCommandState({State(enabled), State::Keep});
    QCoreApplication::processEvents();
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(context<makeToolBar>)->Name("Context_ToolBar")->Unit(benchmark::kMillisecond);
BENCHMARK(context<makeBareButtons>)->Name("Context_BareButtons")->Unit(benchmark::kMillisecond);

// The mouse moves on to the next of 40 buttons, until that has been painted.
template <QWidget* (*make)(CommandGroup&, QWidget&)>
void hover(benchmark::State& state) {
  const Commands commands = makeCommands(40);
  QWidget window;
  window.resize(1800, 60);
  make(*commands, window);
  window.show();
  QCoreApplication::processEvents();
  const QList<QToolButton*> buttons = window.findChildren<QToolButton*>();
  const auto isReal = [](const QToolButton* each) { return each->isVisible() && each->defaultAction(); };
  auto next = buttons.cbegin();
  for (auto _ : state) {
    do {
      next = next == buttons.cend() - 1 ? buttons.cbegin() : next + 1;
    } while (!isReal(*next));
    const QPointF place = (*next)->mapTo(&window, (*next)->rect().center());
    QMouseEvent move(QEvent::MouseMove, place, window.mapToGlobal(place), Qt::NoButton, {}, {});
    QCoreApplication::sendEvent(window.windowHandle(), &move);
    QCoreApplication::processEvents();
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(hover<makeToolBar>)->Name("Hover_ToolBar")->Unit(benchmark::kMicrosecond);
// For the first time, when the pictures have to be made.
BENCHMARK(hover<makeToolBar>)->Name("FirstHover_ToolBar")->Iterations(40)->Unit(benchmark::kMicrosecond);
BENCHMARK(hover<makeBareButtons>)
    ->Name("FirstHover_BareButtons")
    ->Iterations(40)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(hover<makeBareButtons>)->Name("Hover_BareButtons")->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  return Vela::Benchmarks::run(
      argc, argv,
      {{"Build_ToolBar/100", "Build_BareButtons/100", 1.25},
       {"Build_ToolBar/1000", "Build_BareButtons/1000", 1.25},
       {"Build_ToolBar/1000", "Build_QToolBar/1000"},
       {"Slide_WithShadow", "Slide_WithoutShadow", 1.3},
       {"Context_ToolBar", "Context_BareButtons", 1.25},
       {"Hover_ToolBar", "Hover_BareButtons", 1.5},
       {"FirstHover_ToolBar/iterations:40", "FirstHover_BareButtons/iterations:40"}});
}
