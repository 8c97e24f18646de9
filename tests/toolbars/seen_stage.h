// SPDX-License-Identifier: MIT
#pragma once

#include "tool_button_fixture.h"

#include <ui_base/toolbars/hosting_info.h>

/// A button as applications derive it.
class OwnOpener : public Vela::UiBase::ToolButtonWithButtonMenu {
public:
  OwnOpener(Vela::UiBase::ToolBar* bar, Vela::UiBase::ToolBar* menu, QWidget* parent)
      : Vela::UiBase::ToolButtonWithButtonMenu(coloredIcon(Qt::cyan), bar, menu, "Own", parent) {}
  using Vela::UiBase::ToolButtonWithButtonMenu::ApplyBaseToolBarParamsToButtonMenu;
  using Vela::UiBase::ToolButtonWithButtonMenu::GetFirstSubMenuAction;
  using Vela::UiBase::ToolButtonWithButtonMenu::IsActionAssociated;
};

/// A stage that is looked at after every step, in the title also what has no widget: pixels, tooltips,
/// phases, owners and hosts.
class SeenStage : public MenuStage {
public:
  void look() {
    Vela::Test::settle();
    QStringList facts(QString::number(100 * observer->began + observer->ended));
    for (Vela::UiBase::ToolButton* const each : window.findChildren<Vela::UiBase::ToolButton*>()) {
      const Vela::UiBase::TooltipObject* const tip = each->GetTooltipObject();
      facts += each->text() + (tip && tip->IsTooltipEnabled() && tip->AttachedWidget() ? "." : "!");
      facts += QAccessible::queryAccessibleInterface(each)->actionInterface()->actionNames();
      if (const auto* const opener = qobject_cast<Vela::UiBase::ToolButtonWithMenu*>(each))
        facts += QStringLiteral("%1%2%3%4")
                     .arg(opener->MenuPhase())
                     .arg(opener->IsSubMenuButton(subPlain))
                     .arg(opener->SaveMenuState())
                     .arg(!opener->SavedMenuOwner());
    }
    QStringList hosted;
    for (const Vela::UiBase::HostingInfo& info : Vela::UiBase::hostedWidgets())
      hosted += QStringList{info.widget, info.home,    info.window,
                            info.turn,   info.command, QString::number(info.buttons + 10 * info.phase)}
                    .join('/');
    hosted.sort();
    const QImage seen = window.grab().toImage();
    facts << hosted << QString::number(qChecksum(QByteArrayView(seen.constBits(), seen.sizeInBytes())));
    window.setWindowTitle(facts.join(' '));
    Vela::Test::settle();
  }
  void click(QWidget* target) {
    MenuStage::click(target);
    look();
  }
  void key(Qt::Key key) {
    MenuStage::key(key);
    look();
  }
  void open(Vela::UiBase::ToolButtonWithMenu* opener) {
    opener->ShowMenu();
    look();
  }
  void close(Vela::UiBase::ToolButtonWithMenu* opener) {
    opener->HideMenu();
    look();
  }
  /// Opens the flyout in the sub-toolbar: the opener of the one stands in for the other's.
  void extend() {
    menuButton->SetExtendMode(true);
    click(menuButton);
    click(subButton);
  }
  QAction* action(const QString& text, Qt::GlobalColor color = Qt::yellow) {
    return new QAction(coloredIcon(color), text, view);
  }
};

using SeenSteps = std::function<void(SeenStage&)>;
