// SPDX-License-Identifier: MIT
#include "tool_button_fixture.h"

#include <support/rows.h>
#include <ui_base/popups/m_dialog_base.h>
#include <ui_base/toolbars/menu_state.h>

#include <functional>

using namespace Vela::UiBase;
using Vela::Test::click;
using Vela::Test::clickAt;

namespace {

/// A second window whose toolbar has the flyout of the stage, and another one in the first window.
struct SharedStage : MenuStage {
  explicit SharedStage(QWidget* simple = nullptr) : MenuStage(false, simple) {
    QWidget* const panel = simple ? simple : flyout.data();
    otherWindow.resize(500, 400);
    otherBar = new ToolBar(&otherWindow, Qt::TopToolBarArea);
    otherButton = otherBar->AddAction(command, panel);
    otherWindow.move(300, 100);
    otherWindow.show();
    otherBar->ShowMe();
    secondBar = new ToolBar(view, Qt::BottomToolBarArea);
    secondButton = secondBar->AddAction(command, panel);
    secondBar->ShowMe();
    Vela::Test::showActive(window);
  }
  void trigger() {
    command->trigger();
    Vela::Test::settle();
  }

  QWidget otherWindow;
  QLabel* const beside = new QLabel("beside", &otherWindow);
  QPointer<ToolBar> otherBar;
  QPointer<ToolButtonWithWidgetMenu> otherButton;
  QPointer<ToolBar> secondBar;
  QPointer<ToolButtonWithWidgetMenu> secondButton;
};

/// Calls back when what it filters is hidden.
class OnHide : public QObject {
public:
  explicit OnHide(std::function<void()> act) : m_act(std::move(act)) {}
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::HideToParent)
      m_act();
    return false;
  }

private:
  const std::function<void()> m_act;
};

} // namespace

class ToolButtonHostingTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void flyoutOpensWhereItWasAskedFor_data() {
    QTest::addColumn<bool>("plain");
    QTest::newRow("flyout") << false;
    QTest::newRow("plain panel") << true;
  }
  void flyoutOpensWhereItWasAskedFor() {
    QFETCH(bool, plain);
    QLabel panel("panel");
    SharedStage stage(plain ? &panel : nullptr);
    stage.trigger(); // the first that can be seen
    Vela::Test::showActive(stage.otherWindow);
    click(*stage.otherButton); // while it is open elsewhere
    Vela::Test::settle();
    stage.otherButton->HideMenu();
    stage.trigger(); // the one used last, in the active window
    stage.command->onExitCommand();
    Vela::Test::showActive(stage.window);
    stage.trigger(); // one that can be seen in the active window
    stage.secondButton->setFocus();
    stage.key(Qt::Key_Space);
    stage.button->HideMenu(); // is none of its business
    stage.bar->OnMouseClickedOutside();
    Vela::Test::settle();
    stage.secondButton->HideMenu();
    stage.secondBar->hide();
    stage.trigger(); // not one that cannot be seen
    stage.command->onExitCommand();
    Vela::Test::settle();
    QCOMPARE(stage.observer->began, 6);
    QCOMPARE(stage.observer->ended, 6);
  }

  void flyoutInAWindowOfItsOwnGoesWithTheWindowOfItsHome() {
    auto stage = std::make_unique<MenuStage>();
    stage->window.resize(150, 140); // too small for it
    Vela::Test::settle();
    stage->button->ShowMenu();
    const QPointer<FlyoutBase> flyout = stage->flyout;
    QVERIFY(flyout->isVisible() && flyout->window() != &stage->window);
    stage.reset();
    QVERIFY(!flyout);
  }

  void sharedFlyoutOutlivesItsBars_data() {
    QTest::addColumn<QString>("first");
    for (const char* first : {"opener", "bar", "window", "arrowed window", "opener as it closes"})
      QTest::newRow(first) << first;
  }
  void sharedFlyoutOutlivesItsBars() {
    QFETCH(QString, first);
    auto stage = std::make_unique<SharedStage>();
    auto other = std::make_unique<QWidget>();
    auto* const bar = new ToolBar(other.get(), Qt::TopToolBarArea);
    QPointer<ToolButtonWithWidgetMenu> opener = bar->AddAction(stage->command, stage->flyout);
    other->show();
    bar->ShowMe();
    Vela::Test::showActive(*other);
    if (first == "opener as it closes")
      connect(opener, &ToolButtonWithMenu::ButtonMenuVisibilityChange, opener,
              [opener](ToolButton*, bool visible) {
                if (!visible)
                  delete opener.data();
              });
    click(*opener);
    QCOMPARE(stage->flyout->ToolButton(), opener.data());
    if (first == "opener")
      delete opener;
    else if (first == "bar")
      delete bar;
    else if (first == "window")
      other.reset();
    else if (first == "arrowed window")
      delete opener->GetArrowedWindow();
    else
      stage->flyout->CloseMe();
    Vela::Test::settle();
    QVERIFY(stage->flyout && !stage->flyout->isVisible());
    QVERIFY(!stage->command->isActive() && stage->controller->contextStack().isEmpty());
    QCOMPARE(stage->observer->ended, 1);
    Vela::Test::showActive(stage->window);
    stage->trigger();
    delete stage->bar;
    delete stage->secondBar;
    delete stage->otherBar;
    other.reset();
    QVERIFY2(stage->flyout->parentWidget() == stage->view, "the application's, as before");
    QVERIFY(stage->flyout->isHidden() && !stage->flyout->ToolButton());
  }

  void dialogMayGoWhoseFlyoutAButtonShows() {
    MenuStage stage;
    auto dialog = std::make_unique<MDialogBase>();
    dialog->SetContent(stage.flyout);
    stage.button->ShowMenu();
    QVERIFY(stage.flyout->isVisible());
    dialog.reset();
    QVERIFY(!stage.flyout && stage.button->MenuPhase() == MenuState::Closed);
  }

  void dyingWindowOpensNothing() {
    MenuStage stage;
    auto other = std::make_unique<QWidget>();
    auto* const bar = new ToolBar(other.get(), Qt::TopToolBarArea);
    ToolButtonWithWidgetMenu* const opener = bar->AddAction(stage.command, stage.flyout);
    other->show();
    bar->ShowMe();
    opener->ShowMenu();
    QVERIFY(stage.flyout->isVisible());
    connect(opener, &ToolButtonWithMenu::ButtonMenuVisibilityChange, opener, [&] { opener->ShowMenu(); });
    other.reset();
    QVERIFY(stage.flyout && !stage.flyout->isVisible() && !stage.command->isActive());
  }

  void panelLeavesADyingWindow() {
    MenuStage stage;
    auto other = std::make_unique<QWidget>();
    auto* const controller = new QWidget(other.get());
    stage.button->SetExtendController(controller);
    other->resize(600, 500);
    other->show();
    stage.button->ShowMenu();
    QCOMPARE(stage.flyout->window(), other.get());
    stage.button->HideMenu();
    connect(controller, &QObject::destroyed, stage.button, [&] { stage.button->ShowMenu(); });
    other.reset();
    QVERIFY(stage.flyout->isVisible() && stage.flyout->window() == &stage.window);
  }

  void menuIsExchangedWhileItDies_data() {
    QTest::addColumn<bool>("panelDies");
    QTest::newRow("panel") << true;
    QTest::newRow("arrowed window") << false;
  }
  void menuIsExchangedWhileItDies() {
    QFETCH(bool, panelDies);
    QSpinBox other;
    auto panel = std::make_unique<QSpinBox>();
    MenuStage stage(true, panel.get()); // the command is the first to hear of its end
    stage.click(stage.button);
    QVERIFY(panel->isVisible());
    OnHide exchange([&] { stage.button->SetMenu(panelDies ? nullptr : &other, false); });
    panel->installEventFilter(&exchange);
    if (panelDies)
      panel.reset();
    else
      delete stage.button->GetArrowedWindow();
    QCOMPARE(stage.button->MenuPhase(), MenuState::Closed);
    QVERIFY(stage.button->GetMenu() == (panelDies ? nullptr : &other) && !stage.command->isActive());
  }

  void panelGoesToTheHomeItHasNow_data() {
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("home"); // empty: it has died; "none": without a parent
    const auto row = [](const char* change, const char* home) { QTest::newRow(change) << change << home; };
    row("none", "parent");
    row("parent dies", "");
    row("other", "other");
    row("free", "none");
  }
  void panelGoesToTheHomeItHasNow() {
    QFETCH(QString, change);
    QFETCH(QString, home);
    MenuStage stage;
    auto parent = std::make_unique<QWidget>();
    auto other = std::make_unique<QWidget>();
    const QPointer<QWidget> panel = new QLabel("panel", parent.get(), Qt::Tool);
    const Qt::WindowFlags flags = panel->windowFlags();
    stage.button->SetMenu(panel);
    stage.button->ShowMenu();
    if (change == "other")
      panel->setParent(other.get());
    else if (change == "free")
      panel->setParent(nullptr);
    stage.button->HideMenu();
    stage.button->ShowMenu();
    QVERIFY2(panel->isVisible() && panel->window() == &stage.window, "it is hosted all the same");
    if (change == "parent dies")
      parent.reset();
    stage.button->SetMenu(nullptr);
    QCOMPARE(panel.isNull(), home.isEmpty());
    if (!panel)
      return;
    QVERIFY(panel->isHidden());
    QCOMPARE(panel->parentWidget(),
             home == "parent" ? parent.get() : (home == "other" ? other.get() : nullptr));
    if (home == "parent")
      QCOMPARE(panel->windowFlags(), flags);
    if (home == "none")
      delete panel;
  }

  void pressesOutsideClose_data() {
    using Press = std::function<void(SharedStage&)>;
    const Vela::Test::Rows<Press, bool, bool> row("press", "keepInView", "open");
    const Press view = [](SharedStage& stage) {
      clickAt(*stage.view, {stage.view->width() - 6, stage.view->height() / 2});
    };
    const Press field = [](SharedStage& stage) { clickAt(*stage.field, {4, 4}); };
    const Press flyout = [](SharedStage& stage) { clickAt(*stage.flyout, {2, 2}); };
    const Press beside = [](SharedStage& stage) { clickAt(*stage.beside, {2, 2}); };
    const Press bar = [](SharedStage& stage) { clickAt(*stage.bar, {1, 1}); };
    const Press otherWindow = [](SharedStage& stage) { clickAt(stage.otherWindow, {4, 390}); };
    const Press list = [](SharedStage& stage) {
      auto* const box = new QComboBox(stage.flyout);
      box->addItems({"a", "b"});
      box->show();
      box->showPopup();
      clickAt(*box->view()->window(), {5, 5});
    };
    const Press colors = [](SharedStage& stage) {
      auto* const dialog = new QColorDialog(stage.flyout);
      dialog->setOption(QColorDialog::DontUseNativeDialog);
      dialog->show();
      clickAt(*dialog, {3, 3});
    };
    const Press question = [](SharedStage& stage) {
      auto* const box = new QMessageBox(&stage.otherWindow);
      box->setModal(true);
      box->show();
      clickAt(*box, {3, 3});
    };
    row("flyout", flyout, false, true);
    row("beside it", beside, false, true);
    row("bar", bar, false, true);
    row("drop-down list", list, false, true);
    row("colour dialog", colors, false, true);
    row("question", question, false, true);
    row("view", view, false, false);
    row("field", field, false, false);
    row("other window", otherWindow, false, false);
    row("view, kept in view", view, true, true);
    row("field, kept in view", field, true, false);
  }
  void pressesOutsideClose() {
    QFETCH(std::function<void(SharedStage&)>, press);
    QFETCH(bool, keepInView);
    QFETCH(bool, open);
    SharedStage stage;
    stage.flyout->SetKeepOpenInView(keepInView);
    stage.flyout->AddSubWidget(stage.beside, Right);
    stage.click(stage.button);
    stage.flyout->ShowSubWidget(stage.beside, true);
    press(stage);
    Vela::Test::settle();
    QCOMPARE(stage.flyout->isVisible(), open);
    QCOMPARE(stage.command->isActive(), open);
  }
};

VELA_TEST_MAIN(ToolButtonHostingTest)
#include "tool_button_hosting_test.moc"
