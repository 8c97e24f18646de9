// SPDX-License-Identifier: MIT
#include "menu_fixture.h"

#include <support/screen_record.h>

#include <QScreen>

using namespace Vela::UiBase;

/// How a menu bar is used, with the mouse and with the keyboard.
class MenuBarTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void aNarrowBarHasTheRestInAMenu() {
    Screen screen;
    screen.window.setLayoutDirection(Qt::RightToLeft);
    QVERIFY(screen.isReady());
    const QWidget* const bar = screen.builder->MenuBar();
    auto* const more = bar->findChild<QToolButton*>(id("overflow"));
    QVERIFY(!more->isVisible());
    screen.window.resize(100, 200);
    QTRY_VERIFY(more->isVisible());
    QVERIFY(bar->rect().contains(more->geometry()) && bar->rect().contains(screen.item("file")->geometry()));
    QVERIFY(!bar->rect().intersects(screen.item("edit")->geometry()));
    VELA_COMPARE_SCREEN("narrow_menu_bar");
    screen.key(Qt::Key_F10);
    screen.key(Qt::Key_End);
    QVERIFY(more->hasFocus());
    screen.key(Qt::Key_Down);
    QTest::keyClick(more->menu()->windowHandle(), Qt::Key_H);
    QCOMPARE(screen.receiver.calls, QStringList{id("open")});
    screen.alt(Qt::Key_E);
    QTRY_VERIFY2(more->menu()->isVisible() && screen.menu("edit")->isVisible(), "a mnemonic opens it there");
    QTest::keyClick(screen.menu("edit")->windowHandle(), Qt::Key_Escape);
    QTest::keyClick(more->menu()->windowHandle(), Qt::Key_Escape);
    screen.window.resize(400, 200);
    QTRY_VERIFY(!more->isVisible());
    screen.click("edit");
    QVERIFY(screen.isOnlyOpen("edit"));
  }

  void theMouseOpensMovesAlongAndCloses() {
    Screen screen;
    QVERIFY(screen.isReady());
    screen.click("file");
    QVERIFY(screen.isOnlyOpen("file"));
    QToolButton* const file = screen.item("file");
    QCOMPARE(screen.menu("file")->pos(), file->mapToGlobal(QPoint(0, file->height())));
    QVERIFY(!screen.builder->CanHide());
    screen.moveTo("edit");
    QVERIFY(screen.isOnlyOpen("edit"));
    QVERIFY(screen.item("edit")->isDown() && !file->isDown());
    screen.click("edit");
    QVERIFY2(screen.isOnlyOpen(""), "a second click on the open item closes");
    QVERIFY(screen.edit->hasFocus() && screen.builder->CanHide());

    screen.click("help");
    QCOMPARE(screen.receiver.calls, QStringList{id("open")});
    screen.click("file");
    QMenu* const menu = screen.menu("file");
    const QPoint grid = menu->actionGeometry(screen.builder->FindAction(id("file"), id("&Grid"))).center();
    QTest::mouseMove(menu->windowHandle(), grid);
    QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, {}, grid);
    QCOMPARE(screen.receiver.calls.constLast(), id("grid on"));
    QVERIFY(screen.isOnlyOpen("") && !file->isDown());
  }

  void menusAreInSight() {
    Screen screen;
    screen.window.setLayoutDirection(Qt::RightToLeft);
    QVERIFY(screen.isReady());
    const QRect desktop = screen.window.screen()->availableGeometry();
    const QPoint span(desktop.width(), desktop.height() - 30);
    for (int i = 0; i < 9; ++i) {
      // Its first item may be beyond the edge by half.
      screen.window.move(desktop.topLeft() + QPoint(span.x() * (i % 3) / 2 - 200, span.y() * (i / 3) / 2));
      for (const char* const name : {"file", "edit"}) {
        const QToolButton* const item = screen.item(name);
        const QRect owner(item->mapToGlobal(QPoint()), item->size());
        if (!desktop.contains(owner.center()))
          continue;
        screen.click(name);
        QVERIFY(screen.isOnlyOpen(name) && desktop.contains(screen.menu(name)->geometry()));
        QVERIFY(!screen.menu(name)->geometry().intersects(owner));
        screen.click(name);
      }
    }
  }

  void aMenuClosesAfterThePointerLeftIt() {
    Screen screen;
    QVERIFY(screen.isReady());
    screen.builder->SetMenuCloseDelay(20);
    screen.click("file");
    QMenu* const menu = screen.menu("file");
    QTest::mouseMove(menu->windowHandle(), QPoint(5, 5));
    QCursor::setPos(screen.window.mapToGlobal(QPoint(390, 290)));
    QTest::mouseMove(screen.window.windowHandle(), QPoint(390, 290));
    QTRY_VERIFY(!menu->isVisible());
  }

  void theKeyboardAloneReachesEverything() {
    Screen screen;
    QVERIFY(screen.isReady());
    screen.key(Qt::Key_F10);
    QVERIFY(screen.item("file")->hasFocus());
    screen.key(Qt::Key_Left);
    QVERIFY2(screen.item("help")->hasFocus(), "it goes round");
    screen.key(Qt::Key_Return);
    QCOMPARE(screen.receiver.calls, QStringList{id("open")});
    QVERIFY(screen.edit->hasFocus());

    screen.key(Qt::Key_F, Qt::AltModifier);
    QVERIFY(screen.isOnlyOpen("file"));
    QCOMPARE(screen.menu("file")->activeAction()->objectName(), id("open"));
    screen.key(Qt::Key_Right);
    QVERIFY(screen.isOnlyOpen("edit") && screen.item("edit")->hasFocus());
    screen.key(Qt::Key_Left);
    screen.key(Qt::Key_Up);
    screen.key(Qt::Key_Right);
    QTRY_VERIFY(screen.menu("recent")->isVisible());
    VELA_COMPARE_SCREEN("sub_menu");
    screen.key(Qt::Key_Right);
    QVERIFY2(screen.isOnlyOpen("edit"), "from a sub-menu to the next menu");
    screen.key(Qt::Key_Escape);
    QVERIFY(screen.isOnlyOpen("") && screen.item("edit")->hasFocus());
    screen.key(Qt::Key_F);
    QVERIFY2(screen.isOnlyOpen("file"), "in the bar a mnemonic needs no Alt");
    screen.key(Qt::Key_O);
    QCOMPARE(screen.receiver.calls.size(), 2);
    QVERIFY(screen.isOnlyOpen("") && screen.edit->hasFocus());
  }

  void altAloneEntersAndLeavesTheBar() {
    Screen screen;
    QVERIFY(screen.isReady());
    QWindow* const handle = screen.window.windowHandle();
    const auto alt = [&] {
      QTest::keyPress(handle, Qt::Key_Alt, Qt::AltModifier);
      QTest::keyRelease(handle, Qt::Key_Alt);
    };
    alt();
    QVERIFY(screen.item("file")->hasFocus() && !screen.builder->CanHide());
    VELA_COMPARE_SCREEN("focused_menu_bar");
    screen.builder->HideMe();
    QVERIFY(screen.builder->IsMenuVisible());
    alt();
    QVERIFY(screen.edit->hasFocus());
    QTest::keyPress(handle, Qt::Key_Alt, Qt::AltModifier);
    QTest::keyClick(handle, Qt::Key_X, Qt::AltModifier);
    QTest::keyRelease(handle, Qt::Key_Alt);
    QVERIFY2(screen.edit->hasFocus(), "Alt went with another key");
    screen.builder->HideMe();
    alt();
    QVERIFY2(screen.edit->hasFocus(), "there is no bar to go to");
  }

  void itemsThatShareAMnemonicAreChosenFrom() {
    Screen screen;
    QVERIFY(screen.isReady());
    screen.builder->AddMenuBarItem(id("first"), SLOT(open()), QIcon(), id("&First"));
    screen.key(Qt::Key_F, Qt::AltModifier);
    QVERIFY(screen.isOnlyOpen("") && screen.item("file")->hasFocus());
    screen.key(Qt::Key_F);
    QVERIFY(screen.item("first")->hasFocus() && screen.receiver.calls.isEmpty());
    screen.key(Qt::Key_Up);
    QVERIFY2(screen.receiver.calls.isEmpty(), "an arrow does not click");
    screen.key(Qt::Key_Space);
    QCOMPARE(screen.receiver.calls, QStringList{id("open")});
  }
};

VELA_TEST_MAIN(MenuBarTest)
#include "menu_bar_test.moc"
