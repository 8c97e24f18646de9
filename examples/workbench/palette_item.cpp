// SPDX-License-Identifier: MIT
#include "palette_item.h"

#include <ui_base/commands/command_base.h>
#include <ui_base/core/language.h>
#include <ui_base/menus/menu_builder.h>
#include <vlk_common_res/styles.h>

#include <QCoreApplication>
#include <QPointer>
#include <QToolButton>

namespace Workbench {

using namespace Vela::UiBase;
using Vela::Resource::Styles;

namespace {

constexpr int ItemSize = 24; // px

void translate(AppMenuToggleItemSpecifier& states, const QAction& command) {
  const QString shortcut = command.shortcut().toString(QKeySequence::NativeText);
  const auto stateOf = [&](const QString& icon, const QString& text) {
    return AppMenuToggleState{icon, text, QStringLiteral("%1 (%2)").arg(text, shortcut)};
  };
  states.off =
      stateOf(QStringLiteral("moon"), QCoreApplication::translate("Workbench::PaletteItem", "Dark palette"));
  states.on =
      stateOf(QStringLiteral("sun"), QCoreApplication::translate("Workbench::PaletteItem", "Light palette"));
}

QSharedPointer<AppMenuToggleItemSpecifier> addItem(MenuBuilder& menus, CommandBase& command) {
  auto states = QSharedPointer<AppMenuToggleItemSpecifier>::create();
  states->slot = SLOT(trigger()); // of the command
  translate(*states, command);
  QObject* const receiver = menus.Receiver();
  menus.SetReceiver(&command);
  menus.AddMenuBarToggleItem(paletteItemName(), states);
  menus.SetReceiver(receiver);
  return states;
}

} // namespace

QString paletteItemName() { return QStringLiteral("palette"); }

void addPaletteItem(MenuBuilder& menus, CommandBase& command) {
  const auto states = addItem(menus, command);
  const auto button = menus.GetMenuBarItem(paletteItemName());
  if (!button)
    return;
  button->setToolButtonStyle(Qt::ToolButtonIconOnly);
  button->setFixedSize(ItemSize, ItemSize);
  const auto show = [states, bar = QPointer(&menus), source = QPointer(&command)] {
    if (!bar || !source)
      return;
    translate(*states, *source);
    bar->SetMenuBarToggleItemState(paletteItemName(), Styles::Instance().palette() == Vela::Resource::Dark);
    bar->SetButtonEnabled(paletteItemName(), source->isEnabled());
  };
  QObject::connect(&command, &QAction::changed, button.data(), show);
  QObject::connect(&Styles::Instance(), &Styles::changed, button.data(), show);
  QObject::connect(&command, &QObject::destroyed, button.data(), &QWidget::hide);
  keepTranslated(button.data(), show);
}

} // namespace Workbench
