// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <ui_base/menus/rc_menu_manager.h>

#include <QMainWindow>
#include <QMenu>
#include <QPointingDevice>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTimer>
#include <QToolButton>

using namespace Vela::UiBase;
using Vela::Test::settle;

namespace {

const QString NORMAL = QStringLiteral("color: black");
const QString ALTERNATE = QStringLiteral("color: red");

/// A window with a linked tool button and a push button.
struct Screen {
  explicit Screen(bool autoHide = true) : manager(&window, 5, autoHide) {
    toolButton = add(new QToolButton(&window), toolMenu, 10);
    pushButton = add(new QPushButton(QStringLiteral("&Push"), &window), pushMenu, 150);
    window.setGeometry(100, 100, 400, 300);
    window.show();
    manager.Start();
  }

  template <class Button>
  Button* add(Button* button, QMenu& menu, int x) {
    button->setGeometry(x, 10, 80, 30);
    button->setStyleSheet(NORMAL);
    button->setProperty("AlternateStyle", ALTERNATE);
    menu.addAction(QStringLiteral("&First"));
    menu.addAction(QStringLiteral("&Second"));
    manager.AddButtonMenuLinkage(button, &menu);
    return button;
  }

  bool isReady() { return QTest::qWaitForWindowActive(&window); }
  void click(const QWidget* button) {
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, button->geometry().center());
  }
  void moveOutside() {
    QCursor::setPos(window.mapToGlobal(QPoint(390, 290)));
    QTest::mouseMove(window.windowHandle(), QPoint(390, 290));
    settle();
  }

  QMainWindow window;
  QMenu toolMenu;
  QMenu pushMenu;
  RCMenuManager manager;
  QToolButton* toolButton;
  QPushButton* pushButton;
};

} // namespace

class RCMenuManagerTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void aClickOpensTheMenuUnderItsButton() {
    Screen screen;
    QVERIFY(screen.isReady());
    screen.click(screen.pushButton);
    QVERIFY(screen.pushMenu.isVisible() && screen.pushMenu.isEnabled());
    QCOMPARE(screen.pushMenu.pos(), screen.pushButton->mapToGlobal(QPoint(0, 30 + 5)));
    QCOMPARE(screen.pushButton->styleSheet(), ALTERNATE);
    screen.click(screen.pushButton);
    QVERIFY2(!screen.pushMenu.isVisible(), "the second click closes it and does not open it again");
    QCOMPARE(screen.pushButton->styleSheet(), NORMAL);
    QCOMPARE(screen.manager.FindButton(QStringLiteral("&Push")), screen.pushButton);
    QCOMPARE(screen.manager.GetMenu(screen.toolButton), &screen.toolMenu);
    QVERIFY(!screen.manager.FindButton(QStringLiteral("none")) && !screen.manager.GetMenu(nullptr));
  }

  void aMenuThatHasNoRoomBelowOpensAbove() {
    Screen screen;
    QVERIFY(screen.isReady());
    const QRect desktop = screen.window.screen()->availableGeometry();
    screen.window.move(100, desktop.bottom() - 60);
    connect(&screen.toolMenu, &QMenu::aboutToShow, &screen.toolMenu,
            [&] { screen.toolMenu.addAction(QStringLiteral("&Third")); });
    screen.click(screen.toolButton);
    QVERIFY(screen.toolMenu.isVisible());
    const QRect button(screen.toolButton->mapToGlobal(QPoint()), screen.toolButton->size());
    QVERIFY(std::abs(button.top() - screen.toolMenu.geometry().bottom() - 5) <= 2);
    QVERIFY(desktop.contains(screen.toolMenu.geometry()));
  }

  void theStyleIsRestoredHoweverTheMenuCloses_data() {
    QTest::addColumn<bool>("unused");
    for (const char* const way :
         {"chosen by mouse", "chosen by keyboard", "escape", "click outside", "hidden", "stop",
          "window resized", "timer", "button hidden", "button disabled"})
      QTest::newRow(way) << true;
  }
  void theStyleIsRestoredHoweverTheMenuCloses() {
    const QByteArray way = QTest::currentDataTag();
    Screen screen;
    QVERIFY(screen.isReady());
    screen.manager.SetHideInterval(way == "timer" ? 20 : 60000);
    QSignalSpy chosen(&screen.toolMenu, &QMenu::triggered);
    screen.click(screen.toolButton);
    QCOMPARE(screen.toolButton->styleSheet(), ALTERNATE);
    QWindow* const menu = screen.toolMenu.windowHandle();
    if (way == "chosen by mouse") {
      const QPoint at = screen.toolMenu.actionGeometry(screen.toolMenu.actions().constFirst()).center();
      QTest::mouseMove(menu, at);
      QTest::mouseClick(menu, Qt::LeftButton, {}, at);
    } else if (way == "chosen by keyboard") {
      QTest::keyClick(menu, Qt::Key_S);
    } else if (way == "escape") {
      QTest::keyClick(menu, Qt::Key_Escape);
    } else if (way == "click outside") {
      QTest::mouseClick(screen.window.windowHandle(), Qt::LeftButton, {}, QPoint(300, 200));
    } else if (way == "hidden") {
      screen.toolMenu.hide();
    } else if (way == "stop") {
      screen.manager.Stop();
    } else if (way == "window resized") {
      screen.window.resize(300, 200);
    } else if (way == "button hidden") {
      screen.toolButton->hide();
    } else if (way == "button disabled") {
      screen.toolButton->setEnabled(false);
    } else {
      screen.moveOutside();
    }
    QTRY_VERIFY(!screen.toolMenu.isVisible());
    QCOMPARE(screen.toolButton->styleSheet(), NORMAL);
    QVERIFY(!screen.toolButton->isDown());
    QCOMPARE(screen.toolMenu.isEnabled(), way == "stop");
    QCOMPARE(chosen.count(), way.startsWith("chosen") ? 1 : 0);
  }

  void aButtonThatIsDressedAnewKeepsItsNewLook() {
    Screen screen;
    QVERIFY(screen.isReady());
    for (const bool open : {false, true}) {
      const QString look = open ? QStringLiteral("color: green") : QStringLiteral("color: blue");
      if (open)
        screen.click(screen.toolButton);
      screen.toolButton->setStyleSheet(look);
      if (!open)
        screen.click(screen.toolButton);
      QVERIFY(screen.toolMenu.isVisible());
      screen.click(screen.toolButton);
      QCOMPARE(screen.toolButton->styleSheet(), look);
    }
  }

  void aMenuOpenedByTouchStays() {
    Screen screen;
    QVERIFY(screen.isReady());
    screen.moveOutside();
    screen.manager.SetHideInterval(5);
    const std::unique_ptr<QPointingDevice> device(QTest::createTouchDevice());
    const QPoint at = screen.toolButton->geometry().center();
    QTest::touchEvent(screen.window.windowHandle(), device.get()).press(0, at);
    QTest::touchEvent(screen.window.windowHandle(), device.get()).release(0, at);
    QTRY_VERIFY(screen.toolMenu.isVisible());
    QSignalSpy timeouts(screen.manager.findChild<QTimer*>(), &QTimer::timeout);
    QTRY_VERIFY(timeouts.count() >= 2);
    QVERIFY(screen.toolMenu.isVisible());
  }

  void aMenuStaysWhileThePointerIsInside() {
    Screen screen;
    QVERIFY(screen.isReady());
    screen.manager.SetHideInterval(10);
    screen.click(screen.toolButton);
    QCursor::setPos(screen.toolMenu.mapToGlobal(QPoint(5, 5)));
    settle();
    QSignalSpy timeouts(screen.manager.findChild<QTimer*>(), &QTimer::timeout);
    // As after a leave event that a window system sends though the pointer is inside.
    screen.manager.findChild<QTimer*>()->start();
    QTRY_VERIFY(timeouts.count() >= 3);
    QVERIFY(screen.toolMenu.isVisible());
    screen.moveOutside();
    QTRY_VERIFY(!screen.toolMenu.isVisible());
  }

  void theKeyboardOpensAndKeepsAMenu_data() {
    QTest::addColumn<int>("key");
    QTest::newRow("space") << int(Qt::Key_Space);
    QTest::newRow("return") << int(Qt::Key_Return);
    QTest::newRow("down") << int(Qt::Key_Down);
    QTest::newRow("mnemonic") << int(Qt::Key_P);
  }
  void theKeyboardOpensAndKeepsAMenu() {
    QFETCH(int, key);
    Screen screen;
    QVERIFY(screen.isReady());
    screen.moveOutside();
    screen.manager.SetHideInterval(5);
    screen.pushButton->setFocus();
    QTest::keyClick(screen.window.windowHandle(), Qt::Key(key),
                    key == Qt::Key_P ? Qt::AltModifier : Qt::NoModifier);
    QVERIFY(screen.pushMenu.isVisible());
    QCOMPARE(screen.pushMenu.activeAction(), screen.pushMenu.actions().constFirst());
    QSignalSpy timeouts(screen.manager.findChild<QTimer*>(), &QTimer::timeout);
    QTRY_VERIFY(timeouts.count() >= 2);
    QVERIFY(screen.pushMenu.isVisible());
  }

  void theManagerMayEndWhileAMenuCloses_data() {
    QTest::addColumn<bool>("unused");
    for (const char* const way : {"escape", "second click", "other button", "close", "timer"})
      QTest::newRow(way) << true;
  }
  void theManagerMayEndWhileAMenuCloses() {
    const QByteArray way = QTest::currentDataTag();
    Screen screen;
    auto* const manager = new RCMenuManager(nullptr, 0, true);
    manager->SetHideInterval(way == "timer" ? 20 : 60000);
    const QPointer<RCMenuManager> end = manager;
    manager->AddButtonMenuLinkage(screen.toolButton, &screen.toolMenu);
    manager->AddButtonMenuLinkage(screen.pushButton, &screen.pushMenu);
    screen.manager.Stop();
    manager->Start();
    QVERIFY(screen.isReady());
    screen.click(screen.toolButton);
    connect(&screen.toolMenu, &QMenu::aboutToHide, &screen.window, [&] { delete end; });
    if (way == "escape")
      QTest::keyClick(screen.toolMenu.windowHandle(), Qt::Key_Escape);
    else if (way == "second click")
      screen.click(screen.toolButton);
    else if (way == "other button")
      manager->OpenMenu(screen.pushButton);
    else if (way == "close")
      manager->CloseMenu(screen.toolButton);
    else
      screen.moveOutside();
    QTRY_VERIFY(!end);
    QVERIFY(!screen.toolMenu.isVisible() && !screen.pushMenu.isVisible());
    QCOMPARE(screen.toolButton->styleSheet(), NORMAL);
  }

  void buttonsAndMenusMayDieWhileOpen() {
    Screen screen(false);
    QVERIFY(screen.isReady());
    auto* const menu = new QMenu;
    menu->addAction(QStringLiteral("Only"));
    screen.manager.AddButtonMenuLinkage(screen.toolButton, menu);
    QCOMPARE(screen.manager.GetMenu(screen.toolButton), menu);
    screen.click(screen.toolButton);
    QVERIFY(menu->isVisible());
    delete menu;
    QCOMPARE(screen.toolButton->styleSheet(), NORMAL);
    screen.manager.AddButtonMenuLinkage(screen.toolButton, &screen.toolMenu);
    screen.click(screen.toolButton);
    QVERIFY2(screen.toolMenu.isVisible(), "a button whose menu has died takes another one");
    screen.click(screen.toolButton);
    screen.click(screen.pushButton);
    QVERIFY(screen.pushMenu.isVisible());
    delete screen.pushButton;
    QVERIFY(!screen.pushMenu.isVisible());
    QVERIFY2(screen.pushMenu.isEnabled(), "a menu without its button serves elsewhere");
    screen.manager.AddButtonMenuLinkage(nullptr, &screen.pushMenu);
    screen.manager.OpenMenu(nullptr);
    screen.manager.Stop();
    QVERIFY(!screen.manager.IsStarted() && !screen.toolButton->menu());
  }
};

VELA_TEST_MAIN(RCMenuManagerTest)
#include "rc_menu_manager_test.moc"
