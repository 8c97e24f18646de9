// SPDX-License-Identifier: MIT
#include "menu_fixture.h"

#include <support/rows.h>
#include <support/screen_record.h>

using namespace Vela::UiBase;
using Vela::Test::settle;

/// How a menu bar is used, with the mouse and with the keyboard.
class MenuBarTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void aNarrowBarHasTheRestInAMenu() {
    Screen screen;
    screen.window.setLayoutDirection(Qt::RightToLeft);
    QVERIFY(screen.isReady());
    auto* const more = screen.builder->MenuBar()->findChild<QToolButton*>(id("overflow"));
    QVERIFY(!more->isVisible());
    screen.window.resize(100, 200);
    QTRY_VERIFY(more->isVisible());
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
    screen.alt(Qt::Key_E);
    QVERIFY2(!screen.menu("edit")->testAttribute(Qt::WA_NoMouseReplay), "a press beside it is one there");
    screen.click("edit");

    screen.click("help");
    QCOMPARE(screen.receiver.calls, QStringList{id("open")});
    screen.click("file");
    QMenu* const menu = screen.menu("file");
    const QPoint grid = menu->actionGeometry(screen.builder->FindAction(id("file"), id("&Grid"))).center();
    QTest::mouseMove(menu->windowHandle(), grid);
    QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, {}, grid);
    QCOMPARE(screen.receiver.calls.constLast(), id("grid on"));
    QVERIFY(screen.isOnlyOpen("") && !file->isDown());
    menu->popup(QPoint()); // not by the bar
    QVERIFY(file->isDown());
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
    screen.builder->SetMenuCloseDelay(0);
    screen.click("file");
    QMenu* const menu = screen.menu("file");
    const auto point = [](const QWidget& window, const QPoint& at) {
      QCursor::setPos(window.mapToGlobal(at));
      QTest::mouseMove(window.windowHandle(), at); // a screen that is not there does not tell
    };
    point(*menu, QPoint(5, 5));
    for (const QPoint& at : {screen.center("file"), QPoint(390, 290)}) {
      settle();
      QVERIFY2(menu->isVisible(), "not from the menu to its item");
      point(screen.window, at);
    }
    QTRY_VERIFY(!menu->isVisible());
  }

  void theKeyboardAloneReachesEverything_data() {
    const Vela::Test::Rows<bool, QByteArray> row("mirrored", "script"); // keys, and what each leads to
    row("along", false, "F10:file! Left:help! Right:file! End:help! Down:help! Home:file! F10:line");
    row("away", false, "F10:file! Tab:line F10:file! Backtab:line F10:file! X:file! Esc:line");
    row("menu", false, "F10:file! Up:file/file/open! Esc:file! Enter:file/file/open! Alt:line");
    row("click", false, "F10:file! Ctrl+H:file! End:help! Space:line/open");
    row("letter", false, "F10:file! Shift+E:edit/edit/undo! F10:line F10:file! H:line/open");
    row("on", false, "Alt+F:file/file/open! Left:edit/edit/undo! Right:file/file/open! O:line/open");
    row("sub-menu", false,
        "Alt+F:file/file/open! Up:file/file/recent! Right:file/recent/one! Left:file/file/recent! "
        "Right:file/recent/one! Esc:file/file/recent! Right:file/recent/one! Right:edit/edit/undo!");
    row("mirrored", true,
        "F10:file! Left:edit! Right:file! Down:file/file/open! Left:edit/edit/undo! Right:file/file/open! "
        "Up:file/file/recent! Left:file/recent/one! Left:edit/edit/undo!");
    row("some disabled", false,
        "-edit:line F10:file! Right:help! E:help! Alt+F:file/file/open! Right:file/file/open! Esc:file! "
        "-help:file! End:file! H:file! Esc:line -file:line F10:line");
    row("shared letter", false, "+&First:line Alt+F:file! F:&First! Up:&First! Space:line/open");
  }
  void theKeyboardAloneReachesEverything() {
    QFETCH(const QByteArray, script);
    QFETCH(const bool, mirrored);
    Screen screen;
    screen.window.setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
    QVERIFY(screen.isReady());
    const QStringList steps = QString::fromLatin1(script).split(u' ');
    for (const QString& step : steps) {
      const QString word = step.section(u':', 0, 0);
      const QKeyCombination keys = QKeySequence(word)[0];
      if (word.startsWith(u'-'))
        screen.builder->SetButtonEnabled(word.mid(1), false);
      else if (word.startsWith(u'+'))
        screen.builder->AddMenuBarItem(word.mid(1), SLOT(open()), QIcon(), word.mid(1));
      else
        screen.key(word == id("Alt") ? Qt::Key_Alt : keys.key(), keys.keyboardModifiers());
      settle();
      QCOMPARE(word + u':' + screen.state(), step);
    }
    QCOMPARE(screen.window.unused, QStringList());
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
    screen.builder->Start();
    QVERIFY(screen.builder->IsMenuVisible());
  }
};

VELA_TEST_MAIN(MenuBarTest)
#include "menu_bar_test.moc"
