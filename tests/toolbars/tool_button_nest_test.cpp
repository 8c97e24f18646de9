// SPDX-License-Identifier: MIT
#include "seen_stage.h"

#include <support/screen_record.h>

using namespace Vela::UiBase;

namespace {

void addExtending(const Vela::Test::Rows<SeenSteps>& row) {
  row("other sub-button", [](SeenStage& s) {
    auto* const other = s.subBar->AddAction(s.action("Other"), new QSpinBox(s.view));
    s.extend();
    other->OnRequestShowMenu();
    s.look();
    s.menuButton->SetMenu(nullptr);
  });
  row("end of the extended", [](SeenStage& s) {
    s.extend();
    delete s.menuButton;
  });
  row("end of a plain one", [](SeenStage& s) {
    struct Opener : ToolButtonWithButtonMenu {
      using ToolButtonWithButtonMenu::OnEnterExtendMode;
      using ToolButtonWithButtonMenu::ToolButtonWithButtonMenu;
    } opener({}, s.bar, s.subBar, "derived", s.view);
    const std::unique_ptr<ToolButton> plain(s.subBar->AddAction(s.action("late")));
    opener.OnEnterExtendMode(plain.get());
  });
  row("other controller", [](SeenStage& s) {
    s.extend();
    s.subButton->SetExtendController(s.field);
  });
  row("not in the menu", [](SeenStage& s) {
    s.extend();
    s.open(s.menuButton);
    s.menuButton->ShowMenu();
  });
  row("nothing", [](SeenStage& s) {
    s.subButton->SetMenu(nullptr);
    s.extend();
  });
  row("late", [](SeenStage& s) {
    s.extend();
    QObject::connect(s.subButton, &ToolButtonWithMenu::ButtonMenuVisibilityChange, s.bar,
                     [&s] { s.bar->AddAction(s.action("late")); });
    s.menuButton->SetExtendMode(false);
  });
  row("action of the extended", [](SeenStage& s) {
    s.menuButton = s.bar->AddAction(s.action("Acting"), coloredIcon(Qt::yellow), s.subBar, true, "Acting");
    s.extend();
    s.menuButton->actions().constFirst()->setText("Renamed");
    s.look();
    s.menuButton->setEnabled(false);
  });
  row("selection", [](SeenStage& s) {
    s.subPlain->setCheckable(true);
    for (const bool clear : {false, true}) {
      s.menuButton->SetClearSelectionOnHide(clear);
      s.subPlain->setChecked(true);
      s.extend();
      s.click(s.menuButton);
      s.menuButton->SetExtendMode(false);
      s.click(s.menuButton);
      s.click(s.menuButton);
    }
  });
}

void addNests(const Vela::Test::Rows<SeenSteps>& row) {
  row("nest", [](SeenStage& s) {
    s.subBar->AddAction(nullptr, coloredIcon(Qt::blue), s.bar, true, "Back"); // nests have an end
    auto* const deeper = new ToolBar(s.view, Qt::TopToolBarArea);
    s.bar->AddAction(nullptr, coloredIcon(Qt::blue), deeper, true, "Over")->SetMenu(s.subBar);
    s.look();
    s.subPlain = deeper->AddAction(s.action("Deep"));
    s.subBar->AddAction(nullptr, coloredIcon(Qt::blue), deeper, true, "Deeper");
  });
  row("no bar", [](SeenStage& s) {
    auto* const own = new OwnOpener(nullptr, s.subBar, &s.window);
    own->setGeometry(300, 200, 40, 40);
    own->show();
    own->setFocus();
    s.key(Qt::Key_Space);
    s.key(Qt::Key_Escape);
    s.open(own);
    own->OnCloseMenu(nullptr, false);
    own->OnCloseMenu(s.subBar, false);
    s.field->setText(own->GetFirstSubMenuAction(false)->text());
    s.plain->setVisible(own->GetFirstSubMenuAction(true));
    s.subPlain->setCheckable(own->IsActionAssociated(s.subPlain->Action()));
  });
  row("saved owner", [](SeenStage& s) {
    for (const bool save : {true, false}) {
      s.menuButton->ShowMenu();
      s.menuButton->SetSavedMenuOwner(s.button);
      s.menuButton->SetSaveMenuState(save);
      s.look();
      s.close(s.menuButton);
    }
  });
  row("mirrored", [](SeenStage& s) {
    s.window.setLayoutDirection(Qt::RightToLeft);
    s.click(s.menuButton);
    s.click(s.button);
  });
  row("moved", [](SeenStage& s) {
    s.menuButton->SetMenuParameters(Right, 9, AlignCenter);
    s.open(s.menuButton);
    s.menuButton->move(s.menuButton->pos() + QPoint(0, 9));
    s.look();
    s.menuButton->SetExtendMode(true);
    s.subBar->AddAction(s.action("More"), s.button->GetMenu());
    s.look();
    s.menuButton->hide();
  });
  row("window hidden", [](SeenStage& s) {
    s.menuButton->ShowMenu();
    s.window.hide();
    s.window.show();
    s.look();
    s.subBar->hide();
  });
  row("pressed by a reader", [](SeenStage& s) {
    QAccessible::queryAccessibleInterface(s.menuButton)
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    s.menuButton->setText("Cut && &Paste");
    s.plain->Action()->setCheckable(true);
    s.subPlain->Action()->setCheckable(true);
    s.subPlain->setEnabled(false);
  });
  row("looks of the bar", [](SeenStage& s) {
    auto* const own = new OwnOpener(s.bar, s.subBar, s.bar);
    s.bar->SetButtonSize({50, 50});
    own->ApplyBaseToolBarParamsToButtonMenu();
    s.subBar->ShowMe();
  });
}

void addPanels(const Vela::Test::Rows<SeenSteps>& row) {
  row("background", [](SeenStage& s) {
    s.button->ShowMenu();
    s.flyout->ShowPartialBackground({0, 5, 20, 10}, Qt::red);
    s.look();
    s.button->HideMenu();
    s.open(s.button);
    s.flyout->HidePartialBackground();
  });
  row("panel", [](SeenStage& s) {
    auto* const panel = new QLabel("panel", s.view);
    panel->addAction("Done");
    s.button->SetMenu(panel);
    s.button->setFocus();
    s.button->SetNoHideMenuOnClick(true);
    s.open(s.button);
    panel->setFixedSize(400, 350);
    s.look();
    s.button->SetMenuParameters(true, {ArrowTop, 10, false, 0, 90, true, 0}, Bottom, 20, AlignStart);
    s.key(Qt::Key_Escape);
    s.open(s.button);
    panel->actions().constFirst()->trigger();
    s.look();
    s.button->SetMenu(s.flyout);
    s.button->SetMenu(panel, false);
    s.open(s.button);
    panel->hide();
  });
  row("escape", [](SeenStage& s) {
    new QShortcut(Qt::Key_Escape, &s.window, s.plain, [&s] { s.plain->setText("escaped"); });
    s.button->SetMenu(new QSpinBox(s.view));
    s.button->setFocus();
    s.key(Qt::Key_Space);
    s.key(Qt::Key_Escape);
  });
  row("locked", [](SeenStage& s) {
    s.button->SetLocked(true);
    s.flyout->show();
    s.look();
    s.command->trigger();
    s.look();
    s.button->SetLocked(false);
    s.command->trigger();
    s.command->onFinalize(); // before the button is told
  });
  row("replaced", [](SeenStage& s) {
    auto* const next = new FlyoutBase("Next", nullptr, AllPanelButtons, s.view);
    s.click(s.button);
    s.button->SetMenu(next);
    s.open(s.button);
    Q_EMIT s.flyout->CancelChanges(); // it is not heard any more
    s.look();
    s.button->SetMenu(s.flyout);
    s.command->trigger();
    s.button->SetMenu(next); // the click opens another one
  });
  row("panel of no bar", [](SeenStage& s) {
    auto* const own = new ToolButtonWithWidgetMenu(s.action("Own"), nullptr, new QSpinBox(s.view), &s.window);
    own->setGeometry(300, 200, 40, 40);
    own->show();
    own->setFocus();
    s.key(Qt::Key_Space);
    s.key(Qt::Key_Escape);
    own->ShowMenu();
    delete own;
  });
  row("other flyout", [](SeenStage& s) {
    auto* const other = s.bar->AddAction(s.action("Other"), new QSpinBox(s.view));
    s.button->ShowMenu();
    s.open(other);
    other->SetMenu(s.flyout);
    s.open(s.button);
    delete s.button;
    s.open(other);
    s.flyout->setParent(&s.window);
  });
  row("into sight", [](SeenStage& s) {
    for (int i = 0; i < 40; ++i)
      s.bar->AddAction(s.action("more"), QString(), 0);
    s.look();
    s.command->trigger();
    s.look();
    s.button->setFocus();
    s.key(Qt::Key_Right); // scrolls
  });
}

} // namespace

class ToolButtonNestTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void buttonStandsInForTheExtendedOne_data() {
    const Vela::Test::Rows<StageAct> row("end");
    row("click", [](MenuStage& stage) { stage.click(stage.menuButton); });
    row("space", [](MenuStage& stage) {
      stage.menuButton->setFocus();
      stage.key(Qt::Key_Space);
    });
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
    const Vela::Test::Rows<SeenSteps> row("steps");
    addExtending(row);
    addNests(row);
    addPanels(row);
  }
  void stepsLookAsRecorded() {
    QFETCH(SeenSteps, steps);
    QApplication::setCursorFlashTime(0);
    SeenStage stage;
    stage.look();
    steps(stage);
    stage.look();
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
