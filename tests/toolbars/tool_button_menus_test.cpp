// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <ui_base/commands/flyout_command.h>
#include <ui_base/popups/arrowed_window.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/tool_button_arrow.h>
#include <ui_base/toolbars/tool_button_with_button_menu.h>
#include <ui_base/toolbars/tool_button_with_widget_menu.h>
#include <ui_base/tooltips/tooltip_object.h>
#include <ui_base/views/base_view.h>
#include <ui_base/views/cmds_view_controller.h>

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSpinBox>
#include <QVBoxLayout>
#include <QWindow>

using namespace Vela::UiBase;

namespace {

class PanelCommand : public FlyoutCommand {
  Q_OBJECT
  COMMAND_ID(PanelCommand)

public:
  PanelCommand(QWidget* panel, CmdsViewController* controller) : FlyoutCommand(panel, controller) {
    setText("Smooth");
  }
  bool onExecuteAsync(bool) override { return true; }
};

class Observer : public CommandStateProtocol {
public:
  void commandBegan(CommandBase*) override { ++began; }
  void commandEnded(CommandBase*) override { ++ended; }
  int began = 0;
  int ended = 0;
};

QIcon colored(Qt::GlobalColor color) {
  QPixmap pixmap(32, 32);
  pixmap.fill(color);
  return QIcon(pixmap);
}

QColor shown(const QToolButton& button) { return button.icon().pixmap(32).toImage().pixelColor(16, 16); }

/// A view with a toolbar whose buttons are a plain one, one that opens the flyout of a command, and one that
/// opens a sub-toolbar with a plain button and another flyout.
struct Stage {
  explicit Stage(bool checkable = false, QWidget* simple = nullptr) {
    window.resize(700, 500);
    auto* const column = new QVBoxLayout(&window);
    column->addWidget(field = new QLineEdit);
    column->addWidget(view = new BaseView, 1);
    controller = new CmdsViewController(view);
    bar = new ToolBar(view, Qt::TopToolBarArea);
    plain = bar->AddAction(new QAction(colored(Qt::gray), "Plain", view));

    flyout = new FlyoutBase("Smooth", new QSpinBox, nullptr, true, true, true, true, view);
    command = new PanelCommand(simple ? simple : flyout.data(), controller);
    command->setCheckable(checkable);
    command->addObserver(observer, false);
    controller->addCommand(command);
    button = bar->AddAction(command, simple ? simple : flyout.data());

    subBar = new ToolBar(view, Qt::LeftToolBarArea);
    subBar->SetHideOnClick(true);
    subPlain = subBar->AddAction(new QAction(colored(Qt::blue), "Inner", view));
    subFlyout = new FlyoutBase("Inner flyout", new QSpinBox, nullptr, true, true, true, true, view);
    auto* const subAction = new QAction(colored(Qt::green), "Inner flyout", view);
    subButton = subBar->AddAction(subAction, subFlyout);
    menuButton = bar->AddAction(nullptr, colored(Qt::red), subBar, true, "Menu");
    menuButton->setCheckable(true);

    window.show();
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window))
      qFatal("the window does not become active");
    bar->ShowMe();
    field->setFocus();
    Vela::Test::settle();
  }
  void click(QWidget* target) {
    const QPoint point = target->mapTo(&window, target->rect().center());
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, point);
    Vela::Test::settle(); // as between a user's press and release
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, point);
  }
  void key(Qt::Key key) { QTest::keyClick(window.windowHandle(), key); }
  void clickIn(QWidget* panel, const QString& name) {
    const auto buttons = panel->findChildren<QAbstractButton*>();
    for (QAbstractButton* const each : buttons) {
      if (each->text() == name || each->accessibleName() == name)
        return click(each);
    }
    qFatal("no such button");
  }

  QWidget window;
  QLineEdit* field;
  BaseView* view;
  CmdsViewController* controller;
  QPointer<ToolBar> bar;
  ToolButton* plain;
  QPointer<FlyoutBase> flyout;
  PanelCommand* command;
  std::shared_ptr<Observer> observer = std::make_shared<Observer>();
  QPointer<ToolButtonWithWidgetMenu> button;
  QPointer<ToolBar> subBar;
  ToolButton* subPlain;
  QPointer<FlyoutBase> subFlyout;
  QPointer<ToolButtonWithWidgetMenu> subButton;
  QPointer<ToolButtonWithButtonMenu> menuButton;
};

} // namespace

class ToolButtonMenusTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void arrowPointsToTheMenu_data();
  void arrowPointsToTheMenu();
  void menuIsAnnouncedOnceHoweverItCloses_data();
  void menuIsAnnouncedOnceHoweverItCloses();
  void flyoutAndCommandOpenAndCloseTogether_data();
  void flyoutAndCommandOpenAndCloseTogether();
  void simpleFlyoutIsHosted_data();
  void simpleFlyoutIsHosted();
  void menuFollowsItsButton();
  void replacedFlyoutGoesHome();
  void buttonStandsInForTheExtendedOne_data();
  void buttonStandsInForTheExtendedOne();
  void keyboardGoesInAndComesBack();
  void assistiveTechnologyHearsOfTheMenu();
  void commandThatCannotOpenItsFlyoutEnds();
  void anythingMayGoWhileAMenuIsOpen_data();
  void anythingMayGoWhileAMenuIsOpen();
};

void ToolButtonMenusTest::arrowPointsToTheMenu_data() {
  QTest::addColumn<int>("direction");
  QTest::addColumn<bool>("open");
  QTest::addColumn<Qt::LayoutDirection>("layout");
  QTest::addColumn<QPolygon>("corners");
  const QPolygon left{QPoint(-3, -2), QPoint(-3, -7), QPoint(-6, -4)};
  const QPolygon up{QPoint(-8, -2), QPoint(-3, -2), QPoint(-5, -5)};
  const QPolygon right{QPoint(-6, -2), QPoint(-6, -7), QPoint(-3, -4)};
  const QPolygon down{QPoint(-8, -5), QPoint(-3, -5), QPoint(-5, -2)};
  const QList<QPolygon> closed{left, up, right, down, down};
  const QList<QPolygon> open{right, down, left, up, down};
  for (int i = 0; i < 5; ++i) {
    QTest::addRow("%d", i) << i << false << Qt::LeftToRight << closed[i];
    QTest::addRow("%d, open", i) << i << true << Qt::LeftToRight << open[i];
  }
  QTest::addRow("left, mirrored") << 0 << false << Qt::RightToLeft << left.translated(-40 + 9, 0);
  QTest::addRow("down, mirrored") << 3 << false << Qt::RightToLeft << down.translated(-40 + 11, 0);
}

void ToolButtonMenusTest::arrowPointsToTheMenu() {
  QFETCH(int, direction);
  QFETCH(bool, open);
  QFETCH(Qt::LayoutDirection, layout);
  QFETCH(QPolygon, corners);
  const QPainterPath path = toolButtonArrow(QRect(100, 0, 41, 30), EDirection(direction), open, layout);
  QPolygonF expected = QPolygonF(corners.translated(140, 29));
  expected << expected.constFirst();
  QCOMPARE(path.toSubpathPolygons(), QList<QPolygonF>{expected});
}

void ToolButtonMenusTest::menuIsAnnouncedOnceHoweverItCloses_data() {
  QTest::addColumn<QString>("end");
  for (const char* end :
       {"click", "plain click", "sub click", "outside", "escape", "hide", "hide menu", "bar"})
    QTest::newRow(end) << end;
}

