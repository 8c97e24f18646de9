// SPDX-License-Identifier: MIT
#include "tool_button_fixture.h"

#include <ui_base/toolbars/hosting_info.h>
#include <ui_base/toolbars/menu_state.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>

using namespace Vela::UiBase;

namespace {

/// A second window whose toolbar has the flyout of the stage, and another one in the first window.
struct SharedStage : MenuStage {
  explicit SharedStage(bool checkable = false, QWidget* simple = nullptr) : MenuStage(checkable, simple) {
    QWidget* const panel = simple ? simple : flyout.data();
    otherWindow.resize(500, 400);
    otherBar = new ToolBar(&otherWindow, Qt::TopToolBarArea);
    otherButton = otherBar->AddAction(command, panel);
    otherWindow.show();
    otherBar->ShowMe();
    secondBar = new ToolBar(view, Qt::BottomToolBarArea);
    secondButton = secondBar->AddAction(command, panel);
    secondBar->ShowMe();
    activate(window);
  }
  static void activate(QWidget& widget) {
    widget.activateWindow();
    if (!QTest::qWaitForWindowActive(&widget))
      qFatal("the window does not become active");
  }
  ToolButtonWithWidgetMenu* opener() const {
    for (ToolButtonWithWidgetMenu* const each : {button.data(), secondButton.data(), otherButton.data()}) {
      if (each && each->MenuPhase() == MenuState::Open)
        return each;
    }
    return nullptr;
  }

  QWidget otherWindow;
  QPointer<ToolBar> otherBar;
  QPointer<ToolButtonWithWidgetMenu> otherButton;
  QPointer<ToolBar> secondBar;
  QPointer<ToolButtonWithWidgetMenu> secondButton;
};

/// Has a button show what is being hidden, once.
class Taker : public QObject {
public:
  explicit Taker(ToolButtonWithMenu& button) : m_button(&button) {}
  bool eventFilter(QObject*, QEvent* event) override {
    ToolButtonWithMenu* const taker = event->type() == QEvent::HideToParent ? m_button.data() : nullptr;
    if (taker) {
      m_button.clear();
      taker->ShowMenu();
    }
    return false;
  }

private:
  QPointer<ToolButtonWithMenu> m_button;
};

void clickIn(QWidget& window, const QWidget* target) {
  QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                    target->mapTo(&window, target->rect().center()));
}

} // namespace

class ToolButtonHostingTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void aDyingWindowTakesNoMenu() {
    QSpinBox panel;
    auto window = std::make_unique<QWidget>();
    auto* const bar = new ToolBar(window.get(), Qt::TopToolBarArea);
    QWidget* const none = nullptr;
    const QPointer<ToolButtonWithWidgetMenu> button = bar->AddAction(new QAction("panel", bar), none);
    bool told = false;
    QObject::connect(window.get(), &QObject::destroyed, button, [&] {
      told = true;
      button->SetMenu(&panel);
    });
    bar->ShowMe();
    window->show();
    window.reset();
    QVERIFY(told && !button && !panel.parentWidget());
  }

  void menuGoesThroughItsStates_data();
  void menuGoesThroughItsStates();
  void flyoutOpensWhereItWasAskedFor_data();
  void flyoutOpensWhereItWasAskedFor();
  void sharedFlyoutOutlivesItsBars_data();
  void sharedFlyoutOutlivesItsBars();
  void panelGoesToTheHomeItHasNow_data();
  void panelGoesToTheHomeItHasNow();
  void panelStaysWithTheButtonThatTookIt();
  void pressesOutsideClose_data();
  void pressesOutsideClose();
  void replacedFlyoutAsksTheController();
  void sayingsOfTheHosting();
};

// o: begins to open, O: has opened, a: was announced, c: begins to close, C: has closed,
// R: wanted back, p: closed by a press, k: a click on a closed one, K: on an open one, t: the click is dealt
// with, r: released.
void ToolButtonHostingTest::menuGoesThroughItsStates_data() {
  QTest::addColumn<QByteArray>("steps");
  QTest::addColumn<int>("phase");
  QTest::addColumn<int>("click");
  QTest::addColumn<QByteArray>("last"); // what the last step answered
  const auto row = [](const char* steps, int phase, int click, const char* last) {
    QTest::newRow(steps) << QByteArray(steps) << phase << click << QByteArray(last);
  };
  using S = MenuState;
  row("oo", S::Opening, S::NoClick, "no");
  row("oO", S::Open, S::NoClick, "yes");
  row("oOO", S::Open, S::NoClick, "no");
  row("oOo", S::Open, S::NoClick, "no");
  row("oOcc", S::Closing, S::NoClick, "no");
  row("oOcO", S::Closing, S::NoClick, "no");
  row("oOca", S::Closing, S::NoClick, "yes");
  row("oOcCa", S::Closed, S::NoClick, "no");
  row("oca", S::Closing, S::NoClick, "no");
  row("R", S::Closed, S::NoClick, "no");
  row("oOcR", S::Reopening, S::NoClick, "yes");
  row("oOcRC", S::Closed, S::NoClick, "yes");
  row("oOcRcC", S::Closed, S::NoClick, "no");
  row("c", S::Closed, S::NoClick, "no");
  row("pk", S::Closed, S::ClickCloses, "");
  row("prk", S::Closed, S::ClickOpens, "");
  row("kt", S::Closed, S::NoClick, "opens");
  row("pkt", S::Closed, S::NoClick, "closes");
  row("pktt", S::Closed, S::NoClick, "none");
}

