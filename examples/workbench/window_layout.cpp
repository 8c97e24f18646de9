// SPDX-License-Identifier: MIT
#include "window_layout.h"

#include <workbench/commands/length_unit_command.h>
#include <workbench/commands/volume_panel_command.h>
#include <workbench/config.h>
#include <workbench/main_window.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/pages/workbench_pages.h>

#include <QScreen>

#include <algorithm>

namespace Workbench {

using namespace Vela::Common;

namespace {

constexpr QLatin1String GeometryKey("window/geometry");
constexpr QLatin1String PageKey("window/page");
constexpr QLatin1String UnitKey("measure/unit");

constexpr std::pair<ELengthUnit, QLatin1String> Units[] = {{Millimetre, QLatin1String("mm")},
                                                           {Centimetre, QLatin1String("cm")},
                                                           {Metre, QLatin1String("m")},
                                                           {Inch, QLatin1String("in")},
                                                           {Foot, QLatin1String("ft")}};
constexpr QLatin1String MeshName("mesh");
constexpr QLatin1String PhotosName("photographs");

void showUnit(const MainWindow& window, ELengthUnit unit) {
  if (auto* const command = window.controller()->findCommand(LengthUnitCommand::idOf(unit)))
    command->setChecked(true);
}

} // namespace

void WindowLayout::save(MainWindow& window) {
  config().setValue(GeometryKey, window.saveGeometry());
  config().setValue(PageKey, QString(window.pages().current() == PhotoPage ? PhotosName : MeshName));
  const ELengthUnit unit = window.view()->measurements().unit();
  const auto* const named = std::find_if(std::begin(Units), std::end(Units),
                                         [unit](const auto& each) { return each.first == unit; });
  if (named != std::end(Units))
    config().setValue(UnitKey, QString(named->second));
}

void WindowLayout::restorePlace(MainWindow& window) {
  window.restoreGeometry(config().value(GeometryKey).toByteArray());
}

void WindowLayout::restoreContent(MainWindow& window) {
  if (config().value(PageKey).toString() == PhotosName)
    window.pages().show(PhotoPage);
  const QString unit = config().value(UnitKey).toString();
  for (const auto& [each, name] : Units) {
    if (unit == name)
      showUnit(window, each);
  }
}

void WindowLayout::reset(MainWindow& window, const QSize& size) {
  for (const QLatin1String key : {GeometryKey, PageKey, UnitKey})
    config().remove(key);
  window.showNormal();
  const QRect screen = window.screen()->availableGeometry();
  QRect place(QPoint(), size.boundedTo(screen.size()));
  place.moveCenter(screen.center());
  window.setGeometry(place);
  window.pages().show(MeshPage);
  showUnit(window, Millimetre);
  if (auto* const panel = window.controller()->findCommand(VolumePanelCommand::className()))
    panel->setChecked(false);
}

} // namespace Workbench