void ToolButtonMenusTest::menuIsAnnouncedOnceHoweverItCloses() {
  QFETCH(QString, end);
  Stage stage;
  QSignalSpy fromBar(stage.bar, &ToolBar::ButtonMenuVisibilityChange);
  for (int round = 0; round < 2; ++round) {
    stage.bar->ShowMe();
    stage.click(stage.menuButton);
    QVERIFY(stage.menuButton->IsMenuShowing() && stage.menuButton->isChecked());
    QVERIFY(!stage.menuButton->GetTooltipObject()->IsTooltipEnabled());
    stage.menuButton->ShowMenu(); // places it anew
    QCOMPARE(fromBar.count(), 1);
    QVERIFY(fromBar.takeFirst().at(1).toBool());
    if (end == "click")
      stage.click(stage.menuButton);
    else if (end == "plain click")
      stage.click(stage.plain);
    else if (end == "sub click")
      stage.click(stage.subPlain);
    else if (end == "outside")
      stage.click(stage.field);
    else if (end == "escape") {
      stage.menuButton->setFocus();
      stage.key(Qt::Key_Escape);
    } else if (end == "hide")
      stage.subBar->hide();
    else if (end == "hide menu")
      stage.menuButton->HideMenu();
    else
      stage.bar->HideMe(false);
    QVERIFY(!stage.subBar->isVisible() && !stage.menuButton->isChecked());
    QVERIFY(stage.menuButton->GetTooltipObject()->IsTooltipEnabled());
    stage.menuButton->HideMenu();
    QCOMPARE(fromBar.count(), 1);
    QVERIFY(!fromBar.takeFirst().at(1).toBool());
  }
}

void ToolButtonMenusTest::flyoutAndCommandOpenAndCloseTogether_data() {
  QTest::addColumn<bool>("checkable");
  QTest::addColumn<QString>("start");
  QTest::addColumn<QString>("end");
  for (const bool checkable : {false, true}) {
    for (const QString start : {"click", "shortcut"}) {
      for (const QString end : {"click", "Close", "Cancel", "escape", "outside", "plain click", "exit",
                                "hide menu", "hide window", "signal", "shortcut"}) {
        if (checkable || end != "shortcut") // which begins again
          QTest::addRow("%s, %s to %s", checkable ? "checkable" : "plain", qPrintable(start), qPrintable(end))
              << checkable << start << end;
      }
    }
  }
}

void ToolButtonMenusTest::flyoutAndCommandOpenAndCloseTogether() {
  QFETCH(bool, checkable);
  QFETCH(QString, start);
  QFETCH(QString, end);
  Stage stage(checkable);
  QSignalSpy visibility(stage.button, &ToolButtonWithMenu::ButtonMenuVisibilityChange);
  QSignalSpy closed(stage.flyout, &FlyoutBase::CloseFlyout);
  for (int round = 1; round <= 2; ++round) {
    if (start == "click")
      stage.click(stage.button);
    else
      stage.command->trigger();
    Vela::Test::settle();
    QVERIFY(stage.flyout->isVisible() && stage.command->isActive());
    QCOMPARE(stage.button->isChecked(), checkable);
    QCOMPARE(stage.bar->GetActiveButton(), stage.button.data());
    QCOMPARE(visibility.count(), 1);
    if (end == "click")
      stage.click(stage.button);
    else if (end == "escape")
      stage.key(Qt::Key_Escape);
    else if (end == "outside")
      stage.click(stage.field);
    else if (end == "plain click")
      stage.click(stage.plain);
    else if (end == "exit")
      stage.command->onExitCommand();
    else if (end == "hide menu")
      stage.button->HideMenu();
    else if (end == "hide window")
      stage.button->GetArrowedWindow()->hide();
    else if (end == "signal")
      Q_EMIT stage.button->CloseFlyout();
    else if (end == "shortcut")
      stage.command->trigger();
    else
      stage.clickIn(stage.flyout, end);
    Vela::Test::settle();
    QVERIFY(!stage.flyout->isVisible() && !stage.button->GetArrowedWindow()->isVisible());
    QVERIFY(!stage.command->isActive() && !stage.button->isChecked() && !stage.command->isChecked());
    QVERIFY(!stage.bar->GetActiveButton());
    QCOMPARE(stage.observer->began, round);
    QCOMPARE(stage.observer->ended, round);
    QCOMPARE(closed.count(), round);
    QCOMPARE(visibility.count(), 2);
    visibility.clear();
    QVERIFY(stage.field->hasFocus());
  }
}