void ToolButtonHostingTest::menuGoesThroughItsStates() {
  QFETCH(QByteArray, steps);
  QFETCH(int, phase);
  QFETCH(int, click);
  QFETCH(QByteArray, last);
  MenuState state;
  QByteArray answer;
  const auto yes = [](bool answered) { return QByteArray(answered ? "yes" : "no"); };
  for (const char step : steps) {
    answer.clear();
    if (step == 'o')
      answer = yes(state.beginOpening());
    else if (step == 'O')
      answer = yes(state.finishOpening());
    else if (step == 'R')
      answer = yes(state.beginReopening());
    else if (step == 'c')
      answer = yes(state.beginClosing());
    else if (step == 'p')
      state.closedByPress();
    else if (step == 'k' || step == 'K')
      state.clicked(step == 'K');
    else if (step == 'r')
      state.released();
    else if (step == 't')
      answer = QList<QByteArray>{"none", "opens", "closes"}.at(state.takeClick());
    else
      answer = yes(step == 'a' ? state.isAnnounced() : state.finishClosing());
  }
  QCOMPARE(int(state.phase()), phase);
  QCOMPARE(int(state.click()), click);
  QCOMPARE(answer, last);
}

void ToolButtonHostingTest::flyoutOpensWhereItWasAskedFor_data() {
  QTest::addColumn<bool>("checkable");
  QTest::addColumn<QString>("kind");
  for (const bool checkable : {false, true}) {
    for (const QString kind : {"flyout", "plain panel"})
      QTest::addRow("%s%s", checkable ? "checkable, " : "", qPrintable(kind)) << checkable << kind;
  }
}

void ToolButtonHostingTest::flyoutOpensWhereItWasAskedFor() {
  QFETCH(bool, checkable);
  QFETCH(QString, kind);
  QLabel panel("panel");
  SharedStage stage(checkable, kind == "flyout" ? nullptr : &panel);
  QWidget* const menu = kind == "flyout" ? stage.flyout.data() : static_cast<QWidget*>(&panel);
  int rounds = 0;
  const auto opensAt = [&](ToolButtonWithWidgetMenu* expected) {
    Vela::Test::settle();
    ++rounds;
    return stage.opener() == expected && menu->window() == expected->window() && menu->isVisible() &&
           stage.command->isActive() && stage.observer->began == rounds &&
           stage.observer->ended == rounds - 1;
  };
  stage.command->trigger();
  QVERIFY2(opensAt(stage.button), "the first that can be seen");
  SharedStage::activate(stage.otherWindow);
  clickIn(stage.otherWindow, stage.otherButton);
  QVERIFY2(opensAt(stage.otherButton), "the one that was clicked, while it is open elsewhere");
  stage.otherButton->HideMenu();
  stage.command->trigger();
  QVERIFY2(opensAt(stage.otherButton), "the one used last, in the active window");
  stage.command->onExitCommand();
  SharedStage::activate(stage.window);
  stage.command->trigger();
  QVERIFY2(opensAt(stage.button), "one that can be seen in the active window");
  stage.secondButton->setFocus();
  stage.key(Qt::Key_Space);
  QVERIFY2(opensAt(stage.secondButton), "by keyboard as by mouse");
  QCOMPARE(stage.bar->GetActiveButton(), nullptr);
  stage.button->HideMenu(); // is none of its business
  stage.bar->OnMouseClickedOutside();
  stage.bar->OnResizeTimerTimeOut();
  QCOMPARE(stage.opener(), stage.secondButton.data());
  QVERIFY(!stage.button->IsMenuShowing() && stage.secondButton->IsMenuShowing());
  stage.secondButton->HideMenu();
  stage.secondBar->hide();
  stage.command->trigger();
  QVERIFY2(opensAt(stage.button), "not one that cannot be seen");
  stage.command->onExitCommand();
  QCOMPARE(stage.observer->ended, rounds);
  QVERIFY(!menu->isVisible() && !stage.command->isChecked());
}

