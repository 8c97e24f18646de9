// SPDX-License-Identifier: MIT
#include "dark_palette_command.h"

#include <ui_base/views/qt_ui_toolkit.h>
#include <vlk_common_res/styles.h>
#include <workbench/command_menus.h>
#include <workbench/config.h>
#include <workbench/mesh_view_controller.h>

#include <QGuiApplication>

namespace Workbench {

using namespace Vela::UiBase;
using Vela::Resource::Styles;

namespace {

constexpr QLatin1String DarkKey("look/dark");

} // namespace

DarkPaletteCommand::DarkPaletteCommand(MeshViewController* controller) : CommandBase(controller) {
  setText({staticMetaObject, QT_TR_NOOP("&Dark Palette")});
  setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("dark_palette")));
  setIconVisibleInMenu(false); // the menu shows whether it is on in its place
  setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_D);
  setStatusTip({staticMetaObject, QT_TR_NOOP("Light text on a dark background")});
  setBaseGroupName(LookSection);
  setCheckable(true);
  const QSignalBlocker blocker(this);
  setChecked(Styles::Instance().palette() == Vela::Resource::Dark);
}

void DarkPaletteCommand::restorePalette() {
  const bool desktopIsDark = Styles::suitablePalette(QGuiApplication::palette()) == Vela::Resource::Dark;
  const bool dark = config().value(DarkKey, desktopIsDark).toBool();
  Styles::Instance().setPalette(dark ? Vela::Resource::Dark : Vela::Resource::Light);
}

void DarkPaletteCommand::setCommandState(const CommandState& state) {
  CommandBase::setCommandState({state.enabled, State::Keep});
}

bool DarkPaletteCommand::onExecuteAsync(bool checked) {
  Styles::Instance().setPalette(checked ? Vela::Resource::Dark : Vela::Resource::Light);
  config().setValue(DarkKey, checked);
  return true;
}

} // namespace Workbench