void ToolButtonMenusTest::simpleFlyoutIsHosted_data() {
  QTest::addColumn<QString>("start");
  QTest::addColumn<QString>("end");
  for (const QString start : {"click", "shortcut"}) {
    for (const QString end : {"click", "outside", "exit", "hide panel", "hide menu"})
      QTest::addRow("%s to %s", qPrintable(start), qPrintable(end)) << start << end;
  }
}

void ToolButtonMenusTest::simpleFlyoutIsHosted() {
  QFETCH(QString, start);
  QFETCH(QString, end);
  QSpinBox panel;
  Stage stage(false, &panel);
  QSignalSpy visibility(stage.button, &ToolButtonWithMenu::ButtonMenuVisibilityChange);
  for (int round = 1; round <= 2; ++round) {
    if (start == "click")
      stage.click(stage.button);
    else
      stage.command->trigger();
    QVERIFY(panel.isVisible() && stage.button->GetArrowedWindow()->isAncestorOf(&panel));
    if (end == "click")
      stage.click(stage.button);
    else if (end == "outside")
      stage.click(stage.field);
    else if (end == "exit")
      stage.command->onExitCommand();
    else if (end == "hide panel")
      panel.hide();
    else
      stage.button->HideMenu();
    QVERIFY(!panel.isVisible() && !stage.command->isActive());
    QCOMPARE(stage.observer->began, round);
    QCOMPARE(stage.observer->ended, round);
    QCOMPARE(visibility.count(), 2 * round);
  }
  delete stage.button;
  QVERIFY(!panel.parentWidget() && panel.isHidden()); // it is on the stack
}

void ToolButtonMenusTest::menuFollowsItsButton() {
  Stage stage;
  stage.menuButton->SetMenuParameters(Bottom, 7, AlignStart);
  stage.click(stage.menuButton);
  const auto gap = [&] {
    return stage.subBar->mapToGlobal(QPoint()) -
           stage.menuButton->mapToGlobal(QPoint(0, stage.menuButton->height()));
  };
  const QPoint distanceOfMenu = gap();
  QVERIFY(distanceOfMenu.x() == 0 && qAbs(distanceOfMenu.y() - 7) <= 1);
  stage.menuButton->move(stage.menuButton->pos() + QPoint(25, 3));
  QCOMPARE(gap(), distanceOfMenu);
  stage.menuButton->HideMenu();

  const SArrowParam arrow{ArrowTop, 10, false, 0, 90, true, 0, {}};
  stage.button->SetMenuParameters(false, arrow, Bottom, 7, AlignCenter);
  stage.click(stage.button);
  const ArrowedWindow* const window = stage.button->GetArrowedWindow();
  const auto tip = [&] {
    const QRect rect = stage.button->rect();
    return window->mapToGlobal(window->GetArrowPoint()).y() -
           stage.button->mapToGlobal(rect.bottomLeft()).y();
  };
  const int distance = tip();
  QVERIFY(distance >= 7 && distance <= 8);
  stage.flyout->findChild<QSpinBox*>()->setMinimumSize(300, 80); // the flyout grows
  QTRY_VERIFY(window->width() > 300);
  Vela::Test::settle();
  QCOMPARE(tip(), distance);
}