void ToolButtonHostingTest::sharedFlyoutOutlivesItsBars_data() {
  QTest::addColumn<QString>("first");
  for (const char* first : {"opener", "bar", "other bar", "window", "arrowed window", "opener as it closes",
                            "opener before it opens"})
    QTest::newRow(first) << first;
}

void ToolButtonHostingTest::sharedFlyoutOutlivesItsBars() {
  QFETCH(QString, first);
  auto stage = std::make_unique<SharedStage>();
  auto other = std::make_unique<QWidget>();
  auto* const bar = new ToolBar(other.get(), Qt::TopToolBarArea);
  QPointer<ToolButtonWithWidgetMenu> opener = bar->AddAction(stage->command, stage->flyout);
  other->show();
  bar->ShowMe();
  SharedStage::activate(*other);
  if (first == "opener as it closes")
    connect(opener, &ToolButtonWithMenu::ButtonMenuVisibilityChange, opener,
            [opener](ToolButton*, bool visible) {
              if (!visible)
                delete opener.data();
            });
  if (first != "opener before it opens") {
    clickIn(*other, opener);
    QCOMPARE(stage->flyout->ToolButton(), opener.data());
    QCOMPARE(opener->MenuPhase(), MenuState::Open);
  } else {
    stage->command->trigger();
  }
  if (first.startsWith("opener before") || first == "opener")
    delete opener;
  else if (first == "bar")
    delete bar;
  else if (first == "other bar")
    delete stage->otherBar;
  else if (first == "window")
    other.reset();
  else if (first == "arrowed window")
    delete opener->GetArrowedWindow();
  else
    stage->flyout->CloseMe();
  Vela::Test::settle();
  const bool stays = first == "other bar";
  QCOMPARE(stage->flyout && stage->flyout->isVisible(), stays);
  QCOMPARE(stage->command->isActive(), stays);
  QCOMPARE(stage->observer->ended, stays ? 0 : 1);
  if (!stays)
    QVERIFY(stage->controller->contextStack().isEmpty());
  stage->command->onExitCommand();
  SharedStage::activate(stage->window);
  stage->command->trigger();
  Vela::Test::settle();
  QCOMPARE(stage->opener(), stage->button.data());
  delete stage->bar;
  delete stage->secondBar;
  delete stage->otherBar;
  other.reset();
  QVERIFY2(stage->flyout && stage->flyout->parentWidget() == stage->view, "the application's, as before");
  QVERIFY(stage->flyout->isHidden() && !stage->flyout->ToolButton());
}

void ToolButtonHostingTest::panelGoesToTheHomeItHasNow_data() {
  QTest::addColumn<QString>("change");
  QTest::addColumn<QString>("home"); // empty: it has died; "none": without a parent
  const auto row = [](const char* change, const char* home) { QTest::newRow(change) << change << home; };
  row("none", "parent");
  row("parent dies", "");
  row("other", "other");
  row("other dies", "");
  row("free", "none");
  row("free, parent dies", "none");
}

