// SPDX-License-Identifier: MIT
#include "print_material_info_panel.h"

#include "toolkit_look.h"

#include <ui_base/core/language.h>
#include <vlk_common_res/icons.h>
#include <vlk_common_res/strings.h>

#include <QAction>
#include <QActionGroup>
#include <QEvent>
#include <QGridLayout>
#include <QHideEvent>
#include <QLabel>
#include <QMovie>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

#include <algorithm>
#include <cmath>

namespace Vela::UiToolkit {

using Common::EVolumeUnit;
using Resource::Icons;

namespace {

constexpr int LOADER_SIZE = 16; // px

std::optional<double> known(std::optional<double> volume) {
  return volume && std::isfinite(*volume) ? volume : std::nullopt;
}

} // namespace

class PrintMaterialInfoPanelPrivate {
public:
  struct Row {
    QString text() const {
      return (name->text() + QLatin1Char(' ') + value->text() + QLatin1Char(' ') + unit->text()).trimmed();
    }

    QLabel* name = nullptr;
    QLabel* value = nullptr;
    QLabel* unit = nullptr;
  };

  explicit PrintMaterialInfoPanelPrivate(PrintMaterialInfoPanel* owner);

  QLabel* label(const QString& objectName);
  QLabel* makeLoader();
  Row addRow(QGridLayout& grid, const QString& objectName);
  void makeUnitActions();
  void retranslate();
  std::optional<double> combined() const;
  void showVolumes();
  void showVolume(const Row& row, const std::optional<double>& volume);
  void turnLoader();

