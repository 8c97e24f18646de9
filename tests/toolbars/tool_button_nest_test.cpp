// SPDX-License-Identifier: MIT
#include "tool_button_fixture.h"

#include <support/screen_record.h>
#include <ui_base/toolbars/hosting_info.h>

using namespace Vela::UiBase;

namespace {

/// A button as applications derive it.
class OwnOpener : public ToolButtonWithButtonMenu {
public:
  OwnOpener(ToolBar* bar, ToolBar* menu, QWidget* parent)
      : ToolButtonWithButtonMenu(coloredIcon(Qt::cyan), bar, menu, "Own", parent) {}
  using ToolButtonWithButtonMenu::ApplyBaseToolBarParamsToButtonMenu;
  using ToolButtonWithButtonMenu::GetFirstSubMenuAction;
  using ToolButtonWithButtonMenu::IsActionAssociated;
};

/// Looks at the stage, in the title also at what has no widget: pixels, tooltips, phases, owners and hosts.
void look(MenuStage& stage) {
  Vela::Test::settle();
  QStringList facts(QString::number(100 * stage.observer->began + stage.observer->ended));
  for (ToolButton* const each : stage.window.findChildren<ToolButton*>()) {
    const TooltipObject* const tip = each->GetTooltipObject();
    facts += each->text() + (tip && tip->IsTooltipEnabled() && tip->AttachedWidget() ? "." : "!");
    facts += QAccessible::queryAccessibleInterface(each)->actionInterface()->actionNames();
    if (const auto* const opener = qobject_cast<ToolButtonWithMenu*>(each))
      facts << QString::number(opener->MenuPhase())
            << QString::number(opener->IsSubMenuButton(stage.subPlain))
            << QString::number(opener->SaveMenuState()) << QString::number(!opener->SavedMenuOwner());
  }
  QStringList hosted;
  for (const HostingInfo& info : hostedWidgets())
    hosted += QStringList{info.widget, info.home,    info.window,
                          info.turn,   info.command, QString::number(info.buttons + 10 * info.phase)}
                  .join('/');
  hosted.sort();
  const QImage seen = stage.window.grab().toImage();
  facts << hosted << QString::number(qChecksum(QByteArrayView(seen.constBits(), seen.sizeInBytes())));
  stage.window.setWindowTitle(facts.join(' '));
  Vela::Test::settle();
}

void extend(MenuStage& stage) {
  stage.menuButton->SetExtendMode(true);
  stage.click(stage.menuButton);
  stage.click(stage.subButton);
  look(stage);
}

void addExtending(const Vela::Test::Rows<StageAct>& row) {
  row("other sub-button", [](MenuStage& s) {
    auto* const other =
        s.subBar->AddAction(new QAction(coloredIcon(Qt::yellow), "Other", s.view), new QSpinBox(s.view));
    extend(s);
    s.menuButton->SetExtendMode(true), look(s);
    other->OnRequestShowMenu(), look(s);
    s.menuButton->SetMenu(nullptr);
  });
  row("end of the extended", [](MenuStage& s) { extend(s), delete s.menuButton; });
  row("end of a plain one", [](MenuStage& s) {
    struct Opener : ToolButtonWithButtonMenu {
      using ToolButtonWithButtonMenu::OnEnterExtendMode;
      using ToolButtonWithButtonMenu::ToolButtonWithButtonMenu;
    } opener({}, s.bar, s.subBar, "derived", s.view);
    const std::unique_ptr<ToolButton> plain(s.subBar->AddAction(new QAction("late", s.view)));
    opener.OnEnterExtendMode(plain.get());
  });
  row("other controller", [](MenuStage& s) { extend(s), s.subButton->SetExtendController(s.field); });
  row("not in the menu",
      [](MenuStage& s) { extend(s), s.menuButton->ShowMenu(), look(s), s.menuButton->ShowMenu(); });
  row("nothing", [](MenuStage& s) { s.subButton->SetMenu(nullptr), extend(s); });
  row("late", [](MenuStage& s) {
    extend(s);
    QObject::connect(s.subButton, &ToolButtonWithMenu::ButtonMenuVisibilityChange, s.bar,
                     [&s] { s.bar->AddAction(new QAction("late", s.view)); });
    s.menuButton->SetExtendMode(false);
  });
  row("action of the extended", [](MenuStage& s) {
    s.menuButton = s.bar->AddAction(new QAction(coloredIcon(Qt::white), "Acting", s.view),
                                    coloredIcon(Qt::yellow), s.subBar, true, "Acting");
    extend(s);
    s.menuButton->actions().constFirst()->setText("Renamed"), look(s);
    s.menuButton->setEnabled(false);
  });
  row("selection", [](MenuStage& s) {
    for (const bool clear : {false, true}) {
      s.menuButton->SetClearSelectionOnHide(clear), s.subPlain->setCheckable(true),
          s.subPlain->setChecked(true);
      extend(s), s.click(s.menuButton), look(s);
      s.menuButton->SetExtendMode(false), s.click(s.menuButton), s.click(s.menuButton), s.click(s.menuButton),
          look(s);
    }
  });
}

void addNests(const Vela::Test::Rows<StageAct>& row) {
  row("nest", [](MenuStage& s) {
    s.subBar->AddAction(nullptr, coloredIcon(Qt::blue), s.bar, true, "Back"); // nests have an end
    auto* const deeper = new ToolBar(s.view, Qt::TopToolBarArea);
    s.bar->AddAction(nullptr, coloredIcon(Qt::blue), deeper, true, "Over")->SetMenu(s.subBar), look(s);
    s.subPlain = deeper->AddAction(new QAction("Deep", s.view));
    s.subBar->AddAction(nullptr, coloredIcon(Qt::blue), deeper, true, "Deeper"), look(s);
  });
  row("no bar", [](MenuStage& s) {
    auto* const own = new OwnOpener(nullptr, s.subBar, &s.window);
    own->setGeometry(300, 200, 40, 40), own->show(), own->setFocus(), s.key(Qt::Key_Space), look(s);
    s.key(Qt::Key_Escape), look(s);
    own->OnCloseMenu(s.subBar, false), own->OnCloseMenu(nullptr, false), own->ShowMenu(), own->setFocus();
    s.key(Qt::Key_A), look(s);
    s.key(Qt::Key_Escape), look(s);
    own->ShowMenu(), own->OnCloseMenu(s.subBar, false), look(s);
    own->ShowMenu(), own->hide();
    s.subPlain->Action()->setCheckable(true),
        s.subPlain->Action()->setChecked(own->IsActionAssociated(nullptr));
    const QAction* const first = own->GetFirstSubMenuAction(false);
    s.field->setText((first ? first->text() : "") + (own->GetFirstSubMenuAction(true) ? "!" : "."));
    s.subPlain->Action()->setChecked(own->IsActionAssociated(s.subPlain->Action()));
    s.plain->setVisible(own->GetFirstSubMenuAction(true) && !own->IsActionAssociated(s.plain->Action()));
  });
  row("saved owner", [](MenuStage& s) {
    for (const bool save : {true, false}) {
      s.menuButton->ShowMenu(), s.menuButton->SetSavedMenuOwner(s.button),
          s.menuButton->SetSaveMenuState(save), look(s);
      s.menuButton->HideMenu(), look(s);
    }
  });
  row("mirrored", [](MenuStage& s) {
    s.window.setLayoutDirection(Qt::RightToLeft), look(s);
    s.click(s.menuButton), look(s);
    s.click(s.button);
  });
  row("moved", [](MenuStage& s) {
    s.menuButton->SetMenuParameters(Right, 9, AlignCenter), look(s);
    s.menuButton->ShowMenu(), s.menuButton->move(s.menuButton->pos() + QPoint(0, 9)), look(s);
    s.menuButton->SetExtendMode(true), s.subBar->AddAction(new QAction("More", s.view), s.button->GetMenu()),
        look(s);
    s.menuButton->hide();
  });
  row("window hidden", [](MenuStage& s) {
    s.menuButton->ShowMenu(), s.window.hide(), s.window.show(), look(s), s.subBar->hide();
  });
  row("pressed by a reader", [](MenuStage& s) {
    QAccessible::queryAccessibleInterface(s.menuButton)
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    s.menuButton->setText("Cut && &Paste"), look(s);
    for (ToolButton* const each : {s.plain, s.subPlain})
      each->Action()->setCheckable(true), each->setEnabled(each == s.plain);
  });
  row("looks of the bar", [](MenuStage& s) {
    auto* const own = new OwnOpener(s.bar, s.subBar, s.bar);
    s.bar->SetButtonSize({50, 50}), own->ApplyBaseToolBarParamsToButtonMenu(), s.subBar->ShowMe();
  });
}

void addPanels(const Vela::Test::Rows<StageAct>& row) {
  row("background", [](MenuStage& s) {
    s.button->ShowMenu(), s.flyout->ShowPartialBackground({0, 5, 20, 10}, Qt::red), look(s);
    s.button->HideMenu(), s.button->ShowMenu(), look(s);
    s.flyout->HidePartialBackground();
  });
  row("panel", [](MenuStage& s) {
    auto* const panel = new QLabel("panel", s.view);
    panel->addAction("Done");
    s.button->SetMenu(panel), s.button->setFocus(), s.button->SetNoHideMenuOnClick(true),
        s.button->ShowMenu(), look(s);
    panel->setFixedSize(400, 350), look(s);
    s.button->SetMenuParameters(true, {ArrowTop, 10, false, 0, 90, true, 0}, Bottom, 20, AlignStart), look(s);
    s.button->setFocus(), s.key(Qt::Key_Escape), look(s);
    s.button->ShowMenu(), panel->actions().constFirst()->trigger(), look(s);
    s.button->SetMenu(panel, false), s.button->SetMenu(s.flyout), s.button->SetMenu(panel, false),
        s.button->ShowMenu(), look(s);
    panel->hide();
  });
  row("escape", [](MenuStage& s) {
    new QShortcut(Qt::Key_Escape, &s.window, s.plain, [&s] { s.plain->setText("escaped"); });
    s.button->SetMenu(new QSpinBox(s.view)), s.button->setFocus(), s.key(Qt::Key_Space), look(s);
    s.key(Qt::Key_Escape);
  });
  row("locked", [](MenuStage& s) {
    s.button->SetLocked(true), s.flyout->show(), look(s), s.command->trigger(), look(s);
    s.button->SetLocked(false), s.command->trigger(), s.command->onFinalize(); // before the button is told
  });
  row("replaced", [](MenuStage& s) {
    auto* const next = new FlyoutBase("Next", nullptr, AllPanelButtons, s.view);
    s.click(s.button), s.button->SetMenu(next), look(s);
    s.button->ShowMenu(), s.flyout->CloseMe(), Q_EMIT s.flyout->CancelChanges(),
        look(s); // it is not heard any more
    s.button->SetMenu(s.flyout), s.command->trigger(),
        s.button->SetMenu(next); // the click opens another one
  });
  row("panel of no bar", [](MenuStage& s) {
    auto* const own =
        new ToolButtonWithWidgetMenu(new QAction("Own", s.view), nullptr, new QSpinBox(s.view), &s.window);
    own->setGeometry(300, 200, 40, 40), own->show(), own->setFocus(), s.key(Qt::Key_Space), look(s);
    s.key(Qt::Key_Escape), look(s);
    own->ShowMenu(), delete own;
  });
  row("other flyout", [](MenuStage& s) {
    auto* const other = s.bar->AddAction(new QAction("Other", s.view), new QSpinBox(s.view));
    s.button->ShowMenu(), other->ShowMenu(), look(s);
    other->SetMenu(s.flyout), s.button->ShowMenu(), look(s);
    delete s.button, other->ShowMenu(), look(s);
    s.flyout->setParent(&s.window);
  });
  row("into sight", [](MenuStage& s) {
    for (int i = 0; i < 40; ++i)
      s.bar->AddAction(new QAction("more", s.view), QString(), 0);
    look(s), s.command->trigger(), look(s);
    s.button->setFocus(), s.key(Qt::Key_Right); // scrolls
  });
}

} // namespace

class ToolButtonNestTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void buttonStandsInForTheExtendedOne_data() {
    const Vela::Test::Rows<StageAct> row("end");
    row("click", [](MenuStage& stage) { stage.click(stage.menuButton); });
    row("space", [](MenuStage& stage) { stage.menuButton->setFocus(), stage.key(Qt::Key_Space); });
    row("Close", [](MenuStage& stage) { stage.clickIn(stage.subFlyout, "Close"); });
    row("escape", [](MenuStage& stage) { stage.key(Qt::Key_Escape); });
    row("outside", [](MenuStage& stage) { stage.click(stage.field); });
    row("off", [](MenuStage& stage) { stage.menuButton->SetExtendMode(false); });
    row("shortcut of a locked one", [](MenuStage& stage) { stage.command->trigger(); });
    row("sub-button", [](MenuStage& stage) { delete stage.subButton; });
    row("flyout", [](MenuStage& stage) { delete stage.subFlyout; });
    row("bar hidden", [](MenuStage& stage) { stage.bar->hide(); });
  }
  void buttonStandsInForTheExtendedOne() {
    QFETCH(StageAct, end);
    MenuStage stage;
    stage.menuButton->SetExtendMode(true);
    stage.menuButton->SetClearSelectionOnHide(true);
    stage.subButton->Action()->setCheckable(true);
    QSignalSpy cleared(stage.menuButton, &ToolButtonWithButtonMenu::ButtonMenuCleared);
    stage.click(stage.menuButton);
    stage.click(stage.subButton);
    VELA_COMPARE_SCREEN("extended_button", Vela::Test::AlsoDark);
    stage.bar->AddAction(new QAction("Late", stage.view));
    Vela::Test::settle();
    stage.plain->click();
    cleared.clear();
    end(stage);
    Vela::Test::settle();
    QCOMPARE(shownColor(*stage.menuButton), QColor(Qt::red));
    QCOMPARE(cleared.count(), 1);
  }

  void stepsLookAsRecorded_data() {
    const Vela::Test::Rows<StageAct> row("steps");
    addExtending(row);
    addNests(row);
    addPanels(row);
  }
  void stepsLookAsRecorded() {
    QFETCH(StageAct, steps);
    QApplication::setCursorFlashTime(0);
    MenuStage stage;
    look(stage);
    steps(stage);
    look(stage);
  }

  void menusAreInSightAtEveryEdge_data() {
    const Vela::Test::Rows<Qt::ToolBarArea, bool, QSize> row("area", "mirrored", "size");
    for (const auto area :
         {Qt::LeftToolBarArea, Qt::RightToolBarArea, Qt::TopToolBarArea, Qt::BottomToolBarArea}) {
      for (const bool mirrored : {false, true}) {
        for (const QSize size : {QSize(90, 40), QSize(300, 200), QSize(3840, 2160)})
          row(QByteArray::number(area) + (mirrored ? " mirrored " : " ") + QByteArray::number(size.width()),
              area, mirrored, size);
      }
    }
  }
  void menusAreInSightAtEveryEdge() {
    QFETCH(Qt::ToolBarArea, area);
    QFETCH(bool, mirrored);
    QFETCH(QSize, size);
    QWidget window;
    window.setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
    window.resize(size);
    ToolBar bar(&window, area);
    bar.SetOffset({7, 3});
    ToolBar menu(&window, Qt::TopToolBarArea);
    for (int i = 0; i < 3; ++i)
      menu.AddAction(new QAction(coloredIcon(Qt::red), QString::number(i), &menu));
    QWidget panel(&window);
    panel.setMinimumSize(150, 110);
    ToolButtonWithMenu* const openers[] = {
        bar.AddAction(nullptr, coloredIcon(Qt::red), &menu, true, "menu"),
        bar.AddAction(new QAction(coloredIcon(Qt::red), "panel", &bar), &panel)};
    Vela::Test::showActive(window);
    bar.ShowMe();
    for (ToolButtonWithMenu* const opener : openers) {
      opener->ShowMenu();
      Vela::Test::settle();
      if (size.width() == 300)
        VELA_COMPARE_SCREEN(QStringLiteral("%1, area %2").arg(opener->text(), QTest::currentDataTag()),
                            Vela::Test::AlsoDark);
      opener->HideMenu();
    }
  }
};

VELA_TEST_MAIN(ToolButtonNestTest)
#include "tool_button_nest_test.moc"
