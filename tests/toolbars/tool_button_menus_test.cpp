// SPDX-License-Identifier: MIT
#include "tool_button_fixture.h"

#include <QAccessible>
#include <QApplication>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>

using namespace Vela::UiBase;

namespace {

/// Where it fits at all: in its window or on the screen, and not over its button.
bool isInSight(const QWidget& popup, const QRect& body, const QWidget& button) {
  const QRect owner(button.mapToGlobal(QPoint()), button.size());
  const QScreen* const screen = QGuiApplication::screenAt(owner.center()); // none beyond the edges
  QRect room = popup.screen()->geometry();
  if (!popup.isWindow())
    room = QRect(popup.parentWidget()->mapToGlobal(QPoint()), popup.parentWidget()->size());
  if (screen)
    room &= screen->geometry();
  const QRect seen = body.translated(popup.mapToGlobal(QPoint()));
  return popup.isVisible() && room.contains(seen) && !seen.intersects(owner);
}

using End = Way<MenuStage>;

const End menuEnds[] = {
    {"click", [](MenuStage& stage) { stage.click(stage.menuButton); }},
    {"plain click", [](MenuStage& stage) { stage.click(stage.plain); }},
    {"sub click", [](MenuStage& stage) { stage.click(stage.subPlain); }},
    {"outside", [](MenuStage& stage) { stage.click(stage.field); }},
    {"escape", [](MenuStage& stage) { stage.menuButton->setFocus(), stage.key(Qt::Key_Escape); }},
    {"hide", [](MenuStage& stage) { stage.subBar->hide(); }},
    {"hide menu", [](MenuStage& stage) { stage.menuButton->HideMenu(); }},
    {"bar", [](MenuStage& stage) { stage.bar->HideMe(false); }},
};

const End flyoutEnds[] = {
    {"click", [](MenuStage& stage) { stage.click(stage.button); }},
    {"Close", [](MenuStage& stage) { stage.clickIn(stage.flyout, "Close"); }},
    {"Cancel", [](MenuStage& stage) { stage.clickIn(stage.flyout, "Cancel"); }},
    {"escape", [](MenuStage& stage) { stage.key(Qt::Key_Escape); }},
    {"outside", [](MenuStage& stage) { stage.click(stage.field); }},
    {"plain click", [](MenuStage& stage) { stage.click(stage.plain); }},
    {"exit", [](MenuStage& stage) { stage.command->onExitCommand(); }},
    {"finalize", [](MenuStage& stage) { stage.command->onFinalize(); }},
    {"hide menu", [](MenuStage& stage) { stage.button->HideMenu(); }},
    {"hide window", [](MenuStage& stage) { stage.button->GetArrowedWindow()->hide(); }},
    {"signal", [](MenuStage& stage) { Q_EMIT stage.button->CloseFlyout(); }},
};

const End simpleEnds[] = {
    {"click", [](MenuStage& stage) { stage.click(stage.button); }},
    {"outside", [](MenuStage& stage) { stage.click(stage.field); }},
    {"exit", [](MenuStage& stage) { stage.command->onExitCommand(); }},
    {"hide panel", [](MenuStage& stage) { stage.button->GetMenu()->hide(); }},
    {"hide menu", [](MenuStage& stage) { stage.button->HideMenu(); }},
};

} // namespace

class ToolButtonMenusTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void menuIsAnnouncedOnceHoweverItCloses_data();
  void menuIsAnnouncedOnceHoweverItCloses();
  void flyoutAndCommandOpenAndCloseTogether_data();
  void flyoutAndCommandOpenAndCloseTogether();
  void simpleFlyoutIsHosted_data();
  void simpleFlyoutIsHosted();
  void menuFollowsItsButton();
  void replacedFlyoutGoesHome();
  void keyboardGoesInAndComesBack();
  void assistiveTechnologyHearsOfTheMenu();
  void commandThatCannotOpenItsFlyoutEnds();
  void popupsAreInSight_data();
  void popupsAreInSight();
};

void ToolButtonMenusTest::menuIsAnnouncedOnceHoweverItCloses_data() { addRows(menuEnds); }

