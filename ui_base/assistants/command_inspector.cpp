// SPDX-License-Identifier: MIT
#include "command_inspector.h"

#include "grey_command_model.h"

#include <ui_base/commands/cmd_mgr.h>
#include <ui_base/commands/command_base.h>
#include <ui_base/commands/run_model.h>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace Vela::UiBase {

namespace {

constexpr int lookInterval = 250; // ms

QString tableText(const QAbstractItemModel* model) {
  QString text;
  for (int row = 0; model && row < model->rowCount(); ++row) {
    QStringList cells;
    for (int column = 0; column < model->columnCount(); ++column)
      cells.append(model->index(row, column).data().toString());
    text += cells.join(u'\t') + u'\n';
  }
  return text;
}

QAction* actionUnder(QWidget& widget, const QPoint& at) {
  if (const auto* const menu = qobject_cast<QMenu*>(&widget))
    return menu->actionAt(at);
  const auto* const button = qobject_cast<QToolButton*>(&widget);
  return button ? button->defaultAction() : nullptr;
}

} // namespace

class CommandInspectorPrivate {
public:
  void look() {
    QList<std::shared_ptr<CmdMgr>> living;
    QStringList counts;
    for (const auto& known : std::as_const(managers)) {
      auto manager = known.lock();
      if (!manager)
        continue;
      counts.append(QString::number(manager->contextStack().size()));
      living.append(std::move(manager));
    }
    grey->look(living);
    layers->setText(CommandInspector::tr("Layers of contexts: %1").arg(counts.join(QLatin1String(", "))));
  }

  void show(const CommandBase& command) {
    const QString state =
        command.isEnabled() ? CommandInspector::tr("It can be used.") : command.whyUnavailable();
    underMouse->setText(QStringLiteral("%1\n%2").arg(command.commandId(), state));
  }

  static QTableView* addTable(QWidget& parent, const QString& name) {
    auto* const table = new QTableView(&parent);
    table->setAccessibleName(name);
    table->setTabKeyNavigation(false);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 6);
    table->setWordWrap(false);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    parent.layout()->addWidget(table);
    return table;
  }

  QList<std::weak_ptr<CmdMgr>> managers;
  // While it is open.
  std::unique_ptr<GreyCommandModel> grey;
  std::unique_ptr<RunModel> runs;
  QTimer timer;
  // Children of the inspector.
  QLabel* underMouse = nullptr;
  QLabel* layers = nullptr;
  QTableView* greyTable = nullptr;
  QTableView* runTable = nullptr;
};

CommandInspector::CommandInspector(QWidget* parent)
    : QWidget(parent, Qt::Tool), d(std::make_unique<CommandInspectorPrivate>()) {
  setWindowTitle(tr("Commands"));
  auto* const layout = new QVBoxLayout(this);
  d->underMouse = new QLabel(tr("Point at a button or a menu entry."), this);
  d->layers = new QLabel(this);
  for (QLabel* const label : {d->underMouse, d->layers}) {
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    layout->addWidget(label);
  }
  d->greyTable = d->addTable(*this, tr("Commands that cannot be used"));
  d->runTable = d->addTable(*this, tr("Runs"));
  auto* const copy = new QPushButton(tr("&Copy as Text"), this);
  layout->addWidget(copy);
  connect(copy, &QPushButton::clicked, this, [this] { QApplication::clipboard()->setText(report()); });
  d->timer.setInterval(lookInterval);
  connect(&d->timer, &QTimer::timeout, this, [this] { d->look(); });
  resize(560, 480);
}

CommandInspector::~CommandInspector() = default;

void CommandInspector::addManager(CmdMgr* manager) {
  if (manager)
    d->managers.append(manager->shared_from_this());
}

QString CommandInspector::report() const {
  return QStringList{d->underMouse->text(), d->layers->text(), tableText(d->greyTable->model()),
                     tableText(d->runTable->model())}
      .join(u'\n');
}

bool CommandInspector::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  auto* const widget = type == QEvent::MouseMove || type == QEvent::Enter || type == QEvent::HoverMove
                           ? qobject_cast<QWidget*>(watched)
                           : nullptr;
  if (widget && widget->window() != this) {
    const QPoint at = static_cast<QSinglePointEvent*>(event)->position().toPoint();
    if (const auto* const command = dynamic_cast<CommandBase*>(actionUnder(*widget, at)))
      d->show(*command);
  }
  return false;
}

void CommandInspector::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (event->spontaneous())
    return; // the window was minimised
  d->grey = std::make_unique<GreyCommandModel>();
  d->runs = std::make_unique<RunModel>();
  d->greyTable->setModel(d->grey.get());
  d->greyTable->horizontalHeader()->setSectionResizeMode(GreyCommandModel::WhyColumn, QHeaderView::Stretch);
  d->runTable->setModel(d->runs.get());
  d->look();
  d->timer.start();
  qApp->installEventFilter(this);
}

void CommandInspector::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (event->spontaneous())
    return;
  d->timer.stop();
  d->grey.reset();
  d->runs.reset();
  qApp->removeEventFilter(this);
}

} // namespace Vela::UiBase