void ToolButtonMenusTest::replacedFlyoutGoesHome() {
  Stage stage;
  stage.click(stage.button);
  auto* const next = new FlyoutBase("Next", nullptr, nullptr, true, true, true, true, stage.view);
  stage.button->SetMenu(next);
  QVERIFY(!stage.command->isActive() && !stage.flyout->isVisible());
  QCOMPARE(stage.flyout->parentWidget(), stage.view);
  QVERIFY(!stage.flyout->ToolButton());
  QCOMPARE(next->ToolButton(), stage.button);
  QSignalSpy escape(stage.flyout, &FlyoutBase::ESCKeyReleased);
  Q_EMIT stage.button->ESCKeyReleased();
  QCOMPARE(escape.count(), 0);
  stage.button->ShowMenu();
  Q_EMIT stage.flyout->CloseFlyout();
  Q_EMIT stage.flyout->CancelChanges();
  QVERIFY(next->isVisible());
  Q_EMIT next->CloseFlyout();
  QVERIFY(!next->isVisible());
}

void ToolButtonMenusTest::buttonStandsInForTheExtendedOne_data() {
  QTest::addColumn<QString>("end");
  for (const char* end :
       {"click", "Close", "escape", "outside", "off", "sub-button", "flyout", "menu", "other menu"})
    QTest::newRow(end) << end;
}

void ToolButtonMenusTest::buttonStandsInForTheExtendedOne() {
  QFETCH(QString, end);
  Stage stage;
  stage.menuButton->SetExtendMode(true);
  QCOMPARE(stage.subButton->ExtendController(), stage.menuButton.data());
  QSignalSpy cleared(stage.menuButton, &ToolButtonWithButtonMenu::ButtonMenuCleared);
  stage.click(stage.menuButton);
  stage.click(stage.subButton);
  QVERIFY(stage.menuButton->IsInExtendMode() && stage.menuButton->isChecked());
  QCOMPARE(stage.menuButton->ExtendedButton(), stage.subButton.data());
  QCOMPARE(stage.bar->GetActiveButton(), stage.subButton.data());
  QVERIFY(stage.subFlyout->isVisible() && !stage.subBar->isVisible());
  QCOMPARE(shown(*stage.menuButton), QColor(Qt::green));
  QVERIFY(stage.plain->IsLocked() && stage.button->IsLocked() && !stage.menuButton->IsLocked());
  stage.plain->click();
  QVERIFY(stage.subFlyout->isVisible());
  if (end == "click") {
    stage.menuButton->setFocus();
    stage.key(Qt::Key_Space);
  } else if (end == "Close")
    stage.clickIn(stage.subFlyout, "Close");
  else if (end == "escape")
    stage.key(Qt::Key_Escape);
  else if (end == "outside")
    stage.click(stage.field);
  else if (end == "off")
    stage.menuButton->SetExtendMode(false);
  else if (end == "sub-button")
    delete stage.subButton;
  else if (end == "flyout")
    delete stage.subFlyout;
  else if (end == "menu")
    delete stage.subBar;
  else
    stage.menuButton->SetMenu(nullptr);
  Vela::Test::settle();
  QVERIFY(!stage.menuButton->IsInExtendMode() && !stage.menuButton->isChecked());
  QVERIFY(!stage.menuButton->ExtendedButton() && !stage.bar->GetActiveButton());
  QVERIFY(!stage.subFlyout || !stage.subFlyout->isVisible());
  QCOMPARE(shown(*stage.menuButton), QColor(Qt::red));
  QVERIFY(!stage.plain->IsLocked() && !stage.button->IsLocked());
  QCOMPARE(cleared.count(), 1);
}

void ToolButtonMenusTest::keyboardGoesInAndComesBack() {
  Stage stage;
  stage.menuButton->setFocus();
  stage.key(Qt::Key_Space);
  QVERIFY(stage.subPlain->hasFocus());
  stage.key(Qt::Key_Escape);
  QVERIFY(stage.menuButton->hasFocus() && !stage.subBar->isVisible());
  stage.button->setFocus();
  stage.key(Qt::Key_Space);
  QVERIFY(stage.flyout->isAncestorOf(QApplication::focusWidget()));
  stage.key(Qt::Key_Escape);
  QVERIFY(stage.button->hasFocus() && !stage.flyout->isVisible());
}