void ToolButtonMenusTest::menuIsAnnouncedOnceHoweverItCloses() {
  QFETCH(int, way);
  MenuStage stage;
  QSignalSpy fromBar(stage.bar, &ToolBar::ButtonMenuVisibilityChange);
  for (int round = 0; round < 2; ++round) {
    stage.bar->ShowMe();
    stage.click(stage.menuButton);
    QVERIFY(stage.menuButton->IsMenuShowing() && stage.menuButton->isChecked());
    QVERIFY(!stage.menuButton->GetTooltipObject()->IsTooltipEnabled());
    stage.menuButton->ShowMenu(); // places it anew
    QCOMPARE(fromBar.count(), 1);
    QVERIFY(fromBar.takeFirst().at(1).toBool());
    menuEnds[way].go(stage);
    QVERIFY(!stage.subBar->isVisible() && !stage.menuButton->isChecked());
    QVERIFY(stage.menuButton->GetTooltipObject()->IsTooltipEnabled());
    stage.menuButton->HideMenu();
    QCOMPARE(fromBar.count(), 1);
    QVERIFY(!fromBar.takeFirst().at(1).toBool());
  }
}

void ToolButtonMenusTest::flyoutAndCommandOpenAndCloseTogether_data() {
  QTest::addColumn<bool>("checkable");
  QTest::addColumn<bool>("shortcut");
  QTest::addColumn<int>("way");
  for (const bool checkable : {false, true}) {
    for (const bool shortcut : {false, true}) {
      for (int i = 0; i < int(std::size(flyoutEnds)); ++i)
        QTest::addRow("%d%d, %s", checkable, shortcut, flyoutEnds[i].name) << checkable << shortcut << i;
    }
  }
}

