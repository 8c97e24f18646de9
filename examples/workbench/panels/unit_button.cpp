// SPDX-License-Identifier: MIT
#include "unit_button.h"

#include <ui_base/commands/command_group.h>
#include <ui_base/core/language.h>
#include <ui_base/menus/rc_menu_manager.h>
#include <vlk_common_res/styles.h>
#include <workbench/commands/length_unit_command.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>

#include <QMainWindow>
#include <QMenu>

namespace Workbench {

using namespace Vela::UiBase;
using Vela::Resource::Styles;

namespace {

constexpr int MenuGap = 2; // px

// Style sheets mirror places, but not the sides of a padding.
QString arrowStyle(bool mirrored) {
  return QStringLiteral(R"(
QToolButton { padding-%1: 18px; }
QToolButton::menu-indicator {
  height: 12px;
  image: url(:/resources/images/arrow_down.svg);
  padding: 0 3px;
  subcontrol-origin: border;
  subcontrol-position: center right;
  width: 12px;
})")
      .arg(mirrored ? QLatin1String("left") : QLatin1String("right"));
}

} // namespace

UnitButton::UnitButton(QMainWindow& window, const MeshViewController& controller)
    : QToolButton(&window), m_controller(controller), m_menu(new QMenu(this)) {
  setFocusPolicy(Qt::TabFocus);
  connect(m_menu, &QMenu::aboutToShow, this, &UnitButton::fillMenu);
  auto* const manager = new RCMenuManager(&window, MenuGap, false, this);
  manager->AddButtonMenuLinkage(this, m_menu);
  manager->Start();
  if (MeshView* const view = controller.meshView())
    connect(&view->measurements(), &Measurements::unitChanged, this, &UnitButton::showUnit);
  connect(&Styles::Instance(), &Styles::changed, this, &UnitButton::applyStyles);
  applyStyles();
  keepTranslated(this, [this] { showUnit(); });
}

void UnitButton::applyStyles() {
  const Styles& styles = Styles::Instance();
  const QString normal = styles.ToolButtonSystem() + arrowStyle(isRightToLeft());
  const QString open = QStringLiteral("QToolButton { border-color: %1; }").arg(styles.ColorAccent().name());
  setProperty(qPrintable(RCMenuManager::BUTTON_ORIGINAL_STYLE), normal);
  setProperty(qPrintable(RCMenuManager::BUTTON_ALTERNATE_STYLE), normal + open);
  setStyleSheet(normal);
}

void UnitButton::showUnit() {
  MeshView* const view = m_controller.meshView();
  const auto unit = view ? view->measurements().unit() : Vela::Common::Millimetre;
  setToolTip(tr("Unit of distances"));
  setText(Vela::Common::unitSymbol(unit));
  setAccessibleName(tr("Unit of distances: %1").arg(Vela::Common::unitName(unit)));
}

void UnitButton::fillMenu() {
  m_menu->clear();
  m_menu->setStyleSheet(Styles::Instance().MenuMain());
  const CommandBase* const any = m_controller.findCommand(LengthUnitCommand::idOf(Vela::Common::Millimetre));
  const CommandGroup* const units = any ? any->commandGroup() : nullptr;
  for (int i = 0; units && i < units->commandBag().count(); ++i)
    m_menu->addAction(units->commandBag().commandAt(i));
}

} // namespace Workbench
