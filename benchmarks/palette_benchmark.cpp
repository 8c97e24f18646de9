// SPDX-License-Identifier: MIT
#include "comparison.h"

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

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  return Vela::Benchmarks::run(
      argc, argv, {{"Palette_FirstLetter", "Filter_Letter"}, {"Palette_NextLetter", "Filter_Letter"}});
}