void ToolButtonMenusTest::flyoutAndCommandOpenAndCloseTogether() {
  QFETCH(bool, checkable);
  QFETCH(bool, shortcut);
  QFETCH(int, way);
  MenuStage stage(checkable);
  QSignalSpy visibility(stage.button, &ToolButtonWithMenu::ButtonMenuVisibilityChange);
  QSignalSpy closed(stage.flyout, &FlyoutBase::CloseFlyout);
  for (int round = 1; round <= 2; ++round) {
    shortcut ? stage.command->trigger() : stage.click(stage.button);
    Vela::Test::settle();
    QVERIFY(stage.flyout->isVisible() && stage.command->isActive());
    QCOMPARE(stage.button->isChecked(), checkable);
    QCOMPARE(stage.bar->GetActiveButton(), stage.button.data());
    QCOMPARE(visibility.count(), 1);
    flyoutEnds[way].go(stage);
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

void ToolButtonMenusTest::simpleFlyoutIsHosted_data() { addRows(simpleEnds); }

void ToolButtonMenusTest::simpleFlyoutIsHosted() {
  QFETCH(int, way);
  QSpinBox panel;
  MenuStage stage(false, &panel);
  for (int round = 1; round <= 2; ++round) {
    round == 1 ? stage.click(stage.button) : stage.command->trigger();
    QVERIFY(panel.isVisible() && stage.button->GetArrowedWindow()->isAncestorOf(&panel));
    simpleEnds[way].go(stage);
    QVERIFY(!panel.isVisible() && !stage.command->isActive());
    QCOMPARE(stage.observer->began, round);
    QCOMPARE(stage.observer->ended, round);
  }
  delete stage.button;
  QVERIFY(!panel.parentWidget() && panel.isHidden()); // it is on the stack
}

void ToolButtonMenusTest::menuFollowsItsButton() {
  MenuStage stage;
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
  MenuStage stage;
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

void ToolButtonMenusTest::keyboardGoesInAndComesBack() {
  MenuStage stage;
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
  MenuStage stage;
  QAccessibleInterface* const button = QAccessible::queryAccessibleInterface(stage.menuButton);
  QCOMPARE(button->role(), QAccessible::ButtonMenu);
  QCOMPARE(button->text(QAccessible::Name), QString("Menu"));
  QVERIFY(button->state().hasPopup && button->state().collapsed && !button->state().expanded);
  button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  QVERIFY(stage.menuButton->IsMenuShowing() && button->state().expanded && button->state().checked);
  QCOMPARE(QAccessible::queryAccessibleInterface(stage.button)->text(QAccessible::Name), QString("Smooth"));
}

void ToolButtonMenusTest::commandThatCannotOpenItsFlyoutEnds() {
  MenuStage stage;
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

void ToolButtonMenusTest::popupsAreInSight_data() {
  QTest::addColumn<Qt::ToolBarArea>("area");
  QTest::addColumn<Qt::LayoutDirection>("direction");
  QTest::addColumn<QSize>("size");
  for (const auto area :
       {Qt::LeftToolBarArea, Qt::RightToolBarArea, Qt::TopToolBarArea, Qt::BottomToolBarArea}) {
    for (const QSize& size : {QSize(90, 40), QSize(300, 200), QSize(640, 480), QSize(3840, 2160)}) {
      const bool both = size.width() == 300;
      for (int direction = Qt::LeftToRight; direction <= (both ? Qt::RightToLeft : Qt::LeftToRight);
           ++direction)
        QTest::addRow("%d, %d, %d x %d", int(area), direction, size.width(), size.height())
            << area << Qt::LayoutDirection(direction) << size;
    }
  }
}

// Wherever a bar is along its edge, its sub-toolbar, flyout and tooltip are seen, beside their button.
void ToolButtonMenusTest::popupsAreInSight() {
  QFETCH(Qt::ToolBarArea, area);
  QFETCH(Qt::LayoutDirection, direction);
  QFETCH(QSize, size);
  QWidget window;
  window.setLayoutDirection(direction);
  window.resize(size);
  ToolBar bar(&window, area);
  auto* const panel = new QWidget;
  auto* const column = new QVBoxLayout(panel);
  for (int i = 0; i < 18; ++i)
    column->addWidget(new QSpinBox);
  FlyoutBase flyout("Many", panel, nullptr, true, true, true, true, &window);
  const QIcon icon = coloredIcon(Qt::red);
  ToolButtonWithWidgetMenu* const button = bar.AddAction(new QAction(icon, "Many", &bar), &flyout);
  button->Action()->setToolTip(QStringLiteral("What there is to say of it needs room. ").repeated(2));
  ToolBar sub(&window, bar.Orientation() == Qt::Horizontal ? Qt::LeftToolBarArea : Qt::TopToolBarArea);
  for (int i = 0; i < 4; ++i)
    sub.AddAction(new QAction(icon, "Inner", &bar));
  ToolButtonWithButtonMenu* const menuButton = bar.AddAction(nullptr, icon, &sub, true, "Menu");
  window.show();
  window.activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(&window));
  bar.ShowMe();
  const QPoint end = QPoint(size.width() - bar.width(), size.height() - bar.height());
  for (const double part : {0.0, 0.5, 1.0}) {
    const QPoint along = (end * part);
    bar.SetPos(bar.Orientation() == Qt::Horizontal ? QPoint(along.x(), bar.y()) : QPoint(bar.x(), along.y()));
    menuButton->ShowMenu();
    Vela::Test::settle();
    QVERIFY2(isInSight(sub, sub.rect(), *menuButton), "sub-toolbar");
    menuButton->HideMenu();
    button->click();
    Vela::Test::settle();
    const ArrowedWindow* const popup = button->GetArrowedWindow();
    QVERIFY2(isInSight(*popup, popup->GetBounds(), *button), "flyout");
    for (const QPushButton* const each : flyout.findChildren<QPushButton*>())
      QVERIFY(flyout.rect().contains(QRect(each->mapTo(&flyout, QPoint()), each->size())));
    button->HideMenu();
    button->GetTooltipObject()->ShowTooltip();
    const ArrowedWindow* const tooltip = button->GetTooltipObject()->GetArrowedWindow();
    QVERIFY2(isInSight(*tooltip, tooltip->GetBounds(), *button), "tooltip");
    button->GetTooltipObject()->HideTooltip();
  }
  button->SetMenu(nullptr);
  QVERIFY2(flyout.sizeHint().height() > 480, "elsewhere it has other room");
  QVERIFY(flyout.parentWidget() == &window && !flyout.isWindow());
  menuButton->SetMenu(nullptr);
  QVERIFY(sub.parentWidget() == &window && !sub.isWindow());
}

VELA_TEST_MAIN(ToolButtonMenusTest)
#include "tool_button_menus_test.moc"