void ToolButtonHostingTest::panelGoesToTheHomeItHasNow() {
  QFETCH(QString, change);
  QFETCH(QString, home);
  MenuStage stage;
  auto parent = std::make_unique<QWidget>();
  auto other = std::make_unique<QWidget>();
  const QPointer<QWidget> panel = new QLabel("panel", parent.get(), Qt::Tool);
  const Qt::WindowFlags flags = panel->windowFlags();
  stage.button->SetMenu(panel);
  stage.button->ShowMenu();
  QCOMPARE(panel->window(), &stage.window);
  if (change.startsWith("other"))
    panel->setParent(other.get());
  else if (change.startsWith("free"))
    panel->setParent(nullptr);
  if (change != "none") {
    stage.button->HideMenu();
    QCOMPARE(stage.button->MenuPhase(), MenuState::Closed);
    stage.button->ShowMenu();
    QVERIFY2(panel->isVisible() && panel->window() == &stage.window, "it is hosted all the same");
  }
  if (change.endsWith("parent dies"))
    parent.reset();
  if (change == "other dies")
    other.reset();
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

void ToolButtonHostingTest::panelStaysWithTheButtonThatTookIt() {
  QWidget home;
  auto* const panel = new QLabel("panel", &home);
  SharedStage stage(false, panel);
  panel->setParent(&stage.otherWindow); // where it is shown first
  Taker taker(*stage.otherButton);
  panel->installEventFilter(&taker);
  panel->show();
  Vela::Test::settle();
  QCOMPARE(stage.opener(), stage.otherButton.data());
  QVERIFY(panel->isVisible() && stage.otherButton->GetArrowedWindow()->isAncestorOf(panel));
}

void ToolButtonHostingTest::pressesOutsideClose_data() {
  QTest::addColumn<QString>("where");
  QTest::addColumn<bool>("keepInView");
  QTest::addColumn<bool>("open");
  const auto row = [](const QString& where, bool keepInView, bool open) {
    QTest::addRow("%s%s", qPrintable(where), keepInView ? ", kept in view" : "")
        << where << keepInView << open;
  };
  for (const QString inside : {"flyout", "drop-down list", "colour dialog", "question", "tooltip",
                               "beside it", "bar", "staying bar"})
    row(inside, false, true);
  for (const QString outside : {"view", "field", "other window", "dialog of another window"})
    row(outside, false, false);
  row("view", true, true);
  row("field", true, false);
  row("plain button", true, false); // a click, which closes
}

void ToolButtonHostingTest::pressesOutsideClose() {
  QFETCH(QString, where);
  QFETCH(bool, keepInView);
  QFETCH(bool, open);
  SharedStage stage;
  stage.otherWindow.move(800, 0);
  stage.flyout->SetKeepOpenInView(keepInView);
  auto* const beside = new QLabel("beside");
  stage.flyout->AddSubWidget(beside, Right);
  stage.flyout->ShowSubWidget(beside, true);
  stage.click(stage.button);
  QVERIFY(stage.flyout->isVisible());
  const auto press = [](QWidget& window, const QPoint& place) {
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, place);
  };
  QColorDialog colors(stage.flyout);
  QMessageBox question(&stage.otherWindow);
  QDialog otherDialog(&stage.otherWindow);
  QComboBox list(stage.flyout);
  if (where == "flyout") {
    press(stage.window, stage.flyout->mapTo(&stage.window, QPoint(2, 2)));
  } else if (where == "drop-down list") {
    list.addItems({"a", "b"});
    list.move(2, 2);
    list.show();
    list.showPopup();
    press(*list.view()->window(), {5, 5});
  } else if (where == "colour dialog") {
    colors.setOption(QColorDialog::DontUseNativeDialog);
    colors.show();
    press(colors, {3, 3});
  } else if (where == "question") {
    question.setModal(true);
    question.show();
    press(question, {3, 3});
  } else if (where == "tooltip") {
    stage.plain->GetTooltipObject()->SetTooltipText("a tooltip");
    stage.plain->GetTooltipObject()->ShowTooltip();
    const QWidget* const tip = stage.plain->GetTooltipObject()->TooltipControl();
    press(stage.window, tip->mapTo(&stage.window, QPoint(3, 3)));
  } else if (where == "beside it") {
    press(stage.window, beside->mapTo(&stage.window, QPoint(2, 2)));
  } else if (where == "bar") {
    press(stage.window, stage.bar->mapTo(&stage.window, QPoint(1, 1)));
  } else if (where == "staying bar") {
    stage.secondBar->SetKeepStateOnClickOutside(true);
    press(stage.window, stage.secondBar->mapTo(&stage.window, QPoint(1, 1)));
  } else if (where == "view") {
    press(stage.window,
          stage.view->mapTo(&stage.window, QPoint(stage.view->width() - 6, stage.view->height() / 2)));
  } else if (where == "field") {
    press(stage.window, stage.field->mapTo(&stage.window, QPoint(4, 4)));
  } else if (where == "other window") {
    press(stage.otherWindow, {4, 390});
  } else if (where == "dialog of another window") {
    otherDialog.show();
    press(otherDialog, {3, 3});
  } else {
    stage.click(stage.plain);
  }
  Vela::Test::settle();
  QCOMPARE(stage.flyout->isVisible(), open);
  QCOMPARE(stage.command->isActive(), open);
}

void ToolButtonHostingTest::replacedFlyoutAsksTheController() {
  MenuStage stage;
  stage.menuButton->SetExtendMode(true);
  FlyoutBase next("Next", nullptr, nullptr, true, true, true, true, stage.view);
  stage.subButton->SetMenu(&next);
  Q_EMIT stage.subFlyout->RequestShowMenu();
  QVERIFY(!stage.menuButton->IsInExtendMode());
  Q_EMIT next.RequestShowMenu();
  QVERIFY(stage.menuButton->IsInExtendMode() && next.isVisible());
  stage.subButton->SetMenu(nullptr);
  QVERIFY(!stage.menuButton->IsInExtendMode());
  QCOMPARE(next.parentWidget(), stage.view);
}

void ToolButtonHostingTest::sayingsOfTheHosting() {
  SharedStage stage;
  stage.flyout->setObjectName("smooth");
  stage.view->setObjectName("view");
  stage.otherWindow.setObjectName("other window");
  stage.otherButton->setObjectName("other button");
  SharedStage::activate(stage.otherWindow);
  clickIn(stage.otherWindow, stage.otherButton);
  const HostingInfo expected{
      "smooth", "view", "other window", "other button", {}, PanelCommand::className(), 3, MenuState::Open};
  QVERIFY(hostedWidgets().contains(expected));
}

VELA_TEST_MAIN(ToolButtonHostingTest)
#include "tool_button_hosting_test.moc"