void ToolButtonMenusTest::assistiveTechnologyHearsOfTheMenu() {
  Stage stage;
  QAccessibleInterface* const button = QAccessible::queryAccessibleInterface(stage.menuButton);
  QCOMPARE(button->role(), QAccessible::ButtonMenu);
  QCOMPARE(button->text(QAccessible::Name), QString("Menu"));
  QVERIFY(button->state().hasPopup && button->state().collapsed && !button->state().expanded);
  button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  QVERIFY(stage.menuButton->IsMenuShowing() && button->state().expanded && button->state().checked);
  QCOMPARE(QAccessible::queryAccessibleInterface(stage.button)->text(QAccessible::Name), QString("Smooth"));
}

void ToolButtonMenusTest::commandThatCannotOpenItsFlyoutEnds() {
  Stage stage;
  stage.button->SetLocked(true); // as while another one is extended
  stage.command->trigger();
  QTRY_COMPARE(stage.observer->ended, 1);
  QVERIFY(!stage.flyout->isVisible() && stage.controller->contextStack().isEmpty());
  stage.button->SetLocked(false);
  stage.command->trigger();
  stage.command->onFinalize(); // before the button is told
  Vela::Test::settle();
  QVERIFY(!stage.flyout->isVisible());
}

void ToolButtonMenusTest::anythingMayGoWhileAMenuIsOpen_data() {
  QTest::addColumn<QString>("open");
  QTest::addColumn<QString>("first");
  for (const QString open : {"flyout", "sub-toolbar", "extended"}) {
    for (const QString first : {"command", "flyout", "sub flyout", "sub-toolbar", "bar", "button",
                                "menu button", "sub-button", "view", "window of the menu"})
      QTest::addRow("%s, %s", qPrintable(open), qPrintable(first)) << open << first;
  }
}

void ToolButtonMenusTest::anythingMayGoWhileAMenuIsOpen() {
  QFETCH(QString, open);
  QFETCH(QString, first);
  Stage stage;
  stage.menuButton->SetExtendMode(open == "extended");
  stage.click(open == "flyout" ? static_cast<QWidget*>(stage.button) : stage.menuButton);
  if (open == "extended")
    stage.click(stage.subButton);
  const bool commandLives = first != "command" && first != "view";
  if (first == "command")
    stage.controller->removeCommand(stage.command);
  else if (first == "flyout")
    delete stage.flyout;
  else if (first == "sub flyout")
    delete stage.subFlyout;
  else if (first == "sub-toolbar")
    delete stage.subBar;
  else if (first == "bar")
    delete stage.bar;
  else if (first == "button")
    delete stage.button;
  else if (first == "menu button")
    delete stage.menuButton;
  else if (first == "sub-button")
    delete stage.subButton;
  else if (first == "view")
    delete stage.view;
  else
    delete stage.button->GetArrowedWindow();
  Vela::Test::settle();
  if (commandLives) {
    const bool stillOpen = open == "flyout" && (first == "sub flyout" || first == "sub-toolbar" ||
                                                first == "menu button" || first == "sub-button");
    QCOMPARE(stage.observer->began, open == "flyout" ? 1 : 0);
    QCOMPARE(stage.observer->ended, open == "flyout" && !stillOpen ? 1 : 0);
  }
  // What was handed in is nobody else's to delete, and what is left works.
  QCOMPARE(stage.flyout.isNull(), first == "flyout" || first == "view");
  QCOMPARE(stage.subFlyout.isNull(), first == "sub flyout" || first == "view");
  QCOMPARE(stage.subBar.isNull(), first == "sub-toolbar" || first == "view");
  for (ToolButtonWithMenu* const each :
       {static_cast<ToolButtonWithMenu*>(stage.button), static_cast<ToolButtonWithMenu*>(stage.menuButton)}) {
    if (!each)
      continue;
    each->HideMenu();
    each->click();
    Vela::Test::settle();
  }
}

VELA_TEST_MAIN(ToolButtonMenusTest)
#include "tool_button_menus_test.moc"