  PrintMaterialInfoPanel* const q;
  QLabel* title = nullptr;
  QLabel* busyLabel = nullptr;
  QMovie loader;
  QActionGroup* unitActions = nullptr;
  Row modelRow;
  Row supportRow;
  Row combinedRow;
  std::optional<double> model;
  std::optional<double> support;
  EVolumeUnit unit = Common::CubicCentimetre;
  bool busy = false;
};

PrintMaterialInfoPanelPrivate::PrintMaterialInfoPanelPrivate(PrintMaterialInfoPanel* owner) : q(owner) {
  auto* const grid = new QGridLayout(q);
  grid->setObjectName(QStringLiteral("gridLayout"));
  grid->addWidget(title = label(QStringLiteral("title_label")), 0, 0, 1, 2);
  grid->addWidget(makeLoader(), 0, 2, Qt::AlignRight | Qt::AlignVCenter);
  modelRow = addRow(*grid, QStringLiteral("model_volume"));
  supportRow = addRow(*grid, QStringLiteral("support_volume"));
  combinedRow = addRow(*grid, QStringLiteral("combined_volume"));
  grid->setColumnStretch(1, 1);
  makeUnitActions();
  UiBase::keepTranslated(q, [this] { retranslate(); });
}

void PrintMaterialInfoPanelPrivate::retranslate() {
  q->setAccessibleName(PrintMaterialInfoPanel::tr("Volume info"));
  title->setText(PrintMaterialInfoPanel::tr("Volume info"));
  busyLabel->setAccessibleName(PrintMaterialInfoPanel::tr("Working"));
  modelRow.name->setText(PrintMaterialInfoPanel::tr("Model:"));
  supportRow.name->setText(PrintMaterialInfoPanel::tr("Supports:"));
  combinedRow.name->setText(PrintMaterialInfoPanel::tr("Combined:"));
  const QList<QAction*> actions = unitActions->actions();
  for (QAction* const action : actions) {
    const auto each = EVolumeUnit(action->data().toInt());
    action->setText(PrintMaterialInfoPanel::tr("%1 (%2)", "name of a unit and its symbol")
                        .arg(Common::unitName(each), Common::unitSymbol(each)));
  }
  showVolumes();
}

QLabel* PrintMaterialInfoPanelPrivate::label(const QString& objectName) {
  auto* const made = new QLabel(q);
  made->setObjectName(objectName);
  return made;
}

QLabel* PrintMaterialInfoPanelPrivate::makeLoader() {
  busyLabel = label(QStringLiteral("busy_label"));
  busyLabel->setFixedSize(LOADER_SIZE, LOADER_SIZE);
  busyLabel->setMovie(&loader);
  QSizePolicy keepsItsPlace = busyLabel->sizePolicy();
  keepsItsPlace.setRetainSizeWhenHidden(true);
  busyLabel->setSizePolicy(keepsItsPlace);
  busyLabel->hide();
  return busyLabel;
}

PrintMaterialInfoPanelPrivate::Row PrintMaterialInfoPanelPrivate::addRow(QGridLayout& grid,
                                                                         const QString& objectName) {
  const int line = grid.rowCount();
  const Row row{label(objectName + QLatin1String("_label")),
                label(objectName + QLatin1String("_value_label")),
                label(objectName + QLatin1String("_unit_label"))};
  grid.addWidget(row.name, line, 0);
  grid.addWidget(row.value, line, 1, Qt::AlignRight);
  grid.addWidget(row.unit, line, 2);
  return row;
}

void PrintMaterialInfoPanelPrivate::makeUnitActions() {
  unitActions = new QActionGroup(q);
  for (const EVolumeUnit each : Common::volumeUnits()) {
    auto* const action = new QAction(unitActions);
    action->setData(each);
    action->setCheckable(true);
    action->setChecked(each == unit);
    q->addAction(action);
    QObject::connect(action, &QAction::triggered, q, [this, each] { q->SetVolumeUnit(each); });
  }
}

void PrintMaterialInfoPanelPrivate::showVolume(const Row& row, const std::optional<double>& volume) {
  row.value->setText(
      volume ? Common::formatNumber(Common::convert(*volume, Common::CubicMillimetre, unit), q->locale())
             : Resource::String::NOT_APPLICABLE_LABEL_TEXT());
  row.unit->setText(volume ? Common::unitSymbol(unit) : QString());
}

std::optional<double> PrintMaterialInfoPanelPrivate::combined() const {
  return model && support ? std::optional(*model + *support) : std::nullopt;
}

void PrintMaterialInfoPanelPrivate::showVolumes() {
  showVolume(modelRow, model);
  showVolume(supportRow, support);
  showVolume(combinedRow, combined());
  // The panel takes the focus, its labels do not.
  q->setAccessibleDescription(
      QStringList{modelRow.text(), supportRow.text(), combinedRow.text()}.join(QLatin1String(", ")));
}

void PrintMaterialInfoPanelPrivate::turnLoader() {
  if (!busy || !q->isVisible()) {
    loader.stop();
    return;
  }
  loader.setFileName(
      Icons::pathForRatio(QStringLiteral(":/resources/images/sys_loader-16x16.gif"), q->devicePixelRatioF()));
  loader.start();
}

PrintMaterialInfoPanel::PrintMaterialInfoPanel(QWidget* parent)
    : QWidget(parent), d(std::make_unique<PrintMaterialInfoPanelPrivate>(this)) {
  setObjectName(QStringLiteral("PrintMaterialInfoPanel"));
  setContextMenuPolicy(Qt::ActionsContextMenu);
  setFocusPolicy(Qt::TabFocus);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
  applyToolkitLook(*this);
}

PrintMaterialInfoPanel::~PrintMaterialInfoPanel() = default;

void PrintMaterialInfoPanel::SetVolumes(std::optional<double> model, std::optional<double> support) {
  d->model = known(model);
  d->support = known(support);
  d->showVolumes();
}

std::optional<double> PrintMaterialInfoPanel::ModelVolume() const { return d->model; }

std::optional<double> PrintMaterialInfoPanel::SupportVolume() const { return d->support; }

std::optional<double> PrintMaterialInfoPanel::CombinedVolume() const { return d->combined(); }

EVolumeUnit PrintMaterialInfoPanel::VolumeUnit() const { return d->unit; }

void PrintMaterialInfoPanel::SetVolumeUnit(EVolumeUnit unit) {
  const QList<QAction*> actions = VolumeUnitActions();
  const auto chosen =
      std::find_if(actions.begin(), actions.end(), [&](QAction* each) { return each->data() == unit; });
  if (chosen == actions.end() || unit == d->unit)
    return;
  d->unit = unit;
  (*chosen)->setChecked(true);
  d->showVolumes();
  Q_EMIT VolumeUnitChanged(unit);
}

QList<QAction*> PrintMaterialInfoPanel::VolumeUnitActions() const { return d->unitActions->actions(); }

bool PrintMaterialInfoPanel::IsBusy() const { return d->busy; }

void PrintMaterialInfoPanel::SetBusy(bool busy) {
  d->busy = busy;
  d->busyLabel->setVisible(busy);
  d->turnLoader();
}

void PrintMaterialInfoPanel::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::LocaleChange)
    d->showVolumes();
}

void PrintMaterialInfoPanel::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  d->turnLoader();
  if (!event->spontaneous())
    Q_EMIT Show();
}

void PrintMaterialInfoPanel::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  d->turnLoader();
  if (!event->spontaneous())
    Q_EMIT Hide();
}

void PrintMaterialInfoPanel::paintEvent(QPaintEvent* event) {
  QWidget::paintEvent(event);
  if (!hasFocus())
    return;
  QStylePainter painter(this);
  QStyleOptionFocusRect option;
  option.initFrom(this);
  painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
}

} // namespace Vela::UiToolkit
