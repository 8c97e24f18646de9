// SPDX-License-Identifier: MIT
#include "command_inspector.h"

#include "grey_command_model.h"
#include "inspector_sections.h"
#include "point_tips.h"
#include "run_timeline.h"
#include "snapshot_model.h"
#include "state_history.h"

#include <ui_base/commands/cmd_mgr.h>
#include <ui_base/commands/command_base.h>
#include <ui_base/commands/run_log.h>
#include <ui_base/commands/run_model.h>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

#include <array>

namespace Vela::UiBase {

namespace {

constexpr int lookInterval = 250; // ms

QString tableText(const QString& title, const QAbstractItemModel& model) {
  QString text = QStringLiteral("== %1\n").arg(title);
  for (int row = 0; row < model.rowCount(); ++row) {
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column)
      cells.append(model.index(row, column).data().toString().simplified()); // a line is a row
    text += cells.join(u'\t') + u'\n';
  }
  return text;
}

/// What a table has no room to show.
QString cutOffText(const QTableView& table, const QPoint& at) {
  const QModelIndex index = table.indexAt(at);
  const QString text = index.data().toString();
  const bool fits = table.sizeHintForIndex(index).width() <= table.visualRect(index).width();
  return index.isValid() && !fits ? text : QString();
}

/// What an open inspector keeps.
struct LiveModels {
  GreyCommandModel grey;
  StateHistory history;
  SnapshotModel layers{InspectorSections::layerTitles()};
  SnapshotModel tools{InspectorSections::toolTitles()};
  SnapshotModel views{InspectorSections::viewTitles()};
  SnapshotModel bars{InspectorSections::barTitles()};
  RunModel runs;

  std::array<QAbstractItemModel*, 7> all() {
    return {&grey, &history, &layers, &tools, &views, &bars, &runs};
  }
};

} // namespace

class CommandInspectorPrivate {
public:
  InspectorSections::Managers living() const {
    InspectorSections::Managers living;
    for (const auto& known : managers) {
      if (auto manager = known.lock())
        living.append(std::move(manager));
    }
    return living;
  }

  void look() {
    if (!live)
      return;
    const auto now = living();
    live->history.follow(now);
    live->grey.look(now);
    live->layers.setRows(InspectorSections::layers(now));
    live->tools.setRows(InspectorSections::tools(now));
    live->views.setRows(InspectorSections::views());
    live->bars.setRows(InspectorSections::bars(now));
    timeline->setRecords(RunLog::Instance().records());
  }

  void show(QWidget& widget, const QPoint& at) const {
    const CommandBase* const command = InspectorSections::commandAt(widget, at);
    QStringList lines;
    if (command) {
      lines = InspectorSections::describe(*command);
      const QTime since = live->history.since(*command);
      if (since.isValid())
        lines[1] += QLatin1Char(' ') +
                    CommandInspector::tr("Since %1.").arg(since.toString(QStringLiteral("HH:mm:ss")));
    }
    lines += InspectorSections::describe(widget);
    underMouse->setText(lines.join(u'\n'));
  }

  void addPage(QTabWidget& pages, const QString& name) {
    auto* const table = new QTableView(&pages);
    table->setAccessibleName(name);
    table->setTabKeyNavigation(false);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 6);
    table->setWordWrap(false);
    table->horizontalHeader()->setStretchLastSection(true);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    new PointTips(*table->viewport(), [table](const QPoint& at) { return cutOffText(*table, at); });
    pages.addTab(table, name);
    tables.append(table);
  }

  QList<std::weak_ptr<CmdMgr>> managers;
  std::unique_ptr<LiveModels> live; // while it is open
  QTimer timer;
  // Children of the inspector.
  QLabel* underMouse = nullptr;
  RunTimeline* timeline = nullptr;
  QList<QTableView*> tables;
};

CommandInspector::CommandInspector(QWidget* parent)
    : QWidget(parent, Qt::Tool), d(std::make_unique<CommandInspectorPrivate>()) {
  setWindowTitle(tr("Commands"));
  auto* const layout = new QVBoxLayout(this);
  d->underMouse = new QLabel(tr("Point at anything in the program."), this);
  d->underMouse->setTextFormat(Qt::PlainText);
  d->underMouse->setWordWrap(true);
  d->underMouse->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // names may be long
  d->underMouse->setMinimumHeight(6 * fontMetrics().lineSpacing());
  d->underMouse->setAlignment(Qt::AlignTop | Qt::AlignLeading);
  layout->addWidget(d->underMouse);
  auto* const pages = new QTabWidget(this);
  pages->setAccessibleName(tr("What is shown"));
  for (const QString& name :
       {tr("Grey"), tr("Changes"), tr("Layers"), tr("Tools"), tr("Views"), tr("Bars and Groups"), tr("Runs")})
    d->addPage(*pages, name);
  layout->addWidget(pages);
  d->timeline = new RunTimeline(this);
  layout->addWidget(d->timeline);
  auto* const copy = new QPushButton(tr("&Copy as Text"), this);
  layout->addWidget(copy);
  connect(copy, &QPushButton::clicked, this, [this] { QApplication::clipboard()->setText(report()); });
  d->timer.setInterval(lookInterval);
  connect(&d->timer, &QTimer::timeout, this, [this] { d->look(); });
  resize(720, 540);
}

CommandInspector::~CommandInspector() = default;

void CommandInspector::addManager(CmdMgr* manager) {
  if (manager)
    d->managers.append(manager->shared_from_this());
}

QString CommandInspector::report() const {
  QStringList parts{d->underMouse->text() + QLatin1Char('\n')};
  for (const QTableView* const table : std::as_const(d->tables)) {
    if (table->model())
      parts.append(tableText(table->accessibleName(), *table->model()));
  }
  return parts.join(u'\n');
}

bool CommandInspector::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  auto* const widget = type == QEvent::MouseMove || type == QEvent::Enter || type == QEvent::HoverMove
                           ? qobject_cast<QWidget*>(watched)
                           : nullptr;
  if (!widget || !d->live || widget->window() == this)
    return false;
  const QPoint at = static_cast<QSinglePointEvent*>(event)->position().toPoint();
  if (!widget->childAt(at)) // what a child did not want comes by too
    d->show(*widget, at);
  return false;
}

void CommandInspector::showEvent(QShowEvent* event) {
  if (event->spontaneous() || d->live)
    return; // the window was minimised
  d->live = std::make_unique<LiveModels>();
  const auto models = d->live->all();
  for (qsizetype i = 0; i < d->tables.size(); ++i)
    d->tables[i]->setModel(models.at(std::size_t(i)));
  d->look();
  d->timer.start();
  qApp->installEventFilter(this);
}

void CommandInspector::hideEvent(QHideEvent* event) {
  if (event->spontaneous())
    return;
  d->timer.stop();
  d->live.reset();
  qApp->removeEventFilter(this);
}

} // namespace Vela::UiBase
