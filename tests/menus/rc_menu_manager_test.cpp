// SPDX-License-Identifier: MIT
#include <support/rows.h>
#include <support/test_case.h>
#include <ui_base/menus/rc_menu_manager.h>

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
  QPointer<RCMenuManager> end; // another manager, where there is one
};

using Way = std::function<void(Screen&)>;

} // namespace

class RCMenuManagerTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void theStyleIsRestoredHoweverTheMenuCloses_data() {
    const Vela::Test::Rows<Way> row("close");
    row("chosen by mouse", [](Screen& s) {
      const QPoint first = s.toolMenu.actionGeometry(s.toolMenu.actions().first()).center();
      QTest::mouseMove(s.toolMenu.windowHandle(), first);
      QTest::mouseClick(s.toolMenu.windowHandle(), Qt::LeftButton, {}, first);
    });
    row("chosen by keyboard", [](Screen& s) { QTest::keyClick(s.toolMenu.windowHandle(), Qt::Key_S); });
    row("chosen by program", [](Screen& s) { s.toolMenu.actions().constFirst()->trigger(); });
    row("escape", [](Screen& s) { QTest::keyClick(s.toolMenu.windowHandle(), Qt::Key_Escape); });
    row("click outside",
        [](Screen& s) { QTest::mouseClick(s.window.windowHandle(), Qt::LeftButton, {}, QPoint(300, 200)); });
    row("second click", [](Screen& s) { s.click(s.toolButton); });
    row("stop", [](Screen& s) { s.manager.Stop(); });
    row("window resized", [](Screen& s) { s.window.resize(300, 200); });
    row("timer", [](Screen& s) {
      s.manager.SetHideInterval(20);
      s.moveOutside();
    });
    row("button hidden", [](Screen& s) { s.toolButton->hide(); });
    row("button disabled", [](Screen& s) { s.toolButton->setEnabled(false); });
  }
  void theStyleIsRestoredHoweverTheMenuCloses() {
    QFETCH(Way, close);
    Screen screen;
    QVERIFY(screen.isReady());
    screen.manager.SetHideInterval(60000);
    QSignalSpy triggered(&screen.toolMenu, &QMenu::triggered);
    screen.click(screen.toolButton);
    QCOMPARE(screen.toolButton->styleSheet(), ALTERNATE);
    QCOMPARE(screen.toolMenu.pos(), screen.toolButton->mapToGlobal(QPoint(0, 30 + 5)));
    close(screen);
    QTRY_VERIFY(!screen.toolMenu.isVisible());
    QCOMPARE(screen.toolButton->styleSheet(), NORMAL);
    QVERIFY(!screen.toolButton->isDown());
    QCOMPARE(screen.toolMenu.isEnabled(), !screen.manager.IsStarted());
    QCOMPARE(triggered.count(), QByteArray(QTest::currentDataTag()).startsWith("chosen") ? 1 : 0);
  }

  void whatIsLinkedIsFoundOpenedAndReleased() {
    Screen screen;
    RCMenuManager& manager = screen.manager;
    QVERIFY(screen.isReady());
    QCOMPARE(manager.FindButton(QStringLiteral("&Push")), screen.pushButton);
    QVERIFY(!manager.FindButton(QStringLiteral("none")));
    QVERIFY(manager.GetMenu(screen.pushButton) == &screen.pushMenu && !manager.GetMenu(nullptr));
    manager.SetHideInterval(-5);
    QCOMPARE(manager.HideInterval(), 0);
    manager.SetHideInterval(60000);
    for (const bool links : {false, true}) {
      links ? manager.Start() : manager.Stop();
      QCOMPARE(screen.toolButton->popupMode(), links ? QToolButton::InstantPopup : QToolButton::DelayedPopup);
      screen.click(screen.pushButton);
      QVERIFY(screen.pushMenu.isVisible() == links && screen.pushButton->isDown() == links);
    }
    for (const QString& style : {QStringLiteral("color: blue"), QStringLiteral("color: green")}) {
      manager.OpenMenu(screen.toolButton);
      QVERIFY2(screen.toolMenu.isVisible() && !screen.pushMenu.isVisible(), "one at a time");
      QCOMPARE(screen.toolButton->styleSheet(), ALTERNATE);
      screen.toolButton->setStyleSheet(style);
      manager.CloseMenu(screen.toolButton);
      QCOMPARE(screen.toolButton->styleSheet(), style);
    }
    screen.toolMenu.popup(QPoint()); // not by the manager
    QCOMPARE(screen.toolButton->styleSheet(), ALTERNATE);
    screen.toolMenu.close();
    QWindow* const handle = screen.window.windowHandle();
    QTest::mouseClick(handle, Qt::RightButton, {}, screen.toolButton->geometry().center());
    QTest::mousePress(handle, Qt::LeftButton, {}, screen.toolButton->geometry().center());
    QVERIFY(screen.toolButton->isDown());
    QTest::mouseRelease(handle, Qt::LeftButton, {}, QPoint(300, 200));
    screen.toolButton->setFocus();
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Down}) {
      QTest::keyPress(handle, key);
      QCOMPARE(screen.toolMenu.activeAction(), screen.toolMenu.actions().constFirst());
      QTest::keyClick(screen.toolMenu.windowHandle(), Qt::Key_Escape);
    }
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
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(screen.toolButton, &leave);
    QTRY_VERIFY(timeouts.count() >= 3);
    QVERIFY(screen.toolMenu.isVisible());
    screen.moveOutside();
    QTRY_VERIFY(!screen.toolMenu.isVisible());
  }

  void theKeyboardOpensAndKeepsAMenu() {
    Screen screen;
    QVERIFY(screen.isReady());
    screen.moveOutside();
    screen.manager.SetHideInterval(5);
    QTest::keyClick(screen.window.windowHandle(), Qt::Key_P, Qt::AltModifier);
    QVERIFY(screen.pushMenu.isVisible());
    QCOMPARE(screen.pushMenu.activeAction(), screen.pushMenu.actions().constFirst());
    QSignalSpy timeouts(screen.manager.findChild<QTimer*>(), &QTimer::timeout);
    QTRY_VERIFY(timeouts.count() >= 2);
    QVERIFY(screen.pushMenu.isVisible());
  }

  void theManagerMayEndWhileAMenuCloses_data() {
    const Vela::Test::Rows<Way> row("close");
    row("escape", [](Screen& s) { QTest::keyClick(s.toolMenu.windowHandle(), Qt::Key_Escape); });
    row("second click", [](Screen& s) { s.click(s.toolButton); });
    row("other button", [](Screen& s) { s.end->OpenMenu(s.pushButton); });
    row("close", [](Screen& s) { s.end->CloseMenu(s.toolButton); });
    row("timer", [](Screen& s) {
      s.end->SetHideInterval(20);
      s.moveOutside();
    });
  }
  void theManagerMayEndWhileAMenuCloses() {
    QFETCH(Way, close);
    Screen screen;
    screen.end = new RCMenuManager(nullptr, 0, true);
    screen.end->SetHideInterval(60000);
    screen.end->AddButtonMenuLinkage(screen.toolButton, &screen.toolMenu);
    screen.end->AddButtonMenuLinkage(screen.pushButton, &screen.pushMenu);
    screen.manager.Stop();
    screen.end->Start();
    QVERIFY(screen.isReady());
    screen.click(screen.toolButton);
    connect(&screen.toolMenu, &QMenu::aboutToHide, &screen.window, [&] { delete screen.end; });
    close(screen);
    QTRY_VERIFY(!screen.end);
    QVERIFY(!screen.toolMenu.isVisible() && !screen.pushMenu.isVisible());
    QCOMPARE(screen.toolButton->styleSheet(), NORMAL);
  }

  void buttonsAndMenusMayDieWhileOpen() {
    Screen screen(false);
    QVERIFY(screen.isReady());
    auto* const menu = new QMenu;
    menu->addAction(QStringLiteral("Only"));
    screen.manager.AddButtonMenuLinkage(screen.toolButton, menu);
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
