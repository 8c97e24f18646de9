// SPDX-License-Identifier: MIT
#include "comparison.h"

#include <tqm_mesh_kernel/stepped_dispatcher.h>
#include <ui_base/assistants/command_inspector.h>
#include <ui_base/assistants/command_palette.h>
#include <ui_base/commands/cmd_mgr.h>
#include <ui_base/commands/command_base.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QSortFilterProxyModel>
#include <QStringListModel>
#include <QVBoxLayout>

#include <benchmark/benchmark.h>

#include <utility>
#include <vector>

using namespace Vela::UiBase;

namespace {

constexpr int commandCount = 10000;

class PlainCommand : public CommandBase {
public:
  explicit PlainCommand(const QString& name) : CommandBase(nullptr), m_id(QString(name).remove(u' ')) {
    setText(name);
  }
  QString commandId() const override { return m_id; }
  bool onExecuteAsync(bool) override { return true; }
  void announce() {
    broadcast([this](CommandStateProtocol* observer) { observer->commandBegan(this); });
  }

private:
  QString m_id;
};

QStringList names() {
  static const char* const verbs[] = {"Smooth", "Measure", "Select", "Export",
                                      "Halve",  "Rotate",  "Hide",   "Compare"};
  static const char* const things[] = {"Mesh",      "Border",  "Distance", "Photograph",
                                       "Selection", "Surface", "View"};
  QStringList names;
  for (int i = 0; i < commandCount; ++i)
    names += QStringLiteral("%1 %2 %3").arg(QLatin1String(verbs[i % 8]), QLatin1String(things[i % 7])).arg(i);
  return names;
}

void type(QWidget& window, QLineEdit& field, QChar letter) {
  QKeyEvent press(QEvent::KeyPress, letter.toUpper().unicode(), Qt::NoModifier, QString(letter));
  QCoreApplication::sendEvent(&field, &press);
  benchmark::DoNotOptimize(window.grab());
}

/// A window with a palette of many commands.
struct Stage {
  Stage() {
    for (const QString& name : names())
      manager->addCommand(new PlainCommand(name));
    window.resize(800, 600);
    palette.addManager(manager.get());
    window.show();
    palette.open(); // makes what is in it
    palette.dismiss();
    field = palette.findChild<QLineEdit*>();
  }

  std::shared_ptr<CmdMgr> manager = Taren::Objects::createShared<CmdMgr>();
  QWidget window;
  CommandPalette& palette = *new CommandPalette(&window);
  QLineEdit* field;
};

/// From the shortcut over the first letter to the painted list.
void Palette_FirstLetter(benchmark::State& state) {
  Stage stage;
  for ([[maybe_unused]] auto _ : state) {
    stage.palette.open();
    type(stage.window, *stage.field, u'm');
    stage.palette.dismiss();
  }
}
BENCHMARK(Palette_FirstLetter)->Unit(benchmark::kMillisecond);

/// A further letter to the painted list.
void Palette_NextLetter(benchmark::State& state) {
  static const QString typed = QStringLiteral("mesh bord");
  Stage stage;
  stage.palette.open();
  for ([[maybe_unused]] auto _ : state) {
    const qsizetype length = stage.field->text().size();
    type(stage.window, *stage.field, typed[length]);
    if (length + 1 == typed.size())
      stage.field->clear();
  }
}
BENCHMARK(Palette_NextLetter)->Unit(benchmark::kMillisecond);

/// The peer: Qt's own filter over a list of the names, in a window of the same size.
void Filter_Letter(benchmark::State& state) {
  QWidget window;
  window.resize(560, 320);
  auto* const layout = new QVBoxLayout(&window);
  auto* const field = new QLineEdit(&window);
  auto* const list = new QListView(&window);
  layout->addWidget(field);
  layout->addWidget(list);
  QStringListModel model(names());
  QSortFilterProxyModel filter;
  filter.setSourceModel(&model);
  filter.setFilterCaseSensitivity(Qt::CaseInsensitive);
  list->setUniformItemSizes(true);
  list->setModel(&filter);
  QObject::connect(field, &QLineEdit::textChanged, &filter, &QSortFilterProxyModel::setFilterFixedString);
  window.show();
  for ([[maybe_unused]] auto _ : state) {
    type(window, *field, u'm');
    field->clear();
  }
}
BENCHMARK(Filter_Letter)->Unit(benchmark::kMillisecond);

/// Commands that an inspector was never opened for, or that it has looked at and was closed.
class InspectedCommands {
public:
  explicit InspectedCommands(bool wasOpen) {
    for (int i = 0; i < 1000; ++i)
      commands.push_back(new PlainCommand(QStringLiteral("Command %1").arg(i)));
    for (PlainCommand* const command : commands) {
      manager->addCommand(command);
      contexts[0].overwrite(command->commandId(), {State::Off, State::Keep});
      contexts[1].overwrite(command->commandId(), {State::On, State::Keep});
    }
    inspector.addManager(manager.get());
    inspector.setVisible(wasOpen);
    manager->setContext(contexts[0]);
    dispatcher.runAll();
    inspector.hide();
  }

  Taren::Core::SteppedDispatcher dispatcher;
  Taren::Core::ScopedDispatcher installed{dispatcher};
  std::shared_ptr<CmdMgr> manager = Taren::Objects::createShared<CmdMgr>();
  std::vector<PlainCommand*> commands; // owned by the manager
  CommandContext contexts[2];
  CommandInspector inspector{nullptr};
};

void Context_Inspected(benchmark::State& state) {
  InspectedCommands stage(state.range(0) == 1);
  int next = 0;
  for ([[maybe_unused]] auto _ : state) {
    stage.manager->setContext(stage.contexts[next = 1 - next]);
    stage.dispatcher.runAll();
  }
}
BENCHMARK(Context_Inspected)->ArgName("opened")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void Broadcast_Inspected(benchmark::State& state) {
  InspectedCommands stage(state.range(0) == 1);
  for ([[maybe_unused]] auto _ : state)
    stage.commands.front()->announce();
}
BENCHMARK(Broadcast_Inspected)->ArgName("opened")->Arg(0)->Arg(1);

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  return Vela::Benchmarks::run(argc, argv,
                               {{"Palette_FirstLetter", "Filter_Letter"},
                                {"Palette_NextLetter", "Filter_Letter"},
                                {"Context_Inspected/opened:1", "Context_Inspected/opened:0", 1.1},
                                {"Broadcast_Inspected/opened:1", "Broadcast_Inspected/opened:0", 1.1}});
}
