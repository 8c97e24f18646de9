// SPDX-License-Identifier: MIT
#include "unit_button.h"

#include <ui_base/commands/command_group.h>
#include <ui_base/core/language.h>
#include <ui_base/menus/rc_menu_manager.h>
#include <vlk_common_res/icons.h>
#include <vlk_common_res/styles.h>
#include <workbench/commands/length_unit_command.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>

#include <QMainWindow>
#include <QMenu>
#include <QPainter>
#include <QStatusBar>
#include <QStyle>

namespace Workbench {

using namespace Vela::UiBase;
using Vela::Resource::Icons;
using Vela::Resource::Styles;

namespace {

constexpr int MenuGap = 2; // px

constexpr int ArrowSize = 12; // px
constexpr int ArrowRoom = 18;

// Style sheets mirror places, but not the sides of a padding. The arrow is painted below: an image in a style
// sheet has Qt look through all plugins for images, at every start.
QString arrowStyle(bool mirrored) {
  return QStringLiteral("QToolButton { padding-%1: %2px; } QToolButton::menu-indicator { image: none; }")
      .arg(mirrored ? QLatin1String("left") : QLatin1String("right"))
      .arg(ArrowRoom);
}

} // namespace

UnitButton::UnitButton(QMainWindow& window, const MeshViewController& controller)
    : QToolButton(window.statusBar()), // where it will stand: another parent would style it anew
      m_controller(controller),
      m_menu(new QMenu(this)),
      m_arrow(Icons::icon(QStringLiteral("arrow_down"))) {
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

void UnitButton::paintEvent(QPaintEvent* event) {
  QToolButton::paintEvent(event);
  QRect room = rect();
  room.setLeft(room.right() - ArrowRoom + 1);
  QRect arrow(0, 0, ArrowSize, ArrowSize);
  arrow.moveCenter(room.center());
  QPainter painter(this);
  m_arrow.paint(&painter, QStyle::visualRect(layoutDirection(), rect(), arrow), Qt::AlignCenter,
                isEnabled() ? QIcon::Normal : QIcon::Disabled);
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
